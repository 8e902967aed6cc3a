#include "tests/raster/row_setup.h"

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

TEST_CASE("the row FallbackFlat draws the low byte of the face colour twice")
{
    // clang-format off
    checkRow(rowFallbackFlat, {.faceColour = 0x1234, .diffuse = 0x5678}, {
        {both,  any,    SetUp::flat,     "3434 3434 3434 3434 3434 3434 3434 3434 | 3434"},
    });
    // clang-format on
}

TEST_CASE("the row FallbackBlend draws the mean of the face colour and the pixel")
{
    // 5-5-5: (0x7801 + 0x0843) / 2. 5-6-5: (0x7401 + 0x0443) / 2.
    // clang-format off
    checkRow(rowFallbackBlend, {.destination = 0x0c63, .faceColour = 0x7c21, .diffuse = 0x5678}, {
        {in555, any,    SetUp::flat,     "4022 4022 4022 4022 4022 4022 4022 4022 | 4022"},
        {in565, any,    SetUp::flat,     "3c22 3c22 3c22 3c22 3c22 3c22 3c22 3c22 | 3c22"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitPlain draws the packed diffuse colour")
{
    // clang-format off
    checkRow(rowUnlitPlain, {.faceColour = 0x1234, .diffuse = 0xfedc}, {
        {both,  any,    SetUp::flat,     "fedc fedc fedc fedc fedc fedc fedc fedc | fedc"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitTranslucent draws the mean of the packed diffuse colour and the pixel")
{
    // clang-format off
    checkRow(rowUnlitTranslucent, {.destination = 0x0c63, .faceColour = 0x1234, .diffuse = 0x7c21}, {
        {in555, any,    SetUp::flat,     "4022 4022 4022 4022 4022 4022 4022 4022 | 4022"},
        {in565, any,    SetUp::flat,     "3c22 3c22 3c22 3c22 3c22 3c22 3c22 3c22 | 3c22"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitTextured copies the texture, and rounds coordinates on square maps")
{
    // clang-format off
    checkRow(rowUnlitTextured, {.bitsPerTexel = 16}, {
        {both,  square, SetUp::flat,     "66dd 66dd 55ee 55ff 4400 4400 3311 3322 | 2233"},
        {both,  any,    SetUp::flat,     "66dd 66dd 55ee 55ff 5500 5500 4411 4422 | 3333"},
        {both,  square, SetUp::receding, "cc00 bb00 bb00 bb00 bb11 bb11 bb11 bb11 | bb22"},
        {both,  any,    SetUp::receding, "cc00 bb00 bb00 bb00 bb00 bb11 bb11 bb11 | aa11"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitTexturedShade1 copies the texture but for texels of the transparent colour")
{
    const RowSettings settings = {.bitsPerTexel = 16, .transparentIndex = 0xdd, .transparentColour = 0x55ff};
    // clang-format off
    checkRow(rowUnlitTexturedShade1, settings, {
        {both,  square, SetUp::flat,     "66dd 66dd 55ee 7777 4400 4400 3311 3322 | 2233"},
        {both,  any,    SetUp::flat,     "66dd 66dd 55ee 7777 5500 5500 4411 4422 | 3333"},
        {both,  square, SetUp::receding, "cc00 bb00 bb00 bb00 bb11 bb11 bb11 bb11 | bb22"},
        {both,  any,    SetUp::receding, "cc00 bb00 bb00 bb00 bb00 bb11 bb11 bb11 | aa11"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitTexturedTranslucent half blends the texture")
{
    // clang-format off
    checkRow(rowUnlitTexturedTranslucent, {.bitsPerTexel = 16, .destination = 0x2108}, {
        {in555, square, SetUp::flat,     "41f2 41f2 396b 3973 3084 3084 2a0c 2a05 | 218d"},
        {in565, square, SetUp::flat,     "43f2 43f2 3b6b 3b73 3284 3284 2a0c 2a05 | 218d"},
        {in555, any,    SetUp::flat,     "41f2 41f2 396b 3973 3904 3904 308c 3085 | 2a0d"},
        {in565, any,    SetUp::flat,     "43f2 43f2 3b6b 3b73 3b04 3b04 328c 3285 | 2a0d"},
        {in555, square, SetUp::receding, "3484 2e04 2e04 2e04 2e0c 2e0c 2e0c 2e0c | 2e05"},
        {in565, square, SetUp::receding, "7284 6a04 6a04 6a04 6a0c 6a0c 6a0c 6a0c | 6a05"},
        {in555, any,    SetUp::receding, "3484 2e04 2e04 2e04 2e04 2e0c 2e0c 2e0c | 258c"},
        {in565, any,    SetUp::receding, "7284 6a04 6a04 6a04 6a04 6a0c 6a0c 6a0c | 618c"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitTexturedShade2 adds the texture")
{
    // clang-format off
    checkRow(rowUnlitTexturedShade2, {.bitsPerTexel = 16, .destination = 0x4a52}, {
        {in555, square, SetUp::flat,     "ffff ffff ffff ffff fe52 fe52 7fff 7ff4 | 6fff"},
        {in565, square, SetUp::flat,     "afff afff 9fff 9fff 8652 8652 757f 7554 | 647f"},
        {in555, any,    SetUp::flat,     "ffff ffff ffff ffff ff52 ff52 fe7f fe54 | 7fff"},
        {in565, any,    SetUp::flat,     "afff afff 9fff 9fff 9752 9752 867f 8654 | 757f"},
        {in555, square, SetUp::receding, "fe52 fff2 fff2 fff2 ffff ffff ffff ffff | fff4"},
        {in565, square, SetUp::receding, "fe52 f552 f552 f552 f57f f57f f57f f57f | f554"},
        {in555, any,    SetUp::receding, "fe52 fff2 fff2 fff2 fff2 ffff ffff ffff | 77ff"},
        {in565, any,    SetUp::receding, "fe52 f552 f552 f552 f552 f57f f57f f57f | e47f"},
    });
    // clang-format on
}

TEST_CASE("the row UnlitPalettised draws palette indices at level 63, and truncates coordinates on any map")
{
    // clang-format off
    checkRow(rowUnlitPalettised, {.bitsPerTexel = 8}, {
        {both,  square, SetUp::flat,     "3f6d 3f6d 3f5e 3f5f 3f40 3f40 3f31 3f32 | 3f23"},
        {both,  any,    SetUp::flat,     "3f6d 3f6d 3f5e 3f5f 3f50 3f50 3f41 3f42 | 3f33"},
        {both,  square, SetUp::receding, "3fc0 3fb0 3fb0 3fb0 3fb0 3fb1 3fb1 3fb1 | 3fa1"},
        {both,  any,    SetUp::receding, "3fc0 3fb0 3fb0 3fb0 3fb0 3fb1 3fb1 3fb1 | 3fa1"},
    });
    // clang-format on
}
