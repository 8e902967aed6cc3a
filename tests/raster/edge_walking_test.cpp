#include "raster/edge_walking.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace kardeno;

namespace {

// A corner on a row, with one attribute.
struct Corner {
    f32 x;
    i32 y;
    f32 texU = 0;
};

ScreenPolygon polygonOf(const std::vector<Corner>& corners)
{
    ScreenPolygon polygon;
    std::memset(&polygon, 0, sizeof polygon);
    for (const Corner& corner : corners) {
        const i32 i = polygon.vertexCount++;
        polygon.screenX[i] = corner.x;
        polygon.scanY[i] = corner.y;
        polygon.texU[i] = corner.texU;
    }
    return polygon;
}

constexpr i32 unwritten = -777;

// Lays the polygon out in a table that nobody has written.
OutlineExtent walk(const ScreenPolygon& polygon)
{
    std::memset(OutlineTable, 0, sizeof OutlineTable);
    for (OutlineRow& row : OutlineTable) row.left.x = row.right.x = unwritten;
    return walkEdges<List<SpanTexU>>(polygon);
}

using Columns = std::vector<i32>;

std::string listed(const Columns& columns)
{
    std::string result;
    for (const i32 x : columns) result += (x == unwritten ? "-" : std::to_string(x)) + " ";
    return result;
}

std::string columns(OutlineSide OutlineRow::*side, i32 y, i32 yEnd)
{
    Columns result;
    for (; y < yEnd; ++y) result.push_back((OutlineTable[y].*side).x);
    return listed(result);
}

std::string left(i32 y, i32 yEnd)
{
    return columns(&OutlineRow::left, y, yEnd);
}

std::string right(i32 y, i32 yEnd)
{
    return columns(&OutlineRow::right, y, yEnd);
}

f32 leftU(i32 y)
{
    return OutlineTable[y].left.values.texU;
}

f32 rightU(i32 y)
{
    return OutlineTable[y].right.values.texU;
}

} // namespace

TEST_CASE("of several vertices on the top row the one with the lowest index is the top vertex")
{
    CHECK(outlineExtent(polygonOf({{0, 9}, {8, 2}, {4, 2}, {0, 2}})).topVertex == 1);
    CHECK(outlineExtent(polygonOf({{0, 2}, {0, 9}, {8, 9}, {8, 2}})).topVertex == 0);
}

TEST_CASE("of several vertices on the bottom row the one with the lowest index is the bottom vertex")
{
    CHECK(outlineExtent(polygonOf({{0, 2}, {0, 9}, {8, 9}, {8, 2}})).bottomVertex == 1);
    CHECK(outlineExtent(polygonOf({{8, 9}, {8, 2}, {0, 2}, {0, 9}})).bottomVertex == 0);
}

TEST_CASE("the left chain runs from the top vertex by rising indices, the right chain by falling ones")
{
    //       1            rows 2 to 6; from vertex 1 the left chain visits 2, 3 and the right chain 0, 3
    //     2   0
    //       3
    walk(polygonOf({{20, 4}, {12, 2}, {4, 4}, {12, 6}}));
    CHECK(left(1, 8) == listed({unwritten, 12, 8, 4, 8, unwritten, unwritten}));
    CHECK(right(1, 8) == listed({unwritten, 12, 16, 20, 16, unwritten, unwritten}));
}

TEST_CASE("the left chain wraps from the last vertex to vertex 0, the right chain from vertex 0 to the last")
{
    // The same diamond, numbered from its left corner and from its right one.
    walk(polygonOf({{4, 4}, {12, 6}, {20, 4}, {12, 2}}));
    CHECK(left(2, 6) == listed({12, 8, 4, 8}));
    CHECK(right(2, 6) == listed({12, 16, 20, 16}));
    walk(polygonOf({{12, 2}, {4, 4}, {12, 6}, {20, 4}}));
    CHECK(left(2, 6) == listed({12, 8, 4, 8}));
    CHECK(right(2, 6) == listed({12, 16, 20, 16}));
}

TEST_CASE("the chain called left is the left one by the order of vertices, not on the screen")
{
    walk(polygonOf({{12, 2}, {20, 4}, {12, 6}, {4, 4}}));
    CHECK(left(2, 6) == listed({12, 16, 20, 16}));
    CHECK(right(2, 6) == listed({12, 8, 4, 8}));
}

TEST_CASE("rows run from the top vertex's to the bottom vertex's, which is never written")
{
    const OutlineExtent extent = walk(polygonOf({{2, 3}, {2, 5}, {9, 5}, {9, 3}}));
    CHECK(extent.topVertex == 0);
    CHECK(extent.bottomVertex == 1);
    CHECK(left(2, 7) == listed({unwritten, 2, 2, unwritten, unwritten}));
    CHECK(right(2, 7) == listed({unwritten, 9, 9, unwritten, unwritten}));
}

TEST_CASE("a horizontal edge writes no row, at the top, at the bottom and in the middle of a chain")
{
    // The right chain goes 0, 5, 4, 3: across the top, down, across row 4, down; the left one ends across the bottom.
    walk(polygonOf({{4, 2}, {4, 6}, {6, 6}, {12, 6}, {12, 4}, {8, 4}, {8, 2}}));
    CHECK(left(1, 7) == listed({unwritten, 4, 4, 4, 4, unwritten}));
    CHECK(right(1, 7) == listed({unwritten, 8, 8, 12, 12, unwritten}));
}

TEST_CASE("an outline that lies on one row writes nothing")
{
    walk(polygonOf({{0, 3}, {5, 3}, {9, 3}}));
    CHECK(left(0, 6) == listed(Columns(6, unwritten)));
    CHECK(right(0, 6) == listed(Columns(6, unwritten)));
}

TEST_CASE("a side that runs up writes no row, and a later side of the chain writes over an earlier one")
{
    // Left chain: x 0 down rows 0 to 5, up to row 2, then x 20 down rows 2 to 7.
    walk(polygonOf({{0, 0}, {0, 6}, {20, 2}, {20, 8}, {30, 8}, {30, 0}}));
    CHECK(left(0, 9) == listed({0, 0, 20, 20, 20, 20, 20, 20, unwritten}));
    CHECK(right(0, 9) == listed({30, 30, 30, 30, 30, 30, 30, 30, unwritten}));
}

TEST_CASE("attributes go from one vertex to the next in equal steps, beginning at the vertex")
{
    // Left from 100 to 140 in 4 rows, right from 100 to 20.
    walk(polygonOf({{5, 1, 100}, {1, 5, 140}, {1, 5, 20}}));
    for (i32 row = 0; row < 4; ++row) {
        CHECK(leftU(1 + row) == 100 + 10 * row);
        CHECK(rightU(1 + row) == 100 - 20 * row);
    }
}

TEST_CASE("columns are truncated toward zero, left of the screen too")
{
    // From 2.5 by -1.25 a row: 2.5, 1.25, 0, -1.25, -2.5, -3.75.
    walk(polygonOf({{2.5f, 0}, {-5, 6}, {20, 6}}));
    CHECK(left(0, 6) == listed({2, 1, 0, -1, -2, -3}));
}

TEST_CASE("running columns and attributes are f32 sums, rounded at every row")
{
    // 2^24 + 1 is halfway between two f32 and goes to the even one, 2^24: a step of 1 never gets away from there.
    // Formed anew for every row, row 2 would hold 2^24 + 2.
    walk(polygonOf({{16777216, 0, 16777216}, {16777224, 8, 16777224}, {16777224, 8, 16777224}}));
    for (i32 y = 0; y < 8; ++y) {
        CHECK(OutlineTable[y].left.x == 16777216);
        CHECK(leftU(y) == 16777216.0f);
        CHECK(rightU(y) == 16777216.0f);
    }
}

TEST_CASE("a step is the difference times the f64 reciprocal of the rows, rounded to f32 once")
{
    // A third is 11184811 / 2^25 in f32.
    walk(polygonOf({{0, 0, 0}, {0, 3, 1}, {9, 3, 4.5f}}));
    CHECK(leftU(1) == 11184811.0f / 33554432.0f);
    CHECK(leftU(2) == 22369622.0f / 33554432.0f);
    CHECK(rightU(1) == 1.5f);
    CHECK(rightU(2) == 3.0f);
    // 10.5 / 7 is 1.5. A seventh rounded to f32, 9586981 / 2^26, would make it 1.5 + 2^-23.
    walk(polygonOf({{0, 0, 0}, {0, 7, 10.5f}, {9, 7, 0}}));
    CHECK(leftU(1) == 1.5f);
}

TEST_CASE("the difference along a side is formed in f64")
{
    // From -1 to 2^24 it is 2^24 + 1, which is no f32: a fifth is 3355443.4, to the spacing of 1/4 there 3355443.5. A
    // fifth of 2^24 is 3355443.2 and would be 3355443.25.
    walk(polygonOf({{0, 0, -1}, {0, 5, 16777216}, {9, 5, 0}}));
    CHECK(leftU(1) == 3355442.5f);
}

TEST_CASE("every attribute that a filler lists is laid out, and no other")
{
    ScreenPolygon polygon = polygonOf({{0, 0}, {0, 4}, {8, 4}});
    for (i32 i = 0; i < 3; ++i) {
        const f32 value = i == 0 ? 0.0f : 4.0f;
        polygon.invDepth[i] = value + 1;
        polygon.texV[i] = value + 2;
        polygon.intensity[i] = value + 3;
        polygon.colourR[i] = value + 4;
        polygon.colourG[i] = value + 5;
        polygon.colourB[i] = value + 6;
        polygon.texU[i] = 1000;
    }
    std::memset(OutlineTable, 0, sizeof OutlineTable);
    walkEdges<List<SpanInvDepth, SpanTexV, SpanShadeOverDepth, SpanRed, SpanGreen, SpanBlue>>(polygon);
    for (i32 y = 0; y < 4; ++y) {
        for (const OutlineSide& side : {OutlineTable[y].left, OutlineTable[y].right}) {
            CHECK(side.values.invDepth == y + 1);
            CHECK(side.values.texV == y + 2);
            CHECK(side.values.intensity == y + 3);
            CHECK(side.values.colourR == y + 4);
            CHECK(side.values.colourG == y + 5);
            CHECK(side.values.colourB == y + 6);
            CHECK(side.values.texU == 0);
        }
    }
    std::memset(OutlineTable, 0, sizeof OutlineTable);
    walkEdges<List<SpanShadeOnScreen>>(polygon);
    CHECK(OutlineTable[2].left.values.intensity == 5);
    CHECK(OutlineTable[2].left.values.invDepth == 0);
}

TEST_CASE("rows above the table are not written, and the rows below them go on from there")
{
    // From row -3 on, one column a row: row 0 is the fourth.
    walk(polygonOf({{10, -3, 30}, {17, 4, 100}, {30, 4, 100}}));
    CHECK(left(0, 5) == listed({13, 14, 15, 16, unwritten}));
    CHECK(leftU(0) == 60);
    CHECK(leftU(3) == 90);
}

TEST_CASE("rows below the table are not written")
{
    walk(polygonOf({{0, 4094}, {0, 5000}, {8, 2147483647}}));
    CHECK(left(4092, 4096) == listed({unwritten, unwritten, 0, 0}));
}

TEST_CASE("an outline wholly above or below the table writes nothing")
{
    walk(polygonOf({{0, -9}, {0, 0}, {8, 0}}));
    CHECK(left(0, 3) == listed(Columns(3, unwritten)));
    walk(polygonOf({{0, 4096}, {0, 4200}, {8, 4200}}));
    CHECK(left(4090, 4096) == listed(Columns(6, unwritten)));
}

TEST_CASE("an outline that begins far above the table has in its rows what it would have walked to")
{
    // 8200 rows from column 0 to 1025, an eighth a row: row 0 is 8192 rows down, at column 1024, and row 7 at 1024.875.
    // The attribute loses a quarter a row, from 100 on.
    walk(polygonOf({{0, -8192, 100}, {1025, 8, -1950}, {1025, 8, -1950}}));
    CHECK(left(0, 9) == listed({1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, unwritten}));
    CHECK(leftU(0) == -1948);
    CHECK(leftU(7) == -1949.75f);
}

TEST_CASE("an outline that begins absurdly high is laid out at once")
{
    // Walked row by row this would be 2^31 - 9 rows for each side.
    walk(polygonOf({{5, -2147483647 + 16, 3}, {5, 8, 3}, {5, 8, 3}}));
    CHECK(left(0, 9) == listed({5, 5, 5, 5, 5, 5, 5, 5, unwritten}));
    CHECK(right(0, 9) == listed({5, 5, 5, 5, 5, 5, 5, 5, unwritten}));
    CHECK(leftU(7) == 3);
}

TEST_CASE(
    "a side whose rows do not fit in 32 bits steps by the wrapped difference, and its rows are walked all the same")
{
    // From -2,147,483,648 to 8 the difference wraps to -2,147,483,640: the steps have the wrong sign, and after nearly
    // 2^31 rows column 0 has become nearly -3 on the way to 3, and nearly -9 on the way to 9. No row keeps what an
    // earlier polygon left there.
    walk(polygonOf({{0, -2147483647 - 1}, {3, 8}, {9, 8}}));
    CHECK(left(0, 9) == listed({-2, -2, -2, -2, -2, -2, -2, -2, unwritten}));
    CHECK(right(0, 9) == listed({-8, -8, -8, -8, -8, -8, -8, -8, unwritten}));
}
