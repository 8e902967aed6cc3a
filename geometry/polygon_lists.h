// The frame's three polygon lists and the work arrays of the depth sort. All storage comes from the host's realloc,
// grows in steps of 512 records and is kept from frame to frame; a frame only sets the counts back to 0.
#pragma once

#include "geometry/screen_polygon.h"

namespace kardeno {

inline constexpr i32 listGrowth = 512;

// A growable array of polygons. What is stored and what is really held differ only after a growth of which one half was
// refused (see reservePolygon): then the stored values are what that path leaves, and the held ones are the truth.
struct PolygonList {
    ScreenPolygon* records; // stored base, null at load
    i32 count;
    i32 capacity; // stored capacity in records

    ScreenPolygon* held; // the block that holds the records taken so far
    i32 heldCapacity;
};

// An array of the depth sort: a stored base, and whether the block behind it was given back to the host.
struct SortArray {
    u32* entries;
    bool released;
};

// Three arrays of 32-bit words with one capacity between them: at least as many entries as the longest list, unless the
// host refused memory.
struct SortArrays {
    SortArray sortOrder; // receives the drawing order, as record indices
    SortArray sortKeys;
    SortArray sortScratch;
    i32 capacity;

    // Whether all three hold at least `count` entries.
    bool canHold(i32 count) const;
};

extern PolygonList resolvedPolygons;
extern PolygonList sortedPolygons;
extern PolygonList lateSortedPolygons;
extern SortArrays sortArrays;

// What each list is, for the routines that append to it and for the frame driver:
//   occludes  its polygons hide what lies farther
//   resolved  its polygons' edges go into the edge table, and the scanline resolver finds their visible spans
//   sorted    its polygons are drawn from far to near, and so need a sort depth; else they are drawn in list order
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

// The record at index `count`, to be filled; the count is not advanced. Grows the list when it is full, and the sort
// arrays with it. Null when there is no room: the caller drops the face.
ScreenPolygon* reservePolygon(HostContext& context, PolygonList& list);

// Takes the reserved record into the list.
void commitPolygon(PolygonList& list);

// Empties the three lists and keeps their storage.
void resetPolygonLists();

} // namespace kardeno
