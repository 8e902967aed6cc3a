/* A host in C that has names of its own which are also those of the renderer's records, numbers and constants. */
typedef unsigned long u32;
typedef struct RenderView {
    int own;
} RenderView;
typedef struct TextureMap {
    int own;
} TextureMap;
enum { outcodeAll = 100 };
#define f32 double
#define Functions 7

#include "kardeno_soft/checked.h"
#include "kardeno_soft/kardeno_soft.h"

f32 aDouble;
int seven = Functions;
u32 aLong;
RenderView ownView;
TextureMap ownMap;
KardenoRenderView view;
KardenoTextureMap map;
KardenoFunctions functions;

int sum(void);
void tellSizes(KardenoHostContext* context);

void tellSizes(KardenoHostContext* context)
{
    KardenoCheckedSizes* sizes = KARDENO_CHECKED_SIZES(context);
    sizes->mark = kardenoCheckedSizesMark;
    sizes->markAgain = ~sizes->mark;
    sizes->vertexCount = 100;
}

int sum(void)
{
    return outcodeAll + kardenoOutcodeAll + kardenoTransparencyHalf + kardenoRowSpareA + kardenoFrameClear + ownView.own
           + ownMap.own + view.pitch + map.transparentIndex + KARDENO_VERSION_NUMBER;
}
