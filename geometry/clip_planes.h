// The six clip planes. The near and far planes cut in camera space, before projection; the other four cut the projected
// outline. Each plane says
//   outcodeBit    which bit of an outcode tells that a vertex is inside
//   Tested        the coordinate that the plane bounds; a new vertex gets the bound itself
//   Carried       the other coordinates, which are interpolated at a new vertex
//   bound()       where the plane lies
//   newOutcode()  the outcode of a new vertex: the bits that the clippers still to come will test, and no others. So no
//                 new vertex gets the near bit, and none that the far plane makes gets the far bit.
#pragma once

#include "geometry/screen_polygon.h"
#include "support/list.h"

namespace kardeno {

// A coordinate of the position, known by its array in the polygon.
template <f32 (ScreenPolygon::*array)[maxCorners]>
struct Coordinate {
    static constexpr auto values = array;
};
struct ViewX : Coordinate<&ScreenPolygon::viewX> {};
struct ViewY : Coordinate<&ScreenPolygon::viewY> {};
struct ViewZ : Coordinate<&ScreenPolygon::viewZ> {};
struct ScreenX : Coordinate<&ScreenPolygon::screenX> {};
struct ScreenY : Coordinate<&ScreenPolygon::screenY> {};
struct InvDepth : Coordinate<&ScreenPolygon::invDepth> {};

// The outcode of a new vertex is found from its stored coordinates. A coordinate on the bound is inside.

inline u32 sideOutcodeInCamera(const ScreenPolygon& polygon, i32 vertex, f32 depth)
{
    const f32 x = polygon.viewX[vertex];
    const f32 y = polygon.viewY[vertex];
    u32 bits = 0;
    if (x >= -depth) bits |= outcodeLeft;
    if (x <= depth) bits |= outcodeRight;
    if (y <= depth) bits |= outcodeTop;
    if (y >= -depth) bits |= outcodeBottom;
    return bits;
}

inline u32 columnOutcodeOnScreen(const RenderView& view, f32 x)
{
    u32 bits = 0;
    if (x >= view.left) bits |= outcodeLeft;
    if (x <= view.projection->right) bits |= outcodeRight;
    return bits;
}

inline u32 rowOutcodeOnScreen(const RenderView& view, f32 y)
{
    u32 bits = 0;
    if (y >= view.top) bits |= outcodeTop;
    if (y <= view.projection->bottom) bits |= outcodeBottom;
    return bits;
}

struct NearPlane {
    static constexpr u32 outcodeBit = outcodeNear;
    using Tested = ViewZ;
    using Carried = List<ViewX, ViewY>;
    static f32 bound(const RenderView& view) { return view.nearZ; }
    static u32 newOutcode(const RenderView& view, const ScreenPolygon& polygon, i32 newVertex, u32 outsideOutcode)
    {
        return (outsideOutcode & outcodeFar) | sideOutcodeInCamera(polygon, newVertex, view.nearZ);
    }
};

struct FarPlane {
    static constexpr u32 outcodeBit = outcodeFar;
    using Tested = ViewZ;
    using Carried = List<ViewX, ViewY>;
    static f32 bound(const RenderView& view) { return view.farZ; }
    static u32 newOutcode(const RenderView& view, const ScreenPolygon& polygon, i32 newVertex, u32)
    {
        return sideOutcodeInCamera(polygon, newVertex, view.farZ);
    }
};

struct RightPlane {
    static constexpr u32 outcodeBit = outcodeRight;
    using Tested = ScreenX;
    using Carried = List<ScreenY, InvDepth>;
    static f32 bound(const RenderView& view) { return view.projection->right; }
    static u32 newOutcode(const RenderView& view, const ScreenPolygon& polygon, i32 newVertex, u32)
    {
        return outcodeLeft | rowOutcodeOnScreen(view, polygon.screenY[newVertex]);
    }
};

struct LeftPlane {
    static constexpr u32 outcodeBit = outcodeLeft;
    using Tested = ScreenX;
    using Carried = List<ScreenY, InvDepth>;
    static f32 bound(const RenderView& view) { return view.left; }
    static u32 newOutcode(const RenderView& view, const ScreenPolygon& polygon, i32 newVertex, u32)
    {
        return rowOutcodeOnScreen(view, polygon.screenY[newVertex]);
    }
};

struct BottomPlane {
    static constexpr u32 outcodeBit = outcodeBottom;
    using Tested = ScreenY;
    using Carried = List<ScreenX, InvDepth>;
    static f32 bound(const RenderView& view) { return view.projection->bottom; }
    static u32 newOutcode(const RenderView&, const ScreenPolygon&, i32, u32) { return outcodeTop; }
};

struct TopPlane {
    static constexpr u32 outcodeBit = outcodeTop;
    using Tested = ScreenY;
    using Carried = List<ScreenX, InvDepth>;
    static f32 bound(const RenderView& view) { return view.top; }
    static u32 newOutcode(const RenderView&, const ScreenPolygon&, i32, u32) { return 0; }
};

} // namespace kardeno
