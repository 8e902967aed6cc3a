// What holds for all thirty-six clippers, and the exact arithmetic of a cut.
#include "geometry/plane_clipping.h"
#include "tests/geometry/one_face.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <bit>
#include <cmath>
#include <random>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

using Planes = List<NearPlane, FarPlane, RightPlane, LeftPlane, BottomPlane, TopPlane>;
using Formats = List<PositionsOnly, Coloured, ColouredTextured, Lit, LitTextured, Textured>;

// Every array of numbers, as a type that the clippers' lists can be asked about.
struct Intensity : Coordinate<&ScreenPolygon::intensity> {};
using Arrays = List<ScreenX, ScreenY, InvDepth, ViewX, ViewY, ViewZ, TexU, TexV, Intensity, Red, Green, Blue>;

const TestView::Settings bounds = {.left = 16, .top = 8, .right = 320, .bottom = 200, .nearZ = 2, .farZ = 1024};

constexpr u32 insideAll = outcodeAll;

// Planes whose inside lies below their bound.
template <class Plane>
constexpr bool isUpper = (Plane::outcodeBit & (outcodeFar | outcodeRight | outcodeBottom)) != 0;

// What a format carries beside the position, told once more and in another way than the library tells it.
template <class Format, class Array>
bool carries()
{
    constexpr bool texture = __is_same(Array, TexU) || __is_same(Array, TexV);
    constexpr bool colour = __is_same(Array, Red) || __is_same(Array, Green) || __is_same(Array, Blue);
    if (texture)
        return __is_same(Format, ColouredTextured) || __is_same(Format, LitTextured) || __is_same(Format, Textured);
    if (colour) return __is_same(Format, Coloured) || __is_same(Format, ColouredTextured);
    if (__is_same(Array, Intensity)) return __is_same(Format, Lit) || __is_same(Format, LitTextured);
    return false;
}

template <class Plane, class Array>
bool positionCarried()
{
    constexpr bool inCamera = (Plane::outcodeBit & (outcodeNear | outcodeFar)) != 0;
    if (inCamera) return __is_same(Array, ViewX) || __is_same(Array, ViewY);
    if (__is_same(Array, InvDepth)) return true;
    constexpr bool cutsColumns = (Plane::outcodeBit & (outcodeLeft | outcodeRight)) != 0;
    return cutsColumns ? __is_same(Array, ScreenY) : __is_same(Array, ScreenX);
}

template <class Plane, class Array>
bool tested()
{
    if (Plane::outcodeBit & (outcodeNear | outcodeFar)) return __is_same(Array, ViewZ);
    if (Plane::outcodeBit & (outcodeLeft | outcodeRight)) return __is_same(Array, ScreenX);
    return __is_same(Array, ScreenY);
}

// A triangle whose first corner is outside the plane, a quarter of the way to the second corner and half of the way to
// the third one. Other arrays run from 16n at the first corner to 16n + 8 and 16n + 100 at the others.
template <class Plane>
ScreenPolygon triangleAcross(const TestView& view)
{
    ScreenPolygon polygon;
    std::memset(&polygon, 0, sizeof polygon);
    f32 base = 0;
    Arrays::forEach([&]<class Array>() {
        base += 16;
        const f32 bound = Plane::bound(view.record);
        const f32 inward = isUpper<Plane> ? -1.0f : 1.0f;
        f32* const values = polygon.*Array::values;
        for (i32 i = 0; i < maxCorners; ++i) values[i] = -1000 - static_cast<f32>(i);
        values[0] = tested<Plane, Array>() ? bound - inward : base;
        values[1] = tested<Plane, Array>() ? bound + 3 * inward : base + 8;
        values[2] = tested<Plane, Array>() ? bound + inward : base + 100;
    });
    polygon.vertexCount = 3;
    polygon.outcode[0] = insideAll & ~Plane::outcodeBit;
    polygon.outcode[1] = polygon.outcode[2] = insideAll;
    return polygon;
}

template <class Visit>
void forEachPlane(Visit visit)
{
    Planes::forEach([&]<class Plane>() {
        CAPTURE(Plane::outcodeBit);
        visit.template operator()<Plane>();
    });
}

// The clipper of a plane, from the format's family.
template <class Format>
ClipRoutine clipperOf(u32 outcodeBit)
{
    const ClipperFamily& family = clippers<Format>;
    switch (outcodeBit) {
    case outcodeNear: return family.nearPlane;
    case outcodeFar: return family.farPlane;
    case outcodeRight: return family.rightPlane;
    case outcodeLeft: return family.leftPlane;
    case outcodeBottom: return family.bottomPlane;
    default: return family.topPlane;
    }
}

} // namespace

TEST_CASE(
    "every clipper cuts its coordinate exactly, carries its plane's position and its format's attributes, no more")
{
    const TestView view(bounds);
    forEachPlane([&]<class Plane>() {
        i32 format = 0;
        Formats::forEach([&]<class Format>() {
            CAPTURE(format);
            ++format;
            const ScreenPolygon before = triangleAcross<Plane>(view);
            ScreenPolygon polygon = before;
            clipperOf<Format>(Plane::outcodeBit)(&view.record, &polygon);

            // The cut of the first side, the second corner, the third corner, the cut of the last side.
            REQUIRE(polygon.vertexCount == 4);
            i32 array = 0;
            Arrays::forEach([&]<class Array>() {
                CAPTURE(array);
                ++array;
                const f32* const was = before.*Array::values;
                const f32 bound = Plane::bound(view.record);
                Values expected(was, was + 4);
                if (tested<Plane, Array>())
                    expected = {bound, was[1], was[2], bound};
                else if (positionCarried<Plane, Array>() || carries<Format, Array>())
                    expected = {was[0] + 2, was[1], was[2], was[0] + 50};
                CHECK(valuesOf(polygon, polygon.*Array::values) == expected);
            });
            CHECK(polygon.outcode[1] == insideAll);
            CHECK(polygon.outcode[2] == insideAll);
        });
    });
}

TEST_CASE("a clipper writes nothing but the count, the outcodes and its arrays")
{
    const TestView view(bounds);
    forEachPlane([&]<class Plane>() {
        ScreenPolygon polygon = triangleAcross<Plane>(view);
        polygon.outcodeAnd = 0x11;
        polygon.outcodeOr = 0x22;
        polygon.maxDepth = 33;
        polygon.spanHead = 44;
        polygon.invDepthOrigin = 55;
        polygon.scanY[0] = 66;
        polygon.engineFlag = 77;
        clip<Plane, ColouredTextured>(&view.record, &polygon);
        CHECK(polygon.outcodeAnd == 0x11);
        CHECK(polygon.outcodeOr == 0x22);
        CHECK(polygon.maxDepth == 33);
        CHECK(polygon.spanHead == 44);
        CHECK(polygon.invDepthOrigin == 55);
        CHECK(polygon.scanY[0] == 66);
        CHECK(polygon.engineFlag == 77);
    });
}

TEST_CASE("a side shared by two faces is cut at bit-identical points, whichever way round it runs")
{
    const TestView view(bounds);
    forEachSeed(4711, 1, [&](u32 seed) {
        std::mt19937 random(seed);
        const auto number = [&](f32 low, f32 high) {
            return low + (high - low) * static_cast<f32>(random()) / 4294967296.0f;
        };
        forEachPlane([&]<class Plane>() {
            i32 different = 0;
            for (i32 round = 0; round < 2000; ++round) {
                ScreenPolygon one = triangleAcross<Plane>(view);
                Arrays::forEach([&]<class Array>() {
                    const f32 inward = isUpper<Plane> ? -1.0f : 1.0f;
                    const f32 bound = Plane::bound(view.record);
                    const bool isTested = tested<Plane, Array>();
                    f32* const values = one.*Array::values;
                    values[0] = isTested ? bound - inward * number(0.001f, 900) : number(-3000, 3000);
                    for (const i32 i : {1, 2})
                        values[i] = isTested ? bound + inward * number(0.001f, 900) : number(-3000, 3000);
                });
                // The other face has the corners 0 and 1 in the opposite order, and a third one elsewhere.
                ScreenPolygon other = one;
                std::swap(other.outcode[0], other.outcode[1]);
                Arrays::forEach([&]<class Array>() {
                    f32* const values = other.*Array::values;
                    std::swap(values[0], values[1]);
                    values[2] += 1;
                });

                clip<Plane, ColouredTextured>(&view.record, &one);   // cut of 0-1, 1, 2, cut of 2-0
                clip<Plane, ColouredTextured>(&view.record, &other); // cut of 0-1, cut of 1-2, 2, 0
                Arrays::forEach([&]<class Array>() {
                    const bool same =
                        std::bit_cast<u32>((one.*Array::values)[0]) == std::bit_cast<u32>((other.*Array::values)[0]);
                    const bool carried =
                        tested<Plane, Array>() || positionCarried<Plane, Array>() || carries<ColouredTextured, Array>();
                    different += carried && !same;
                });
                different += one.outcode[0] != other.outcode[0];
            }
            CHECK(different == 0);
        });
    });
}

TEST_CASE("the reciprocal of a cut is rounded to f32 before it is used")
{
    const TestView view({.nearZ = 1});
    ScreenPolygon polygon = cameraPolygon({{0, 0, 0}, {5, 0, 3}, {5, 0, 3}}, view);
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);
    // 1/3 is stored as 11,184,811 x 2^-25. Five times that is 13,981,013.75 x 2^-23, which rounds up; 5/3 is
    // 13,981,013.33 x 2^-23 and would round down to ...d5555.
    CHECK(std::bit_cast<u32>(polygon.viewX[0]) == 0x3fd55556);
}

TEST_CASE("the distance of a cut is rounded to f32 before it is used")
{
    const TestView view({.nearZ = 1});
    const f32 outside = -0.000000089406967163085938f; // -1.5 x 2^-24
    ScreenPolygon polygon = cameraPolygon({{0, 0, outside}, {3, 0, 2}, {3, 0, 2}}, view);
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);
    // Distance: 1 + 0.75 x 2^-23, stored as 1 + 2^-23. Reciprocal: 0.5 (1 - 0.375 x 2^-23), stored as 0.5 (1 - 2^-24).
    // 3 x distance x reciprocal = 1.5 + 0.75 x 2^-23, stored as 1.5 + 2^-23. With the distance as it was it would be
    // 1.5 + 0.375 x 2^-23, stored as 1.5.
    CHECK(std::bit_cast<u32>(polygon.viewX[0]) == 0x3fc00001);
}

TEST_CASE("an outline that would take more than sixteen corners comes back empty; with sixteen it stays")
{
    const TestView view(bounds);
    forEachPlane([&]<class Plane>() {
        for (i32 count = 3; count <= 16; ++count) {
            for (i32 outside = 1; outside < count; ++outside) {
                CAPTURE(count);
                CAPTURE(outside);
                ScreenPolygon polygon = triangleAcross<Plane>(view);
                polygon.vertexCount = count;
                for (i32 i = 0; i < count; ++i) {
                    const bool inside = i >= outside;
                    polygon.outcode[i] = inside ? insideAll : insideAll & ~Plane::outcodeBit;
                    (polygon.*Plane::Tested::values)[i] =
                        Plane::bound(view.record) + (isUpper<Plane> == inside ? -4.0f : 4.0f);
                }
                clip<Plane, ColouredTextured>(&view.record, &polygon);
                // Two cuts take the place of the outside corners.
                const i32 expected = count - outside + 2;
                CHECK(polygon.vertexCount == (expected > 16 ? 0 : expected));
            }
        }
    });
}

TEST_CASE("an outline that goes in and out eight times would have twenty-four corners and comes back empty")
{
    const TestView view(bounds);
    ScreenPolygon polygon = triangleAcross<RightPlane>(view);
    polygon.vertexCount = 16;
    for (i32 i = 0; i < 16; ++i) {
        polygon.outcode[i] = i % 2 ? insideAll : insideAll & ~u32{outcodeRight};
        polygon.screenX[i] = i % 2 ? 310.0f : 330.0f;
    }
    const i32 spanHead = polygon.spanHead;
    clip<RightPlane, ColouredTextured>(&view.record, &polygon);
    CHECK(polygon.vertexCount == 0);
    CHECK(polygon.spanHead == spanHead);

    // With five turns it has fifteen: 5 inside corners and 10 cuts.
    polygon = triangleAcross<RightPlane>(view);
    polygon.vertexCount = 10;
    for (i32 i = 0; i < 10; ++i) {
        polygon.outcode[i] = i % 2 ? insideAll : insideAll & ~u32{outcodeRight};
        polygon.screenX[i] = i % 2 ? 310.0f : 330.0f;
    }
    clip<RightPlane, ColouredTextured>(&view.record, &polygon);
    CHECK(polygon.vertexCount == 15);
}

TEST_CASE("stored bits that disagree with the coordinates make a division by zero, and no more harm than that")
{
    const TestView view(bounds);
    ScreenPolygon polygon = screenPolygon({{320, 50}, {320, 90}, {320, 70}}, view);
    polygon.outcode[0] &= ~u32{outcodeRight};
    clip<RightPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(polygon.vertexCount == 4);
    CHECK(polygon.screenX[0] == 320);
    CHECK(std::isnan(polygon.screenY[0])); // 40 x 0 x infinity
}
