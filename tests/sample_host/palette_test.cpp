#include "sample_host/pictures/palette.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <set>

using namespace sample_host;

namespace {

Colour entry(const PalettisedImage& image, std::size_t index)
{
    return {image.palette[4 * index + 2], image.palette[4 * index + 1], image.palette[4 * index]};
}

bool same(Colour a, Colour b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

// Every colour once: red and green run over 64 values each.
Image colourField()
{
    Image image(64, 64);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) image.set(x, y, {std::uint8_t(4 * x), std::uint8_t(4 * y), std::uint8_t(x + y)});
    return image;
}

} // namespace

TEST_CASE("an image of no more than 256 colours keeps each of them exactly")
{
    Image image(32, 8);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 32; ++x) image.set(x, y, {std::uint8_t(8 * x), std::uint8_t(31 * y), std::uint8_t(x * y)});
    const PalettisedImage result = quantised(image);
    for (std::size_t i = 0; i < image.pixelCount(); ++i) CHECK(same(entry(result, result.indices[i]), image.colour(i)));
}

TEST_CASE("a palette entry is blue, green, red and a zero")
{
    Image image(1, 1);
    image.set(0, 0, {10, 20, 30});
    const PalettisedImage result = quantised(image);
    CHECK(result.indices == std::vector<std::uint8_t>{0});
    CHECK(result.palette[0] == 30);
    CHECK(result.palette[1] == 20);
    CHECK(result.palette[2] == 10);
    CHECK(result.palette[3] == 0);
}

TEST_CASE("an image of many colours uses the whole palette, and no colour moves far")
{
    const Image image = colourField();
    const PalettisedImage result = quantised(image);
    const std::set<std::uint8_t> used(result.indices.begin(), result.indices.end());
    CHECK(used.size() > 250);
    for (std::size_t i = 0; i < image.pixelCount(); ++i) {
        const Colour before = image.colour(i), after = entry(result, result.indices[i]);
        CHECK(std::abs(before.red - after.red) <= 16);
        CHECK(std::abs(before.green - after.green) <= 16);
        CHECK(std::abs(before.blue - after.blue) <= 16);
    }
}

TEST_CASE("the same image gives the same palette")
{
    const PalettisedImage first = quantised(colourField()), second = quantised(colourField());
    CHECK(first.palette == second.palette);
    CHECK(first.indices == second.indices);
}

TEST_CASE("hidden pixels, and no others, have the hidden index")
{
    Image image = colourField();
    image.hide(3, 0);
    const PalettisedImage result = quantised(image);
    for (std::size_t i = 0; i < image.pixelCount(); ++i) CHECK((result.indices[i] == hiddenIndex) == (i == 3));
}

TEST_CASE("an image of hidden pixels only has a palette of nothing")
{
    Image image(2, 1);
    image.hide(0, 0);
    image.hide(1, 0);
    CHECK(quantised(image).indices == std::vector<std::uint8_t>{hiddenIndex, hiddenIndex});
}
