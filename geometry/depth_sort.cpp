#include "geometry/depth_sort.h"

#include <assert.h>

namespace kardeno {

namespace {

constexpr u32 digits = 256; // values that a digit can have

i32 largestKey(const PolygonList& list)
{
    i32 largest = list.held->maxDepth;
    for (const StoredPolygon* polygon = list.held; polygon != list.end(); polygon = following(polygon)) {
        if (polygon->maxDepth > largest) largest = polygon->maxDepth;
    }
    return largest;
}

// Intended: a signed comparison. Negative keys take no part in it, and sort by the bytes that the passes look at.
i32 passesFor(i32 largest)
{
    if (largest <= 0xff) return 1;
    if (largest <= 0xffff) return 2;
    if (largest <= 0xffffff) return 3;
    return 4;
}

// Calls visit(position) for each entry of `input`, or for each polygon of the list when there is none.
template <class Visit>
void forEachPosition(const PolygonList& list, const u32* input, Visit visit)
{
    if (input) {
        for (i32 i = 0; i < list.storedCount; ++i) visit(input[i]);
    } else {
        for (const StoredPolygon* polygon = list.held; polygon != list.end(); polygon = following(polygon))
            visit(positionIn(list, *polygon));
    }
}

// Sorts the positions of `input` into `output` by one digit of their keys, the byte that starts at bit `shift`, with a
// stable counting sort. A null input stands for the list in its own order.
void sortByDigit(const PolygonList& list, u32 shift, const u32* input, u32* output)
{
    const auto digitOf = [&](u32 position) {
        return (static_cast<u32>(polygonAt(list, position).maxDepth) >> shift) & 0xff;
    };

    // Each digit is counted in the slot after its own, so that the running sum leaves in a digit's own slot the place
    // where its positions start.
    u32 starts[digits + 1] = {};
    forEachPosition(list, input, [&](u32 position) { ++starts[digitOf(position) + 1]; });
    for (u32 digit = 1; digit < digits; ++digit) starts[digit] += starts[digit - 1];
    forEachPosition(list, input, [&](u32 position) { output[starts[digitOf(position)]++] = position; });
}

} // namespace

void SortPolygonsByDepth(const PolygonList& list)
{
    assert(list.storedCount >= 1 && sortArrays.canHold(list.storedCount));
    const i32 passes = passesFor(largestKey(list));
    u32* const order = sortArrays.sortOrder.entries;
    u32* const keys = sortArrays.sortKeys.entries;
    u32* const scratch = sortArrays.sortScratch.entries;

    // The passes write to `keys` and `scratch` in turn, and the last one to `order`.
    const u32* input = nullptr;
    for (i32 pass = 0; pass < passes; ++pass) {
        u32* const usual = pass % 2 == 0 ? keys : scratch;
        u32* const output = pass + 1 == passes ? order : usual;
        sortByDigit(list, static_cast<u32>(pass) * 8, input, output);
        input = output;
    }
}

} // namespace kardeno
