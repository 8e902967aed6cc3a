// Who hides whom: entering and leaving polygons of constant depth.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

// One row of 30 columns.
static const TestView::Settings oneRow{.right = 30, .bottom = 1};

TEST_CASE("a nearer occluding polygon closes the run of what lies under it and reveals it again where it ends")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& far = scene.addRectangle(2, 0, 20, 1, 1);
    const ScreenPolygon& near = scene.addRectangle(5, 0, 10, 1, 2);
    scene.resolve();
    CHECK(runsOf(near) == Runs{{5, 10, 0}});
    CHECK(runsOf(far) == Runs{{10, 20, 0}, {2, 5, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{20, 30, 0}, {0, 2, 0}});
}

TEST_CASE("a polygon wholly behind an occluding one has no spans")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& near = scene.addRectangle(2, 0, 20, 1, 2);
    const ScreenPolygon& far = scene.addRectangle(5, 0, 10, 1, 1);
    scene.resolve();
    CHECK(far.spanHead == -1);
    CHECK(runsOf(near) == Runs{{2, 20, 0}});
}

TEST_CASE("a polygon entered behind an occluding one comes to light where that one ends")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& near = scene.addRectangle(2, 0, 12, 1, 2);
    const ScreenPolygon& far = scene.addRectangle(5, 0, 15, 1, 1);
    scene.resolve();
    CHECK(runsOf(near) == Runs{{2, 12, 0}});
    CHECK(runsOf(far) == Runs{{12, 15, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{15, 30, 0}, {0, 2, 0}});
}

TEST_CASE("a reveal stops at the first occluding polygon")
{
    SpanScene scene(oneRow);
    scene.addRectangle(2, 0, 10, 1, 3);
    const ScreenPolygon& middle = scene.addRectangle(3, 0, 20, 1, 2);
    const ScreenPolygon& far = scene.addRectangle(4, 0, 18, 1, 1);
    scene.resolve();
    CHECK(runsOf(middle) == Runs{{10, 20, 0}});
    CHECK(far.spanHead == -1);
}

TEST_CASE("a see-through polygon and the background behind it both own the same columns")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& glass = scene.addSeeThrough(5, 0, 10, 1);
    scene.resolve();
    CHECK(runsOf(glass) == Runs{{5, 10, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{0, 30, 0}});
}

TEST_CASE("see-through polygons over one another and over an occluding one all own their columns")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 1);
    const ScreenPolygon& glass = scene.addSeeThrough(4, 0, 12, 1, 2);
    const ScreenPolygon& nearGlass = scene.addSeeThrough(8, 0, 20, 1, 3);
    scene.resolve();
    CHECK(runsOf(wall) == Runs{{2, 25, 0}});
    CHECK(runsOf(glass) == Runs{{4, 12, 0}});
    CHECK(runsOf(nearGlass) == Runs{{8, 20, 0}});
}

TEST_CASE("an occluding polygon before a see-through one before an occluding one closes both runs and reopens both")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 1);
    const ScreenPolygon& glass = scene.addSeeThrough(4, 0, 20, 1, 2);
    const ScreenPolygon& front = scene.addRectangle(8, 0, 12, 1, 3);
    scene.resolve();
    CHECK(runsOf(front) == Runs{{8, 12, 0}});
    CHECK(runsOf(glass) == Runs{{12, 20, 0}, {4, 8, 0}});
    CHECK(runsOf(wall) == Runs{{12, 25, 0}, {2, 8, 0}});
}

TEST_CASE("an occluding polygon between two see-through ones hides only the farther one")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& farGlass = scene.addSeeThrough(2, 0, 20, 1, 1);
    const ScreenPolygon& nearGlass = scene.addSeeThrough(4, 0, 18, 1, 3);
    const ScreenPolygon& between = scene.addRectangle(8, 0, 12, 1, 2);
    scene.resolve();
    CHECK(runsOf(nearGlass) == Runs{{4, 18, 0}});
    CHECK(runsOf(between) == Runs{{8, 12, 0}});
    CHECK(runsOf(farGlass) == Runs{{12, 20, 0}, {2, 8, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{12, 30, 0}, {0, 8, 0}});
}

TEST_CASE("a see-through polygon entered behind an occluding one is hidden, and shown with what lies behind it")
{
    SpanScene scene(oneRow);
    scene.addRectangle(2, 0, 10, 1, 3);
    const ScreenPolygon& glass = scene.addSeeThrough(4, 0, 15, 1, 2);
    const ScreenPolygon& wall = scene.addRectangle(6, 0, 20, 1, 1);
    scene.resolve();
    CHECK(runsOf(glass) == Runs{{10, 15, 0}});
    CHECK(runsOf(wall) == Runs{{10, 20, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{20, 30, 0}, {0, 2, 0}});
}

TEST_CASE("leaving a see-through polygon reveals nothing: what lies behind it was never closed")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 1);
    const ScreenPolygon& glass = scene.addSeeThrough(4, 0, 8, 1, 2);
    scene.resolve();
    CHECK(runsOf(glass) == Runs{{4, 8, 0}});
    CHECK(runsOf(wall) == Runs{{2, 25, 0}});
}

TEST_CASE("leaving a hidden polygon closes no run and reveals nothing")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& near = scene.addRectangle(2, 0, 20, 1, 3);
    const ScreenPolygon& hidden = scene.addRectangle(1, 0, 10, 1, 2); // visible from 1 to 2, then hidden
    const ScreenPolygon& hiddenGlass = scene.addSeeThrough(5, 0, 12, 1, 2.5f);
    scene.resolve();
    CHECK(runsOf(near) == Runs{{2, 20, 0}});
    CHECK(runsOf(hidden) == Runs{{1, 2, 0}});
    CHECK(hiddenGlass.spanHead == -1);
    CHECK(runsOf(BackgroundPolygon) == Runs{{20, 30, 0}, {0, 1, 0}});
}

TEST_CASE("on equal depth the polygon entered last lies nearer")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& first = scene.addRectangle(2, 0, 20, 1, 1);
    const ScreenPolygon& second = scene.addRectangle(5, 0, 10, 1, 1);
    scene.resolve();
    CHECK(runsOf(second) == Runs{{5, 10, 0}});
    CHECK(runsOf(first) == Runs{{10, 20, 0}, {2, 5, 0}});
}

TEST_CASE("of two faces in one place the one filed first is entered last, and owns the pixels")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& first = scene.addRectangle(5, 0, 10, 1, 1);
    const ScreenPolygon& second = scene.addRectangle(5, 0, 10, 1, 1);
    scene.resolve();
    CHECK(runsOf(first) == Runs{{5, 10, 0}});
    CHECK(second.spanHead == -1);
}

TEST_CASE("a polygon may be entered below several nearer ones, and those above it are left in any order")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& glass3 = scene.addSeeThrough(2, 0, 16, 1, 3);
    const ScreenPolygon& glass5 = scene.addSeeThrough(3, 0, 14, 1, 5);
    const ScreenPolygon& glass4 = scene.addSeeThrough(4, 0, 18, 1, 4);
    const ScreenPolygon& wall = scene.addRectangle(6, 0, 20, 1, 2);
    const ScreenPolygon& behind = scene.addRectangle(7, 0, 22, 1, 1);
    scene.resolve();
    CHECK(runsOf(glass3) == Runs{{2, 16, 0}});
    CHECK(runsOf(glass5) == Runs{{3, 14, 0}});
    CHECK(runsOf(glass4) == Runs{{4, 18, 0}});
    CHECK(runsOf(wall) == Runs{{6, 20, 0}});
    CHECK(runsOf(behind) == Runs{{20, 22, 0}});
}

TEST_CASE("a hidden polygon's flag and links of one row do not reach into the next")
{
    SpanScene scene({.right = 30, .bottom = 3});
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 20, 3, 1);
    scene.addRectangle(1, 1, 25, 2, 2); // hides it on row 1
    scene.resolve();
    CHECK(runsOf(wall) == Runs{{2, 20, 2}, {2, 20, 0}});
}
