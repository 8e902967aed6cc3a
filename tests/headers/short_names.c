/* A host in C that asks for the names as the headers write them. */
#define KARDENO_SHORT_NAMES
#include "kardeno_soft/checked.h"
#include "kardeno_soft/kardeno_soft.h"

RenderView view;
HostContext context;
u32 number;
f32 real;

int sum(void);
CheckedSizes* sizes(void);

CheckedSizes* sizes(void)
{
    return KARDENO_CHECKED_SIZES(&context);
}

int sum(void)
{
    return view.pitch + context.bitsPerPixel + outcodeAll + transparencyHalf + rowSpareA;
}
