#include "raster/span_walk.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace kardeno;

namespace {

using Everything = List<SpanInvDepth, SpanTexU, SpanTexV, SpanShadeOverDepth, SpanRed, SpanGreen, SpanBlue>;

OutlineRow rowOf(i32 leftX, i32 rightX)
{
    OutlineRow row;
    std::memset(&row, 0, sizeof row);
    row.left.x = leftX;
    row.right.x = rightX;
    return row;
}

SpanGradients emptyRecord()
{
    SpanGradients span;
    std::memset(&span, 0, sizeof span);
    return span;
}

// The record of a row whose texU goes from `left` to `right`.
SpanGradients setUp(i32 leftX, i32 rightX, f32 left, f32 right)
{
    OutlineRow row = rowOf(leftX, rightX);
    row.left.values.texU = left;
    row.right.values.texU = right;
    SpanGradients span = emptyRecord();
    setUpRow<List<SpanTexU>>(span, row);
    return span;
}

// The same for the integer shade of lit textured rows.
SpanGradients setUpShade(i32 leftX, i32 rightX, f32 left, f32 right)
{
    OutlineRow row = rowOf(leftX, rightX);
    row.left.values.intensity = left;
    row.right.values.intensity = right;
    SpanGradients span = emptyRecord();
    setUpRow<List<SpanShadeOnScreen>>(span, row);
    return span;
}

void checkEveryValue(const Interpolants& values, f32 first, f32 distance)
{
    CHECK(values.invDepth == first);
    CHECK(values.texU == first + distance);
    CHECK(values.texV == first + 2 * distance);
    CHECK(values.intensity == first + 3 * distance);
    CHECK(values.colourR == first + 4 * distance);
    CHECK(values.colourG == first + 5 * distance);
    CHECK(values.colourB == first + 6 * distance);
}

} // namespace

TEST_CASE("a row's set-up starts at its left column with the left values, and shares the difference out over the width")
{
    // Columns 10 to 14. The seven values start at 1, 2, ... and gain 4, 8, ... : gradients 1, 2, ..., over 8 pixels 8,
    // 16, ...
    OutlineRow row = rowOf(10, 14);
    row.left.values = {1, 2, 3, 4, 5, 6, 7};
    row.right.values = {5, 10, 15, 20, 25, 30, 35};
    SpanGradients span = emptyRecord();
    setUpRow<Everything>(span, row);
    CHECK(span.x == 10);
    checkEveryValue(span.start, 1, 1);
    checkEveryValue(span.step, 1, 1);
    checkEveryValue(span.step8, 8, 8);
}

TEST_CASE("a filler's set-up leaves the values that it does not interpolate alone")
{
    SpanGradients span = emptyRecord();
    span.start.texV = 11;
    span.step.texV = 22;
    span.step8.texV = 33;
    span.count = 44;
    OutlineRow row = rowOf(0, 4);
    row.left.values = {1, 2, 3, 4, 5, 6, 7};
    setUpRow<List<SpanTexU>>(span, row);
    CHECK(span.start.texU == 2);
    CHECK(span.start.texV == 11);
    CHECK(span.step.texV == 22);
    CHECK(span.step8.texV == 33);
    CHECK(span.count == 44);
    CHECK(span.start.invDepth == 0);
}

TEST_CASE("the reciprocal of a row's width is rounded to f32 before it multiplies the difference")
{
    // 10.5 / 7 is 1.5. The f32 reciprocal is 9586981 / 2^26: times 10.5 it is (1.5 x 2^26 + 4.5) / 2^26, which is more
    // than half of the spacing 8 / 2^26 above 1.5.
    const SpanGradients span = setUp(0, 7, 0, 10.5f);
    CHECK(span.step.texU == 1.5f + 1.0f / 8388608);
}

TEST_CASE("the difference of a row's two ends is formed in f64")
{
    // From -1 to 2^24 it is 2^24 + 1, which is no f32. Times the f32 fifth, 0.2000000030, it is 3355443.45, to the
    // spacing of 1/4 there 3355443.5; 2^24 alone makes 3355443.25.
    CHECK(setUp(0, 5, -1, 16777216).step.texU == 3355443.5f);
    CHECK(setUp(0, 5, 0, 16777216).step.texU == 3355443.25f);
}

TEST_CASE("the gradient over 8 pixels is 8 times the gradient")
{
    CHECK(setUp(0, 7, 0, 10.5f).step8.texU == 12.0f + 1.0f / 1048576); // 8 x (1.5 + 2^-23)
}

TEST_CASE("a row of width 0 has no gradients, and its spans keep the left value")
{
    SpanGradients span = setUp(6, 6, 100, 300);
    CHECK(span.start.texU == 100);
    CHECK(span.step.texU == 0);
    CHECK(span.step8.texU == 0);
    advanceTo<List<SpanTexU>>(span, 9);
    CHECK(span.start.texU == 100);
    CHECK(setUpShade(6, 6, 100, 300).shade == 100);
    CHECK(setUpShade(6, 6, 100, 300).shadeStep == 0);
}

TEST_CASE("a row of negative width is set up like any other")
{
    // From column 12 to column 4: -8 columns for a difference of 16.
    SpanGradients span = setUp(12, 4, 100, 116);
    CHECK(span.x == 12);
    CHECK(span.step.texU == -2);
    CHECK(span.step8.texU == -16);
    advanceTo<List<SpanTexU>>(span, 5); // 7 columns back
    CHECK(span.start.texU == 114);
    CHECK(setUpShade(12, 4, 0, 800).shadeStep == -100);
}

TEST_CASE("a width that does not fit in 32 bits wraps")
{
    // 2,147,483,647 - (-1) wraps to -2^31; the difference 2^31 shared out over it is -1.
    CHECK(setUp(-1, 2147483647, 0, 2147483648.0f).step.texU == -1);
}

TEST_CASE("the shade of lit textured rows starts and steps in truncated integers")
{
    // From 100.9 to 105.6 over 4 columns: 4.7 / 4 = 1.175. Downward -1.175, which goes to -1 and not to -2.
    const SpanGradients up = setUpShade(0, 4, 100.9f, 105.6f);
    CHECK(up.shade == 100);
    CHECK(up.shadeStep == 1);
    const SpanGradients down = setUpShade(0, 4, 105.6f, 100.9f);
    CHECK(down.shade == 105);
    CHECK(down.shadeStep == -1);
    CHECK(setUpShade(0, 4, -0.9f, 0).shade == 0);
}

TEST_CASE(
    "the shade's step is the difference of the intensities themselves, times the f32 reciprocal, truncated directly")
{
    // From 0.9 to 8.1 over 7 columns the difference is 7.2 and the step 1; of the truncated ends, 8, it would be 1 too;
    // from 0.9 to 7.1 it is 6.2 and the step 0, where the truncated ends have 7 and a step of 1.
    CHECK(setUpShade(0, 7, 0.9f, 7.1f).shadeStep == 0);
    // 2500 over 25 columns: the f32 reciprocal of 25 is 0.0399999991, and 99.999998 truncates to 99.
    CHECK(setUpShade(0, 25, 0, 2500).shadeStep == 99);
    // 3 - 2^-23 over 3 columns, as 1 - 2^-23 - (-2): times the f32 third, which is 3e-8 of itself too large, it is
    // 1 - 2^-23 / 3 + 3e-8 = 0.99999999: 0, though the nearest f32 is 1.
    CHECK(setUpShade(0, 3, -2, 1 - 1.0f / 8388608).shadeStep == 0);
}

TEST_CASE("start values move by gradient times columns from where they are, not from the row's left end")
{
    SpanGradients span = setUp(10, 14, 100, 108); // 2 a column
    advanceTo<List<SpanTexU>>(span, 10);
    CHECK(span.start.texU == 100);
    advanceTo<List<SpanTexU>>(span, 13);
    CHECK(span.x == 13);
    CHECK(span.start.texU == 106);
    advanceTo<List<SpanTexU>>(span, 20);
    CHECK(span.start.texU == 120);
    advanceTo<List<SpanTexU>>(span, 8); // spans of a row come from right to left
    CHECK(span.x == 8);
    CHECK(span.start.texU == 96);
}

TEST_CASE("every listed value moves along the row, and the gradients stay")
{
    OutlineRow row = rowOf(0, 4);
    row.left.values = {1, 2, 3, 4, 5, 6, 7};
    row.right.values = {5, 10, 15, 20, 25, 30, 35};
    SpanGradients span = emptyRecord();
    setUpRow<Everything>(span, row);
    advanceTo<Everything>(span, 3);
    checkEveryValue(span.start, 4, 4);
    checkEveryValue(span.step, 1, 1);
    checkEveryValue(span.step8, 8, 8);
}

TEST_CASE("start values are rounded to f32 at every move along the row")
{
    // 1 a column from 2^24 on. One move of 2 columns comes to 2^24 + 2; two moves of 1 stay at 2^24, because 2^24 + 1
    // is halfway between two f32 and goes to the even one both times.
    SpanGradients once = setUp(0, 8, 16777216, 16777224);
    advanceTo<List<SpanTexU>>(once, 2);
    CHECK(once.start.texU == 16777218.0f);
    SpanGradients twice = setUp(0, 8, 16777216, 16777224);
    advanceTo<List<SpanTexU>>(twice, 1);
    advanceTo<List<SpanTexU>>(twice, 2);
    CHECK(twice.start.texU == 16777216.0f);
}

TEST_CASE("a move is rounded once: the product of gradient and columns is not rounded by itself")
{
    // Gradient 1 + 2^-23 over 3 columns is 3 + 3 x 2^-23, in f32 3 + 2^-21. Added to -3, the exact product leaves 3 x
    // 2^-23.
    SpanGradients span = setUp(0, 8, -3, 5);
    span.step.texU = 1 + 1.0f / 8388608;
    advanceTo<List<SpanTexU>>(span, 3);
    CHECK(span.start.texU == 3.0f / 8388608);
}

TEST_CASE("the shade of lit textured rows moves by an integer product, which wraps")
{
    SpanGradients span = setUpShade(10, 14, 100, 130); // 30 / 4 = 7 a column
    advanceTo<List<SpanShadeOnScreen>>(span, 13);
    CHECK(span.shade == 121);
    advanceTo<List<SpanShadeOnScreen>>(span, 11);
    CHECK(span.shade == 107);
    span.shadeStep = 0x40000001;
    advanceTo<List<SpanShadeOnScreen>>(span, 15); // 4 x 0x40000001 wraps to 4
    CHECK(span.shade == 111);
}
