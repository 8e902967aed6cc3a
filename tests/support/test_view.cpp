#include "tests/support/test_view.h"

#include <cstring>
#include <ostream>

namespace kardeno::tests {

TestView::TestView(const Settings& settings)
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

std::ostream& operator<<(std::ostream& out, const Corners& corners)
{
    for (const Corner& corner : corners) out << '(' << corner.x << ", " << corner.y << ") ";
    return out;
}

u32 screenOutcode(const RenderView& view, f32 x, f32 y)
{
    u32 outcode = outcodeNear | outcodeFar;
    if (x >= view.left) outcode |= outcodeLeft;
    if (x <= view.projection->right) outcode |= outcodeRight;
    if (y >= view.top) outcode |= outcodeTop;
    if (y <= view.projection->bottom) outcode |= outcodeBottom;
    return outcode;
}

ScreenPolygon screenPolygon(std::initializer_list<Corner> corners, const TestView& view, f32 invDepth)
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

Corners corners(const ScreenPolygon& polygon)
{
    Corners result;
    for (i32 i = 0; i < polygon.vertexCount; ++i) result.push_back({polygon.screenX[i], polygon.screenY[i]});
    return result;
}

} // namespace kardeno::tests
