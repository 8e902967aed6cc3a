#include "sample_host/host/engine.h"
#include "sample_host/host/vector_maths.h"

#include <doctest/doctest.h>

using namespace sample_host;

TEST_CASE("the channels of a pixel lie as the pixel formats say")
{
    CHECK(packedPixel(PixelFormat::rgb565, {255, 0, 0}) == 0xf800);
    CHECK(packedPixel(PixelFormat::rgb565, {0, 255, 0}) == 0x07e0);
    CHECK(packedPixel(PixelFormat::rgb565, {0, 0, 255}) == 0x001f);
    CHECK(packedPixel(PixelFormat::rgb555, {255, 0, 0}) == 0x7c00);
    CHECK(packedPixel(PixelFormat::rgb555, {0, 255, 0}) == 0x03e0);
    CHECK(packedPixel(PixelFormat::rgb555, {0, 0, 255}) == 0x001f);
}

TEST_CASE("a pixel that is unpacked and packed again is the same")
{
    for (int pixel = 0; pixel < 0x10000; ++pixel)
        REQUIRE(packedPixel(PixelFormat::rgb565, unpackedPixel(PixelFormat::rgb565, u16(pixel))) == pixel);
    for (int pixel = 0; pixel < 0x8000; ++pixel)
        REQUIRE(packedPixel(PixelFormat::rgb555, unpackedPixel(PixelFormat::rgb555, u16(pixel))) == pixel);
}

TEST_CASE("the sine is right to the last few bits all the way round")
{
    for (int i = -100; i <= 100; ++i)
        CHECK(sineOfTurn(i / 40.0) == doctest::Approx(std::sin(i / 40.0 * 2 * std::numbers::pi)).epsilon(1e-14));
    CHECK(sineOfTurn(0) == 0);
    CHECK(sineOfTurn(0.5) == doctest::Approx(0));
    CHECK(cosineOfTurn(0) == doctest::Approx(1).epsilon(1e-15));
}

TEST_CASE("a turn is counter-clockwise for one towards whom the axis points")
{
    const Placement quarter = turned({0, 0, 1}, 0.25);
    CHECK(quarter.point({1, 0, 0}).y == doctest::Approx(1));
    const Placement both = movedTo({5, 0, 0}) * quarter;
    CHECK(both.point({1, 0, 0}).x == doctest::Approx(5));
}
