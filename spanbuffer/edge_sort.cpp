#include "spanbuffer/edge_sort.h"

#include <bit>

namespace kardeno {

namespace {

constexpr u32 shortCount = 12; // up to which an insertion sort is the fastest one
constexpr u32 mostBuckets = 2048;
constexpr u32 crowdedBucket = 24; // more edges than these in a bucket are left to the merge sort

// Inserts the edge into the first `count` edges, behind those with the same x.
void insert(ScanEdge* edges, u32 count, ScanEdge edge)
{
    u32 place = count;
    for (; place > 0 && edges[place - 1].x > edge.x; --place) edges[place] = edges[place - 1];
    edges[place] = edge;
}

// Merges two sorted runs. Of equal edges those of the first run come first.
void merge(const ScanEdge* first, const ScanEdge* firstEnd, const ScanEdge* second, const ScanEdge* secondEnd,
           ScanEdge* to)
{
    while (first != firstEnd && second != secondEnd) *to++ = second->x < first->x ? *second++ : *first++;
    while (first != firstEnd) *to++ = *first++;
    while (second != secondEnd) *to++ = *second++;
}

// A distribution into buckets of equal width, some twice as many as there are edges, and an insertion sort over all of
// them. The edges are taken from the last to the first, which puts those with the same x in the order that is asked
// for. Returns false, with nothing done, when too many edges would share a bucket.
bool sortByBuckets(const ScanEdge* edges, u32 count, ScanEdge* sorted)
{
    i32 least = edges[0].x;
    i32 most = least;
    for (u32 i = 1; i < count; ++i) {
        const i32 x = edges[i].x;
        least = x < least ? x : least;
        most = x > most ? x : most;
    }
    const u32 width = static_cast<u32>(most) - static_cast<u32>(least);
    const u32 wanted = count < mostBuckets / 2 ? 2 * std::bit_ceil(count) : mostBuckets;
    const u32 widthBits = static_cast<u32>(std::bit_width(width));
    const u32 wantedBits = static_cast<u32>(std::bit_width(wanted - 1));
    const u32 shift = widthBits > wantedBits ? widthBits - wantedBits : 0;
    const auto bucketOf = [&](i32 x) { return (static_cast<u32>(x) - static_cast<u32>(least)) >> shift; };

    u32 next[mostBuckets];
    const u32 bucketCount = (width >> shift) + 1;
    for (u32 i = 0; i < bucketCount; ++i) next[i] = 0;
    for (u32 i = 0; i < count; ++i) ++next[bucketOf(edges[i].x)];
    u32 place = 0;
    for (u32 i = 0; i < bucketCount; ++i) {
        const u32 size = next[i];
        if (size > crowdedBucket) return false;
        next[i] = place;
        place += size;
    }

    for (u32 i = count; i-- > 0;) sorted[next[bucketOf(edges[i].x)]++] = edges[i];
    for (u32 i = 1; i < count; ++i) {
        if (sorted[i - 1].x > sorted[i].x) insert(sorted, i, sorted[i]);
    }
    return true;
}

} // namespace

void sortStably(ScanEdge* edges, u32 count, ScanEdge* workspace)
{
    ScanEdge* from = edges;
    ScanEdge* to = workspace;
    for (u32 run = 1; run < count; run *= 2) {
        for (u32 first = 0; first < count; first += 2 * run) {
            const u32 middle = first + run < count ? first + run : count;
            const u32 end = middle + run < count ? middle + run : count;
            merge(from + first, from + middle, from + middle, from + end, to + first);
        }
        ScanEdge* const merged = to;
        to = from;
        from = merged;
    }
    if (from == edges) return;
    for (u32 i = 0; i < count; ++i) edges[i] = from[i];
}

void sortStartingEdges(ScanEdge* edges, u32 count, ScanEdge* sorted)
{
    if (count <= shortCount) {
        for (u32 i = 0; i < count; ++i) insert(sorted, i, edges[count - 1 - i]);
        return;
    }
    if (sortByBuckets(edges, count, sorted)) return;
    for (u32 i = 0; i < count; ++i) sorted[i] = edges[count - 1 - i];
    sortStably(sorted, count, edges);
}

} // namespace kardeno
