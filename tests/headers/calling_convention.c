/* The host's functions keep the calling convention of the header, whatever the compiler's own is: a function of another
   one does not fit. Compiled where there are several, with KARDENO_OTHER_CALL defined as one of the others. */
#include "kardeno_soft/kardeno_soft.h"

static void KARDENO_OTHER_CALL update(KardenoSceneObject* object)
{
    (void)object;
}

KardenoObjectFunctions functions = {{0}, update, 0, 0, 0, 0, {0}, 0};
