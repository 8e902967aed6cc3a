#include "tests/raster/row_setup.h"

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

TEST_CASE("the row SpareA draws the interpolated colour, linearly on the screen")
{
    // Red 8, 16, ..., green 4, 8, ..., blue 248, 240, ... from column to column, however the depth runs.
    RowSettings settings;
    for (i32 i = 0; i < 3; ++i) {
        settings.channelsOnTheLeft[i] = i == 0 ? 8.0f : i == 1 ? 4.0f : 248.0f;
        settings.channelsOnTheRight[i] = i == 0 ? 264.0f : i == 1 ? 132.0f : -8.0f;
    }
    // clang-format off
    checkRow(rowSpareA, settings, {
        {in555, any, SetUp::flat,     "041f 083e 0c3d 105c 145b 187a 1c79 2098 | 2497"},
        {in565, any, SetUp::flat,     "083f 105e 187d 209c 28bb 30da 38f9 4118 | 4937"},
        {in555, any, SetUp::receding, "041f 083e 0c3d 105c 145b 187a 1c79 2098 | 2497"},
        {in565, any, SetUp::receding, "083f 105e 187d 209c 28bb 30da 38f9 4118 | 4937"},
    });
    // clang-format on
}

TEST_CASE("the row SpareB draws texels scaled by the interpolated colour, and truncates coordinates on any map")
{
    // Full red and blue and no green: the texels without their bits 5 to 9, and 15, in 5-5-5, or 5 to 10 in 5-6-5.
    const RowSettings settings = {
        .bitsPerTexel = 16, .channelsOnTheLeft = {255, 0, 255}, .channelsOnTheRight = {255, 0, 255}};
    // clang-format off
    checkRow(rowSpareB, settings, {
        {in555, square, SetUp::flat,     "641d 641d 540e 541f 4400 4400 3011 3002 | 2013"},
        {in565, square, SetUp::flat,     "601d 601d 500e 501f 4000 4000 3011 3002 | 2013"},
        {in555, any,    SetUp::flat,     "641d 641d 540e 541f 5400 5400 4411 4402 | 3013"},
        {in565, any,    SetUp::flat,     "601d 601d 500e 501f 5000 5000 4011 4002 | 3013"},
        {in555, square, SetUp::receding, "4c00 3800 3800 3800 3800 3811 3811 3811 | 2811"},
        {in565, square, SetUp::receding, "c800 b800 b800 b800 b800 b811 b811 b811 | a811"},
        {in555, any,    SetUp::receding, "4c00 3800 3800 3800 3800 3811 3811 3811 | 2811"},
        {in565, any,    SetUp::receding, "c800 b800 b800 b800 b800 b811 b811 b811 | a811"},
    });
    // clang-format on
}

TEST_CASE("the channels of SpareB change along the row, each span going on where its column lies")
{
    // A white map and a red that grows by 8 a column: field 0, 0, 1, 2, 3, 4, 5, 6, 7 of 31, being 8k x 31 / 255
    // rounded down (0, 0.97, 1.9, 2.9, 3.9, 4.9, 5.8, 6.8, 7.8). The table's own bits below the field are cut off.
    RowSettings settings = {.bitsPerTexel = 16, .channelsOnTheRight = {256, 0, 0}};
    RowScene scene(rowSpareB, settings, 16, square, SetUp::flat);
    for (i32 y = 0; y < 256; ++y) {
        for (i32 x = 0; x < 256; ++x) scene.texture.setTexel(x, y, 0xffff);
    }
    CHECK(scene.drawn({{0, 9, 1}}, 1, 0, 10) == "0000 0000 0800 1000 1800 2000 2800 3000 | 3800 7777");
    CHECK(scene.drawn({{6, 3, 1}, {2, 2, 1}}, 1, 0, 10) == "7777 7777 0800 1000 7777 7777 2800 3000 | 3800 7777");
}
