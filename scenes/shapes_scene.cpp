#include "scenes/shapes_scene.h"

namespace kardeno::scenes {

namespace {

struct CirclePoint {
    f64 x, y;
};

// Returns a point about the given number of twelfths around the unit circle. It is computed from a fraction t, nearly
// the tangent of half the angle, as ((1 - t t) / (1 + t t), 2 t / (1 + t t)).

CirclePoint circlePoint(i32 twelfth)
{
    constexpr f64 t[3] = {0, 0.27, 0.58};
    const i32 quarter = twelfth / 3 % 4;
    const f64 tangent = t[twelfth % 3];
    const f64 x = (1 - tangent * tangent) / (1 + tangent * tangent);
    const f64 y = 2 * tangent / (1 + tangent * tangent);
    switch (quarter) {
    case 0: return {x, y};
    case 1: return {-y, x};
    case 2: return {-x, -y};
    default: return {y, -x};
    }
}

constexpr Vector toLamp = {-2.0 / 3, 2.0 / 3, -1.0 / 3};

} // namespace

Placement turned(i32 w, i32 x, i32 y, i32 z, const Vector& origin)
{
    const f64 n = w * w + x * x + y * y + z * z;
    return {.right = {(w * w + x * x - y * y - z * z) / n, 2 * (x * y + w * z) / n, 2 * (x * z - w * y) / n},
            .up = {2 * (x * y - w * z) / n, (w * w - x * x + y * y - z * z) / n, 2 * (y * z + w * x) / n},
            .away = {2 * (x * z + w * y) / n, 2 * (y * z - w * x) / n, (w * w - x * x - y * y + z * z) / n},
            .origin = origin};
}

VertexShade Workbench::shadeOf(const Vector& normal) const
{
    const f64 lit = dot(normal, toLamp);
    const f64 intensity = minIntensity + (lit > 0 ? lit : 0) * (maxIntensity - minIntensity);
    return {.red = static_cast<f32>(127 + 127 * normal.x),
            .green = static_cast<f32>(127 + 127 * normal.y),
            .blue = static_cast<f32>(127 - 127 * normal.z),
            .intensity = static_cast<f32>(intensity)};
}

void Workbench::face(const std::vector<Corner>& corners)
{
    if (scene.isOffTheEye(corners)) scene.addFace(object, *material, corners, faceColour);
    faceColour = static_cast<u16>(faceColour + colourStep);
}

void Workbench::panel(const Placement& placement, f64 halfWidth, f64 halfHeight, f64 repeatU, f64 repeatV)
{
    const VertexShade shade = shadeOf(-1 * placement.away);
    const auto vertex = [&](f64 x, f64 y) { return scene.addVertex(placement({x, y, 0}), shade); };
    const f32 u = static_cast<f32>(repeatU), v = static_cast<f32>(repeatV);
    const i32 leftTop = vertex(-halfWidth, halfHeight);
    const i32 leftBottom = vertex(-halfWidth, -halfHeight);
    const i32 rightBottom = vertex(halfWidth, -halfHeight);
    const i32 rightTop = vertex(halfWidth, halfHeight);
    face({{leftTop, 0, 0}, {leftBottom, 0, v}, {rightBottom, u, v}, {rightTop, u, 0}});
}

void Workbench::box(const Placement& p, f64 halfWidth, f64 halfHeight, f64 halfDepth, f64 repeat)
{
    const Vector r = p.right, u = p.up, a = p.away;
    const auto side = [&](const Vector& right, const Vector& up, const Vector& away, f64 distance) {
        return Placement{right, up, away, p.origin + -distance * away};
    };
    panel(side(r, u, a, halfDepth), halfWidth, halfHeight, repeat, repeat);
    panel(side(-1 * r, u, -1 * a, halfDepth), halfWidth, halfHeight, repeat, repeat);
    panel(side(a, u, -1 * r, halfWidth), halfDepth, halfHeight, repeat, repeat);
    panel(side(-1 * a, u, r, halfWidth), halfDepth, halfHeight, repeat, repeat);
    panel(side(r, a, -1 * u, halfHeight), halfWidth, halfDepth, repeat, repeat);
    panel(side(r, -1 * a, u, halfHeight), halfWidth, halfDepth, repeat, repeat);
}

void Workbench::ball(const Placement& placement, f64 radius)
{
    constexpr i32 meridians = 12, rings = 6;
    i32 vertices[rings + 1][meridians];
    for (i32 ring = 0; ring <= rings; ++ring) {
        // Along the latitude, x goes from the north pole to the south pole, and y is the distance from the axis.
        const CirclePoint latitude = circlePoint(ring);
        for (i32 meridian = 0; meridian < meridians; ++meridian) {
            const CirclePoint around = circlePoint(meridian);
            const Vector normal = {latitude.y * around.x, latitude.x, latitude.y * around.y};
            vertices[ring][meridian] =
                scene.addVertex(placement(radius * normal), shadeOf(placement.direction(normal)));
        }
    }
    for (i32 ring = 0; ring < rings; ++ring) {
        const f32 v = static_cast<f32>(ring) / rings, vBelow = static_cast<f32>(ring + 1) / rings;
        for (i32 meridian = 0; meridian < meridians; ++meridian) {
            const i32 next = (meridian + 1) % meridians;
            const f32 u = static_cast<f32>(meridian) / meridians, uNext = static_cast<f32>(meridian + 1) / meridians;
            const i32 above = vertices[ring][meridian], below = vertices[ring + 1][meridian];
            const i32 aboveNext = vertices[ring][next], belowNext = vertices[ring + 1][next];
            std::vector<Corner> corners = {{above, u, v}, {below, u, vBelow}};
            if (ring + 1 < rings) corners.push_back({belowNext, uNext, vBelow});
            if (ring > 0) corners.push_back({aboveNext, uNext, v});
            face(corners);
        }
    }
}

void Workbench::pyramid(const Placement& placement, f64 halfBase, f64 height)
{
    const Vector base[4] = {
        {-halfBase, 0, -halfBase}, {halfBase, 0, -halfBase}, {halfBase, 0, halfBase}, {-halfBase, 0, halfBase}};
    for (i32 side = 0; side < 4; ++side) {
        const Vector& from = base[side];
        const Vector& to = base[(side + 1) % 4];
        const Vector outward = 0.5 / halfBase * (from + to); // good enough for a shade
        const VertexShade shade = shadeOf(placement.direction(outward));
        const i32 apex = scene.addVertex(placement({0, height, 0}), shade);
        const i32 left = scene.addVertex(placement(from), shade);
        const i32 right = scene.addVertex(placement(to), shade);
        face({{apex, 0.5f, 0}, {left, 0, 1}, {right, 1, 1}});
    }
}

void Workbench::billboard(const Vector& centre, f64 halfSize)
{
    const VertexShade shade = shadeOf({0, 0, -1});
    const auto vertex = [&](f64 x, f64 y) { return scene.addVertex(centre + Vector{x, y, 0}, shade); };
    const i32 leftTop = vertex(-halfSize, halfSize / 2);
    const i32 leftBottom = vertex(-halfSize, -halfSize / 2);
    const i32 rightBottom = vertex(halfSize, -halfSize / 2);
    const i32 rightTop = vertex(halfSize, halfSize / 2);
    face({{leftTop, 0, 0}, {leftBottom, 0, 1}, {rightBottom, 1, 1}, {rightTop, 1, 0}});
}

} // namespace kardeno::scenes
