// The two ways of a face to its record: through the vertex cache, or through camera space and the depth clippers.
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("a face inside all six planes is projected into the cache, copied and never clipped")
{
    OneFace one;
    one.triangle();
    one.host.context().projectionStamp = 5;
    one.mode.clip = {}; // a call of any clipper would crash
    const ScreenPolygon* record = one.emittedWithOwnClippers<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);

    CHECK(corners(*record) == Corners{{10, 10}, {10, 20}, {20, 20}}); // its own order, beginning with corner 0
    CHECK(record->outcodeAnd == outcodeAll);
    CHECK(record->outcodeOr == outcodeAll);
    CHECK(outcodesOf(*record) == std::vector<u32>(3, outcodeAll));
    CHECK(valuesOf(*record, record->viewZ) == Values{1, 1, 1});
    // Camera-space X and Y are not filled on this path.
    CHECK(valuesOf(*record, record->viewX) == Values{unsetValue, unsetValue, unsetValue});
    CHECK(valuesOf(*record, record->viewY) == Values{unsetValue, unsetValue, unsetValue});
    for (const u32 stamp : one.host.stamps) CHECK(stamp == 5);
    CHECK(one.host.screenVertices[2].x == 20);
    CHECK(one.host.screenVertices[2].y == 20);
    CHECK(one.host.screenVertices[2].invDepth == 1);
}

TEST_CASE("a vertex whose stamp is the current one is not projected again; any other stamp is stale")
{
    OneFace one;
    one.triangle();
    one.host.context().projectionStamp = 7;
    one.host.stamps[0] = 7;
    one.host.screenVertices[0] = {11, 12, 0.5f};
    one.host.stamps[1] = 8; // neither older nor newer counts
    one.host.stamps[2] = 6;
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(corners(*record) == Corners{{11, 12}, {10, 20}, {20, 20}});
    CHECK(record->invDepth[0] == 0.5f);
    CHECK(one.host.stamps == std::vector<u32>{7, 7, 7});
}

TEST_CASE("a shared vertex is projected once for an object: later faces find it in the cache")
{
    OneFace one;
    one.triangle();
    one.emitted<PositionsOnly, ResolvedPolygons>();
    one.host.cameraVertices[1].x = 400; // moved without a new stamp
    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>()->screenX[1] == 10);
    ++one.host.context().projectionStamp;
    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>()->screenX[1] == 400);
}

TEST_CASE("a face with a corner before the near plane goes through camera space: cut at nearZ exactly, then projected")
{
    OneFace one({.nearZ = 2, .centreX = 16, .centreY = 16, .scaleX = 8, .scaleY = 8});
    one.corner({4, 4, 4}, outcodeAll, {}, {0, 0, 0, 10});
    one.corner({0, -8, 8}, outcodeAll, {}, {0, 0, 0, 50});
    one.corner({0, 8, 0}, outcodeAll & ~u32{outcodeNear}, {}, {0, 0, 0, 30});
    const ScreenPolygon* record = one.emitted<LitTextured, ResolvedPolygons>();
    REQUIRE(record != nullptr);

    // The second corner; a quarter of the way to it from the third; half of the way to the first; the first.
    CHECK(valuesOf(*record, record->viewX) == Values{0, 0, 2, 4});
    CHECK(valuesOf(*record, record->viewY) == Values{-8, 4, 6, 4});
    CHECK(valuesOf(*record, record->viewZ) == Values{8, 2, 2, 4});
    CHECK(valuesOf(*record, record->invDepth) == Values{0.125f, 0.5f, 0.5f, 0.25f});
    CHECK(corners(*record) == Corners{{16, 24}, {16, 0}, {24, -8}, {24, 8}});
    CHECK(valuesOf(*record, record->intensity) == Values{3200, 2240, 1280, 640}); // affine, and not divided
    // The outside corner's far bit, and the sides against the near distance 2: Y is 4 and 6, above it.
    const u32 cut = outcodeFar | outcodeLeft | outcodeRight | outcodeBottom;
    CHECK(outcodesOf(*record) == std::vector<u32>{outcodeAll, cut, cut, outcodeAll});
}

TEST_CASE("on the way through camera space perspective attributes are cut undivided and divided afterwards")
{
    OneFace one({.nearZ = 2, .centreX = 16, .centreY = 16, .scaleX = 8, .scaleY = 8});
    one.corner({4, 4, 4}, outcodeAll, {}, {0, 0, 0, 10});
    one.corner({0, -8, 8}, outcodeAll, {}, {0, 0, 0, 50});
    one.corner({0, 8, 0}, outcodeAll & ~u32{outcodeNear}, {}, {0, 0, 0, 30});
    const ScreenPolygon* record = one.emitted<Lit, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(valuesOf(*record, record->intensity) == Values{400, 1120, 640, 160}); // 3200 / 8, 2240 / 2, 1280 / 2, 640 / 4
}

TEST_CASE("a face with a corner beyond the far plane is cut at farZ exactly")
{
    OneFace one({.farZ = 8});
    one.corner({8, -8, 4});
    one.corner({8, -16, 4});
    one.corner({16, -8, 12}, outcodeAll & ~u32{outcodeFar});
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(valuesOf(*record, record->viewZ) == Values{4, 8, 8, 4});
    CHECK(valuesOf(*record, record->viewX) == Values{8, 12, 12, 8});
    CHECK(valuesOf(*record, record->viewY) == Values{-16, -12, -8, -8});
    CHECK(valuesOf(*record, record->screenX) == Values{2, 1.5f, 1.5f, 2});
}

TEST_CASE("a face that crosses both depth planes is cut at both, first near, then far")
{
    OneFace one({.nearZ = 2, .farZ = 8});
    one.corner({0, -8, 0}, outcodeAll & ~u32{outcodeNear});
    one.corner({0, 0, 4});
    one.corner({0, -8, 16}, outcodeAll & ~u32{outcodeFar});
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    // Near: cut (Z 2) of the side to corner 1, corner 1, corner 2, cut (Z 2) of the side from corner 2. Far, from the
    // second of these on: corner 1, cut (Z 8), cut (Z 8), near cut, near cut.
    CHECK(valuesOf(*record, record->viewZ) == Values{4, 8, 8, 2, 2});
}

TEST_CASE("the way through camera space neither reads nor writes the vertex cache")
{
    OneFace one({.nearZ = 2});
    one.corner({4, -4, 4});
    one.corner({4, -8, 4});
    one.corner({0, 0, 0}, outcodeAll & ~u32{outcodeNear});
    one.host.context().projectionStamp = 3;
    one.host.stamps[0] = 3;
    one.host.screenVertices[0] = {123, 45, 6};
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(record->screenX[3] == 1); // corner 0 comes last
    CHECK(one.host.screenVertices[0].x == 123);
    CHECK(one.host.stamps == std::vector<u32>{3, 0, 0});
}

TEST_CASE("a face that some plane has no corner inside of is dropped before any arithmetic, but after its list grew")
{
    for (u32 bit = 1; bit <= 32; bit *= 2) {
        CAPTURE(bit);
        OneFace one;
        for (i32 i = 0; i < 3; ++i) one.corner({0, 0, 0}, outcodeAll & ~bit);
        CHECK(one.emitted<PositionsOnly, ResolvedPolygons>() == nullptr);
        CHECK(resolvedPolygons.count == 0);
        CHECK(one.host.stamps == std::vector<u32>(3, 0));
        CHECK(resolvedPolygons.capacity == 512);
    }
}

TEST_CASE("faces of fewer than 3 or more than 16 corners are dropped after the outcode test, before any arithmetic")
{
    for (const i32 count : {0, 1, 2, 3, 16, 17, 40}) {
        CAPTURE(count);
        OneFace one;
        for (i32 i = 0; i < count; ++i) one.screenCorner(static_cast<f32>(10 + i), static_cast<f32>(10 + i * i));
        one.face.vertexCount = count;
        const bool kept = count >= 3 && count <= 16;
        CHECK((one.emitted<ColouredTextured, ResolvedPolygons>() != nullptr) == kept);
        CHECK(resolvedPolygons.count == (kept ? 1 : 0));
        if (count > 0) CHECK(one.host.stamps[0] == (kept ? 1 : 0));
    }
}

TEST_CASE("a face with a negative number of corners is dropped")
{
    OneFace negative;
    negative.triangle();
    negative.face.vertexCount = -3;
    CHECK(negative.emitted<PositionsOnly, ResolvedPolygons>() == nullptr);
}

TEST_CASE("a face that would pass sixteen corners while it is clipped is dropped")
{
    OneFace one;
    for (i32 i = 0; i < 16; ++i) one.screenCorner(static_cast<f32>(i == 8 ? 330 : 100 + i), static_cast<f32>(10 + i));
    CHECK(one.emitted<Textured, ResolvedPolygons>() == nullptr);
    CHECK(resolvedPolygons.count == 0);
}

TEST_CASE("a face whose corners are each outside another side is clipped by every flagged clipper and may vanish")
{
    // It passes by the upper left corner of the rectangle 0 to 320, 0 to 200, outside of it.
    OneFace vanishing;
    vanishing.screenCorner(-100, 40);
    vanishing.screenCorner(-80, 60);
    vanishing.screenCorner(60, -80);
    vanishing.screenCorner(40, -100);
    CHECK(vanishing.emitted<PositionsOnly, ResolvedPolygons>() == nullptr);
    CHECK(resolvedPolygons.count == 0);
}

TEST_CASE("a face larger than the rectangle, with every corner outside of two sides, is cut to the rectangle")
{
    OneFace one;
    one.screenCorner(-80, -40);
    one.screenCorner(-80, 240);
    one.screenCorner(400, 240);
    one.screenCorner(400, -40);
    const ScreenPolygon* record = one.emitted<PositionsOnly, ResolvedPolygons>();
    REQUIRE(record != nullptr);

    CHECK(corners(*record) == Corners{{320, 0}, {0, 0}, {0, 200}, {320, 200}});
}
