// The depth of a plane at a point, by the plain form and by the one that this machine uses.
#include "spanbuffer/depth_plane.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <bit>
#include <random>

using namespace kardeno;
using kardeno::tests::forEachSeed;

namespace {

PolygonState plane(f32 stepX, f32 stepY, f32 origin)
{
    PolygonState state = {};
    state.invDepthStepX = stepX;
    state.invDepthStepY = stepY;
    state.invDepthOrigin = origin;
    return state;
}

} // namespace

TEST_CASE("the depth at a point is the sum of both products and the origin, from left to right")
{
    CHECK(SamplePoint(10, 20).depthOf(plane(0.5f, 0.25f, 3)) == 13);
    // 2^60 and -2^60 cancel before the 1 is added; from right to left the 1 would be lost.
    CHECK(SamplePoint(1, 1).depthOf(plane(1152921504606846976.0f, -1152921504606846976.0f, 1)) == 1);
}

TEST_CASE("both forms of the depth of a plane are the same to the last bit")
{
    forEachSeed(20000, [](u32 seed) {
        std::mt19937 random(seed);
        const auto anyNumber = [&] {
            const f32 value = std::bit_cast<f32>(static_cast<u32>(random()));
            return value == value ? value : 1.0f; // which NaN comes out is up to the machine
        };
        const PolygonState state = plane(anyNumber(), anyNumber(), anyNumber());
        const f64 x = anyNumber();
        const f64 y = anyNumber();
        const f64 plain = PlainSamplePoint(x, y).depthOf(state);
        const f64 used = SamplePoint(x, y).depthOf(state);
        CHECK((used == plain || (used != used && plain != plain)));
    });
}

TEST_CASE("the sample lies one pixel right of the edge, rounded to single precision")
{
    CHECK(sampleColumn(0) == 1);
    CHECK(sampleColumn(-65536) == 0);
    CHECK(sampleColumn(98304) == 2.5f); // an edge at 1.5
    // 301.99998474 has a bit too many and becomes 302.
    CHECK(sampleColumn(300 * 65536 + 65535) == 302);
    CHECK(sampleColumn(2147483647) == 32769);
    CHECK(sampleColumn(-2147483647 - 1) == -32767);
}

TEST_CASE("both forms of the sample's column are the same")
{
    for (const i32 edgeX : {2147418111, 2147418112, 2147483646, -65535, -65537, 1, -1})
        CHECK(sampleColumn(edgeX) == sampleColumnPlain(edgeX));
    forEachSeed(200000, [](u32 seed) {
        const i32 edgeX = std::bit_cast<i32>(static_cast<u32>(std::mt19937(seed)())) >> seed % 16;
        REQUIRE(sampleColumn(edgeX) == sampleColumnPlain(edgeX));
    });
}
