// The six clip planes. A plane names the outcode bit that decides which vertices are inside, the coordinate that it
// tests, what else of the position it carries along, where it lies, and the outcode of a vertex that it makes.
//
// near and far cut in camera space, before projection; the other four cut the projected outline.
#pragma once

#include "geometry/screen_polygon.h"
#include "support/list.h"

namespace kardeno {

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

// The tests below are inclusive: a value on the bound is inside. They test the stored coordinates.

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

// newOutcode(): of a vertex just made. It holds what the clippers still to come will test, and nothing else: no new
// vertex gets the near bit, and none after the far plane gets the far bit.

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
