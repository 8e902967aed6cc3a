#include "tests/reference/reference_picking.h"

#include "tests/reference/reference_arithmetic.h"
#include "tests/reference/reference_clipping.h"

#include <algorithm>
#include <cmath>

namespace kardeno::reference {

namespace {

struct Vector {
    f64 x, y, z;
};

Vector difference(const Corner& a, const Corner& b)
{
    return {static_cast<f64>(a.viewX) - b.viewX, static_cast<f64>(a.viewY) - b.viewY,
            static_cast<f64>(a.viewZ) - b.viewZ};
}

f64 dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector unit(const Vector& a)
{
    const f64 length = std::sqrt(dot(a, a));
    return {a.x / length, a.y / length, a.z / length};
}

Vector cross(const Vector& u, const Vector& w)
{
    return {u.y * w.z - u.z * w.y, u.z * w.x - u.x * w.z, u.x * w.y - u.y * w.x};
}

// The products stand in another order than where faces are drawn.
void project(const ViewProjection& projection, f32 x, f32 y, f32 z, ScreenVertex& screen)
{
    screen.invDepth = single(1.0 / static_cast<f64>(z));
    screen.x = single(static_cast<f64>(x) * screen.invDepth * projection.scaleX + projection.centreX);
    screen.y = single(projection.centreY - static_cast<f64>(y) * screen.invDepth * projection.scaleY);
}

} // namespace

std::optional<f32> depthUnderPoint(const RenderView& view, const SceneFace& face, f32 x, f32 y, HostContext& context)
{
    const ViewProjection& projection = *view.projection;
    Polygon polygon;
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const u32 outcode = context.vertexOutcodes[face.vertexIndices[i]];
        polygon.outcodeAnd &= outcode;
        polygon.outcodeOr |= outcode;
    }
    if (polygon.outcodeOr != 0x3f) return {};
    if (face.vertexCount < static_cast<i32>(fewestCorners) || face.vertexCount > static_cast<i32>(mostCorners))
        return {};

    for (i32 i = 0; i < face.vertexCount; ++i) {
        const i32 vertex = face.vertexIndices[i];
        Corner corner;
        corner.viewX = context.cameraVertices[vertex].x;
        corner.viewY = context.cameraVertices[vertex].y;
        corner.viewZ = context.cameraVertices[vertex].z;
        corner.outcode = context.vertexOutcodes[vertex];
        polygon.corners.push_back(corner);
    }
    const u32 depthPlanes = outcodeNear | outcodeFar;
    if ((polygon.outcodeAnd & depthPlanes) == depthPlanes) {
        for (i32 i = 0; i < face.vertexCount; ++i) {
            const i32 vertex = face.vertexIndices[i];
            Corner& corner = polygon.corners[static_cast<size_t>(i)];
            ScreenVertex& cached = context.screenVertices[vertex];
            if (context.vertexStamps[vertex] != context.projectionStamp) {
                project(projection, corner.viewX, corner.viewY, corner.viewZ, cached);
                context.vertexStamps[vertex] = context.projectionStamp;
            }
            corner.screenX = cached.x;
            corner.screenY = cached.y;
        }
    } else {
        if (!(polygon.outcodeAnd & outcodeNear) && !clip(polygon, Plane::nearPlane, Format{}, view)) return {};
        if (!(polygon.outcodeAnd & outcodeFar) && !clip(polygon, Plane::farPlane, Format{}, view)) return {};
        for (Corner& corner : polygon.corners) {
            ScreenVertex screen;
            project(projection, corner.viewX, corner.viewY, corner.viewZ, screen);
            corner.screenX = screen.x;
            corner.screenY = screen.y;
        }
    }

    const std::vector<Corner>& corners = polygon.corners;
    const auto [minX, maxX] =
        std::minmax_element(corners.begin(), corners.end(), [](auto& a, auto& b) { return a.screenX < b.screenX; });
    const auto [minY, maxY] =
        std::minmax_element(corners.begin(), corners.end(), [](auto& a, auto& b) { return a.screenY < b.screenY; });
    if (x < minX->screenX || x > maxX->screenX || y < minY->screenY || y > maxY->screenY) return {};

    const f64 px = x, py = y;
    for (size_t i = 0; i < corners.size(); ++i) {
        const Corner& a = corners[i];
        const Corner& b = corners[(i + 1) % corners.size()];
        const f64 ax = a.screenX, ay = a.screenY, bx = b.screenX, by = b.screenY;
        if ((ay - by) * (px - ax) + (bx - ax) * (py - ay) > 0) return {};
    }

    const Vector normal = cross(unit(difference(corners[0], corners[1])), unit(difference(corners[2], corners[1])));
    const Vector first = {corners[0].viewX, corners[0].viewY, corners[0].viewZ};
    const Vector ray = {(px - projection.centreX) / projection.scaleX, (projection.centreY - py) / projection.scaleY,
                        1.0};
    return single(dot(normal, first) / dot(normal, ray));
}

} // namespace kardeno::reference
