// How many sides begin on each row, and which sides make an edge at all.
#include "geometry/list_storing.h"
#include "tests/support/seeds.h"
#include "tests/support/test_host.h"

#include <doctest/doctest.h>

#include <random>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr i32 largest = 2147483647;
constexpr i32 smallest = -largest - 1;

struct Rows {
    i32 a, b;
    i32 start, end; // equal when there is no edge
};

// Stores a polygon with these rows in the resolved list, which has room for one.
bool countPolygon(const std::vector<i32>& rows)
{
    alignas(16) static u8 block[listRecordBytes];
    ScreenPolygon polygon = {};
    for (const i32 row : rows) polygon.scanY[polygon.vertexCount++] = row;
    StoredPolygon& stored = *reinterpret_cast<StoredPolygon*>(block);
    setHeader<PositionsOnly, ResolvedPolygons>(stored, nullptr, static_cast<u32>(rows.size()));
    for (u32 i = 0; i < rows.size(); ++i)
        storeCorner<PositionsOnly>(cornersOf(stored) + 8 * i, {0, rows[i]}, 0, []<class>() { return 0.0f; });
    return countSides(stored);
}

std::vector<u32> counted(i32 from, i32 to)
{
    return {sideCounts.starting + from, sideCounts.starting + to};
}

} // namespace

TEST_CASE("a side covers the rows from its upper corner up to its lower one, cut to the rectangle")
{
    const Rows table[] = {
        {12, 15, 12, 15},     // inside
        {15, 12, 12, 15},     // run up the screen
        {12, 12, 0, 0},       // level
        {4, 12, 10, 12},      // begins above row 10
        {15, 30, 15, 20},     // ends below row 19
        {0, 4000, 10, 20},    // both
        {3, 10, 0, 0},        // ends where the rectangle begins
        {20, 25, 0, 0},       // begins where it ends
        {9, 11, 10, 11},      // one row
        {19, 20, 19, 20},     // the last row
        {-1, 0, 0, 0},        // wholly above
        {smallest, -1, 0, 0}, // likewise, as far as can be
        {25, largest, 0, 0},  // wholly below
    };
    for (const Rows& rows : table) {
        CAPTURE(rows.a);
        CAPTURE(rows.b);
        const SideRows found = rowsOfSide(rows.a, rows.b, 10, 20);
        const bool makesEdge = rows.start != rows.end;
        CHECK(found.makesEdge == makesEdge);
        if (makesEdge) {
            CHECK(found.start == rows.start);
            CHECK(found.end == rows.end);
        }
    }
}

TEST_CASE("sides are counted on the rows on which they start, and the last side says whether it makes an edge")
{
    resetSideCounts({0, 10, 320, 20});
    // Rows 12 to 15, level, up again.
    CHECK(countPolygon({12, 15, 15, 12}) == false); // the last side is level
    CHECK(counted(10, 16) == std::vector<u32>{0, 0, 2, 0, 0, 0});
    CHECK(sideCounts.edges == 2);

    CHECK(countPolygon({4, 30, 12}) == true);
    CHECK(counted(10, 16) == std::vector<u32>{2, 0, 3, 0, 0, 0}); // 4 to 30, 30 to 12 and 12 to 4
    CHECK(sideCounts.edges == 5);

    CHECK(countPolygon({1, 30, 9}) == false); // 9 to 1 lies above
    CHECK(counted(10, 16) == std::vector<u32>{4, 0, 3, 0, 0, 0});
    CHECK(sideCounts.edges == 7);
}

TEST_CASE("counts begin anew for a rectangle, whose rows they belong to")
{
    resetSideCounts({0, 10, 320, 20});
    countPolygon({12, 15, 14});
    resetSideCounts({0, 10, 320, 20});
    CHECK(sideCounts.edges == 0);
    CHECK(counted(10, 20) == std::vector<u32>(10, 0));
    CHECK(areCountedFor({0, 10, 320, 20}));
    CHECK(areCountedFor({5, 10, 6, 20})); // columns play no part
    CHECK_FALSE(areCountedFor({0, 9, 320, 20}));
    CHECK_FALSE(areCountedFor({0, 10, 320, 21}));
}

TEST_CASE("no side is counted for a rectangle that does not fit the tables")
{
    for (const DrawnRectangle& drawn :
         {DrawnRectangle{0, -1, 320, 20}, {0, 0, 320, 4097}, {0, smallest, 320, largest}, {0, 20, 320, 10}}) {
        CAPTURE(drawn.top);
        CAPTURE(drawn.bottom);
        resetSideCounts(drawn);
        CHECK(countPolygon({12, 15, 14}) == false);
        CHECK(sideCounts.edges == 0);
    }
}

TEST_CASE("all 4,096 rows are counted, the last one too")
{
    resetSideCounts({0, 0, 320, 4096});
    CHECK(countPolygon({smallest / 2, 4095, 7}) == true);
    CHECK(countPolygon({4095, largest / 2, 4095}) == false);
    CHECK(sideCounts.starting[0] == 2); // from far above to 4,095, and from 7 to far above
    CHECK(sideCounts.starting[7] == 1);
    CHECK(sideCounts.starting[4095] == 2);
    CHECK(sideCounts.edges == 5);
}

TEST_CASE("the sides of a triangle are counted as those of any polygon")
{
    const i32 extremes[] = {smallest, smallest + 1, -1, 0, 9, 10, 11, 19, 20, 21, 4095, 4096, largest - 1, largest};
    forEachSeed(20000, [&](u32 seed) {
        std::mt19937 random(seed);
        const auto anyRow = [&] {
            if (random() % 4 == 0) return extremes[random() % 14];
            return static_cast<i32>(random() % 24) + 2;
        };
        const i32 rows[3] = {anyRow(), anyRow(), anyRow()};
        resetSideCounts({.left = 0, .top = 10, .right = 1, .bottom = 20});
        const bool last = countPolygon({rows[0], rows[1], rows[2]});
        const std::vector<u32> expected = counted(10, 20);
        const i32 edges = sideCounts.edges;
        resetSideCounts({.left = 0, .top = 10, .right = 1, .bottom = 20});
        CHECK(countTriangle(rows[0], rows[1], rows[2]) == last);
        CHECK(counted(10, 20) == expected);
        CHECK(sideCounts.edges == edges);
    });
}
