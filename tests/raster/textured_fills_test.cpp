// What shows only in whole textured fillers: which span list, map, ramp, key and format they take.
#include "tests/raster/row_setup.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;

namespace {

struct RowAndTexels {
    RenderModeRow row;
    u32 bitsPerTexel;
};

// The rows that draw spans, which are all but UnlitTexturedShade10.
constexpr RowAndTexels rowsWithSpans[] = {
    {rowFallbackFlat, 0},
    {rowFallbackBlend, 0},
    {rowUnlitPlain, 0},
    {rowUnlitTextured, 16},
    {rowUnlitTexturedShade1, 16},
    {rowUnlitTranslucent, 0},
    {rowUnlitTexturedTranslucent, 16},
    {rowUnlitTexturedShade2, 16},
    {rowUnlitTexturedShade11, 16},
    {rowUnlitPalettised, 8},
    {rowLitPlain, 0},
    {rowLitTextured, 8},
    {rowLitTexturedShade1, 8},
    {rowLitTranslucent, 0},
    {rowLitTexturedTranslucent, 8},
    {rowLitTexturedShade1Translucent, 8},
    {rowLitTexturedShade2, 8},
    {rowSpareA, 0},
    {rowSpareB, 16},
};

RowSettings settingsOf(const RowAndTexels& row)
{
    RowSettings settings = {.bitsPerTexel = row.bitsPerTexel, .faceColour = 0x1234, .diffuse = 0x1234};
    for (i32 i = 0; i < 3; ++i) settings.channelsOnTheLeft[i] = settings.channelsOnTheRight[i] = 100;
    return settings;
}

} // namespace

TEST_CASE("a polygon without spans writes nothing, whatever its row")
{
    for (const RowAndTexels& row : rowsWithSpans) {
        CAPTURE(row.row);
        RowScene scene(row.row, settingsOf(row), 16, square, SetUp::flat);
        for (i32 y = 0; y < 4; ++y) CHECK(scene.drawn({}, y, 0, 40) == text(Pixels(40, 0x7777)));
    }
}

TEST_CASE("a span of length 0 writes nothing, but the span after it is drawn, whatever the row")
{
    for (const RowAndTexels& row : rowsWithSpans) {
        CAPTURE(row.row);
        RowScene scene(row.row, settingsOf(row), 16, square, SetUp::flat);
        const std::string alone = scene.drawn({{6, 2, 1}}, 1, 0, 40);
        CHECK(alone != text(Pixels(40, 0x7777)));
        CHECK(scene.drawn({{3, 0, 1}, {6, 2, 1}}, 1, 0, 40) == alone);
        CHECK(scene.drawn({{3, 0, 2}, {6, 2, 1}}, 2, 0, 40) == text(Pixels(40, 0x7777)));
    }
}

TEST_CASE("the same spans in another order draw the same pixels where the values are exact")
{
    for (const RowAndTexels& row : rowsWithSpans) {
        CAPTURE(row.row);
        RowScene scene(row.row, settingsOf(row), 16, any, SetUp::flat);
        const std::string leftToRight = scene.drawn({{2, 3, 1}, {9, 4, 1}, {20, 1, 1}}, 1, 0, 40);
        CHECK(scene.drawn({{20, 1, 1}, {2, 3, 1}, {9, 4, 1}}, 1, 0, 40) == leftToRight);
    }
}

TEST_CASE("the fillers that blend or pack take a bitsPerPixel of 15 as 5-5-5 and anything else as 5-6-5")
{
    struct Line {
        RenderModeRow row;
        u32 bitsPerTexel;
        u16 destination;
        const char* pixel; // the first of the flat set-up in 5-6-5; another in 5-5-5
    };
    // From 0x66dd of the texture, 0x0a6d or 0x0a0a of the ramps, and the flat colour 0x7c21.
    const Line lines[] = {
        {rowFallbackBlend, 0, 0x0c63, "3c22"},
        {rowUnlitTranslucent, 0, 0x0c63, "3c22"},
        {rowUnlitTexturedTranslucent, 16, 0x2108, "43f2"},
        {rowUnlitTexturedShade2, 16, 0x4a52, "afff"},
        {rowUnlitTexturedShade10, 16, 0x4a52, "afff"},
        {rowUnlitTexturedShade11, 16, 0x4a52, "afff"},
        {rowLitTranslucent, 0, 0x2108, "1189"},
        {rowLitTexturedTranslucent, 8, 0x2108, "11aa"},
        {rowLitTexturedShade1Translucent, 8, 0x2108, "11aa"},
        {rowLitTexturedShade2, 8, 0x4a52, "449f"},
        {rowSpareA, 0, 0x7777, "083f"}, // red 8, green 4, blue 248
    };
    for (const Line& line : lines) {
        for (const i32 bitsPerPixel : {16, 24, 32, 8, 0, -15}) {
            CAPTURE(line.pixel);
            CAPTURE(bitsPerPixel);
            RowSettings settings = {.bitsPerTexel = line.bitsPerTexel, .destination = line.destination};
            settings.faceColour = settings.diffuse = 0x7c21;
            const f32 channels[] = {8, 4, 248};
            std::memcpy(settings.channelsOnTheLeft, channels, sizeof channels);
            std::memcpy(settings.channelsOnTheRight, channels, sizeof channels);
            RowScene scene(line.row, settings, bitsPerPixel, any, SetUp::flat);
            CHECK(scene.drawn({{0, 1, 0}}, 0, 0, 1) == line.pixel);
        }
    }
}

TEST_CASE("the tables of the colour-scaled texture take a bitsPerPixel of 16 as 5-6-5 and anything else as 5-5-5")
{
    // Full channels leave of 0xcc00 all but bit 15.
    for (const i32 bitsPerPixel : {15, 24, 32}) {
        const RowSettings settings = {
            .bitsPerTexel = 16, .channelsOnTheLeft = {255, 255, 255}, .channelsOnTheRight = {255, 255, 255}};
        RowScene scene(rowSpareB, settings, bitsPerPixel, any, SetUp::receding);
        CHECK(scene.drawn({{0, 1, 0}}, 0, 0, 1) == "4c00");
    }
}

TEST_CASE("the pixel format is read anew at every filler call")
{
    RowScene scene(rowUnlitTranslucent, {.destination = 0x0c63, .diffuse = 0x7c21}, 16, any, SetUp::flat);
    CHECK(scene.drawn({{0, 1, 0}}, 0, 0, 1) == "3c22");
    scene.host.context().bitsPerPixel = 15;
    CHECK(scene.drawn({{0, 1, 0}}, 0, 0, 1) == "4022");
}

// A 256 x 256 map of texels 0xYYXX, looked at in row 16 from column 254 on.
struct AcrossTheRightSide : RowScene {
    AcrossTheRightSide() : RowScene(rowUnlitTextured, {.bitsPerTexel = 16}, 16, square, SetUp::flat)
    {
        for (i32 y = 0; y < 256; ++y) {
            for (i32 x = 0; x < 256; ++x) texture.setTexel(x, y, static_cast<u32>(y * 256 + x));
        }
        for (i32 i = 0; i < 4; ++i) {
            polygon.texU[i] = (254.0f + (i < 2 ? 0.0f : 32.0f)) * 256;
            polygon.texV[i] = 16 * 256;
        }
    }
};

TEST_CASE("a map marked as 256 x 256 reads column 0 of the same row at column 256")
{
    AcrossTheRightSide scene;
    for (const u32 mark : {1u, 0x80000000u}) { // any value but 0
        scene.texture.image().is256x256 = mark;
        CHECK(scene.drawn({{0, 4, 0}}, 0, 0, 4) == "10fe 10ff 1000 1001");
    }
}

TEST_CASE("a 256 x 256 map without the mark reads column 0 of the next row at column 256")
{
    AcrossTheRightSide scene;
    scene.texture.image().is256x256 = 0;
    CHECK(scene.drawn({{0, 4, 0}}, 0, 0, 4) == "10fe 10ff 1100 1101");
}

TEST_CASE("a palettised map of an unlit polygon shows level 63, whatever the polygon's intensity")
{
    for (const f32 intensity : {0.0f, 5000.0f, -1.0f, 1e30f}) {
        RowScene scene(rowUnlitPalettised, {.bitsPerTexel = 8}, 16, square, SetUp::flat);
        for (f32& corner : scene.polygon.intensity) corner = intensity;
        CHECK(scene.drawn({{0, 4, 0}}, 0, 0, 4) == "3f6d 3f6d 3f5e 3f5f");
    }
}

TEST_CASE("a colour-keyed span whose texels all have the key's colour writes nothing")
{
    for (const Addressing addressing : {any, square}) {
        RowScene scene(rowUnlitTexturedShade1, {.bitsPerTexel = 16, .transparentColour = 0x1357}, 16, addressing,
                       SetUp::flat);
        const i32 size = addressing == square ? 256 : 16;
        for (i32 y = 0; y < size; ++y) {
            for (i32 x = 0; x < size; ++x) scene.texture.setTexel(x, y, 0x1357);
        }
        CHECK(scene.drawn({{0, 32, 1}}, 1, 0, 40) == text(Pixels(40, 0x7777)));
    }
}

TEST_CASE("the colour key compares all 16 bits of the texel")
{
    // 0x66dd is drawn although one bit more, bit 15 that 5-5-5 does not use, would make it the key.
    RowScene scene(rowUnlitTexturedShade1, {.bitsPerTexel = 16, .transparentColour = 0xe6dd}, 15, any, SetUp::flat);
    CHECK(scene.drawn({{0, 2, 1}}, 1, 0, 2) == "66dd 66dd");
}

TEST_CASE("a colour-keyed lit span compares the palette index, at every shade, and not the lit colour")
{
    // Index 5 is the key. The ramp gives it the colour of index 6, and index 7 the colour 0x0005.
    RowScene scene(rowLitTexturedShade1, {.bitsPerTexel = 8, .transparentIndex = 5, .transparentColour = 0x0006}, 16,
                   square, SetUp::flat);
    for (i32 y = 0; y < 256; ++y) {
        for (i32 x = 0; x < 256; ++x) scene.texture.setTexel(x, y, static_cast<u32>(x & 7));
    }
    for (size_t level = 0; level < 64; ++level) {
        scene.ramp[level * 256 + 5] = scene.ramp[level * 256 + 6];
        scene.ramp[level * 256 + 7] = 0x0005 << 16;
    }
    for (i32 i = 0; i < 4; ++i) scene.polygon.texU[i] = (i < 2 ? 4.0f : 36.0f) * 256;
    for (u32 level = 0; level < 64; ++level) {
        for (f32& intensity : scene.polygon.intensity) intensity = static_cast<f32>(level) * 256;
        const u16 four = static_cast<u16>(level * 256 + 4);
        const u16 six = static_cast<u16>(level * 256 + 6);
        CHECK(scene.drawn({{0, 4, 1}}, 1, 0, 4) == text({four, 0x7777, six, 0x0005}));
    }
}

TEST_CASE("palette index 0 is never drawn by the colour-keyed lit half blend, whatever transparentIndex says")
{
    for (const u8 index : {0, 5, 255}) {
        RowScene scene(rowLitTexturedShade1Translucent,
                       {.bitsPerTexel = 8, .destination = 0x2108, .transparentIndex = index, .texelThatIsZero = 0x5e},
                       16, any, SetUp::flat);
        CHECK(scene.drawn({{0, 4, 1}}, 1, 0, 4) == "11aa 11aa 2108 1233");
    }
}

TEST_CASE("palette index 0 is drawn by the lit half blend without a key")
{
    // Level 11 of index 0 is 0x0b00, of which the blend keeps 0x0300: (0x0300 + 0x2108) / 2.
    RowScene scene(rowLitTexturedTranslucent, {.bitsPerTexel = 8, .destination = 0x2108, .texelThatIsZero = 0x5e}, 16,
                   any, SetUp::flat);
    CHECK(scene.drawn({{0, 4, 1}}, 1, 0, 4) == "11aa 11aa 1204 1233");
}

TEST_CASE("palette index 0 is drawn by the colour-keyed lit texture unless transparentIndex is 0")
{
    const RowSettings five = {.bitsPerTexel = 8, .transparentIndex = 5, .texelThatIsZero = 0x5e};
    RowScene drawing(rowLitTexturedShade1, five, 16, any, SetUp::flat);
    CHECK(drawing.drawn({{0, 4, 1}}, 1, 0, 4) == "0a6d 0a6d 0b00 0b5f");
}

TEST_CASE("palette index 0 is left undrawn by the colour-keyed lit texture when transparentIndex is 0")
{
    const RowSettings zero = {.bitsPerTexel = 8, .transparentIndex = 0, .texelThatIsZero = 0x5e};
    RowScene scene(rowLitTexturedShade1, zero, 16, any, SetUp::flat);
    CHECK(scene.drawn({{0, 4, 1}}, 1, 0, 4) == "0a6d 0a6d 7777 0b5f");
}

TEST_CASE("a channel of the scaled texture that is the same on both sides draws one brightness")
{
    // Channel 128 of a white map: blue 31 x 128 / 255 = 15, green 63 x 128 / 255 = 31, red 15.
    const RowSettings settings = {
        .bitsPerTexel = 16, .channelsOnTheLeft = {128, 128, 128}, .channelsOnTheRight = {128, 128, 128}};
    RowScene scene(rowSpareB, settings, 16, any, SetUp::flat);
    for (i32 y = 0; y < 16; ++y) {
        for (i32 x = 0; x < 16; ++x) scene.texture.setTexel(x, y, 0xffff);
    }
    CHECK(scene.drawn({{0, 8, 1}}, 1, 0, 8) == "7bef 7bef 7bef 7bef 7bef 7bef 7bef 7bef");
}
