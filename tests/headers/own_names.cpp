// A host in C++ that has names of its own which are also those of the renderer's records and numbers.
typedef unsigned long u32;
struct RenderView {
    int own;
};
struct TextureMap {
    int own;
};

#include "kardeno_soft/checked.h"
#include "kardeno_soft/kardeno_soft.h"

int sum(const RenderView& ownView, const TextureMap& ownMap, u32 own, const kardeno::RenderView& view, kardeno::u32);
void tellSizes(kardeno::HostContext* context);

void tellSizes(kardeno::HostContext* context)
{
    kardeno::CheckedSizes* sizes = KARDENO_CHECKED_SIZES(context);
    sizes->mark = kardeno::checkedSizesMark;
    sizes->markAgain = ~sizes->mark;
    sizes->vertexCount = 100;
}

int sum(const RenderView& ownView, const TextureMap& ownMap, u32 own, const kardeno::RenderView& view, kardeno::u32)
{
    return ownView.own + ownMap.own + int(own) + view.pitch + kardeno::outcodeAll;
}
