#include "host/pixel_format.h"
#include "kardeno_soft/kardeno_soft.h"
#include "raster/colour_tables.h"
#include "tests/support/test_host.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

u32 red(u32 intensity, u32 value)
{
    return colourScaleTables.redScale[intensity * 256 + value];
}

u32 green(u32 intensity, u32 value)
{
    return colourScaleTables.greenScale[intensity * 256 + value];
}

u32 blue(u32 intensity, u32 value)
{
    return colourScaleTables.blueScale[intensity * 256 + value];
}

} // namespace

TEST_CASE("intensity 0 gives 0 in every entry of both formats")
{
    for (const PixelFormat format : {rgb555, rgb565}) {
        buildColourScaleTables(format);
        for (u32 value = 0; value < 256; ++value) CHECK((red(0, value) | green(0, value) | blue(0, value)) == 0);
    }
}

TEST_CASE("intensity 255 reproduces every channel field of 5-6-5")
{
    buildColourScaleTables(rgb565);
    CHECK(red(255, 0xf8) == 0xf800);
    CHECK(green(255, 0x3f) == 0x7e0);
    CHECK(blue(255, 0x1f) == 0x1f);
    for (u32 value = 0; value < 256; ++value) {
        CAPTURE(value);
        CHECK(red(255, value) == (value & 0xf8) << 8);
        CHECK(green(255, value) == (value & 0x3f) << 5);
        CHECK(blue(255, value) == (value & 0x1f));
    }
}

TEST_CASE("intensity 255 reproduces every channel field of 5-5-5")
{
    buildColourScaleTables(rgb555);
    CHECK(red(255, 0x7c) == 0x7c00);
    CHECK(green(255, 0x1f) == 0x3e0);
    CHECK(blue(255, 0x1f) == 0x1f);
    for (u32 value = 0; value < 256; ++value) {
        CAPTURE(value);
        CHECK(red(255, value) == (value & 0x7c) << 8);
        CHECK(green(255, value) == (value & 0x1f) << 5);
        CHECK(blue(255, value) == (value & 0x1f));
    }
}

TEST_CASE("half an intensity rounds down, in 5-6-5")
{
    buildColourScaleTables(rgb565);
    // (63 x 128 << 5) / 255 = 258,048 / 255 = 1011.9; 1011 & 0x7e0 = 992: green 31 of 63.
    CHECK(green(128, 63) == 992);
    CHECK(blue(128, 31) == 15); // 3968 / 255 = 15.6
    // (248 x 128 << 8) / 255 = 8,126,464 / 255 = 31,868.5; 0x7c7c & 0xf800 = 0x7800: red 15 of 31.
    CHECK(red(128, 0xf8) == 0x7800);
}

TEST_CASE("half an intensity rounds down, in 5-5-5")
{
    buildColourScaleTables(rgb555);
    CHECK(green(128, 31) == 480);    // (31 x 128 << 5) / 255 = 497.9; 497 & 0x3e0 = 480: green 15 of 31
    CHECK(blue(128, 31) == 15);      // 3968 / 255 = 15.6
    CHECK(red(128, 0x7c) == 0x3c00); // (124 x 128 << 8) / 255 = 15,934.2; 0x3e3e & 0x7c00: red 15 of 31
}

TEST_CASE("small intensities: blue keeps its fraction out, green and red lose what falls below the field")
{
    buildColourScaleTables(rgb565);
    CHECK(blue(8, 31) == 0);     // 248 / 255
    CHECK(blue(9, 31) == 1);     // 279 / 255
    CHECK(green(4, 63) == 0);    // (252 << 5) / 255 = 31.6: below 32
    CHECK(green(5, 63) == 32);   // (315 << 5) / 255 = 39.5
    CHECK(red(8, 0xf8) == 0);    // (1984 << 8) / 255 = 1991.8: below 2048
    CHECK(red(9, 0xf8) == 2048); // (2232 << 8) / 255 = 2240.8
}

TEST_CASE("only the channel's bits of the indexing byte count, so that any byte of a pixel can be used")
{
    for (const PixelFormat format : {rgb555, rgb565}) {
        CAPTURE(format);
        buildColourScaleTables(format);
        const u32 redMask = format == rgb565 ? 0xf8 : 0x7c;
        const u32 greenMask = format == rgb565 ? 0x3f : 0x1f;
        bool same = true;
        for (u32 intensity = 0; intensity < 256; ++intensity) {
            for (u32 value = 0; value < 256; ++value) {
                same = same && red(intensity, value) == red(intensity, value & redMask)
                       && green(intensity, value) == green(intensity, value & greenMask)
                       && blue(intensity, value) == blue(intensity, value & 0x1f);
            }
        }
        CHECK(same);
    }
}

TEST_CASE("every entry is the exact quotient cut to its field")
{
    for (const PixelFormat format : {rgb555, rgb565}) {
        CAPTURE(format);
        buildColourScaleTables(format);
        const bool sixGreen = format == rgb565;
        i32 wrong = 0;
        for (u32 intensity = 0; intensity < 256; ++intensity) {
            for (u32 value = 0; value < 256; ++value) {
                const u32 redProduct = ((value & (sixGreen ? 0xf8 : 0x7c)) * intensity) << 8;
                const u32 greenProduct = ((value & (sixGreen ? 0x3f : 0x1f)) * intensity) << 5;
                wrong += red(intensity, value) != (redProduct / 255 & (sixGreen ? 0xf800 : 0x7c00));
                wrong += green(intensity, value) != (greenProduct / 255 & (sixGreen ? 0x7e0 : 0x3e0));
                wrong += blue(intensity, value) != (value & 0x1f) * intensity / 255;
            }
        }
        CHECK(wrong == 0);
    }
}

TEST_CASE("a scaled pixel is the sum of three look-ups")
{
    buildColourScaleTables(rgb565);
    const u32 pixel = 0xb5d7; // red 22, green 46, blue 23
    // At 100 of 255: red 8.6, green 18.0, blue 9.02.
    CHECK(red(100, pixel >> 8) + green(100, pixel >> 5 & 0xff) + blue(100, pixel & 0xff) == (8u << 11 | 18 << 5 | 9));
}

TEST_CASE("initialisation builds 5-6-5 tables for 16 bits per pixel and 5-5-5 ones for anything else")
{
    for (const i32 bitsPerPixel : {16, 15, 24, 32}) {
        CAPTURE(bitsPerPixel);
        TestHost host(bitsPerPixel);
        CHECK(green(255, 0x3f) == (bitsPerPixel == 16 ? 0x7e0 : 0x3e0));
        CHECK(red(255, 0xff) == (bitsPerPixel == 16 ? 0xf800 : 0x7c00));
    }
}
