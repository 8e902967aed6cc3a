#include "spanbuffer/edge_sort.h"

#include <bit>

namespace kardeno {

namespace {

constexpr u32 mostBucketBits = 10;
constexpr i32 shortLength = 8; // up to which an insertion sort is the faster one

// What is known of a list after one look at it.
struct ListExtent {
    u32 count;
    i32 leastX, mostX;
    ScanEdge* last;
};

ListExtent extentOf(ScanEdge* first, const ScanEdge* end)
{
    ListExtent extent = {.count = 0, .leastX = first->x, .mostX = first->x, .last = first};
    for (ScanEdge* edge = first; edge != end; edge = edge->next) {
        if (edge->x < extent.leastX) extent.leastX = edge->x;
        if (edge->x > extent.mostX) extent.mostX = edge->x;
        extent.last = edge;
        ++extent.count;
    }
    return extent;
}

// The two sorts below take a list that ends with null, and of equal edges let the one that stands later in it come
// first.

ScanEdge* insertionSorted(ScanEdge* list)
{
    ScanEdge* result = nullptr;
    while (list) {
        ScanEdge* const edge = list;
        list = edge->next;
        ScanEdge** link = &result;
        while (*link && (*link)->x < edge->x) link = &(*link)->next;
        edge->next = *link;
        *link = edge;
    }
    return result;
}

// Merges two sorted lists that end with null. Of equal edges those of `later` come first.
ScanEdge* merged(ScanEdge* later, ScanEdge* earlier)
{
    ScanEdge* result = nullptr;
    ScanEdge** link = &result;
    while (later && earlier) {
        ScanEdge*& taken = later->x <= earlier->x ? later : earlier;
        *link = taken;
        link = &taken->next;
        taken = taken->next;
    }
    *link = later ? later : earlier;
    return result;
}

// A bottom-up merge sort.
ScanEdge* mergeSorted(ScanEdge* list)
{
    // runs[i] is empty or holds 2^i edges, which stood in the list before those of the smaller runs.
    ScanEdge* runs[32] = {};
    while (list) {
        ScanEdge* run = list;
        list = list->next;
        run->next = nullptr;
        u32 i = 0;
        for (; runs[i]; ++i) {
            run = merged(run, runs[i]);
            runs[i] = nullptr;
        }
        runs[i] = run;
    }
    ScanEdge* result = nullptr;
    for (ScanEdge* run : runs) {
        if (run) result = merged(result, run);
    }
    return result;
}

bool isShort(const ScanEdge* list)
{
    i32 length = 0;
    for (; list && length <= shortLength; list = list->next) ++length;
    return length <= shortLength;
}

} // namespace

ScanEdge* sortedByX(ScanEdge* first, ScanEdge* end)
{
    const ListExtent extent = extentOf(first, end);
    extent.last->next = nullptr;

    // The edges are dealt out to buckets of equal width, about as many as there are edges. Dealing puts each edge in
    // front of its bucket and so turns the order of the list round; the sort of a bucket turns equal edges back.
    const u32 width = static_cast<u32>(extent.mostX) - static_cast<u32>(extent.leastX);
    const u32 wantedBits = static_cast<u32>(std::bit_width(extent.count - 1));
    const u32 bucketBits = wantedBits < mostBucketBits ? wantedBits : mostBucketBits;
    const u32 widthBits = static_cast<u32>(std::bit_width(width));
    const u32 shift = widthBits > bucketBits ? widthBits - bucketBits : 0;

    ScanEdge* buckets[1u << mostBucketBits];
    const u32 bucketCount = (width >> shift) + 1;
    for (u32 i = 0; i < bucketCount; ++i) buckets[i] = nullptr;
    while (first) {
        ScanEdge* const edge = first;
        first = edge->next;
        ScanEdge*& bucket = buckets[(static_cast<u32>(edge->x) - static_cast<u32>(extent.leastX)) >> shift];
        edge->next = bucket;
        bucket = edge;
    }

    ScanEdge* result = nullptr;
    ScanEdge** link = &result;
    for (u32 i = 0; i < bucketCount; ++i) {
        *link = isShort(buckets[i]) ? insertionSorted(buckets[i]) : mergeSorted(buckets[i]);
        while (*link) link = &(*link)->next;
    }
    *link = end;
    return result;
}

} // namespace kardeno
