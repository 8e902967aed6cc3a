#include "geometry/depth_sort.h"

#include <assert.h>

namespace kardeno {

namespace {

constexpr u32 digits = 256; // values that a digit can have

i32 largestKey(const ScreenPolygon* list, i32 count)
{
    i32 largest = list[0].maxDepth;
    for (i32 i = 1; i < count; ++i) {
        if (list[i].maxDepth > largest) largest = list[i].maxDepth;
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

// Sorts the indices of `input` into `output` by one digit of their keys, the byte that starts at bit `shift`, with a
// stable counting sort. A null input stands for the indices 0, 1, 2 and so on.
void sortByDigit(const ScreenPolygon* list, i32 count, u32 shift, const u32* input, u32* output)
{
    const auto indexAt = [&](i32 i) { return input ? input[i] : static_cast<u32>(i); };
    const auto digitOf = [&](u32 index) { return (static_cast<u32>(list[index].maxDepth) >> shift) & 0xff; };

    // Each digit is counted in the slot after its own, so that the running sum leaves in a digit's own slot the place
    // where its indices start.
    u32 starts[digits + 1] = {};
    for (i32 i = 0; i < count; ++i) ++starts[digitOf(indexAt(i)) + 1];
    for (u32 digit = 1; digit < digits; ++digit) starts[digit] += starts[digit - 1];

    for (i32 i = 0; i < count; ++i) {
        const u32 index = indexAt(i);
        output[starts[digitOf(index)]++] = index;
    }
}

} // namespace

void SortPolygonsByDepth(const ScreenPolygon* list, i32 count)
{
    assert(count >= 1 && sortArrays.canHold(count));
    const i32 passes = passesFor(largestKey(list, count));
    u32* const order = sortArrays.sortOrder.entries;
    u32* const keys = sortArrays.sortKeys.entries;
    u32* const scratch = sortArrays.sortScratch.entries;

    // The passes write to `keys` and `scratch` in turn, and the last one to `order`.
    const u32* input = nullptr;
    for (i32 pass = 0; pass < passes; ++pass) {
        u32* const usual = pass % 2 == 0 ? keys : scratch;
        u32* const output = pass + 1 == passes ? order : usual;
        sortByDigit(list, count, static_cast<u32>(pass) * 8, input, output);
        input = output;
    }
}

} // namespace kardeno
