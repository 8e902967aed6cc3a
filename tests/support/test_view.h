// Views and polygons for tests, with numbers that a reader can follow in the head.
#pragma once

#include "geometry/screen_polygon.h"

#include <cstring>
#include <initializer_list>
#include <ostream>
#include <vector>

namespace kardeno::tests {

// A view whose projection is the plainest possible unless told otherwise: screen x = X / Z, screen y = -Y / Z.
struct TestView {
    struct Settings {
        f32 left = 0;
        f32 top = 0;
        f32 right = 320;
        f32 bottom = 200;
        f32 nearZ = 1;
        f32 farZ = 1000;
        f32 centreX = 0;
        f32 centreY = 0;
        f32 scaleX = 1;
        f32 scaleY = 1;
        i32 pitch = 320;
    };

    RenderView record;
    ViewProjection projection;

    TestView() : TestView(Settings{}) {}
    explicit TestView(const Settings& settings)
    {
        std::memset(&record, 0, sizeof record);
        record.left = settings.left;
        record.top = settings.top;
        record.nearZ = settings.nearZ;
        record.farZ = settings.farZ;
        record.pitch = settings.pitch;
        record.projection = &projection;
        projection = {settings.right,
                      settings.bottom,
                      settings.centreX,
                      settings.centreY,
                      settings.scaleX,
                      settings.scaleY,
                      1 / settings.scaleX,
                      1 / settings.scaleY,
                      settings.centreX / settings.scaleX,
                      settings.centreY / settings.scaleY};
    }
    TestView(const TestView&) = delete;
    TestView& operator=(const TestView&) = delete;
};

struct Corner {
    f32 x, y;
    bool operator==(const Corner&) const = default;
};
using Corners = std::vector<Corner>;

inline std::ostream& operator<<(std::ostream& out, const Corners& corners)
{
    for (const Corner& corner : corners) out << '(' << corner.x << ", " << corner.y << ") ";
    return out;
}

// The outcode of a projected point against the view's four sides; inside near and far.
inline u32 screenOutcode(const RenderView& view, f32 x, f32 y)
{
    u32 outcode = outcodeNear | outcodeFar;
    if (x >= view.left) outcode |= outcodeLeft;
    if (x <= view.projection->right) outcode |= outcodeRight;
    if (y >= view.top) outcode |= outcodeTop;
    if (y <= view.projection->bottom) outcode |= outcodeBottom;
    return outcode;
}

// A polygon as emission would leave it: corners on the screen, outcodes of the view's sides, rows truncated, no spans, and
// a flat depth plane. Everything else is zero.
inline ScreenPolygon screenPolygon(std::initializer_list<Corner> corners, const TestView& view, f32 invDepth = 1)
{
    ScreenPolygon polygon;
    std::memset(&polygon, 0, sizeof polygon);
    polygon.outcodeAnd = outcodeAll;
    for (const Corner& corner : corners) {
        const i32 i = polygon.vertexCount++;
        polygon.screenX[i] = corner.x;
        polygon.screenY[i] = corner.y;
        polygon.scanY[i] = static_cast<i32>(corner.y);
        polygon.invDepth[i] = invDepth;
        polygon.outcode[i] = screenOutcode(view.record, corner.x, corner.y);
        polygon.outcodeAnd &= polygon.outcode[i];
        polygon.outcodeOr |= polygon.outcode[i];
    }
    polygon.spanHead = -1;
    polygon.invDepthOrigin = invDepth;
    polygon.occludes = 1;
    polygon.engineFlag = 1;
    return polygon;
}

inline Corners corners(const ScreenPolygon& polygon)
{
    Corners result;
    for (i32 i = 0; i < polygon.vertexCount; ++i) result.push_back({polygon.screenX[i], polygon.screenY[i]});
    return result;
}

} // namespace kardeno::tests
