// The header before <windows.h>.
#include "kardeno_soft/kardeno_soft.h"

#include <windows.h>

kardeno::RenderView view;
