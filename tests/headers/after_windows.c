/* The header behind <windows.h>. */
#include <windows.h>

#include "kardeno_soft/kardeno_soft.h"

KardenoRenderView view;
