// Eight pixels blended at once, beside one.
#include "raster/packed_blends.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <random>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Blends a colour over every pixel that there is.
template <class Blend>
u32 wrongPixels(u16 source)
{
    u32 wrong = 0;
    for (u32 first = 0; first < 0x10000; first += 8) {
        const u16x8 there = eightTimes(static_cast<u16>(first)) + laneNumbers;
        const u16x8 blended = PackedBlend<Blend>::over(there, eightTimes(source));
        for (u32 lane = 0; lane < 8; ++lane) wrong += blended[lane] != Blend::over(there[lane], source);
    }
    return wrong;
}

} // namespace

TEST_CASE("a packed blend of any two pixels is the plain one")
{
    forEachSeed(40, [](u32 seed) {
        // All channels empty, full, and one short of full; then any colours.
        constexpr u16 corners[] = {0, 0xffff, 0xf7de, 0x7bde, 0x8410, 0x4210, 0x0020, 0x0821};
        std::mt19937 random(seed);
        const u16 source = seed <= std::size(corners) ? corners[seed - 1] : static_cast<u16>(random());
        CAPTURE(source);
        CHECK(wrongPixels<Replace>(source) == 0);
        CHECK(wrongPixels<HalfBlend<rgb555>>(source) == 0);
        CHECK(wrongPixels<HalfBlend<rgb565>>(source) == 0);
        CHECK(wrongPixels<SaturatingAdd<rgb555>>(source) == 0);
        CHECK(wrongPixels<SaturatingAdd<rgb565>>(source) == 0);
    });
}

TEST_CASE("the colours of a packed blend may differ from lane to lane")
{
    const u16x8 there = {0x0000, 0xffff, 0x1234, 0x8000, 0x07e0, 0x001f, 0xf800, 0x7bef};
    const u16x8 colours = {0xffff, 0x0001, 0x4321, 0x8000, 0x0020, 0x0001, 0x0800, 0x8410};
    const u16x8 sums = PackedBlend<SaturatingAdd<rgb565>>::over(there, colours);
    for (u32 lane = 0; lane < 8; ++lane) {
        CAPTURE(lane);
        CHECK(sums[lane] == SaturatingAdd<rgb565>::over(there[lane], colours[lane]));
    }
}
