#include "frame/picking.h"

#include "frame/trusted_host.h"
#include "geometry/emission.h"

namespace kardeno {

namespace {

struct Vector {
    f64 x, y, z;
};

Vector difference(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

f64 dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector cross(const Vector& u, const Vector& w)
{
    return {u.y * w.z - u.z * w.y, u.z * w.x - u.x * w.z, u.x * w.y - u.y * w.x};
}

Vector normalised(const Vector& v)
{
    const f64 length = __builtin_sqrt(dot(v, v));
    return {v.x / length, v.y / length, v.z / length};
}

void setCorner(ScreenPolygon& outline, i32 corner, const ScreenVertex& screen)
{
    outline.screenX[corner] = screen.x;
    outline.screenY[corner] = screen.y;
    outline.invDepth[corner] = screen.invDepth;
}

// Makes the face's outline in camera space and on the screen, clipped against the near and far planes. Returns false
// when nothing is left of it.
bool outlineOf(HostContext& context, const RenderView& view, const SceneFace& face, ScreenPolygon& outline)
{
    if (!foldOutcodes(context, outline, face)) return false;

    copyCameraOutline(context, outline, face);
    const ViewProjection& projection = *view.projection;
    if ((outline.outcodeAnd & outcodeDepthPlanes) == outcodeDepthPlanes) {
        for (i32 i = 0; i < outline.vertexCount; ++i) {
            setCorner(outline, i, projectedThroughCache(context, projection, face.vertexIndices[i]));
        }
        return true;
    }

    if (!clipToDepth(view, clippers<PositionsOnly>, outline)) return false;
    for (i32 i = 0; i < outline.vertexCount; ++i) {
        setCorner(outline, i, projected(projection, cameraCorner(outline, i)));
    }
    return true;
}

// Whether the bounding box of the outline contains the point. A point on the box is inside.
bool boxContains(const ScreenPolygon& outline, f32 x, f32 y)
{
    f32 left = outline.screenX[0], right = left;
    f32 top = outline.screenY[0], bottom = top;
    for (i32 i = 1; i < outline.vertexCount; ++i) {
        if (outline.screenX[i] < left) left = outline.screenX[i];
        if (outline.screenX[i] > right) right = outline.screenX[i];
        if (outline.screenY[i] < top) top = outline.screenY[i];
        if (outline.screenY[i] > bottom) bottom = outline.screenY[i];
    }
    return !(x < left || x > right || y < top || y > bottom);
}

// Whether all sides of the outline have the point on their inner side. A point on a side is inside. An outline of the
// winding that is not drawn contains nothing.
bool sidesContain(const ScreenPolygon& outline, f64 x, f64 y)
{
    for (i32 a = 0; a < outline.vertexCount; ++a) {
        const i32 b = a + 1 < outline.vertexCount ? a + 1 : 0;
        const f64 ax = outline.screenX[a], ay = outline.screenY[a];
        const f64 bx = outline.screenX[b], by = outline.screenY[b];
        if ((ay - by) * (x - ax) + (bx - ax) * (y - ay) > 0) return false;
    }
    return true;
}

// Returns the camera-space Z at which the viewing ray through (x, y) meets the plane of the first three corners.
f32 depthAt(const ViewProjection& projection, const ScreenPolygon& outline, f64 x, f64 y)
{
    const auto corner = [&](i32 i) { return Vector{outline.viewX[i], outline.viewY[i], outline.viewZ[i]}; };
    const Vector p0 = corner(0);
    const Vector p1 = corner(1);
    const Vector u = normalised(difference(p0, p1));
    const Vector w = normalised(difference(corner(2), p1));
    const Vector normal = cross(u, w);
    const Vector ray = {(x - projection.centreX) / projection.scaleX, (projection.centreY - y) / projection.scaleY,
                        1.0};
    return stored(dot(normal, p0) / dot(normal, ray));
}

} // namespace

void NearestFace::consider(const RenderView& view, const SceneFace& face, i32 index, SceneObject* ownerOfFace)
{
    ScreenPolygon outline; // only the fields that the depth clippers and the tests read are set
    if (!outlineOf(context, view, face, outline)) return;
    if (!boxContains(outline, x, y) || !sidesContain(outline, x, y)) return;
    const f32 z = depthAt(*view.projection, outline, x, y);
    if (!(z < *depth)) return;
    *depth = z;
    *faceIndex = index;
    owner = ownerOfFace;
}

SceneObject* pick(HostContext& context, RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth)
{
    TrustedHost host;
    return pickOf(host, context, view, x, y, faceIndex, depth);
}

} // namespace kardeno
