// Vectors and placements of the host, in double precision: they become the library's single precision only in the
// vertices that are handed over.
#pragma once

#include <cmath>
#include <numbers>

namespace sample_host {

struct Vector {
    double x = 0, y = 0, z = 0;
};

constexpr Vector operator+(const Vector& a, const Vector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

constexpr Vector operator-(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

constexpr Vector operator*(const Vector& a, double factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}

constexpr double dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr Vector cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(const Vector& a)
{
    return std::sqrt(dot(a, a));
}

// The vector of length 1 in the same direction; a vector without direction stays as it is.
inline Vector unit(const Vector& a)
{
    const double size = length(a);
    return size > 0 ? a * (1 / size) : a;
}

// The sine of a number of full turns. C libraries disagree in the last bit of theirs, and the frames of all builds are
// to be equal, so here is one of our own: the quarter turn around 0 by its series, the rest by symmetry.
inline double sineOfTurn(double turns)
{
    double part = turns - std::floor(turns + 0.5);
    if (part > 0.25) part = 0.5 - part;
    if (part < -0.25) part = -0.5 - part;
    const double x = part * 2 * std::numbers::pi;
    double series = 1;
    for (int power = 20; power > 0; power -= 2) series = 1 - series * (x * x / (power * (power + 1)));
    return x * series;
}

inline double cosineOfTurn(double turns)
{
    return sineOfTurn(turns + 0.25);
}

// Where something stands and how it is turned: its three axes and its origin, as seen from outside.
struct Placement {
    Vector axisX{1, 0, 0};
    Vector axisY{0, 1, 0};
    Vector axisZ{0, 0, 1};
    Vector origin{};

    constexpr Vector direction(const Vector& v) const { return axisX * v.x + axisY * v.y + axisZ * v.z; }
    constexpr Vector point(const Vector& p) const { return origin + direction(p); }
};

// What stands at `inner` inside of what stands at `outer`.
constexpr Placement operator*(const Placement& outer, const Placement& inner)
{
    return {outer.direction(inner.axisX), outer.direction(inner.axisY), outer.direction(inner.axisZ),
            outer.point(inner.origin)};
}

constexpr Placement movedTo(const Vector& origin)
{
    return {.origin = origin};
}

// A turn around an axis of length 1, counter-clockwise for one towards whom the axis points.
inline Placement turned(const Vector& axis, double turns)
{
    const double sine = sineOfTurn(turns), cosine = cosineOfTurn(turns);
    const auto turn = [&](const Vector& v) {
        return v * cosine + cross(axis, v) * sine + axis * (dot(axis, v) * (1 - cosine));
    };
    return {turn({1, 0, 0}), turn({0, 1, 0}), turn({0, 0, 1}), {}};
}

} // namespace sample_host
