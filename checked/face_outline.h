// The outline of a face in camera space: its own normal, and whether it is flat and convex.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno::checked {

struct Vector {
    f64 x, y, z;
};

inline Vector operator-(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline f64 dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vector cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline f64 square(const Vector& a)
{
    return dot(a, a);
}

// The corners of a face, of which there may be up to 16.
struct FaceOutline {
    FaceOutline(const HostContext& context, const SceneFace& face);

    Vector first;
    Vector offsets[16]; // of the corners from the first one
    i32 count;
    f64 largest;   // the largest coordinate of a corner
    f64 longest;   // the square of the longest offset
    Vector normal; // as long as twice the area that the outline encloses
    f64 normalSquare;

    // Whether the outline is so large that the rounding of its corners turns the normal by less than a degree or two.
    bool hasNormal() const;
    bool isFlat() const;
    bool isConvex() const;
};

} // namespace kardeno::checked
