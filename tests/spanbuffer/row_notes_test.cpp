// Rows that have the edges of the row before, which are resolved by notes.
#include "tests/spanbuffer/span_scene.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <random>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr TestView::Settings tenRows{.right = 30, .bottom = 10};

// Columns x to xEnd of all rows from firstRow to lastRow, from the last one to the first.
Runs onRows(i32 firstRow, i32 lastRow, i32 x, i32 xEnd)
{
    Runs runs;
    for (i32 y = lastRow; y >= firstRow; --y) runs.push_back({x, xEnd, y});
    return runs;
}

} // namespace

TEST_CASE("rows with the same edges have runs between the same edges, wherever these have stepped to")
{
    SpanScene scene(tenRows);
    const ScreenPolygon& wall = scene.addRectangle(0, 0, 30, 10, 1);
    // Both sides step one column to the right on each row.
    const ScreenPolygon& slanted = scene.add({{2, 0}, {12, 10}, {16, 10}, {6, 0}}, 2);
    scene.resolve();
    Runs onSlanted, onWall;
    for (i32 y = 9; y >= 0; --y) {
        onSlanted.push_back({2 + y, 6 + y, y});
        onWall.push_back({6 + y, 30, y});
        onWall.push_back({0, 2 + y, y});
    }
    CHECK(runsOf(slanted) == onSlanted);
    CHECK(runsOf(wall) == onWall);
}

TEST_CASE("two planes that change places from one row to the next are seen to, though no edge changes")
{
    SpanScene scene(tenRows);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 10, 5);
    ScreenPolygon& rising = scene.addRectangle(10, 0, 20, 10);
    setPlane(rising, 0, 1, 0); // as near as the wall on row 5, and entered last
    scene.resolve();
    CHECK(runsOf(rising) == onRows(5, 9, 10, 20));
    CHECK(runsOf(wall, 4) == Runs{{2, 25, 4}});
    CHECK(runsOf(wall, 5) == Runs{{20, 25, 5}, {2, 10, 5}});
}

TEST_CASE("planes that change places on the very last row of an edge are seen to")
{
    SpanScene scene(tenRows);
    scene.addRectangle(2, 0, 25, 10, 9);
    ScreenPolygon& rising = scene.addRectangle(10, 0, 20, 10);
    setPlane(rising, 0, 1, 0);
    scene.resolve();
    CHECK(runsOf(rising) == Runs{{10, 20, 9}});
}

TEST_CASE("a difference of depths that rounding decides is looked at on every row")
{
    SpanScene scene({.right = 30, .bottom = 4});
    scene.addRectangle(2, 0, 25, 4, 16777216);
    // 16,777,215 and a quarter more on each row: always less than the wall's depth, until it is rounded. The half of
    // row 2 and the three quarters of row 3 round up to 16,777,216, and the polygon that was entered last is in front.
    ScreenPolygon& rising = scene.addRectangle(10, 0, 20, 4);
    setPlane(rising, 0, 0.25f, 16777215);
    scene.resolve();
    CHECK(runsOf(rising) == onRows(2, 3, 10, 20));
}

TEST_CASE("neighbours in one plane share their rows, whichever of them is nearer at the edge between them")
{
    SpanScene scene(tenRows);
    const ScreenPolygon& left = scene.addRectangle(2, 0, 10, 10, 3);
    const ScreenPolygon& right = scene.addRectangle(10, 0, 20, 10, 3);
    const ScreenPolygon& wall = scene.addRectangle(0, 0, 30, 10, 1);
    scene.resolve();
    CHECK(runsOf(left) == onRows(0, 9, 2, 10));
    CHECK(runsOf(right) == onRows(0, 9, 10, 20));
    CHECK(runsOf(wall, 7) == Runs{{20, 30, 7}, {0, 2, 7}});
}

TEST_CASE("rows with a see-through polygon before two others have the runs of all three")
{
    SpanScene scene(tenRows);
    const ScreenPolygon& glass = scene.addSeeThrough(4, 0, 24, 10, 3);
    const ScreenPolygon& post = scene.addRectangle(8, 0, 12, 10, 2);
    const ScreenPolygon& front = scene.addRectangle(10, 0, 15, 10, 4);
    scene.resolve();
    CHECK(runsOf(glass, 8) == Runs{{15, 24, 8}, {4, 10, 8}});
    CHECK(runsOf(post, 8) == Runs{{8, 10, 8}});
    CHECK(runsOf(front, 8) == Runs{{10, 15, 8}});
    CHECK(background(8) == Runs{{15, 30, 8}, {0, 8, 8}}); // glass and the background behind it
}

TEST_CASE("an edge that starts, ends or crosses another one after many rows is seen to")
{
    SpanScene scene({.right = 30, .bottom = 20});
    const ScreenPolygon& wall = scene.addRectangle(0, 0, 30, 20, 1);
    const ScreenPolygon& late = scene.addRectangle(5, 12, 8, 15, 2);
    // Its left side runs from column 24 at row 0 to column 4 at row 20, before the right side of the pillar.
    const ScreenPolygon& wedge = scene.add({{24, 0}, {4, 20}, {28, 20}, {28, 0}}, 3);
    const ScreenPolygon& pillar = scene.addRectangle(14, 0, 18, 20, 4);
    scene.resolve();
    CHECK(runsOf(late) == onRows(12, 14, 5, 8));
    CHECK(runsOf(pillar) == onRows(0, 19, 14, 18));
    CHECK(runsOf(wedge, 4) == Runs{{20, 28, 4}});
    CHECK(runsOf(wedge, 8) == Runs{{18, 28, 8}});
    CHECK(runsOf(wedge, 15) == Runs{{18, 28, 15}, {9, 14, 15}});
    CHECK(runsOf(wall, 15) == Runs{{28, 30, 15}, {0, 9, 15}});
    CHECK(runsOf(wall, 13) == Runs{{28, 30, 13}, {8, 11, 13}, {0, 5, 13}});
}

TEST_CASE("a pool that grows on a row that is resolved by notes loses no span")
{
    SpanScene scene({.right = 30, .bottom = 2000}); // three spans a row, 6,000 in all
    const ScreenPolygon& post = scene.addRectangle(10, 0, 20, 2000);
    scene.resolve();
    CHECK(SpanPool.count == 6000);
    CHECK(runsOf(post) == onRows(0, 1999, 10, 20));
    CHECK(background(1500) == Runs{{20, 30, 1500}, {0, 10, 1500}});
}

TEST_CASE("large polygons have the same spans by notes as when every row is walked")
{
    forEachSeed(1500, [](u32 seed) {
        std::mt19937 random(seed);
        const auto below = [&random](u32 end) { return static_cast<f32>(random() % end); };
        // With a fraction that single precision does not hold exactly, no row is resolved by notes.
        const f32 tops[] = {0, 0.5f, 3, 0.1f};
        SpanScene scene({.top = tops[random() % 4], .right = 320, .bottom = 200});
        const bool coarse = seed % 3 == 0; // corners and planes that often coincide
        const u32 grain = coarse ? 5 : 64;
        const auto across = [&] { return below(320 * grain / 4) / static_cast<f32>(grain) * 5 - 20; };
        const auto number = [&] { return (below(coarse ? 5 : 4096) - (coarse ? 2 : 2048)) / 256; };
        for (u32 i = 0; i < 3 + seed % 12; ++i) {
            const f32 top = below(coarse ? 4 : 100);
            const f32 bottom = 200 - below(coarse ? 4 : 90);
            f32 x[4] = {across(), across(), across(), across()};
            const f32 stepX = number() / 8, stepY = number() / 8, origin = number() * 8;
            const bool occludes = random() % 4 != 0;
            // Two neighbours in one plane, which share the side from x[1] to x[2].
            for (u32 half = 0; half < 1 + random() % 2; ++half) {
                const f32 left[2] = {half ? x[1] : x[0], half ? x[2] : x[0]};
                const f32 right[2] = {half ? x[3] : x[1], half ? x[3] + 10 : x[2]};
                ScreenPolygon& polygon =
                    scene.add({{left[0], top}, {left[1], bottom}, {right[1], bottom}, {right[0], top}}, 1, occludes);
                setPlane(polygon, stepX, stepY, origin);
            }
        }
        std::vector<Runs> expected;
        scene.alikeRows = AlikeRows::walked;
        scene.resolve();
        for (const ScreenPolygon& polygon : scene.polygons) expected.push_back(runsOf(polygon));
        expected.push_back(runsOf(BackgroundPolygon));

        scene.alikeRows = AlikeRows::byNotes;
        scene.resolve();
        for (size_t i = 0; i < scene.polygons.size(); ++i) CHECK(runsOf(scene.polygons[i]) == expected[i]);
        CHECK(runsOf(BackgroundPolygon) == expected.back());
    });
}
