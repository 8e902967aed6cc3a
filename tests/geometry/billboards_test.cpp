#include "geometry/billboards.h"
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Runs check.operator()<TargetList>() for the billboards of both lists.
template <class Check>
void forBothBillboards(Check check)
{
    check.template operator()<SortedPolygons>();
    check.template operator()<LateSortedPolygons>();
}

void wideRectangle(OneFace& one)
{
    one.screenCorner(110, 110, {0, 0});
    one.screenCorner(110, 120, {0, 1});
    one.screenCorner(140, 120, {1, 1});
    one.screenCorner(140, 110, {1, 0});
}

} // namespace

TEST_CASE("a billboard of 3 or 5 corners produces nothing, and does not even grow its list")
{
    forBothBillboards([]<class TargetList>() {
        for (const i32 count : {0, 3, 5, 16}) {
            CAPTURE(count);
            OneFace one;
            for (i32 i = 0; i < count; ++i) one.screenCorner(static_cast<f32>(10 + i), static_cast<f32>(10 + i * i));
            one.face.vertexCount = count;
            CHECK(one.emittedBillboard<TargetList>() == nullptr);
            CHECK(one.host.calls.empty());
        }
    });
}

TEST_CASE("a billboard becomes a square around the mean of its corners, as wide as the wider of its extents")
{
    forBothBillboards([]<class TargetList>() {
        OneFace one;
        wideRectangle(one);
        const ScreenPolygon* record = one.emittedBillboard<TargetList>();
        REQUIRE(record != nullptr);
        // Mean (125, 115), half extents 15 and 5.
        CHECK(corners(*record) == Corners{{110, 100}, {110, 130}, {140, 130}, {140, 100}});
        CHECK(record->scanY[0] == 100);
        CHECK(record->scanY[1] == 130);
    });
}

TEST_CASE("a billboard that is higher than wide is as wide as it is high")
{
    OneFace one;
    one.screenCorner(100, 50);
    one.screenCorner(100, 90);
    one.screenCorner(104, 90);
    one.screenCorner(104, 50);
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(corners(*record) == Corners{{82, 50}, {82, 90}, {122, 90}, {122, 50}});
}

TEST_CASE("the middle of a billboard is the mean of its corners, not that of its extents")
{
    OneFace one;
    one.screenCorner(100, 100);
    one.screenCorner(100, 140);
    one.screenCorner(108, 140);
    one.screenCorner(140, 100);
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    // Mean (112, 120); half extents |140 - 112| = 28 and 20.
    CHECK(corners(*record) == Corners{{84, 92}, {84, 148}, {140, 148}, {140, 92}});
}

TEST_CASE("whatever the winding of the face, the square runs down its left side and up its right side")
{
    OneFace one;
    one.screenCorner(140, 110);
    one.screenCorner(140, 120);
    one.screenCorner(110, 120);
    one.screenCorner(110, 110);
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(corners(*record) == Corners{{110, 100}, {110, 130}, {140, 130}, {140, 100}});
}

TEST_CASE("Intended: each corner keeps the inverse depth and texture coordinates that the face's own corner there has")
{
    OneFace one;
    one.corner({200, -200, 2}, outcodeAll, {1, 0}); // (100, 100)
    one.corner({400, -480, 4}, outcodeAll, {0, 0}); // (100, 120)
    one.corner({120, -120, 1}, outcodeAll, {0, 1}); // (120, 120)
    one.corner({960, -800, 8}, outcodeAll, {1, 1}); // (120, 100)
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(corners(*record) == Corners{{100, 100}, {100, 120}, {120, 120}, {120, 100}});
    CHECK(valuesOf(*record, record->invDepth) == Values{0.5f, 0.25f, 1, 0.125f});
    // 64.3 x 256 / 2, 0.3 x 256 / 4, 0.3 x 256, 64.3 x 256 / 8; 0.3 x 256 / 2, 0.3 x 256 / 4, 32.3 x 256, 32.3 x 256 /
    // 8.
    CHECK(valuesOf(*record, record->texU) == Values{8230.4f, 19.2f, 76.8f, 2057.6f});
    CHECK(valuesOf(*record, record->texV) == Values{38.4f, 19.2f, 8268.8f, 1033.6f});
    CHECK(record->maxDepth == 8);
}

TEST_CASE("a billboard that crosses the near or the far plane is dropped whole")
{
    forBothBillboards([]<class TargetList>() {
        for (const u32 plane : {outcodeNear, outcodeFar}) {
            OneFace one;
            wideRectangle(one);
            one.host.outcodes[2] &= ~plane;
            CHECK(one.emittedBillboard<TargetList>() == nullptr);
            CHECK(TargetList::list().count == 0);
            CHECK(TargetList::list().capacity == 512); // room was made before
            CHECK(one.host.stamps[0] == 0);            // and nothing was projected
        }
    });
}

TEST_CASE("a billboard that some plane has no corner inside of is dropped")
{
    OneFace one;
    wideRectangle(one);
    for (u32& outcode : one.host.outcodes) outcode &= ~u32{outcodeTop};
    CHECK(one.emittedBillboard<SortedPolygons>() == nullptr);
}

TEST_CASE("the square's corners get both depth bits and the bits of the sides that they are inside of, bounds included")
{
    const TestView view({.left = 16, .top = 8, .right = 320, .bottom = 200});
    struct Expected {
        f32 left, top, size;
        u32 outcodes[4];
    };
    constexpr u32 all = outcodeAll;
    const Expected table[] = {
        {100, 100, 20, {all, all, all, all}},
        {16, 8, 20, {all, all, all, all}},
        {300, 180, 20, {all, all, all, all}},
        {15, 100, 20, {all & ~4u, all & ~4u, all, all}},
        {301, 100, 20, {all, all, all & ~8u, all & ~8u}},
        {100, 7, 20, {all & ~16u, all, all, all & ~16u}},
        {100, 181, 20, {all, all & ~32u, all & ~32u, all}},
        {10, 2, 20, {all & ~20u, all & ~4u, all, all & ~16u}},
    };
    for (const Expected& expected : table) {
        CAPTURE(expected.left);
        CAPTURE(expected.top);
        const f32 x = expected.left;
        const f32 y = expected.top;
        const f32 xEnd = x + expected.size;
        const f32 yEnd = y + expected.size;
        ScreenPolygon polygon = screenPolygon({{x, y}, {x, yEnd}, {xEnd, yEnd}, {xEnd, y}}, view);
        for (u32& outcode : polygon.outcode) outcode = 0xffffffff;
        polygon.outcodeAnd = polygon.outcodeOr = 0xffffffff;
        squareCorners(view.record, polygon);
        u32 expectedAnd = all;
        for (i32 i = 0; i < 4; ++i) {
            CHECK(polygon.outcode[i] == expected.outcodes[i]);
            expectedAnd &= expected.outcodes[i];
        }
        CHECK(polygon.outcodeAnd == expectedAnd);
        CHECK(polygon.outcodeOr == all);
    }
}

TEST_CASE("the square is clipped by its own outcodes: it may reach out of the view where the face did not")
{
    forBothBillboards([]<class TargetList>() {
        // A flat strip near the top: inside, but its square is not.
        OneFace one;
        one.screenCorner(100, 4);
        one.screenCorner(100, 12);
        one.screenCorner(140, 12);
        one.screenCorner(140, 4);
        const ScreenPolygon* record = one.emittedBillboard<TargetList>();
        REQUIRE(record != nullptr);
        // The square (100, -12) to (140, 28), cut at row 0: from the outside corner 0 downward first.
        CHECK(corners(*record) == Corners{{100, 0}, {100, 28}, {140, 28}, {140, 0}});
        CHECK(record->outcodeAnd == (outcodeAll & ~u32{outcodeTop}));
    });
}

TEST_CASE("the host's outcodes play no part once the square is made")
{
    OneFace one;
    wideRectangle(one);
    one.host.outcodes[0] &= ~u32{outcodeLeft | outcodeBottom};
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(corners(*record) == Corners{{110, 100}, {110, 130}, {140, 130}, {140, 100}}); // not even rotated
    CHECK(record->outcodeAnd == outcodeAll);
}

TEST_CASE("a square that lies outside of the view is dropped while it is clipped")
{
    OneFace one;
    for (const f32 x : {400.0f, 400.0f, 440.0f, 440.0f}) one.corner({x, -100, 1}); // inside, as the host has it
    CHECK(one.emittedBillboard<SortedPolygons>() == nullptr);
    CHECK(sortedPolygons.count == 0);
}

TEST_CASE("a square larger than the view is cut on all four sides")
{
    OneFace one;
    one.screenCorner(-140, 90);
    one.screenCorner(-140, 110);
    one.screenCorner(460, 110);
    one.screenCorner(460, 90);
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    // Mean (160, 100), half side 300. Right, left, bottom and top in turn rotate the outline.
    CHECK(corners(*record) == Corners{{320, 0}, {0, 0}, {0, 200}, {320, 200}});
    CHECK(valuesOf(*record, record->invDepth) == Values{1, 1, 1, 1});
}

TEST_CASE("the sorted billboard has a depth plane; the late one has none")
{
    forBothBillboards([]<class TargetList>() {
        constexpr bool late = __is_same(TargetList, LateSortedPolygons);
        CAPTURE(late);
        OneFace one;
        wideRectangle(one);
        one.face.normalX = 1;
        one.face.normalY = 1;
        one.face.normalZ = 4; // with the first corner (110, -110, 1): d = 4
        const ScreenPolygon* const record = one.emittedBillboard<TargetList>();
        REQUIRE(record != nullptr);
        const ScreenPolygon& next = *record;

        CHECK(next.invDepthStepX == (late ? unsetValue : 0.25f));
        CHECK(next.invDepthStepY == (late ? unsetValue : -0.25f));
        CHECK(next.invDepthOrigin == (late ? unsetValue : 1));
        CHECK(next.occludes == 0);
        CHECK(next.engineFlag == 1);
        CHECK(next.spanHead == -1);
        CHECK(next.activeCount == 0);
        CHECK(next.material == &one.material);
        CHECK(next.faceColour == 0x1234);
        CHECK(next.maxDepth == 1);
        CHECK(resolvedPolygons.count == 0);
        CHECK(sortedPolygons.count == (late ? 0 : 1));
        CHECK(lateSortedPolygons.count == (late ? 1 : 0));
    });
}

TEST_CASE("a billboard's corners come from the vertex cache")
{
    OneFace one;
    wideRectangle(one);
    one.host.stamps[0] = one.host.context().projectionStamp;
    one.host.screenVertices[0] = {70, 110, 0.5f};
    const ScreenPolygon* record = one.emittedBillboard<SortedPolygons>();
    REQUIRE(record != nullptr);
    // Mean ((70 + 110 + 140 + 140) / 4, 115) = (115, 115); half extents 45 and 5.
    CHECK(corners(*record) == Corners{{70, 70}, {70, 160}, {160, 160}, {160, 70}});
    CHECK(record->invDepth[0] == 0.5f);
    CHECK(one.host.stamps == std::vector<u32>(4, one.host.context().projectionStamp));
}
