// How polygons get into the lists: the header of a stored polygon, and what is counted when one is committed.
#pragma once

#include "geometry/polygon_lists.h"
#include "geometry/side_counts.h"

namespace kardeno {

// Sets those fields of the header that follow from the format, the list and the number of corners.
template <class Format, class TargetList>
void setHeader(StoredPolygon& polygon, SceneMaterial* material, u32 cornerCount)
{
    polygon.material = material;
    polygon.bytes = static_cast<u16>(storedBytes(cornerCount, cornerLayout<Format>.bytes));
    polygon.cornerCount = static_cast<u8>(cornerCount);
    polygon.format = Format::id;
    polygon.occludes = TargetList::occludes;
    polygon.state = unseenState;
}

// Whether all corners of the polygon lie on one row, so that it covers no pixel. Such polygons of the list that is not
// sorted are counted and not stored. A sorted list keeps them: their depth decides how many passes the sort makes.
template <class Format, class TargetList>
bool isNeverSeen(const StoredPolygon& polygon)
{
    if (TargetList::sorted) return false;
    constexpr CornerLayout layout = cornerLayout<Format>;
    const u8* corner = cornersOf(polygon);
    const i32 row = placeOf(corner, layout).y;
    for (u32 i = 1; i < polygon.cornerCount; ++i) {
        corner += layout.bytes;
        if (placeOf(corner, layout).y != row) return false;
    }
    return true;
}

// Commits a polygon that is stored at the list's reserved place, and counts its sides for the edge table.
template <class TargetList>
void commit(StoredPolygon& polygon)
{
    PolygonList& list = TargetList::list();
    if constexpr (TargetList::resolved) list.lastSideMakesEdge = countSides(polygon);
    commitPolygon(list, polygon);
}

// Stores a screen polygon at the list's reserved place and commits it.
template <class Format, class TargetList>
void storePolygon(const ScreenPolygon& polygon, StoredPolygon& stored)
{
    setHeader<Format, TargetList>(stored, polygon.material, static_cast<u32>(polygon.vertexCount));
    stored.faceColour = polygon.faceColour;
    if constexpr (TargetList::resolved) {
        stored.invDepthStepX = polygon.invDepthStepX;
        stored.invDepthStepY = polygon.invDepthStepY;
        stored.invDepthOrigin = polygon.invDepthOrigin;
    }
    if constexpr (TargetList::sorted) stored.maxDepth = polygon.maxDepth;

    u8* corner = cornersOf(stored);
    for (i32 i = 0; i < polygon.vertexCount; ++i, corner += cornerLayout<Format>.bytes) {
        storeCorner<Format>(corner, {polygon.screenX[i], polygon.scanY[i]}, polygon.invDepth[i],
                            [&]<class Attribute>() { return (polygon.*Attribute::values)[i]; });
    }
    if (isNeverSeen<Format, TargetList>(stored)) return commitUnseenPolygon(TargetList::list());
    commit<TargetList>(stored);
}

} // namespace kardeno
