// Sutherland-Hodgman clipping of a screen polygon against one plane, as one template for six planes and six vertex
// formats. The stored outcode of a vertex says whether it is inside; the coordinates are not tested again.
#pragma once

#include "geometry/clip_planes.h"
#include "geometry/vertex_formats.h"
#include "kardeno_soft/render_modes.h"

namespace kardeno {

// Clips the polygon in place: vertexCount, outcode and the arrays of the plane and the format are rewritten. The sides
// are walked in order, beginning with the one from vertex 0 to vertex 1. The outline comes back empty when no vertex is
// inside, and also when it would have more than 16 vertices. It is compiled for all six planes and all six formats.
template <class Plane, class Format>
void clip(const RenderView* view, ScreenPolygon* polygon);

// The six clippers of a vertex format.
template <class Format>
struct Clippers {
    static const ClipperFamily family;
};

extern template struct Clippers<PositionsOnly>;
extern template struct Clippers<Coloured>;
extern template struct Clippers<ColouredTextured>;
extern template struct Clippers<Lit>;
extern template struct Clippers<LitTextured>;
extern template struct Clippers<Textured>;

template <class Format>
inline constexpr const ClipperFamily& clippers = Clippers<Format>::family;

} // namespace kardeno
