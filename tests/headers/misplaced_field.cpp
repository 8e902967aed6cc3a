// A field that is not where it is asserted to be does not compile, in any language.
#include "kardeno_soft/kardeno_soft.h"

typedef struct Misplaced {
    int first, second;
} Misplaced;
KARDENO_OFFSET(Misplaced, second, 0, 0);
