#include "sample_host/pictures/label.h"
#include "sample_host/pictures/marks.h"

#include <doctest/doctest.h>

using namespace sample_host;

TEST_CASE("text leaves ink in the picture, and none outside of its width")
{
    Image image(60, 12);
    drawText(image, 2, 2, "Lit", {0, 0, 0});
    const auto inkIn = [&](int left, int right) {
        int count = 0;
        for (int y = 0; y < image.height; ++y)
            for (int x = left; x < right; ++x) count += image.colour(std::size_t(y * image.width + x)).red == 0;
        return count;
    };
    CHECK(inkIn(2, 2 + textWidth("Lit")) > 10);
    CHECK(inkIn(0, 2) == 0);
    CHECK(inkIn(2 + textWidth("Lit"), 60) == 0);
}

TEST_CASE("text and lines that leave the picture are cut off")
{
    Image image(8, 8);
    drawText(image, -20, -3, "across the border", {0, 0, 0});
    drawLine(image, {-1000, 3}, {1000, 3}, {9, 9, 9});
    for (std::size_t x = 0; x < 8; ++x) CHECK(image.colour(3 * 8 + x).red == 9);
}

TEST_CASE("a line goes through both of its ends, in either direction")
{
    for (const bool turned : {false, true}) {
        Image image(8, 8);
        const Pixel a{1, 2}, b{6, 4};
        drawLine(image, turned ? b : a, turned ? a : b, {0, 0, 0});
        CHECK(image.colour(2 * 8 + 1).red == 0);
        CHECK(image.colour(4 * 8 + 6).red == 0);
        CHECK(image.colour(2 * 8 + 0).red == 255);
        CHECK(image.colour(4 * 8 + 7).red == 255);
    }
}

TEST_CASE("a cross leaves the pixel that it marks as it is, and the two pixels on every side of it")
{
    Image image(24, 24);
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 24; ++x) image.set(x, y, {9, 9, 9});
    drawCross(image, {12, 12});
    const auto red = [&](int x, int y) { return image.colour(std::size_t(y * 24 + x)).red; };
    for (int i = -2; i <= 2; ++i) {
        CHECK(red(12 + i, 12) == 9);
        CHECK(red(12, 12 + i) == 9);
    }
    CHECK(red(15, 12) == 255);
    CHECK(red(12, 21) == 255);
    CHECK(red(16, 13) == 0); // the shadow, one pixel to the right and below
}
