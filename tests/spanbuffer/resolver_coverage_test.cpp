// Which columns and rows a polygon owns, and in which windings.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("an empty frame of 320 x 200 yields 200 background spans of length 320, from the last row to the first")
{
    SpanScene scene({.right = 320, .bottom = 200});
    scene.resolve();

    const Runs runs = runsOf(BackgroundPolygon);
    REQUIRE(runs.size() == 200);
    for (i32 i = 0; i < 200; ++i) CHECK(runs[static_cast<size_t>(i)] == Run{0, 320, 199 - i});
}

TEST_CASE("the columns and rows of a frame are those of its truncated rectangle")
{
    SpanScene scene({.left = 2.9f, .top = 1.9f, .right = 5.9f, .bottom = 3.9f});
    scene.resolve();
    CHECK(runsOf(BackgroundPolygon) == Runs{{2, 5, 2}, {2, 5, 1}});
}

TEST_CASE("a rectangle may begin left of column 0")
{
    SpanScene scene({.left = -3.5f, .right = 2, .bottom = 1});
    scene.resolve();
    CHECK(runsOf(BackgroundPolygon) == Runs{{-3, 2, 0}});
}

TEST_CASE("a frame without rows or without columns yields no spans and asks for no memory")
{
    for (const TestView::Settings& settings : {TestView::Settings{.top = 5, .right = 20, .bottom = 5},
                                               TestView::Settings{.top = 5, .right = 20, .bottom = 3},
                                               TestView::Settings{.left = 20, .right = 20, .bottom = 5},
                                               TestView::Settings{.left = 20, .right = 10, .bottom = 5}}) {
        SpanScene scene(settings);
        scene.resolve();
        CHECK(runsOf(BackgroundPolygon).empty());
        CHECK(scene.host.calls.empty());
    }
}

TEST_CASE("an occluding triangle in the middle of a row parts the background's run at its own columns")
{
    SpanScene scene({.right = 30, .bottom = 6});
    // Left side 10 - row, right side 10 + 2 row.
    const ScreenPolygon& triangle = scene.add({{10, 0}, {5, 5}, {20, 5}});
    scene.resolve();

    for (i32 row = 1; row < 5; ++row) {
        CHECK(runsOf(triangle, row) == Runs{{10 - row, 10 + 2 * row, row}});
        CHECK(background(row) == Runs{{10 + 2 * row, 30, row}, {0, 10 - row, row}});
    }
    for (const i32 row : {0, 5}) { // nothing at the tip, and the bottom row belongs to the next polygon
        CHECK(runsOf(triangle, row).empty());
        CHECK(background(row) == Runs{{0, 30, row}});
    }
}

TEST_CASE("a polygon owns the columns from the floor of its left side to the floor of its right side, excluded")
{
    SpanScene scene({.left = -10, .right = 30, .bottom = 2});
    const ScreenPolygon& inside = scene.addRectangle(2.75f, 0, 6.25f, 1);
    const ScreenPolygon& overZero = scene.addRectangle(-1.5f, 1, 1.99f, 2);
    scene.resolve();
    CHECK(runsOf(inside) == Runs{{2, 6, 0}});
    CHECK(runsOf(overZero) == Runs{{-2, 1, 1}});
}

TEST_CASE("sides are followed from their corners with no correction to the middle of a row or column")
{
    SpanScene scene({.right = 30, .bottom = 5});
    // The rows are those of the truncated corners, 1 to 3, and the left side starts on row 1 at the corner's own 8.9;
    // it moves by (2.9 - 8.9) / 3 = -2 columns a row.
    const ScreenPolygon& polygon = scene.add({{8.9f, 1.7f}, {2.9f, 4.2f}, {20, 4.9f}, {20, 1.1f}});
    scene.resolve();
    CHECK(runsOf(polygon) == Runs{{4, 20, 3}, {6, 20, 2}, {8, 20, 1}});
}

TEST_CASE("a polygon's list runs from the bottom row up and from right to left")
{
    SpanScene scene({.right = 30, .bottom = 2});
    const ScreenPolygon& wide = scene.addRectangle(2, 0, 20, 2, 1);
    scene.addRectangle(8, 0, 10, 2, 2);
    scene.resolve();
    CHECK(runsOf(wide) == Runs{{10, 20, 1}, {2, 8, 1}, {10, 20, 0}, {2, 8, 0}});
}

TEST_CASE("an outline that runs clockwise on the screen yields no spans")
{
    SpanScene scene({.right = 30, .bottom = 5});
    const ScreenPolygon& clockwise = scene.add({{5, 1}, {9, 1}, {9, 4}, {5, 4}}, 5);
    scene.resolve();
    CHECK(clockwise.spanHead == -1);
    for (const i32 row : {1, 2, 3}) CHECK(background(row) == Runs{{0, 30, row}});
}

TEST_CASE("a run that closes at the column where it opened makes no span")
{
    SpanScene scene({.right = 30, .bottom = 1});
    const ScreenPolygon& hidden = scene.addRectangle(5, 0, 9, 1, 1);
    const ScreenPolygon& front = scene.addRectangle(5, 0, 9, 1, 2);
    scene.resolve();
    CHECK(hidden.spanHead == -1);
    CHECK(runsOf(front) == Runs{{5, 9, 0}});
    CHECK(SpanPool.count == 3);
}

TEST_CASE("a polygon at the left edge leaves the background no span before it, one at the right edge none after it")
{
    SpanScene scene({.left = 3, .right = 30, .bottom = 1});
    scene.addRectangle(3, 0, 9, 1);
    scene.addRectangle(20, 0, 30, 1);
    scene.resolve();
    CHECK(runsOf(BackgroundPolygon) == Runs{{9, 20, 0}});
}

TEST_CASE("an occluding polygon narrower than a pixel has no span, and parts the run below it with no gap")
{
    SpanScene scene({.right = 30, .bottom = 1});
    const ScreenPolygon& narrow = scene.addRectangle(7.25f, 0, 7.75f, 1, 2);
    const ScreenPolygon& wide = scene.addRectangle(2, 0, 20, 1, 1);
    scene.resolve();
    CHECK(narrow.spanHead == -1);
    CHECK(runsOf(wide) == Runs{{7, 20, 0}, {2, 7, 0}});
}

TEST_CASE("a see-through polygon narrower than a pixel has no span and parts nothing")
{
    SpanScene scene({.right = 30, .bottom = 1});
    const ScreenPolygon& narrow = scene.addSeeThrough(7.25f, 0, 7.75f, 1, 2);
    const ScreenPolygon& wide = scene.addRectangle(2, 0, 20, 1, 1);
    scene.resolve();
    CHECK(narrow.spanHead == -1);
    CHECK(runsOf(wide) == Runs{{2, 20, 0}});
}

TEST_CASE("inside a polygon twice over, nothing changes at the inner sides")
{
    SpanScene scene({.right = 30, .bottom = 4});
    // Enters at 2 and 4, leaves at 6 and 8.
    const ScreenPolygon& twice = scene.add({{2, 0}, {2, 4}, {6, 4}, {6, 0}, {4, 0}, {4, 4}, {8, 4}, {8, 0}});
    scene.resolve();
    for (i32 row = 0; row < 4; ++row) CHECK(runsOf(twice, row) == Runs{{2, 8, row}});
}

TEST_CASE("a polygon that is left and entered again on a row has two runs there")
{
    SpanScene scene({.right = 30, .bottom = 4});
    // An arch: legs from 2 to 4 and from 6 to 8.
    const ScreenPolygon& arch = scene.add({{2, 0}, {2, 4}, {4, 4}, {4, 1}, {6, 1}, {6, 4}, {8, 4}, {8, 0}});
    scene.resolve();
    CHECK(runsOf(arch, 0) == Runs{{2, 8, 0}});
    for (i32 row = 1; row < 4; ++row) {
        CHECK(runsOf(arch, row) == Runs{{6, 8, row}, {2, 4, row}});
        CHECK(background(row) == Runs{{8, 30, row}, {4, 6, row}, {0, 2, row}});
    }
}

TEST_CASE("a polygon left before it is entered is shown only from where the count reaches 1")
{
    SpanScene scene({.right = 30, .bottom = 4});
    // Leaves at 2 (count -1), enters at 4 (0) and at 6 (1), leaves at 8 (0).
    const ScreenPolygon& twisted = scene.add({{2, 4}, {2, 0}, {4, 0}, {4, 4}, {8, 4}, {8, 0}, {6, 0}, {6, 4}});
    scene.resolve();
    for (i32 row = 0; row < 4; ++row) CHECK(runsOf(twisted, row) == Runs{{6, 8, row}});
    CHECK(stateAt(scene.stateOf(0)).activeCount == 0);
}

TEST_CASE("on the row of its upper corner a triangle whose sides start at one x is left first and not shown")
{
    SpanScene scene({.right = 30, .bottom = 2});
    // Both sides start at 10; the one filed later, which leaves, comes first in the row's list. On the next row the
    // sides have parted and stand in their own order.
    const ScreenPolygon& triangle = scene.add({{10, 0}, {6, 2}, {14, 2}});
    scene.resolve();
    CHECK(runsOf(triangle) == Runs{{8, 12, 1}});
}

TEST_CASE("after the last row no polygon is counted inside, and every polygon is ready for its spans to be read")
{
    SpanScene scene({.right = 30, .bottom = 6});
    scene.addRectangle(2, 0, 20, 6, 1);
    scene.addSeeThrough(4, 1, 25, 5, 2);
    scene.addRectangle(6, 2, 8, 7, 3);
    scene.resolve();
    for (size_t i = 0; i < scene.polygons.size(); ++i) CHECK(stateAt(scene.stateOf(i)).activeCount == 0);
    CHECK(stateAt(BackgroundPolygon).activeCount == 0);
    CHECK(runsOf(StackTopPolygon).empty());
}

TEST_CASE("spans are cut to the rectangle's columns, and what lies wholly outside makes none")
{
    SpanScene scene({.left = 10, .right = 20, .bottom = 1});
    const ScreenPolygon& overLeft = scene.addRectangle(8, 0, 12, 1);
    const ScreenPolygon& outside = scene.addRectangle(2, 0, 7, 1);
    const ScreenPolygon& overRight = scene.addRectangle(18, 0, 22, 1);
    scene.resolve();
    CHECK(runsOf(overLeft) == Runs{{10, 12, 0}});
    CHECK(outside.spanHead == -1);
    CHECK(runsOf(overRight) == Runs{{18, 20, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{12, 18, 0}});
}

TEST_CASE("both ends of the stack start a frame as an empty one")
{
    const TestHost host;
    for (i32 frame = 0; frame < 2; ++frame) {
        layOutStates();
        for (const StateOffset end : {BackgroundPolygon, StackTopPolygon}) {
            PolygonState& state = stateAt(end);
            CHECK(state.spanCount == 0);
            CHECK(state.activeCount == 0);
            CHECK(state.invDepthStepX == 0);
            CHECK(state.invDepthStepY == 0);
            CHECK(state.invDepthOrigin == -1000000.0f);
            CHECK(state.occludes == 1);
            CHECK(state.below == BackgroundPolygon);
            CHECK(state.above == StackTopPolygon);
            CHECK(state.isVisible == (end == BackgroundPolygon ? 1 : 0));
            state.spanCount = state.firstSpan = state.spansEnd = 7;
            state.isVisible = !state.isVisible;
        }
    }
}

TEST_CASE("a rectangle whose right side lies left of its left side has no spans, however far")
{
    for (const f32 right : {9.0f, -32768.0f, -2e9f, -3e38f}) {
        CAPTURE(right);
        SpanScene scene({.left = 10, .right = right, .bottom = 3});
        const ScreenPolygon& polygon = scene.addRectangle(0, 0, 20, 3);
        scene.resolve();
        CHECK(runsOf(polygon).empty());
        CHECK(background(1).empty());
    }
    SpanScene farRight({.left = 2e9f, .right = 100, .bottom = 3});
    const ScreenPolygon& polygon = farRight.addRectangle(0, 0, 20, 3);
    farRight.resolve();
    CHECK(runsOf(polygon).empty());
    CHECK(background(1).empty());
}
