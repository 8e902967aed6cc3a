// Views and polygons for tests, with numbers that a reader can follow in the head.
#pragma once

#include "geometry/screen_polygon.h"

#include <initializer_list>
#include <iosfwd>
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
    explicit TestView(const Settings& settings);
    TestView(const TestView&) = delete;
    TestView& operator=(const TestView&) = delete;
};

struct Corner {
    f32 x, y;
    bool operator==(const Corner&) const = default;
};
using Corners = std::vector<Corner>;

std::ostream& operator<<(std::ostream& out, const Corners& corners);

// The outcode of a projected point against the view's four sides; inside near and far.
u32 screenOutcode(const RenderView& view, f32 x, f32 y);

// A polygon as emission would leave it: corners on the screen, outcodes of the view's sides, rows truncated, no spans,
// and a flat depth plane. Everything else is zero.
ScreenPolygon screenPolygon(std::initializer_list<Corner> corners, const TestView& view, f32 invDepth = 1);

Corners corners(const ScreenPolygon& polygon);

} // namespace kardeno::tests
