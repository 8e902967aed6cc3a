// Runs of one colour.
#include "raster/colour_runs.h"
#include "scenes/random_numbers.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <vector>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Draws runs of every length to 150 from every alignment of the first pixel over random pixels, and checks that each
// pixel of a run is wanted(pixel) and that those beside it stay.
template <class Draw, class Wanted>
void checkRuns(Draw draw, Wanted wanted)
{
    constexpr i32 guard = 16;
    scenes::RandomNumbers random(1);
    for (i32 length = 0; length <= 150; ++length) {
        for (i32 begin = 0; begin < 8; ++begin) {
            alignas(16) u16 row[guard + 8 + 150 + guard];
            for (u16& pixel : row) pixel = static_cast<u16>(random.next());
            std::vector<u16> expected(std::begin(row), std::end(row));
            for (i32 i = 0; i < length; ++i) {
                u16& pixel = expected[static_cast<size_t>(guard + begin + i)];
                pixel = wanted(pixel);
            }
            draw(row + guard + begin, length);
            CAPTURE(length);
            CAPTURE(begin);
            CHECK((std::vector<u16>(std::begin(row), std::end(row)) == expected));
        }
    }
}

template <class Blend>
void checkBlend(u16 colour)
{
    checkRuns([&](u16* pixels, i32 length) { blendRun<Blend>(pixels, length, colour); },
              [&](u16 pixel) { return Blend::over(pixel, colour); });
}

} // namespace

TEST_CASE("a run is filled from its first pixel to its last and not beside it, at any length and alignment")
{
    checkRuns([](u16* pixels, i32 length) { fillRun(pixels, length, 0x1234); }, [](u16) { return u16{0x1234}; });
}

TEST_CASE("a run of no length, or of less than none, fills nothing")
{
    u16 pixels[3] = {1, 2, 3};
    fillRun(pixels + 1, 0, 0x7777);
    fillRun(pixels + 1, -1, 0x7777);
    fillRun(pixels + 1, -100, 0x7777);
    CHECK(pixels[0] == 1);
    CHECK(pixels[1] == 2);
    CHECK(pixels[2] == 3);
}

TEST_CASE("a colour is blended over every pixel of a run and over none beside it, at any length and alignment")
{
    for (const u16 colour : {u16{0}, u16{0x7c21}, u16{0xffff}}) {
        checkBlend<HalfBlend<rgb555>>(colour);
        checkBlend<HalfBlend<rgb565>>(colour);
        checkBlend<SaturatingAdd<rgb555>>(colour);
        checkBlend<SaturatingAdd<rgb565>>(colour);
    }
}
