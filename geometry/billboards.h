// Billboards: a four-cornered face becomes a screen-aligned square around the mean of its projected corners.
#pragma once

#include "geometry/emission.h"

namespace kardeno {

// Overwrites the polygon's four corners by the square whose half side is the larger half-extent of the outline, and its
// outcodes with it. Intended: each corner keeps the inverse depth and texture coordinates that the face's own corner in
// that place has.
void squareCorners(const RenderView& view, ScreenPolygon& polygon);

// Into the sorted list with a depth plane; into the late list, which is never resolved, without one.
template <class TargetList>
void emitBillboard(const RenderView* view, const SceneFace* face)
{
    if (face->vertexCount != 4) return;
    HostContext& context = *hostContext;
    ScreenPolygon* polygon = reservePolygon(context, TargetList::list());
    if (!polygon || !foldOutcodes(context, *polygon, *face)) return;

    // A billboard is never cut at the near or far plane: it is dropped whole.
    if ((polygon->outcodeAnd & outcodeDepthPlanes) != outcodeDepthPlanes) return;

    fromCache<Textured>(context, *view, *face, *polygon);
    polygon->maxDepth = deepestCorner(*polygon);
    squareCorners(*view, *polygon);
    if (!clipToScreen(*view, modeOf(*face->material).clip, *polygon)) return;

    // What is never resolved is never compared in depth.
    if constexpr (TargetList::resolved) setDepthPlane(context, *view, *face, *polygon);
    finishPolygon(*face, *polygon, TargetList::occludes);
    commitPolygon(TargetList::list());
}

} // namespace kardeno
