// Several see-through polygons behind one that occludes: all are hidden, and all come to light.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

// One row of 30 columns.
static const TestView::Settings oneRow{.right = 30, .bottom = 1};

TEST_CASE("an occluding polygon hides two see-through ones and what is behind them, and reveals all where it ends")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& farGlass = scene.addSeeThrough(2, 0, 25, 1, 1);
    const ScreenPolygon& nearGlass = scene.addSeeThrough(4, 0, 20, 1, 2);
    const ScreenPolygon& front = scene.addRectangle(8, 0, 12, 1, 3);
    scene.resolve();
    CHECK(runsOf(front) == Runs{{8, 12, 0}});
    CHECK(runsOf(nearGlass) == Runs{{12, 20, 0}, {4, 8, 0}});
    CHECK(runsOf(farGlass) == Runs{{12, 25, 0}, {2, 8, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{12, 30, 0}, {0, 8, 0}});
}

TEST_CASE("two see-through polygons entered behind an occluding one come to light together with the wall behind them")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& front = scene.addRectangle(2, 0, 12, 1, 4);
    const ScreenPolygon& nearGlass = scene.addSeeThrough(4, 0, 20, 1, 3);
    const ScreenPolygon& farGlass = scene.addSeeThrough(5, 0, 18, 1, 2);
    const ScreenPolygon& wall = scene.addRectangle(6, 0, 25, 1, 1);
    scene.resolve();
    CHECK(runsOf(front) == Runs{{2, 12, 0}});
    CHECK(runsOf(nearGlass) == Runs{{12, 20, 0}});
    CHECK(runsOf(farGlass) == Runs{{12, 18, 0}});
    CHECK(runsOf(wall) == Runs{{12, 25, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{25, 30, 0}, {0, 2, 0}});
}
