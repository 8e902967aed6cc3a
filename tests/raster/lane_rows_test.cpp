// The outlines of stored polygons: which of them have room in the table of rows, and what stands there.
#include "geometry/list_storing.h"
#include "raster/lane_rows.h"
#include "tests/support/test_host.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr i32 largest = 2147483647;

// A polygon in the resolved list.
template <class Format>
struct Stored {
    TestHost host;
    alignas(16) u8 block[listRecordBytes] = {};

    explicit Stored(const ScreenPolygon& polygon)
    {
        resolvedPolygons.records = resolvedPolygons.held = reinterpret_cast<StoredPolygon*>(block);
        resolvedPolygons.capacity = resolvedPolygons.heldCapacity = 1;
        storePolygon<Format, ResolvedPolygons>(polygon, *resolvedPolygons.held);
    }
    const StoredPolygon& polygon() const { return *resolvedPolygons.held; }
};

// A rectangle of these rows.
ScreenPolygon rectangle(i32 top, i32 bottom)
{
    ScreenPolygon polygon = {};
    polygon.vertexCount = 4;
    polygon.scanY[0] = polygon.scanY[3] = top;
    polygon.scanY[1] = polygon.scanY[2] = bottom;
    polygon.screenX[2] = polygon.screenX[3] = 8;
    return polygon;
}

i32 topOf(i32 top, i32 bottom)
{
    const Stored<PositionsOnly> stored(rectangle(top, bottom));
    return walkSides<PositionsOnly>(stored.polygon());
}

} // namespace

TEST_CASE("a polygon of up to 1,024 rows within the scanline tables has room, and is known by its top row")
{
    CHECK(topOf(0, 1) == 0);
    CHECK(topOf(0, 1024) == 0);
    CHECK(topOf(7, 1031) == 7);
    CHECK(topOf(3072, 4096) == 3072);
    CHECK(topOf(4095, 4096) == 4095);
}

TEST_CASE("a polygon that is taller, or reaches above row 0 or below row 4,095, has no room")
{
    CHECK(topOf(0, 1025) == -1);
    CHECK(topOf(7, 1032) == -1);
    CHECK(topOf(-1, 20) == -1);
    CHECK(topOf(4090, 4097) == -1);
    CHECK(topOf(-1000000, 1000000) == -1);
    CHECK(topOf(-1, largest) == -1);
    CHECK(topOf(-largest - 1, 5) == -1);
}

TEST_CASE("the rows of a polygon begin at the table's first row, and move by their steps from corner to corner")
{
    // Rows 10 to 14: the left side goes from x 8 to 0, inverse depth 1 to 3, u 0 to 16 and v 100 to 60, and the shade
    // from 5 to 9; the right side stands at x 20, and its values go the other way.
    ScreenPolygon polygon = {};
    polygon.vertexCount = 4;
    const f32 values[6][4] = {{8, 0, 20, 20}, {1, 3, 3, 1}, {0, 16, 0, 16}, {100, 60, 60, 100}, {5, 9, 5, 9}, {}};
    for (i32 i = 0; i < 4; ++i) {
        polygon.scanY[i] = i == 1 || i == 2 ? 14 : 10;
        polygon.screenX[i] = values[0][i];
        polygon.invDepth[i] = values[1][i];
        polygon.texU[i] = values[2][i];
        polygon.texV[i] = values[3][i];
        polygon.intensity[i] = values[4][i];
    }
    const Stored<LitTextured> stored(polygon);
    CHECK(walkSides<LitTextured>(stored.polygon()) == 10);

    for (i32 row = 0; row < 4; ++row) {
        CAPTURE(row);
        const f32 n = static_cast<f32>(row);
        const LaneSide& left = LaneRowTable[row].left;
        CHECK(left.lanes[0] == 1 + n / 2);
        CHECK(left.lanes[1] == 4 * n);
        CHECK(left.lanes[2] == 100 - 10 * n);
        CHECK(left.lanes[3] == 8 - 2 * n);
        CHECK(left.further[0] == 5 + n);
        const LaneSide& right = LaneRowTable[row].right;
        CHECK(right.lanes[0] == 1 + n / 2);
        CHECK(right.lanes[1] == 16 - 4 * n);
        CHECK(right.lanes[2] == 100 - 10 * n);
        CHECK(right.lanes[3] == 20);
        CHECK(right.further[0] == 9 - n);
    }
}

TEST_CASE("an upper corner in the middle of the outline parts it in its two chains")
{
    // A triangle whose corner 1 is the uppermost: down to corner 2 on the left, to corner 0 on the right.
    ScreenPolygon polygon = {};
    polygon.vertexCount = 3;
    const f32 columns[] = {30, 20, 10};
    const i32 rows[] = {5, 3, 7};
    for (i32 i = 0; i < 3; ++i) {
        polygon.screenX[i] = columns[i];
        polygon.scanY[i] = rows[i];
    }
    const Stored<Coloured> stored(polygon);
    CHECK(walkSides<Coloured>(stored.polygon()) == 3);
    const f32 left[] = {20, 17.5f, 15, 12.5f};
    const f32 right[] = {20, 25, 30, 20}; // corner 0 is passed on row 5
    for (i32 row = 0; row < 4; ++row) {
        CHECK(LaneRowTable[row].left.lanes[3] == left[row]);
        CHECK(LaneRowTable[row].right.lanes[3] == right[row]);
    }
}
