#include "checked/face_outline.h"

#include "checked/numbers.h"

namespace kardeno::checked {

FaceOutline::FaceOutline(const HostContext& context, const SceneFace& face) : count(face.vertexCount)
{
    largest = longest = 0;
    normal = {0, 0, 0};
    for (i32 i = 0; i < count; ++i) {
        const CameraVertex& vertex = context.cameraVertices[face.vertexIndices[i]];
        const Vector corner = {vertex.x, vertex.y, vertex.z};
        if (i == 0) first = corner;
        offsets[i] = corner - first;
        const f64 values[] = {corner.x, corner.y, corner.z};
        for (const f64 value : values) {
            if (magnitude(value) > largest) largest = magnitude(value);
        }
        if (square(offsets[i]) > longest) longest = square(offsets[i]);
        if (i < 2) continue;
        const Vector part = cross(offsets[i - 1], offsets[i]);
        normal = {normal.x + part.x, normal.y + part.y, normal.z + part.z};
    }
    normalSquare = square(normal);
}

bool FaceOutline::hasNormal() const
{
    const f64 rounding = 6e-5 * largest; // 1000 times that of a coordinate
    return normalSquare > rounding * rounding * longest && longest > 0;
}

bool FaceOutline::isFlat() const
{
    constexpr f64 share = 0.02; // of the longest offset
    for (i32 i = 2; i < count; ++i) {
        const f64 height = dot(normal, offsets[i]);
        if (height * height > share * share * normalSquare * longest) return false;
    }
    return true;
}

bool FaceOutline::isConvex() const
{
    constexpr f64 sine = 0.02;
    for (i32 i = 0; i < count; ++i) {
        const Vector& corner = offsets[(i + 1) % count];
        const Vector before = corner - offsets[i];
        const Vector after = offsets[(i + 2) % count] - corner;
        const f64 turn = dot(cross(before, after), normal);
        if (turn >= 0) continue;
        const f64 shortest = 0.0004 * 0.0004 * longest; // sides too short for a direction
        const f64 beforeSquare = square(before), afterSquare = square(after);
        if (beforeSquare < shortest || afterSquare < shortest) continue;
        if (turn * turn > sine * sine * beforeSquare * afterSquare * normalSquare) return false;
    }
    return true;
}

} // namespace kardeno::checked
