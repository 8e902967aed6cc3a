#include "tests/raster/row_setup.h"

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

TEST_CASE("the row LitPlain draws the ramp's colour at the level of the shade, with perspective")
{
    // clang-format off
    checkRow(rowLitPlain, {}, {
        {both,  any,    SetUp::flat,     "0a0a 0a0a 0b0b 0c0c 0d0d 0d0d 0e0e 0f0f | 1010"},
        {both,  any,    SetUp::receding, "3232 3131 3131 3131 3030 3030 3030 3030 | 2f2f"},
    });
    // clang-format on
}

TEST_CASE("the row LitTranslucent half blends the ramp's colour at the level of the shade, with perspective")
{
    // clang-format off
    checkRow(rowLitTranslucent, {.destination = 0x2108}, {
        {in555, any,    SetUp::flat,     "1589 1589 1609 148a 150a 150a 158b 160b | 188c"},
        {in565, any,    SetUp::flat,     "1189 1189 1209 128a 130a 130a 138b 140b | 188c"},
        {in555, any,    SetUp::receding, "298d 290c 290c 290c 288c 288c 288c 288c | 260b"},
        {in565, any,    SetUp::receding, "298d 290c 290c 290c 288c 288c 288c 288c | 240b"},
    });
    // clang-format on
}

TEST_CASE("the row LitTextured draws lit texels, and rounds coordinates on square maps")
{
    // clang-format off
    checkRow(rowLitTextured, {.bitsPerTexel = 8}, {
        {both,  square, SetUp::flat,     "0a6d 0a6d 0b5e 0b5f 0c40 0c40 0d31 0d32 | 0e23"},
        {both,  any,    SetUp::flat,     "0a6d 0a6d 0b5e 0b5f 0c50 0c50 0d41 0d42 | 0e33"},
        {both,  square, SetUp::receding, "32c0 31b0 31b0 31b0 31b1 30b1 30b1 30b1 | 30b2"},
        {both,  any,    SetUp::receding, "32c0 31b0 31b0 31b0 31b0 30b1 30b1 30b1 | 30a1"},
    });
    // clang-format on
}

TEST_CASE("the row LitTexturedShade1 draws lit texels but for the transparent palette index")
{
    // clang-format off
    checkRow(rowLitTexturedShade1, {.bitsPerTexel = 8, .transparentIndex = 0x5f, .transparentColour = 0x006d}, {
        {both,  square, SetUp::flat,     "0a6d 0a6d 0b5e 7777 0c40 0c40 0d31 0d32 | 0e23"},
        {both,  any,    SetUp::flat,     "0a6d 0a6d 0b5e 7777 0c50 0c50 0d41 0d42 | 0e33"},
        {both,  square, SetUp::receding, "32c0 31b0 31b0 31b0 31b1 30b1 30b1 30b1 | 30b2"},
        {both,  any,    SetUp::receding, "32c0 31b0 31b0 31b0 31b0 30b1 30b1 30b1 | 30a1"},
    });
    // clang-format on
}

TEST_CASE("the row LitTexturedTranslucent half blends lit texels")
{
    // clang-format off
    checkRow(rowLitTexturedTranslucent, {.bitsPerTexel = 8, .destination = 0x2108}, {
        {in555, square, SetUp::flat,     "15aa 15aa 1633 1633 14a4 14a4 150c 150d | 1585"},
        {in565, square, SetUp::flat,     "11aa 11aa 1233 1233 12a4 12a4 130c 130d | 1385"},
        {in555, any,    SetUp::flat,     "15aa 15aa 1633 1633 14ac 14ac 1524 1525 | 158d"},
        {in565, any,    SetUp::flat,     "11aa 11aa 1233 1233 12ac 12ac 1324 1325 | 138d"},
        {in555, square, SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28cd"},
        {in565, square, SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28cd"},
        {in555, any,    SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4"},
        {in565, any,    SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4"},
    });
    // clang-format on
}

TEST_CASE("the row LitTexturedShade1Translucent half blends lit texels but for palette index 0")
{
    // Index 0x6d is replaced by 0, at the first two pixels of the flat set-up; index 0x5f is drawn, whatever the map
    // names.
    const RowSettings settings = {
        .bitsPerTexel = 8, .destination = 0x2108, .transparentIndex = 0x5f, .texelThatIsZero = 0x6d};
    // clang-format off
    checkRow(rowLitTexturedShade1Translucent, settings, {
        {in555, square, SetUp::flat,     "2108 2108 1633 1633 14a4 14a4 150c 150d | 1585"},
        {in565, square, SetUp::flat,     "2108 2108 1233 1233 12a4 12a4 130c 130d | 1385"},
        {in555, any,    SetUp::flat,     "2108 2108 1633 1633 14ac 14ac 1524 1525 | 158d"},
        {in565, any,    SetUp::flat,     "2108 2108 1233 1233 12ac 12ac 1324 1325 | 138d"},
        {in555, square, SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4"},
        {in565, square, SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4"},
        {in555, any,    SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4"},
        {in565, any,    SetUp::receding, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4"},
    });
    // clang-format on
}

TEST_CASE("the row LitTexturedShade2 adds lit texels, and truncates coordinates on any map")
{
    // clang-format off
    checkRow(rowLitTexturedShade2, {.bitsPerTexel = 8, .destination = 0x4a52}, {
        {in555, square, SetUp::flat,     "57ff 57ff 57ff 57ff 5292 5292 537f 537f | 57f5"},
        {in565, square, SetUp::flat,     "449f 449f 45bf 45bf 4692 4692 477f 477f | 4ff5"},
        {in555, any,    SetUp::flat,     "57ff 57ff 57ff 57ff 52bf 52bf 5393 5394 | 57ff"},
        {in565, any,    SetUp::flat,     "449f 449f 45bf 45bf 46bf 46bf 4793 4794 | 4fff"},
        {in555, square, SetUp::receding, "7ff2 7bff 7bff 7bff 7bff 7aff 7aff 7aff | 7ad3"},
        {in565, square, SetUp::receding, "7512 73ff 73ff 73ff 73ff 72ff 72ff 72ff | 72d3"},
        {in555, any,    SetUp::receding, "7ff2 7bff 7bff 7bff 7bff 7aff 7aff 7aff | 7ad3"},
        {in565, any,    SetUp::receding, "7512 73ff 73ff 73ff 73ff 72ff 72ff 72ff | 72d3"},
    });
    // clang-format on
}
