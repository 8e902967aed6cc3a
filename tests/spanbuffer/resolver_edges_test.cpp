// The active edge list: merging, stepping, re-sorting and dropping. Equal depths make the order of the edges visible,
// because the polygon entered last lies in front.
#include "tests/spanbuffer/span_scene.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("an edge that starts on a row goes before an active edge with the same x")
{
    SpanScene scene({.right = 30, .bottom = 2});
    const ScreenPolygon& active = scene.addRectangle(5, 0, 12, 2);
    const ScreenPolygon& starting = scene.addRectangle(5, 1, 20, 2);
    scene.resolve();
    CHECK(runsOf(active, 1) == Runs{{5, 12, 1}}); // entered last
    CHECK(runsOf(starting, 1) == Runs{{12, 20, 1}});
}

TEST_CASE("edges with the same x do not swap, and crossed ones do")
{
    SpanScene scene({.right = 30, .bottom = 3});
    const ScreenPolygon& slanted = scene.add({{4, 0}, {7, 3}, {10, 3}, {10, 0}}); // 4, 5, 6
    const ScreenPolygon& upright = scene.addRectangle(5, 0, 12, 3);
    scene.resolve();

    CHECK(runsOf(slanted, 0) == Runs{{4, 5, 0}});
    CHECK(runsOf(upright, 0) == Runs{{5, 12, 0}});
    // Both at 5: the slanted one was first and stays first, so that the upright one lies in front.
    CHECK(runsOf(slanted, 1).empty());
    CHECK(runsOf(upright, 1) == Runs{{5, 12, 1}});
    // Past it: now the upright one is entered first.
    CHECK(runsOf(slanted, 2) == Runs{{6, 10, 2}});
    CHECK(runsOf(upright, 2) == Runs{{10, 12, 2}, {5, 6, 2}});
}

TEST_CASE("an edge that passes another one stays behind those whose x it only reaches")
{
    SpanScene scene({.right = 30, .bottom = 2});
    scene.addRectangle(5, 0, 20, 2);
    const ScreenPolygon& passed = scene.addRectangle(9, 0, 22, 2);
    const ScreenPolygon& slanted = scene.add({{12, 0}, {-2, 2}, {24, 2}, {24, 0}}); // 12, 5
    scene.resolve();
    // On row 1 they are entered in this order: the upright one at 5, the slanted one at 5, the one at 9.
    CHECK(runsOf(slanted, 1) == Runs{{22, 24, 1}, {5, 9, 1}});
    CHECK(runsOf(passed, 1) == Runs{{9, 22, 1}});
    CHECK(runsOf(scene.polygons[0], 1).empty());
}

TEST_CASE("one edge may pass several others between two rows")
{
    SpanScene scene({.right = 60, .bottom = 3});
    const ScreenPolygon& sweeping = scene.add({{40, 0}, {10, 3}, {55, 3}, {55, 0}}, 1); // 40, 30, 20
    const ScreenPolygon& a = scene.addRectangle(22, 0, 24, 3, 2);
    const ScreenPolygon& b = scene.addRectangle(26, 0, 28, 3, 2);
    const ScreenPolygon& c = scene.addRectangle(32, 0, 34, 3, 2);
    scene.resolve();
    CHECK(runsOf(sweeping, 0) == Runs{{40, 55, 0}});
    CHECK(runsOf(sweeping, 1) == Runs{{34, 55, 1}, {30, 32, 1}});
    CHECK(runsOf(sweeping, 2) == Runs{{34, 55, 2}, {28, 32, 2}, {24, 26, 2}, {20, 22, 2}});
    for (const i32 row : {0, 1, 2}) {
        CHECK(runsOf(a, row) == Runs{{22, 24, row}});
        CHECK(runsOf(b, row) == Runs{{26, 28, row}});
        CHECK(runsOf(c, row) == Runs{{32, 34, row}});
    }
}

TEST_CASE("the starting edges of a row are merged among the active ones in one walk")
{
    SpanScene scene({.right = 60, .bottom = 2});
    scene.addRectangle(10, 0, 20, 2, 1);
    scene.addRectangle(30, 0, 40, 2, 1);
    const ScreenPolygon& before = scene.addRectangle(2, 1, 5, 2, 2);
    const ScreenPolygon& across = scene.addRectangle(15, 1, 35, 2, 2);
    const ScreenPolygon& after = scene.addRectangle(50, 1, 55, 2, 2);
    scene.resolve();
    CHECK(runsOf(before) == Runs{{2, 5, 1}});
    CHECK(runsOf(across) == Runs{{15, 35, 1}});
    CHECK(runsOf(after) == Runs{{50, 55, 1}});
    CHECK(background(1) == Runs{{55, 60, 1}, {40, 50, 1}, {5, 10, 1}, {0, 2, 1}});
}

TEST_CASE("edges are dropped after their last row, those in the middle of the list too")
{
    SpanScene scene({.right = 60, .bottom = 4});
    const ScreenPolygon& shortest = scene.addRectangle(20, 0, 30, 1, 3);
    const ScreenPolygon& middle = scene.addRectangle(10, 0, 40, 2, 2);
    const ScreenPolygon& longest = scene.addRectangle(5, 0, 50, 3, 1);
    scene.resolve();
    CHECK(runsOf(shortest) == Runs{{20, 30, 0}});
    CHECK(runsOf(middle) == Runs{{10, 40, 1}, {30, 40, 0}, {10, 20, 0}});
    CHECK(runsOf(longest) == Runs{{5, 50, 2}, {40, 50, 1}, {5, 10, 1}, {40, 50, 0}, {5, 10, 0}});
    CHECK(background(3) == Runs{{0, 60, 3}});
}

TEST_CASE("sides of different slopes follow one another down a polygon")
{
    SpanScene scene({.right = 40, .bottom = 8});
    const ScreenPolygon& diamond = scene.add({{20, 0}, {12, 4}, {20, 8}, {28, 4}});
    scene.resolve();
    const Runs expected = {{18, 22, 7}, {16, 24, 6}, {14, 26, 5}, {12, 28, 4}, {14, 26, 3}, {16, 24, 2}, {18, 22, 1}};
    CHECK(runsOf(diamond) == expected);
}

namespace {

// A small generator of its own: its numbers are nothing but the seed.
struct Numbers {
    u32 state;
    i32 upTo(i32 end)
    {
        state = state * 1664525 + 1013904223;
        return static_cast<i32>((state >> 8) % static_cast<u32>(end));
    }
};

} // namespace

TEST_CASE("opaque spans and the background together tile every row exactly once")
{
    constexpr i32 width = 64, height = 48;
    forEachSeed(200, [&](u32 seed) {
        Numbers random = {seed};
        SpanScene scene({.right = width, .bottom = height});
        for (i32 i = 0; i < 12; ++i) {
            const auto coordinate = [&](i32 end) { return static_cast<f32>(random.upTo(end * 8 + 1)) / 8; };
            ScreenPolygon& polygon = scene.add({{coordinate(width), coordinate(height)},
                                                {coordinate(width), coordinate(height)},
                                                {coordinate(width), coordinate(height)},
                                                {coordinate(width), coordinate(height)}});
            const f32 origin = static_cast<f32>(random.upTo(100));
            const f32 perRow = static_cast<f32>(random.upTo(200) - 100) / 1024;
            const f32 perColumn = static_cast<f32>(random.upTo(200) - 100) / 1024;
            setPlane(polygon, perColumn, perRow, origin);
        }
        scene.resolve();

        i32 owners[height][width] = {};
        const auto paint = [&](const auto& polygon) {
            for (const Run& run : runsOf(polygon)) {
                REQUIRE(run.x >= 0);
                REQUIRE(run.x < run.xEnd);
                REQUIRE(run.xEnd <= width);
                for (i32 x = run.x; x < run.xEnd; ++x) ++owners[run.y][x];
            }
        };
        paint(BackgroundPolygon);
        for (const ScreenPolygon& polygon : scene.polygons) paint(polygon);
        const bool once = std::all_of(&owners[0][0], &owners[0][0] + width * height, [](i32 n) { return n == 1; });
        REQUIRE(once);
    });
}

TEST_CASE("see-through polygons change nothing about what the occluding ones own")
{
    forEachSeed(50, [](u32 seed) {
        std::vector<std::vector<Runs>> results;
        for (const bool withGlass : {false, true}) {
            Numbers random = {seed};
            SpanScene scene({.right = 64, .bottom = 8});
            for (i32 i = 0; i < 10; ++i) {
                const f32 x = static_cast<f32>(random.upTo(50)), y = static_cast<f32>(random.upTo(7));
                const f32 xEnd = x + 1 + static_cast<f32>(random.upTo(13)), depth = static_cast<f32>(random.upTo(1000));
                const bool glass = i % 2;
                if (!glass || withGlass) scene.addRectangle(x, y, xEnd, y + 1, depth + (glass ? 0.5f : 0), !glass);
            }
            scene.resolve();
            // Pixel by pixel: a run may be parted where a see-through polygon stands between.
            std::vector<Runs> owned;
            for (const ScreenPolygon& polygon : scene.polygons) {
                if (!polygon.occludes) continue;
                Runs pixels;
                for (const Run& run : runsOf(polygon))
                    for (i32 x = run.x; x < run.xEnd; ++x) pixels.push_back({x, x + 1, run.y});
                std::sort(pixels.begin(), pixels.end(), [](const Run& a, const Run& b) { return a.x < b.x; });
                owned.push_back(pixels);
            }
            results.push_back(owned);
        }
        CHECK(results[0] == results[1]);
    });
}
