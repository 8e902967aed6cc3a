#include "support/lanes.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <bit>
#include <limits>
#include <random>

using namespace kardeno;
using kardeno::tests::forEachSeed;

namespace {

constexpr f64 infinity = std::numeric_limits<f64>::infinity();
constexpr f64 notANumber = std::numeric_limits<f64>::quiet_NaN();

} // namespace

TEST_CASE("both lanes truncate toward zero, and what does not fit in 32 bits gives -2,147,483,648")
{
    const i32x4 inside = truncatedLanes(f64x2{2.75, -2.75});
    CHECK(inside[0] == 2);
    CHECK(inside[1] == -2);
    const i32x4 ends = truncatedLanes(f64x2{2147483647.9, -2147483648.9});
    CHECK(ends[0] == 2147483647);
    CHECK(ends[1] == smallestI32);
    const i32x4 beyond = truncatedLanes(f64x2{2147483648.0, -2147483649.0});
    CHECK(beyond[0] == smallestI32);
    CHECK(beyond[1] == smallestI32);
    const i32x4 infinite = truncatedLanes(f64x2{infinity, -infinity});
    CHECK(infinite[0] == smallestI32);
    CHECK(infinite[1] == smallestI32);
    const i32x4 none = truncatedLanes(f64x2{notANumber, 1e300});
    CHECK(none[0] == smallestI32);
    CHECK(none[1] == smallestI32);
}

TEST_CASE("four singles truncate toward zero, and what does not fit in 32 bits gives -2,147,483,648")
{
    const f32 least = -2147483648.0f; // the f32 above 2^31 and below -2^31 are 256 away
    const i32x4 inside = truncatedLanes(f32x4{2.75f, -2.75f, least, 2147483520.0f});
    CHECK(inside[0] == 2);
    CHECK(inside[1] == -2);
    CHECK(inside[2] == smallestI32);
    CHECK(inside[3] == 2147483520);
    const i32x4 beyond = truncatedLanes(f32x4{2147483648.0f, -2147483904.0f, 1e38f, -1e38f});
    for (i32 lane = 0; lane < 4; ++lane) CHECK(beyond[lane] == smallestI32);
    const f32 infinite = static_cast<f32>(infinity);
    const i32x4 none = truncatedLanes(f32x4{infinite, -infinite, static_cast<f32>(notANumber), 0.5f});
    for (i32 lane = 0; lane < 3; ++lane) CHECK(none[lane] == smallestI32);
    CHECK(none[3] == 0);
}

TEST_CASE("both lanes round to nearest, ties to even, and large ones keep the low 32 bits")
{
    const i32x4 ties = roundedLanes(f64x2{2.5, -3.5});
    CHECK(ties[0] == 2);
    CHECK(ties[1] == -4);
    const i32x4 close = roundedLanes(f64x2{2.51, -2.51});
    CHECK(close[0] == 3);
    CHECK(close[1] == -3);
    // 2^32 + 7 and -2^31 - 1.
    const i32x4 large = roundedLanes(f64x2{4294967303.0, -2147483649.0});
    CHECK(large[0] == 7);
    CHECK(large[1] == 2147483647);
}

TEST_CASE("lanes are converted as single values are")
{
    forEachSeed(20000, [](u32 seed) {
        std::mt19937_64 random(seed);
        f64 values[2];
        for (f64& value : values) {
            value = std::bit_cast<f64>(static_cast<unsigned long long>(random()));
            if (seed % 2 == 0) value = static_cast<f64>(static_cast<long long>(random())) / 1048576.0;
            if (value != value) value = notANumber;
        }
        const i32x4 whole = truncatedLanes(f64x2{values[0], values[1]});
        CHECK(whole[0] == truncated(values[0]));
        CHECK(whole[1] == truncated(values[1]));
        const i32x4 nearest = roundedLanes(f64x2{values[0], values[1]});
        CHECK(nearest[0] == rounded(values[0]));
        CHECK(nearest[1] == rounded(values[1]));
    });
}

TEST_CASE("the lower two lanes become doubles of the same value")
{
    const f64x2 wide = widened(f32x4{0.1f, -std::numeric_limits<f32>::infinity(), 3, 4});
    CHECK(wide[0] == static_cast<f64>(0.1f));
    CHECK(wide[1] == -infinity);
}

TEST_CASE("sums and differences of signed lanes wrap")
{
    const i32x4 sums = wrappingSum(i32x4{2147483647, -1, smallestI32, 5}, i32x4{1, 1, smallestI32, -7});
    CHECK(sums[0] == smallestI32);
    CHECK(sums[1] == 0);
    CHECK(sums[2] == 0);
    CHECK(sums[3] == -2);
    const i32x4 differences = wrappingDifference(i32x4{smallestI32, 0, 3, 0}, i32x4{1, smallestI32, 5, 0});
    CHECK(differences[0] == 2147483647);
    CHECK(differences[1] == smallestI32);
    CHECK(differences[2] == -2);
    CHECK(differences[3] == 0);
}

TEST_CASE("a mask selects bit by bit")
{
    const u16x8 mask = {0xffff, 0, 0xff00, 0, 0, 0, 0, 0xffff};
    const u16x8 chosen = selected(mask, eightTimes(0x1234), laneNumbers);
    CHECK(chosen[0] == 0x1234);
    CHECK(chosen[1] == 1);
    CHECK(chosen[2] == 0x1202);
    CHECK(chosen[7] == 0x1234);
}

TEST_CASE("stored lanes give their numbers in order")
{
    const StoredLanes stored(eightTimes(0xfff0) + laneNumbers);
    const WideStoredLanes wide(u32x4{10, 11, 12, 13}, u32x4{14, 15, 16, 0xffffffff});
    for (u32 lane = 0; lane < 8; ++lane) {
        CHECK(stored[lane] == 0xfff0 + lane);
        CHECK(wide[lane] == (lane == 7 ? 0xffffffff : 10 + lane));
    }
}
