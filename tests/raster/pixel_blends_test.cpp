#include "host/pixel_format.h"
#include "raster/pixel_blends.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <string>

using namespace kardeno;

namespace {

std::string hex(u32 pixel)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04x", pixel);
    return digits;
}

struct Blended {
    u16 destination, source, result;
};

template <class Blend>
void checkBlends(std::initializer_list<Blended> lines)
{
    for (const Blended& line : lines) {
        CAPTURE(hex(line.destination));
        CAPTURE(hex(line.source));
        CHECK(hex(Blend::over(line.destination, line.source)) == hex(line.result));
        // Neither half of a mean or a sum is told from the other.
        CHECK(hex(Blend::over(line.source, line.destination)) == hex(line.result));
    }
}

} // namespace

TEST_CASE("a pixel that is replaced does not count")
{
    CHECK(Replace::over(0x1234, 0xabcd) == 0xabcd);
}

TEST_CASE("in 5-5-5 the half blend of white over black is 0x3def, in 5-6-5 it is 0x7bef")
{
    checkBlends<HalfBlend<rgb555>>({{0x0000, 0x7fff, 0x3def}});
    checkBlends<HalfBlend<rgb565>>({{0x0000, 0xffff, 0x7bef}});
}

TEST_CASE("the half blend of 5-5-5 is the mean of the channels without the lowest bit of red and green")
{
    // White and white: red and green 30, blue 31. Red 31 with red 1 (which counts as 0): 15. Green 2 with green 6: 4.
    // Blue 3 with blue 4 keeps its lowest bits: 7 / 2 = 3. Bit 15 does not count.
    checkBlends<HalfBlend<rgb555>>({
        {0x7fff, 0x7fff, 0x7bdf},
        {0x7c00, 0x0400, 0x3c00},
        {0x0040, 0x00c0, 0x0080},
        {0x0003, 0x0004, 0x0003},
        {0x8000, 0x8000, 0x0000},
        {0x0421, 0x0421, 0x0001},
        {0x0000, 0x0000, 0x0000},
    });
}

TEST_CASE("the half blend of 5-6-5 is the mean of the channels without the lowest bit of red and green")
{
    // White and white: red 30, green 62, blue 31. Red 31 with red 1: 15. Green 32 with green 2: 17. The sum of two red
    // channels needs 17 bits.
    checkBlends<HalfBlend<rgb565>>({
        {0xffff, 0xffff, 0xf7df},
        {0xf800, 0x0800, 0x7800},
        {0x0400, 0x0040, 0x0220},
        {0x0003, 0x0004, 0x0003},
        {0x8000, 0x8000, 0x8000},
        {0x0821, 0x0821, 0x0001},
        {0x0000, 0x0000, 0x0000},
    });
}

TEST_CASE("a sum without a carry is the sum of the channels without the lowest bit of red and green")
{
    // 5-5-5: 0x0c63 counts as 0x0843, 0x1084 whole: 0x18c7. 5-6-5: 0x1863 counts as 0x1043, 0x2104 whole: 0x3147.
    checkBlends<SaturatingAdd<rgb555>>({{0x0c63, 0x1084, 0x18c7}, {0x0000, 0x7fff, 0x7bdf}, {0x8000, 0x0001, 0x0001}});
    checkBlends<SaturatingAdd<rgb565>>({{0x1863, 0x2104, 0x3147}, {0x0000, 0xffff, 0xf7df}});
}

TEST_CASE("the carry that saturates blue stays behind in the lowest green bit")
{
    checkBlends<SaturatingAdd<rgb555>>({{0x001f, 0x0001, 0x003f}, {0x001f, 0x001f, 0x003f}, {0x0010, 0x0010, 0x003f}});
    checkBlends<SaturatingAdd<rgb565>>({{0x001f, 0x0001, 0x003f}, {0x001f, 0x001f, 0x003f}, {0x0010, 0x0010, 0x003f}});
}

TEST_CASE("the carry that saturates green stays behind in the lowest red bit")
{
    // 5-5-5: green 16 and 16 make 0x0400, green 30 and 30 make 0x0780. 5-6-5: 32 and 32 make 0x0800.
    checkBlends<SaturatingAdd<rgb555>>({{0x0200, 0x0200, 0x07e0}, {0x03c0, 0x03c0, 0x07e0}});
    checkBlends<SaturatingAdd<rgb565>>({{0x0400, 0x0400, 0x0fe0}, {0x07c0, 0x07c0, 0x0fe0}});
}

TEST_CASE("in 5-6-5 the carry of red is dropped with the seventeenth bit")
{
    checkBlends<SaturatingAdd<rgb565>>({{0xf800, 0xf800, 0xf800}, {0x8000, 0x8000, 0xf800}});
}

TEST_CASE("in 5-5-5 the carry of red stays in bit 15")
{
    checkBlends<SaturatingAdd<rgb555>>({{0x7c00, 0x7c00, 0xfc00}, {0x4000, 0x4000, 0xfc00}});
}

TEST_CASE("the carry that fills a channel does not carry on into the next one")
{
    // Blue overflows and leaves a bit in a green of 30 (31 then); that is no carry of green. Red 30 likewise.
    checkBlends<SaturatingAdd<rgb555>>({{0x03df, 0x0001, 0x03ff}, {0x7bc0, 0x0040, 0x7fe0}, {0x7bdf, 0x7bdf, 0xffff}});
    checkBlends<SaturatingAdd<rgb565>>({{0x07df, 0x0001, 0x07ff}, {0xf7c0, 0x0040, 0xffe0}, {0xf7df, 0xf7df, 0xffff}});
}

TEST_CASE("the lowest bits of red and green of both pixels are not added")
{
    // Masked out of both: 0x0420 of 5-5-5, 0x0820 of 5-6-5, and the unused bit 15 of 5-5-5.
    checkBlends<SaturatingAdd<rgb555>>({{0x0420, 0x0420, 0x0000}, {0x8000, 0x8000, 0x0000}});
    checkBlends<SaturatingAdd<rgb565>>({{0x0820, 0x0820, 0x0000}});
}
