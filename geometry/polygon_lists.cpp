#include "geometry/polygon_lists.h"

#include <assert.h>

namespace kardeno {

constinit PolygonList resolvedPolygons = {};
constinit PolygonList sortedPolygons = {};
constinit PolygonList lateSortedPolygons = {};
constinit SortArrays sortArrays = {};

namespace {

u32 bytesFor(i32 count, u32 size)
{
    return static_cast<u32>(count) * size;
}

// Asks the host for a larger block. An array that was given back must not reach the host again: it starts anew from a
// null block.
u32* reallocated(HostContext& context, const SortArray& array, i32 capacity)
{
    u32* const block = array.released ? nullptr : array.entries;
    return static_cast<u32*>(context.realloc(block, bytesFor(capacity, sizeof(u32))));
}

// Grows the three sort arrays by one step. Returns false when the host refused any of them.
bool growSortArrays(HostContext& context, SortArrays& arrays)
{
    SortArray* const all[] = {&arrays.sortOrder, &arrays.sortKeys, &arrays.sortScratch};
    arrays.capacity += listGrowth;

    u32* blocks[3];
    for (int i = 0; i < 3; ++i) blocks[i] = reallocated(context, *all[i], arrays.capacity);

    if (blocks[0] && blocks[1] && blocks[2]) {
        for (int i = 0; i < 3; ++i) *all[i] = {.entries = blocks[i], .released = false};
        return true;
    }

    // Intended: what was just obtained is given back, although the stored pointers may name those very blocks.
    for (int i = 0; i < 3; ++i) {
        if (!blocks[i]) continue;
        context.free(blocks[i]);
        all[i]->released = true;
    }
    arrays.capacity -= listGrowth;
    return false;
}

// Grows the list by one step, and the sort arrays when they would be too short. Returns false when the host refused, so
// that the face has to be dropped.
bool growList(HostContext& context, PolygonList& list)
{
    list.capacity += listGrowth;
    auto* const block =
        static_cast<StoredPolygon*>(context.realloc(list.records, bytesFor(list.capacity, listRecordBytes)));
    if (block) {
        list.held = block;
        list.heldCapacity = list.capacity;
    }

    // Intended: when a sort array is refused the list keeps its raised capacity and its old stored pointer, and the
    // block just obtained is not given back.
    if (sortArrays.capacity <= list.count && !growSortArrays(context, sortArrays)) return false;

    if (!block) {
        list.capacity -= listGrowth;
        return false;
    }
    list.records = block;
    return true;
}

} // namespace

bool SortArrays::canHold(i32 count) const
{
    return capacity >= count && !sortOrder.released && !sortKeys.released && !sortScratch.released;
}

StoredPolygon* reserveInGrownList(HostContext& context, PolygonList& list)
{
    if (list.capacity <= list.count && !growList(context, list)) return nullptr;

    // When half of a growth was refused, the stored pointer may be null or stale, or the capacity larger than the
    // block.
    const bool storedBlockIsReal = list.records && list.records == list.held;
    if (!storedBlockIsReal || list.count >= list.heldCapacity) return nullptr;
    assert(list.count >= 0 && list.heldCapacity % listGrowth == 0);
    return list.end();
}

void resetPolygonLists()
{
    PolygonList* const lists[] = {&resolvedPolygons, &sortedPolygons, &lateSortedPolygons};
    for (PolygonList* list : lists) {
        list->count = 0;
        list->usedBytes = 0;
        list->storedCount = 0;
        list->lastBytes = 0;
        list->lastIsStored = false;
        list->lastSideMakesEdge = false;
    }
}

} // namespace kardeno
