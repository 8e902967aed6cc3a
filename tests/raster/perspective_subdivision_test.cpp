#include "tests/raster/filler_setup.h"

using namespace kardeno;
using namespace kardeno::tests;

namespace {

using Values = std::vector<i32>;

std::string listed(const Values& values)
{
    std::string result;
    for (const i32 value : values) result += std::to_string(value) + " ";
    return result;
}

struct Walked {
    Values u, v;
    i32 count; // what is left of it
};

// The coordinates of every pixel of a span of `count` pixels.
template <class Conversion>
Walked walked(SpanGradients span, i32 count)
{
    span.count = count;
    Walked result;
    SubdividedTexture<Conversion> walk(span);
    drawInBlocks(span, walk, [&](i32 pixels) {
        for (; pixels > 0; --pixels) {
            result.u.push_back(walk.at[0]);
            result.v.push_back(walk.at[1]);
            walk.nextPixel();
        }
    });
    result.count = span.count;
    return result;
}

Values first(i32 count, const Values& values)
{
    return Values(values.begin(), values.begin() + count);
}

// Inverse depth 1, 0.75, 0.5, 0.25 at pixels 0, 8, 16, 24 makes u 0, 511 2/3, 1535, 4605 there.
// u of the last block: 4605 - 1535 = 3070 >> 3 = 383.
const Values recedingU = {0,   63,  126,  189,  252,  315,  378,  441,  511,  639, //
                          767, 895, 1023, 1151, 1279, 1407, 1535, 1918, 2301, 2684};
// v is 3072, 2815 2/3, 2303, (3072 - 3 x 960.25) / 0.25 = 765 there: the last step is -1538 >> 3 = -193.
const Values recedingV = {3072, 3039, 3006, 2973, 2940, 2907, 2874, 2841, 2815, 2751, //
                          2687, 2623, 2559, 2495, 2431, 2367, 2303, 2110, 1917, 1724};

} // namespace

TEST_CASE("a span of 5 pixels steps by an eighth of the difference to the point 8 pixels on, and stops after 5")
{
    // u(0) = 0 and u(8) = 511 make a step of 63; v(0) = 3072 and v(8) = 2815 one of -257 >> 3 = -33.
    const Walked walk = walked<Truncating>(receding(), 5);
    CHECK(listed(walk.u) == listed({0, 63, 126, 189, 252}));
    CHECK(listed(walk.v) == listed({3072, 3039, 3006, 2973, 2940}));
    CHECK(walk.count == 5);
}

TEST_CASE("a span of 8 pixels is one block, and none of the count is left")
{
    const Walked walk = walked<Truncating>(receding(), 8);
    CHECK(listed(walk.u) == listed(first(8, recedingU)));
    CHECK(listed(walk.v) == listed(first(8, recedingV)));
    CHECK(walk.count == 0);
}

TEST_CASE("the ninth pixel of a span has the exact coordinates there, and not the stepped ones")
{
    // Stepping on would give 8 x 63 = 504 and 3072 - 8 x 33 = 2808.
    const Walked walk = walked<Truncating>(receding(), 9);
    CHECK(walk.u.back() == 511);
    CHECK(walk.v.back() == 2815);
    CHECK(walk.count == 1);
}

TEST_CASE("a span of 12 pixels is a block and a remainder of 4, stepped toward the point 16 pixels on")
{
    // u(8) = 511 and u(16) = 1535 make a step of 128.
    const Walked walk = walked<Truncating>(receding(), 12);
    CHECK(listed(walk.u) == listed(first(12, recedingU)));
    CHECK(listed(walk.v) == listed(first(12, recedingV)));
    CHECK(walk.count == 4);
}

TEST_CASE("a span of exactly 16 pixels is two blocks and no remainder")
{
    const Walked walk = walked<Truncating>(receding(), 16);
    CHECK(listed(walk.u) == listed(first(16, recedingU)));
    CHECK(listed(walk.v) == listed(first(16, recedingV)));
    CHECK(walk.count == 0);
}

TEST_CASE("a span of 17 pixels begins its third block with the exact coordinates")
{
    // Truncated coordinates come to 511 + 8 x 128 = 1535 and 2815 - 8 x 64 = 2303 by stepping as well. Rounded ones
    // step by 127 and -65 and would come to 512 + 8 x 127 = 1528 and 2816 - 8 x 65 = 2296.
    const Walked truncating = walked<Truncating>(receding(), 17);
    CHECK(listed(truncating.u) == listed(first(17, recedingU)));
    CHECK(listed(truncating.v) == listed(first(17, recedingV)));
    CHECK(truncating.count == 1);
    const Walked rounding = walked<Rounding>(receding(), 17);
    CHECK(rounding.u.back() == 1535);
    CHECK(rounding.v.back() == 2303);
}

TEST_CASE("a span of 20 pixels is two blocks and a remainder of 4")
{
    const Walked walk = walked<Truncating>(receding(), 20);
    CHECK(listed(walk.u) == listed(recedingU));
    CHECK(listed(walk.v) == listed(recedingV));
    CHECK(walk.count == 4);
}

TEST_CASE("a span of any length is the beginning of a longer one")
{
    for (i32 count = 0; count <= 20; ++count) {
        const Walked walk = walked<Truncating>(receding(), count);
        CHECK(listed(walk.u) == listed(first(count, recedingU)));
        CHECK(listed(walk.v) == listed(first(count, recedingV)));
        CHECK(walk.count == count % 8);
    }
}

TEST_CASE("a span of no pixels draws nothing and leaves its count")
{
    const Walked walk = walked<Truncating>(receding(), 0);
    CHECK(walk.u.empty());
    CHECK(walk.count == 0);
}

TEST_CASE("a negative step is rounded down, not toward zero")
{
    // -1 in 8 pixels is -1 >> 3 = -1 a pixel; -9 is -2.
    SpanGradients span = flat();
    span.start.texU = 100;
    span.step8.texU = -1;
    span.start.texV = 100;
    span.step8.texV = -9;
    const Walked walk = walked<Truncating>(span, 10);
    CHECK(listed(walk.u) == listed({100, 99, 98, 97, 96, 95, 94, 93, 99, 98}));
    CHECK(listed(walk.v) == listed({100, 98, 96, 94, 92, 90, 88, 86, 91, 89}));
}

TEST_CASE("a positive step loses its fraction, and the next block makes up for it")
{
    // 15 in 8 pixels is 15 >> 3 = 1 a pixel.
    SpanGradients span = flat();
    span.start.texU = 0;
    span.step8.texU = 15;
    CHECK(listed(walked<Truncating>(span, 10).u) == listed({0, 1, 2, 3, 4, 5, 6, 7, 15, 16}));
}

TEST_CASE("truncating coordinates go toward zero, rounding ones to the nearest, ties to even")
{
    struct Line {
        f32 value;
        i32 truncated, rounded;
    };
    for (const Line& line : {Line{2.25f, 2, 2}, Line{2.5f, 2, 2}, Line{2.75f, 2, 3}, Line{3.5f, 3, 4},
                             Line{-2.25f, -2, -2}, Line{-2.5f, -2, -2}, Line{-2.75f, -2, -3}, Line{-3.5f, -3, -4}}) {
        SpanGradients span = flat();
        span.start.texU = line.value;
        span.step8.texU = 0;
        CHECK(walked<Truncating>(span, 1).u.front() == line.truncated);
        CHECK(walked<Rounding>(span, 1).u.front() == line.rounded);
    }
}

TEST_CASE("rounding and truncating walks differ by one step of 1/256 texel at the ends of blocks")
{
    const Walked walk = walked<Rounding>(receding(), 17);
    CHECK(listed(walk.u)
          == listed({0, 64, 128, 192, 256, 320, 384, 448, 512, 639, 766, 893, 1020, 1147, 1274, 1401, 1535}));
    CHECK(listed(walk.v)
          == listed(
              {3072, 3040, 3008, 2976, 2944, 2912, 2880, 2848, 2816, 2751, 2686, 2621, 2556, 2491, 2426, 2361, 2303}));
}

TEST_CASE("the running values are rounded to f32 at every block")
{
    // 2^24 + 1 is no f32 and becomes 2^24, at the end of every block anew; without rounding the third block would begin
    // at 2^24 + 2.
    SpanGradients span = flat();
    span.start.texU = 16777216;
    span.step8.texU = 1;
    CHECK(walked<Truncating>(span, 17).u.back() == 16777216);
}

TEST_CASE("depth is divided in f64")
{
    // 50331644 / 3 = 16777214 2/3. The f32 reciprocal of 3 is too large by 3e-8 of itself, which would add a half.
    SpanGradients span = flat();
    span.start.invDepth = 3;
    span.start.texU = 50331644;
    span.step8.texU = 0;
    CHECK(walked<Truncating>(span, 9).u.front() == 16777214);
    CHECK(walked<Truncating>(span, 9).u.back() == 16777214);
}

TEST_CASE("what does not fit in 32 bits truncates to the smallest integer, and rounds to the low 32 bits of the sum")
{
    // 2^32 + 1024 is an f32; its low 32 bits are 1024.
    SpanGradients span = flat();
    span.start.texU = 4294968320.0f;
    span.step8.texU = 0;
    CHECK(walked<Truncating>(span, 1).u.front() == -2147483647 - 1);
    CHECK(walked<Rounding>(span, 1).u.front() == 1024);
}
