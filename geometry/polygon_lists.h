// The frame's three polygon lists and the work arrays of the depth sort. Their storage comes from the host's realloc,
// grows in steps of 512 records and is kept from frame to frame; a new frame only sets the counts back to 0.
#pragma once

#include "geometry/stored_polygon.h"

namespace kardeno {

inline constexpr i32 listGrowth = 512;

// A growable list of polygons, which lie one after another in one block. The block has room for `capacity` records of
// 1,024 bytes, which is more than the largest stored polygon takes: what is free behind the polygons is lent to the
// scanline resolver. A full list grows together with the sort arrays, and the host may refuse one half of that growth.
// `records` and `capacity` may then be wrong, while `held` and `heldCapacity` always describe the block that the list
// owns.
struct PolygonList {
    StoredPolygon* records; // stored base; null at load
    i32 count;              // polygons of the frame, also those that are counted and not stored
    i32 capacity;           // stored capacity in records

    StoredPolygon* held; // the block that holds the polygons taken so far
    i32 heldCapacity;
    u32 usedBytes;
    i32 storedCount;
    u16 lastBytes; // size of the last polygon
    bool lastIsStored;
    bool lastSideMakesEdge; // whether the last side of the last polygon was counted as an edge

    StoredPolygon* end() const { return reinterpret_cast<StoredPolygon*>(reinterpret_cast<u8*>(held) + usedBytes); }
};

// A polygon's position in its list, which the sort arrays hold: its distance from the list's first one in words.
inline constexpr u32 positionBytes = 4;

inline u32 positionIn(const PolygonList& list, const StoredPolygon& polygon)
{
    return static_cast<u32>(reinterpret_cast<const u8*>(&polygon) - reinterpret_cast<const u8*>(list.held))
           / positionBytes;
}

inline const StoredPolygon& polygonAt(const PolygonList& list, u32 position)
{
    return *reinterpret_cast<const StoredPolygon*>(reinterpret_cast<const u8*>(list.held)
                                                   + static_cast<uintptr_t>(position) * positionBytes);
}

// Bytes of a list's block for each polygon that it has room for.
inline constexpr u32 listRecordBytes = sizeof(ScreenPolygon);

// An array of the depth sort.
struct SortArray {
    u32* entries;
    bool released; // whether `entries` was given back to the host
};

// The three arrays of the depth sort, which share one capacity. It is at least the length of the longest list, unless
// the host refused memory.
struct SortArrays {
    SortArray sortOrder; // receives the drawing order, as positions in the list
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

// The rare half of reservePolygon(): the list is full, or half of a growth was refused before.
StoredPolygon* reserveInGrownList(HostContext& context, PolygonList& list);

// Returns the place behind the last polygon, to be filled and then committed; the count stays as it is. A full list
// grows first, and the sort arrays with it. Returns null when there is no room, and the caller drops the face.
inline StoredPolygon* reservePolygon(HostContext& context, PolygonList& list)
{
    const bool hasRoom = list.count < list.capacity && list.count < list.heldCapacity && list.records == list.held;
    return hasRoom ? list.end() : reserveInGrownList(context, list);
}

// Adds the polygon at the reserved place to the list. Its size must be set.
inline void commitPolygon(PolygonList& list, StoredPolygon& polygon)
{
    polygon.bytesBefore = list.lastBytes;
    list.lastBytes = polygon.bytes;
    list.lastIsStored = true;
    list.usedBytes += polygon.bytes;
    ++list.storedCount;
    ++list.count;
}

// Counts a polygon of which nothing can ever be seen, because all its corners lie on one row. The list needs as much
// room as with it.
inline void commitUnseenPolygon(PolygonList& list)
{
    ++list.count;
    list.lastIsStored = false;
    list.lastSideMakesEdge = false;
}

// Empties the three lists and keeps their storage.
void resetPolygonLists();

} // namespace kardeno
