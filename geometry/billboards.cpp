#include "geometry/billboards.h"

namespace kardeno {

namespace {

f64 distance(f64 a, f64 b)
{
    return a < b ? b - a : a - b;
}

} // namespace

void squareCorners(const RenderView& view, ScreenPolygon& polygon)
{
    f64 sumX = 0.0;
    f64 sumY = 0.0;
    for (i32 i = 0; i < 4; ++i) {
        sumX += polygon.screenX[i];
        sumY += polygon.screenY[i];
    }
    const f64 mx = sumX / 4;
    const f64 my = sumY / 4;

    f64 hx = 0.0;
    f64 hy = 0.0;
    for (i32 i = 0; i < 4; ++i) {
        const f64 dx = distance(polygon.screenX[i], mx);
        const f64 dy = distance(polygon.screenY[i], my);
        if (dx > hx) hx = dx;
        if (dy > hy) hy = dy;
    }
    const f64 r = hy > hx ? hy : hx;

    // 0 --- 3   The corners run down the left side and up the right one, which is the winding that is drawn.
    // |     |
    // 1 --- 2
    const ScreenVertex corners[4] = {
        {stored(mx - r), stored(my - r), 0},
        {stored(mx - r), stored(my + r), 0},
        {stored(mx + r), stored(my + r), 0},
        {stored(mx + r), stored(my - r), 0},
    };

    polygon.outcodeAnd = outcodeAll;
    polygon.outcodeOr = 0;
    for (i32 i = 0; i < 4; ++i) {
        polygon.screenX[i] = corners[i].x;
        polygon.screenY[i] = corners[i].y;
        polygon.outcode[i] =
            outcodeDepthPlanes | columnOutcodeOnScreen(view, corners[i].x) | rowOutcodeOnScreen(view, corners[i].y);
        polygon.outcodeAnd &= polygon.outcode[i];
        polygon.outcodeOr |= polygon.outcode[i];
    }
}

} // namespace kardeno
