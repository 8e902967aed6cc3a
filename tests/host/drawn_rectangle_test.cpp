// The rectangle of a frame: which views have one, how its sides become whole pixels, and which rectangles fit the
// tables.
#include "host/drawn_rectangle.h"
#include "tests/support/test_view.h"

#include <doctest/doctest.h>

#include <limits>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr f32 infinite = std::numeric_limits<f32>::infinity();
constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();
constexpr f32 largest = std::numeric_limits<f32>::max();
constexpr i32 smallestInteger = -2147483647 - 1;

bool drawable(const TestView::Settings& settings)
{
    return isDrawable(TestView(settings).record);
}

DrawnRectangle rectangleOf(const TestView::Settings& settings)
{
    return truncatedRectangle(TestView(settings).record);
}

} // namespace

TEST_CASE("a left side is drawable from column -32,768 on, a top side from row 0 on, whatever lies beyond them")
{
    CHECK(drawable({.left = -32768}));
    CHECK_FALSE(drawable({.left = -32768.004f})); // the next f32 outward: 2^15 + 2^-8
    CHECK(drawable({.left = largest}));

    CHECK(drawable({.top = 0.0f}));
    CHECK(drawable({.top = -0.0f}));
    CHECK_FALSE(drawable({.top = -1e-30f}));
    CHECK(drawable({.top = largest}));
}

TEST_CASE("a right side is drawable up to column 32,767, a bottom side up to row 4,096")
{
    CHECK(drawable({.right = 32767}));
    CHECK_FALSE(drawable({.right = 32767.002f})); // the next f32: 32,767 + 2^-9
    CHECK(drawable({.right = -largest}));

    CHECK(drawable({.bottom = 4096}));
    CHECK_FALSE(drawable({.bottom = 4096.0005f})); // the next f32: 4,096 + 2^-11
    CHECK(drawable({.bottom = -largest}));
}

TEST_CASE("no side may be infinite or not a number")
{
    for (const f32 bad : {infinite, -infinite, notANumber}) {
        CAPTURE(bad);
        CHECK_FALSE(drawable({.left = bad}));
        CHECK_FALSE(drawable({.top = bad}));
        CHECK_FALSE(drawable({.right = bad}));
        CHECK_FALSE(drawable({.bottom = bad}));
    }
}

TEST_CASE("the four sides are truncated toward zero, each by itself")
{
    const DrawnRectangle drawn = rectangleOf({.left = -2.75f, .top = 1.5f, .right = 319.996f, .bottom = 199.25f});
    CHECK(drawn.left == -2);
    CHECK(drawn.top == 1);
    CHECK(drawn.right == 319);
    CHECK(drawn.bottom == 199);

    const DrawnRectangle around = rectangleOf({.left = -0.5f, .top = 0.5f, .right = -0.75f, .bottom = -1.25f});
    CHECK(around.left == 0);
    CHECK(around.top == 0);
    CHECK(around.right == 0);
    CHECK(around.bottom == -1);
}

TEST_CASE("the largest rectangle fits the tables, and none that is larger on any side")
{
    CHECK(fitsTables({.left = -32768, .top = 0, .right = 32767, .bottom = 4096}));
    CHECK_FALSE(fitsTables({.left = -32769, .top = 0, .right = 32767, .bottom = 4096}));
    CHECK_FALSE(fitsTables({.left = -32768, .top = -1, .right = 32767, .bottom = 4096}));
    CHECK_FALSE(fitsTables({.left = -32768, .top = 0, .right = 32768, .bottom = 4096}));
    CHECK_FALSE(fitsTables({.left = -32768, .top = 0, .right = 32767, .bottom = 4097}));
}

TEST_CASE("a rectangle that ends before it begins fits the tables: it has no pixels")
{
    CHECK(fitsTables({.left = 100, .top = 50, .right = -100, .bottom = -50}));
    CHECK(fitsTables({.left = 0, .top = 0, .right = smallestInteger, .bottom = smallestInteger}));
}

TEST_CASE("a left or top side beyond the integers is drawable as a number and does not fit the tables")
{
    // 2^31 is the first f32 that does not fit: it truncates to the smallest integer.
    for (const f32 beyond : {2147483648.0f, 3e9f, largest}) {
        CAPTURE(beyond);
        CHECK(drawable({.left = beyond, .top = beyond}));
        CHECK(rectangleOf({.left = beyond}).left == smallestInteger);
        CHECK_FALSE(fitsTables(rectangleOf({.left = beyond})));
        CHECK(rectangleOf({.top = beyond}).top == smallestInteger);
        CHECK_FALSE(fitsTables(rectangleOf({.top = beyond})));
    }
    // The f32 before it fits: such a rectangle only has no pixels.
    CHECK(fitsTables(rectangleOf({.left = 2147483520.0f, .top = 2147483520.0f})));
}

TEST_CASE("a right or bottom side far below 0 truncates to the smallest integer, and fits")
{
    const DrawnRectangle drawn = rectangleOf({.right = -3e9f, .bottom = -largest});
    CHECK(drawn.right == smallestInteger);
    CHECK(drawn.bottom == smallestInteger);
    CHECK(fitsTables(drawn));
}
