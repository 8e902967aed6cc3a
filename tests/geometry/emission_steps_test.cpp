// The steps after the corners are there: which clippers run, the sort key, the rows, the depth plane and the rest.
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

#include <bit>
#include <cmath>
#include <limits>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Clippers that write down that they were called. One of them can leave two corners.
enum Plane : u32 { near, far, right, left, bottom, top, planeCount };
constexpr u32 insideBits[planeCount] = {outcodeNear, outcodeFar, outcodeRight, outcodeLeft, outcodeBottom, outcodeTop};

std::vector<u32> calledPlanes;
u32 emptyingPlane = planeCount;

template <Plane plane>
void note(const RenderView*, ScreenPolygon* polygon)
{
    calledPlanes.push_back(plane);
    if (plane == emptyingPlane) polygon->vertexCount = 2;
}

constexpr ClipperFamily notingClippers = {note<near>, note<far>, note<right>, note<left>, note<bottom>, note<top>};

void leaveAlone(const RenderView*, ScreenPolygon*) {}

constexpr ClipperFamily idleClippers = {leaveAlone, leaveAlone, leaveAlone, leaveAlone, leaveAlone, leaveAlone};

// A triangle whose first corner lies outside the planes of `outside`.
void triangleOutside(OneFace& one, u32 outside)
{
    one.corner({10, -10, 1}, outcodeAll & ~outside);
    one.corner({10, -20, 1});
    one.corner({20, -20, 1});
}

u32 bitsOf(f32 value)
{
    return std::bit_cast<u32>(value);
}

} // namespace

TEST_CASE("a clipper runs when some corner lies outside its plane: near, far, right, left, bottom, top")
{
    for (u32 outside = 0; outside < 64; ++outside) {
        CAPTURE(outside);
        OneFace one;
        triangleOutside(one, outside);
        one.mode.clip = notingClippers;
        calledPlanes.clear();
        emptyingPlane = planeCount;
        CHECK(one.isTaken<ResolvedPolygons>(emit<PositionsOnly, ResolvedPolygons>));

        std::vector<u32> expected;
        for (u32 plane = near; plane < planeCount; ++plane) {
            if (outside & insideBits[plane]) expected.push_back(plane);
        }
        CHECK(calledPlanes == expected);
    }
}

TEST_CASE("a clipper that leaves fewer than 3 corners ends the face: none after it runs, and nothing is taken")
{
    for (u32 plane = near; plane < planeCount; ++plane) {
        CAPTURE(plane);
        OneFace one;
        triangleOutside(one, outcodeAll);
        one.mode.clip = notingClippers;
        calledPlanes.clear();
        emptyingPlane = plane;
        CHECK_FALSE(one.isTaken<SortedPolygons>(emit<LitTextured, SortedPolygons>));
        CHECK(sortedPolygons.count == 0);
        CHECK(calledPlanes.size() == plane + 1);
        CHECK(calledPlanes.back() == plane);
    }
    emptyingPlane = planeCount;
}

TEST_CASE("the outcodes of the face decide, not those of its corners after the depth clippers")
{
    // The only corner outside of right is cut away by the near plane; its cuts are inside of right. The right clipper
    // runs all the same, and rotates the outline by one.
    OneFace one({.nearZ = 2});
    one.corner({4, -4, 4});
    one.corner({4, -8, 4});
    one.corner({0, 0, 0}, outcodeFar | outcodeLeft | outcodeTop | outcodeBottom);
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    // After near: corner 1, cut, cut, corner 0. After right: cut, cut, corner 0, corner 1.
    CHECK(valuesOf(*record, record->viewZ) == Values{4, 2, 2, 4}); // not carried by the right clipper
    CHECK(corners(*record) == Corners{{1, 2}, {1, 1}, {1, 1}, {1, 2}});
}

TEST_CASE("corners far beyond the right edge stay where they are when the host says that all are inside")
{
    OneFace beyond;
    beyond.corner({1000, -10, 1});
    beyond.corner({1000, -20, 1});
    beyond.corner({2000, -20, 1});
    CHECK(corners(*beyond.emitted<PositionsOnly, ResolvedPolygons>()) == Corners{{1000, 10}, {1000, 20}, {2000, 20}});
}

TEST_CASE("the folded outcodes stay in the record as those of the face")
{
    OneFace one;
    one.screenCorner(310, 10);
    one.screenCorner(310, 20);
    one.screenCorner(330, 20);
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->vertexCount == 4);
    CHECK(record->outcodeAnd == (outcodeAll & ~u32{outcodeRight}));
    CHECK(record->outcodeOr == outcodeAll);
}

TEST_CASE("sorted lists record the largest truncated depth; the resolved list leaves the field alone")
{
    OneFace one;
    one.corner({1, -1, 7.25f});
    one.corner({1, -9, 7.99f});
    one.corner({9, -9, 3.5f});
    CHECK(one.emitted<PositionsOnly, SortedPolygons>()->maxDepth == 7);

    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>()->maxDepth == static_cast<i32>(unsetWord));
}

TEST_CASE("the depth of the first corner counts too")
{
    OneFace first;
    first.corner({1, -1, 9});
    first.corner({1, -9, 2});
    first.corner({9, -9, 3});
    CHECK(first.emitted<PositionsOnly, SortedPolygons>()->maxDepth == 9);
}

TEST_CASE("negative depths truncate toward zero, and one that does not fit is the smallest number")
{
    OneFace negative;
    negative.corner({1, -1, -2.5f});
    negative.corner({1, -9, -1.75f});
    negative.corner({9, -9, -4});
    CHECK(negative.emitted<PositionsOnly, SortedPolygons>()->maxDepth == -1);
    negative.host.cameraVertices[1].z = 3e9f;
    ++negative.host.context().projectionStamp;
    CHECK(negative.emitted<PositionsOnly, SortedPolygons>()->maxDepth == -2);
}

TEST_CASE("the sort depth is taken after the far plane: a corner at 50 that is cut at 20 counts as 20")
{
    OneFace beyondFar({.farZ = 20});
    beyondFar.corner({5, -5, 5});
    beyondFar.corner({5, -10, 5});
    beyondFar.corner({50, -50, 50}, outcodeAll & ~u32{outcodeFar});
    CHECK(beyondFar.emitted<PositionsOnly, SortedPolygons>()->maxDepth == 20);
}

TEST_CASE("the sort depth is taken before the sides: a corner that is cut away there counts")
{
    OneFace beyondRight;
    beyondRight.corner({5, -5, 5});
    beyondRight.corner({5, -10, 5});
    beyondRight.corner({50000, -50, 50}, outcodeAll & ~u32{outcodeRight});
    CHECK(beyondRight.emitted<PositionsOnly, SortedPolygons>()->maxDepth == 50);
}

TEST_CASE("the sort depth looks at the corners before the sides are cut: as many as there were, none that a cut made")
{
    // Three corners of four are cut away, the deepest among them; a triangle is left.
    OneFace fewer;
    fewer.corner({5, -5, 5});
    fewer.corner({5000, -10, 5}, outcodeAll & ~u32{outcodeRight});
    fewer.corner({5000, -20, 5}, outcodeAll & ~u32{outcodeRight});
    fewer.corner({50000, -50, 50}, outcodeAll & ~u32{outcodeRight});
    const ScreenPolygon* record = fewer.emitted<PositionsOnly, SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->vertexCount == 3);
    CHECK(record->maxDepth == 50);

    // The next face gains a corner, in whose place the record holds a depth of 195.
    const i32 vertices[] = {0, 0, 1};
    fewer.face.vertexCount = 3;
    fewer.face.vertexIndices = vertices;
    resetPolygonLists();
    record = fewer.emitted<PositionsOnly, SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->vertexCount == 4);
    CHECK(record->maxDepth == 5);
}

TEST_CASE("rows are the screen y truncated toward zero: -0.5 is row 0")
{
    OneFace one;
    one.corner({0, 0.5f, 1});
    one.corner({0, -3.99f, 1});
    one.corner({0, 1.5f, 1});
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->screenY[0] == -0.5f);
    CHECK(record->scanY[0] == 0);
    CHECK(record->scanY[1] == 3);
    CHECK(record->scanY[2] == -1);
}

TEST_CASE("rows are those of the clipped outline")
{
    OneFace one;
    one.screenCorner(10, 10);
    one.screenCorner(10, 250);
    one.screenCorner(20, 250);
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    REQUIRE(record->vertexCount == 3);
    CHECK(std::vector<i32>(record->scanY, record->scanY + 3) == std::vector<i32>{200, 200, 10});
}

TEST_CASE("the depth plane comes from the face's normal and first vertex")
{
    OneFace one({.centreX = 8, .centreY = 8, .scaleX = 2, .scaleY = 4});
    one.corner({1, 2, 4});
    one.corner({1, -2, 4});
    one.corner({3, -2, 4});
    one.face.normalX = 1;
    one.face.normalY = 0.5f;
    one.face.normalZ = 0.5f;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    // d = 0.5 x 4 + 0.5 x 2 + 1 x 1 = 4, r = 1/4.
    CHECK(record->invDepthStepX == 0.125f);    // 1/2 x 1/4 x 1
    CHECK(record->invDepthStepY == -0.03125f); // -(1/4 x 1/4 x 1/2)
    CHECK(record->invDepthOrigin == -0.625f);  // ((2 x 1/2 + 1/2) - 4 x 1) x 1/4
    // At the first corner's pixel it is that corner's inverse depth.
    const f64 depth = static_cast<f64>(record->invDepthStepX) * record->screenX[0]
                      + static_cast<f64>(record->invDepthStepY) * record->screenY[0] + record->invDepthOrigin;
    CHECK(depth == 0.25);
}

TEST_CASE("the depth plane is that of the face, not of its clipped outline")
{
    OneFace one({.nearZ = 2});
    one.corner({0, 0, 1}, outcodeAll & ~u32{outcodeNear}); // cut away, and still the vertex that counts
    one.corner({4, -4, 4});
    one.corner({4, -8, 4});
    one.face.normalZ = 0.5f;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->invDepthOrigin == 1); // 0.5 x 1 / (0.5 x 1)
    CHECK(record->invDepthStepX == 0);
}

TEST_CASE("the depth plane uses the four derived numbers of the projection as the host filled them")
{
    OneFace one;
    one.triangle();
    one.face.normalX = 1;
    one.face.normalY = 1;
    one.face.normalZ = 1;
    one.host.cameraVertices[0] = {1, 2, 1}; // d = 4
    one.view.projection.invScaleX = 12;
    one.view.projection.invScaleY = 20;
    one.view.projection.centreXOverScaleX = 40;
    one.view.projection.centreYOverScaleY = 100;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->invDepthStepX == 3);
    CHECK(record->invDepthStepY == -5);
    CHECK(record->invDepthOrigin == 15.25f); // ((100 + 1) - 40) / 4
}

TEST_CASE("the reciprocal of the depth plane is not rounded to f32")
{
    OneFace one;
    one.triangle();
    one.host.cameraVertices[0] = {3, 0, 1};
    one.face.normalX = 1;
    one.face.normalZ = 0;
    one.view.projection.invScaleX = 5;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    // 5/3 is 13,981,013.33 x 2^-23; with 1/3 rounded to f32 first it would be stored as ...d5556.
    CHECK(bitsOf(record->invDepthStepX) == 0x3fd55555);
}

TEST_CASE("a face plane through the eye is not guarded: its depth plane is infinite")
{
    OneFace one;
    one.triangle();
    one.face.normalX = one.face.normalY = one.face.normalZ = 0;
    one.face.normalX = 1;
    one.host.cameraVertices[0].x = 0;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(std::isinf(record->invDepthStepX));
    CHECK(std::isnan(record->invDepthStepY)); // 0 x infinity
}

TEST_CASE("a record starts the frame with its material, its colour, no spans, an inside count of 0 and an open flag")
{
    OneFace one;
    one.triangle();
    one.colour = 0xf81e;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);

    CHECK(record->material == &one.material);
    CHECK(record->faceColour == 0xf81e);
    CHECK(record->spanHead == -1);
    CHECK(record->activeCount == 0);
    CHECK(record->occludes == 1);
    CHECK(record->engineFlag == 1);
    // What emission has no value for is left unset, and nothing touches the reserved words.
    CHECK(record->engineWord == static_cast<i32>(unsetWord));
    uintptr_t unset;
    std::memset(&unset, unsetByte, sizeof unset);
    CHECK(reinterpret_cast<uintptr_t>(record->above) == unset);
    CHECK(reinterpret_cast<uintptr_t>(record->below) == unset);
    for (const u32 word : record->reserved) CHECK(word == unsetWord);
}

TEST_CASE("records of the sorted list are see-through")
{
    OneFace one;
    one.triangle();
    const ScreenPolygon* record = one.emitted<PositionsOnly, SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->occludes == 0);
    CHECK(record->engineFlag == 1);
    CHECK(record->spanHead == -1);
    CHECK(record->activeCount == 0);
}

TEST_CASE("a face without a colour block gets colour 0")
{
    OneFace one;
    one.triangle();
    one.face.faceColour = nullptr;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->faceColour == 0);
}

TEST_CASE("the clippers are those of the row that the material points at")
{
    OneFace one;
    triangleOutside(one, outcodeRight);
    RenderMode other = {.state = 0, .emit = nullptr, .clip = notingClippers, .fill = nullptr};
    one.mode.clip = idleClippers;
    one.privateRecord.mode = &other;
    calledPlanes.clear();
    CHECK(one.isTaken<ResolvedPolygons>(emit<PositionsOnly, ResolvedPolygons>));
    CHECK(calledPlanes == std::vector<u32>{right});
}
