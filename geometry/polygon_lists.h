// The frame's three polygon lists and the work arrays of the depth sort. Their storage comes from the host's realloc,
// grows in steps of 512 records and is kept from frame to frame; a new frame only sets the counts back to 0.
#pragma once

#include "geometry/screen_polygon.h"

namespace kardeno {

inline constexpr i32 listGrowth = 512;

// A growable array of polygons. A full list grows together with the sort arrays, and the host may refuse one half of
// that growth. `records` and `capacity` may then be wrong, while `held` and `heldCapacity` always describe the block
// that the list owns.
struct PolygonList {
    ScreenPolygon* records; // stored base; null at load
    i32 count;
    i32 capacity; // stored capacity in records

    ScreenPolygon* held; // the block that holds the polygons taken so far
    i32 heldCapacity;
};

// An array of the depth sort.
struct SortArray {
    u32* entries;
    bool released; // whether `entries` was given back to the host
};

// The three arrays of the depth sort, which share one capacity. It is at least the length of the longest list, unless
// the host refused memory.
struct SortArrays {
    SortArray sortOrder; // receives the drawing order, as record indices
    SortArray sortKeys;
    SortArray sortScratch;
    i32 capacity;

    // Whether all three arrays have room for `count` entries.
    bool canHold(i32 count) const;
};

extern PolygonList resolvedPolygons;
extern PolygonList sortedPolygons;
extern PolygonList lateSortedPolygons;
extern SortArrays sortArrays;

// The properties of each list, for the routines that append to it and for the frame driver:
//   occludes  The polygons hide what lies farther.
//   resolved  The polygons' edges go into the edge table, and the scanline resolver finds their visible spans.
//   sorted    The polygons need a sort depth and are drawn from far to near. Other lists are drawn in their own order.
struct ResolvedPolygons {
    static constexpr bool occludes = true;
    static constexpr bool resolved = true;
    static constexpr bool sorted = false;
    static PolygonList& list() { return resolvedPolygons; }
};
struct SortedPolygons {
    static constexpr bool occludes = false;
    static constexpr bool resolved = true;
    static constexpr bool sorted = true;
    static PolygonList& list() { return sortedPolygons; }
};
struct LateSortedPolygons {
    static constexpr bool occludes = false;
    static constexpr bool resolved = false;
    static constexpr bool sorted = true;
    static PolygonList& list() { return lateSortedPolygons; }
};

// Returns the record after the last one, to be filled and then committed; the count stays as it is. A full list grows
// first, and the sort arrays with it. Returns null when there is no room, and the caller drops the face.
ScreenPolygon* reservePolygon(HostContext& context, PolygonList& list);

// Adds the reserved record to the list.
void commitPolygon(PolygonList& list);

// Empties the three lists and keeps their storage.
void resetPolygonLists();

} // namespace kardeno
