// Billboards: a face of four corners is drawn as a screen-aligned square around the mean of its projected corners.
#pragma once

#include "geometry/emission.h"

namespace kardeno {

// Moves the polygon's four corners to those of the square and recomputes their outcodes. Half a side of the square is
// the greatest distance, along x or along y, from the mean to a corner.
// Intended: each corner keeps the inverse depth and texture coordinates that the face's own corner there has.
void squareCorners(const RenderView& view, ScreenPolygon& polygon);

// Makes the square polygon of a face of four corners. Returns false when nothing of it is in view.
template <class TargetList>
bool makeBillboard(HostContext& context, const RenderView& view, const SceneFace& face, ScreenPolygon& polygon)
{
    if (!foldOutcodes(context, polygon, face)) return false;

    // A billboard is never cut at the near or far plane: it is dropped whole.
    if ((polygon.outcodeAnd & outcodeDepthPlanes) != outcodeDepthPlanes) return false;

    fromCache<Textured>(context, view, face, polygon);
    polygon.maxDepth = deepestCorner(polygon);
    squareCorners(view, polygon);
    if (!clipToScreen(view, modeOf(*face.material).clip, polygon)) return false;

    // The depth plane serves the scanline resolver alone, which never sees the polygons of an unresolved list.
    if constexpr (TargetList::resolved) setDepthPlane(context, view, face, polygon);
    finishPolygon(face, polygon, TargetList::occludes);
    return true;
}

// Turns a face of four corners into a square polygon and appends it to the list. Any other face is dropped.
template <class TargetList>
void emitBillboard(const RenderView* view, const SceneFace* face)
{
    if (face->vertexCount != 4) return;
    HostContext& context = *hostContext;
    StoredPolygon* const stored = reservePolygon(context, TargetList::list());
    if (!stored) return;
    ScreenPolygon polygon;
    if (makeBillboard<TargetList>(context, *view, *face, polygon)) storePolygon<Textured, TargetList>(polygon, *stored);
}

} // namespace kardeno
