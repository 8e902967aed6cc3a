// The entries of both ramps, worked out by hand. Everything is 32-bit integers: shifts round down, divisions toward
// zero.
#include "host/render_modes.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A material in state 1 with its ramp. Its pixels are the upper halves of the entries; the lower halves are 0.
struct Ramp {
    TestHost host;
    TestScene scene{host};
    TestTexture texture{8, 4, 4};
    TestMaterial& material = scene.bareMaterial();

    explicit Ramp(i32 bitsPerPixel = 16) : host(bitsPerPixel) {}

    void build(bool textured = false)
    {
        material.textureMap = textured ? &texture.map : nullptr;
        REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
        REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
    }

    u32 pixel(u32 entry) const
    {
        const RampEntry value = material.renderPrivate->shadeRamp[entry];
        CHECK((value & 0xffff) == 0);
        return value >> 16;
    }
};

MaterialColour colour(u8 red, u8 green, u8 blue)
{
    return {red, green, blue, 0x99, 0x9999}; // the last two fields take no part
}

// Channels packed as 5-6-5 and 5-5-5 fields.
constexpr u32 rgb565Of(u32 red, u32 green, u32 blue)
{
    return red << 11 | green << 5 | blue;
}
constexpr u32 rgb555Of(u32 red, u32 green, u32 blue)
{
    return red << 10 | green << 5 | blue;
}

void setColours(TestMaterial& material)
{
    material.ambientColour = colour(8, 16, 24);
    material.diffuseColour = colour(200, 100, 50);
    material.specularColour = colour(255, 128, 64);
    material.tintColour = colour(255, 255, 128);
    // The highlight: 50 x 28 / 100 = 14 narrower than 32, so levels 46 to 63; 80 x 256 / 1800 = 11 a level.
    material.shininess = 50;
    material.specularLevel = 80;
}

// A black material whose ramp shows the highlight alone: what the specular white adds.
void setHighlightAlone(TestMaterial& material, i32 shininess, i32 specularLevel)
{
    material.specularColour = colour(255, 255, 255);
    material.shininess = shininess;
    material.specularLevel = specularLevel;
}

constexpr u32 grey(u32 channel)
{
    return rgb565Of(channel >> 3, channel >> 2, channel >> 3);
}

} // namespace

TEST_CASE("a plain ramp starts with a quarter of the ambient colour")
{
    Ramp ramp;
    setColours(ramp.material);
    ramp.build();
    CHECK(ramp.pixel(0) == rgb565Of(2 >> 3, 4 >> 2, 6 >> 3));
}

TEST_CASE("a plain ramp below its highlight: diffuse times tint grows with the level, the ambient colour is added")
{
    Ramp ramp;
    setColours(ramp.material);
    ramp.build();
    // Level 45, the last without a highlight:
    //   red    45 x 200 x 255 x 3 = 6,885,000 >> 14 = 420; (420 + 8) >> 2 = 107
    //   green  45 x 100 x 255 x 3 = 3,442,500 >> 14 = 210; (210 + 16) >> 2 = 56
    //   blue   45 x  50 x 128 x 3 =   864,000 >> 14 =  52; (52 + 24) >> 2 = 19
    CHECK(ramp.pixel(45) == rgb565Of(107 >> 3, 56 >> 2, 19 >> 3));
}

TEST_CASE("the ambient colour is added before the sum is divided by 4")
{
    Ramp ramp;
    ramp.material.ambientColour = colour(2, 2, 2);
    ramp.material.diffuseColour = ramp.material.tintColour = colour(255, 255, 255);
    ramp.build();
    // 63 x 255 x 255 x 3 >> 14 = 750; (750 + 2) >> 2 = 188, while 750 >> 2 = 187 and 2 >> 2 = 0.
    CHECK(ramp.pixel(63) == grey(188));
}

TEST_CASE("a plain ramp's highlight adds nothing at its first level, then a step a level, and is clamped at 255")
{
    Ramp ramp;
    setColours(ramp.material);
    ramp.build();
    // Level 46, the first of the highlight: red 7,038,000 >> 14 = 429, 437 >> 2 = 109; green 3,519,000 >> 14 = 214,
    // 230 >> 2 = 57; blue 883,200 >> 14 = 53, 77 >> 2 = 19.
    CHECK(ramp.pixel(46) == rgb565Of(109 >> 3, 57 >> 2, 19 >> 3));
    // Level 47: red 446 >> 2 = 111 plus (11 x 255) >> 8 = 10; green 235 >> 2 = 58 plus (11 x 128) >> 8 = 5;
    // blue 79 >> 2 = 19 plus (11 x 64) >> 8 = 2.
    CHECK(ramp.pixel(47) == rgb565Of(121 >> 3, 63 >> 2, 21 >> 3));
    // Level 63, 17 x 11 = 187: red 596 >> 2 = 149 plus 186 = 335; green 310 >> 2 = 77 plus 93 = 170;
    // blue 97 >> 2 = 24 plus 46 = 70.
    CHECK(ramp.pixel(63) == rgb565Of(255 >> 3, 170 >> 2, 70 >> 3));
}

TEST_CASE("with 15 bits per pixel, and with anything but 16, the plain ramp is packed as 5-5-5")
{
    for (const i32 bitsPerPixel : {15, 24, 0}) {
        CAPTURE(bitsPerPixel);
        Ramp ramp(bitsPerPixel);
        setColours(ramp.material);
        ramp.build();
        CHECK(ramp.pixel(45) == rgb555Of(107 >> 3, 56 >> 3, 19 >> 3));
        CHECK(ramp.pixel(63) == rgb555Of(255 >> 3, 170 >> 3, 70 >> 3));
    }
}

TEST_CASE("with shininess 0 the highlight spans the upper 32 levels, with 100 the upper 4")
{
    {
        Ramp ramp;
        setHighlightAlone(ramp.material, 0, 400); // 400 x 256 / 3200 = 32 a level
        ramp.build();
        for (u32 level = 0; level <= 32; ++level) CHECK(ramp.pixel(level) == 0); // the first one adds 0 times the step
        CHECK(ramp.pixel(33) == grey(31));                                       // 32 x 255 >> 8
        CHECK(ramp.pixel(34) == grey(63));
        CHECK(ramp.pixel(41) == grey(255)); // 9 x 32 x 255 >> 8 = 286
        CHECK(ramp.pixel(63) == grey(255));
    }
    {
        Ramp ramp;
        setHighlightAlone(ramp.material, 100, 100); // 100 x 256 / 400 = 64 a level
        ramp.build();
        for (u32 level = 0; level <= 60; ++level) CHECK(ramp.pixel(level) == 0);
        CHECK(ramp.pixel(61) == grey(63));
        CHECK(ramp.pixel(62) == grey(127));
        CHECK(ramp.pixel(63) == grey(191));
    }
}

TEST_CASE("the highlight's width and step are truncated")
{
    Ramp ramp;
    // 99 x 28 / 100 = 27: five levels from 59 on; 70 x 256 / 500 = 35 a level.
    setHighlightAlone(ramp.material, 99, 70);
    ramp.build();
    CHECK(ramp.pixel(59) == 0);
    CHECK(ramp.pixel(60) == grey(34));  // 35 x 255 >> 8
    CHECK(ramp.pixel(63) == grey(139)); // 140 x 255 >> 8
}

TEST_CASE("shininess 114 leaves one highlight level, which adds nothing; 115 and more leave none")
{
    for (const i32 shininess : {114, 115, 116, 150, 1000, 2000000}) {
        CAPTURE(shininess);
        Ramp ramp;
        setColours(ramp.material);
        ramp.material.shininess = shininess;
        ramp.material.specularLevel = 1000000;
        ramp.build();
        CHECK(ramp.pixel(45) == rgb565Of(107 >> 3, 56 >> 2, 19 >> 3));
        CHECK(ramp.pixel(63) == rgb565Of(149 >> 3, 77 >> 2, 24 >> 3)); // without the highlight's share
    }
}

TEST_CASE("a negative shininess widens the highlight downward; levels below 0 are not written")
{
    {
        Ramp ramp;
        setHighlightAlone(ramp.material, -100, 100); // 60 levels from 4 on; 25,600 / 6000 = 4 a level
        ramp.build();
        CHECK(ramp.pixel(4) == 0);
        CHECK(ramp.pixel(5) == grey(3));    // 4 x 255 >> 8: red and blue too dark to show, green not
        CHECK(ramp.pixel(63) == grey(235)); // 59 x 4 x 255 >> 8
    }
    {
        Ramp ramp;
        // 32 + 56 = 88 levels, from -24 on; 25,600 / 8800 = 2 a level. Memory before the ramp stays as it is, or the
        // sanitizers object.
        setHighlightAlone(ramp.material, -200, 100);
        ramp.build();
        CHECK(ramp.pixel(0) == grey(47));   // 24 x 2 x 255 >> 8
        CHECK(ramp.pixel(63) == grey(173)); // 87 x 2 x 255 >> 8
    }
}

TEST_CASE("a shininess of -1 is as 0: -28 / 100 truncates toward zero")
{
    Ramp ramp;
    setHighlightAlone(ramp.material, -1, 400);
    ramp.build();
    CHECK(ramp.pixel(32) == 0);
    CHECK(ramp.pixel(33) == grey(31));
}

TEST_CASE("a negative specular level darkens, its shift rounding down, and is clamped at 0")
{
    Ramp ramp;
    setHighlightAlone(ramp.material, 0, -100); // -25,600 / 3200 = -8 a level
    ramp.material.ambientColour = colour(252, 252, 252);
    ramp.build();
    CHECK(ramp.pixel(32) == grey(63));
    CHECK(ramp.pixel(33) == grey(55)); // -2040 >> 8 = -8
    CHECK(ramp.pixel(39) == grey(7));  // 7 x -2040 >> 8 = -56
    CHECK(ramp.pixel(40) == grey(0));  // 63 - 64
    CHECK(ramp.pixel(63) == grey(0));
}

TEST_CASE("a specular level whose product with 256 passes 32 bits wraps")
{
    Ramp ramp;
    setHighlightAlone(ramp.material, 0, 16777216 + 400); // (2^24 + 400) x 256 wraps to 102,400: 32 a level
    ramp.build();
    CHECK(ramp.pixel(33) == grey(31));
}

TEST_CASE("a textured ramp: tint times level, times the palette, at level x 256 + index")
{
    Ramp ramp;
    setColours(ramp.material);
    ramp.material.tintColour = colour(255, 128, 64);
    ramp.texture.setPalette(7, 200, 100, 50);
    ramp.texture.setPalette(255, 8, 4, 8);
    ramp.build(true);

    CHECK(ramp.pixel(0 * 256 + 7) == 0); // the ambient colour has no part in it
    // Level 10: red (10 x 255 >> 8 = 9) x 200 >> 6 = 28; green (5) x 100 >> 6 = 7; blue (2) x 50 >> 6 = 1.
    CHECK(ramp.pixel(10 * 256 + 7) == rgb565Of(28 >> 3, 7 >> 2, 1 >> 3));
    // Level 45: red (44) x 200 >> 6 = 137; green (22) x 100 >> 6 = 34; blue (11) x 50 >> 6 = 8.
    CHECK(ramp.pixel(45 * 256 + 7) == rgb565Of(137 >> 3, 34 >> 2, 8 >> 3));
    CHECK(ramp.pixel(45 * 256 + 6) == 0);
    CHECK(ramp.pixel(45 * 256 + 255) == rgb565Of(5 >> 3, 1 >> 2, 1 >> 3)); // 352 >> 6, 88 >> 6, 88 >> 6
}

TEST_CASE("a textured ramp's highlight adds to every palette entry, black ones too")
{
    Ramp ramp;
    setColours(ramp.material);
    ramp.material.tintColour = colour(255, 128, 64);
    ramp.texture.setPalette(7, 200, 100, 50);
    ramp.build(true);

    // Level 46 adds nothing: red (45) x 200 >> 6 = 140; green (23) x 100 >> 6 = 35; blue (11) x 50 >> 6 = 8.
    CHECK(ramp.pixel(46 * 256 + 7) == rgb565Of(140 >> 3, 35 >> 2, 8 >> 3));
    CHECK(ramp.pixel(46 * 256) == 0);
    // Level 47: red (46) x 200 >> 6 = 143 plus 10; green (23) x 100 >> 6 = 35 plus 5; blue (11) x 50 >> 6 = 8 plus 2.
    CHECK(ramp.pixel(47 * 256 + 7) == rgb565Of(153 >> 3, 40 >> 2, 10 >> 3));
    CHECK(ramp.pixel(47 * 256) == rgb565Of(10 >> 3, 5 >> 2, 2 >> 3));
    // Level 63: red (62) x 200 >> 6 = 193 plus 186 = 379; green (31) x 100 >> 6 = 48 plus 93; blue (15) x 50 >> 6 = 11
    // plus 46.
    CHECK(ramp.pixel(63 * 256 + 7) == rgb565Of(255 >> 3, 141 >> 2, 57 >> 3));
    CHECK(ramp.pixel(63 * 256) == rgb565Of(186 >> 3, 93 >> 2, 46 >> 3));
}

TEST_CASE("with 15 bits per pixel the textured ramp is packed as 5-5-5")
{
    Ramp ramp(15);
    setColours(ramp.material);
    ramp.material.tintColour = colour(255, 128, 64);
    ramp.texture.setPalette(7, 200, 100, 50);
    ramp.build(true);
    CHECK(ramp.pixel(45 * 256 + 7) == rgb555Of(137 >> 3, 34 >> 3, 8 >> 3));
    CHECK(ramp.pixel(63 * 256 + 7) == rgb555Of(255 >> 3, 141 >> 3, 57 >> 3));
}

TEST_CASE("a textured ramp of shininess 115 has no highlight, one of -200 has it from level 0 on")
{
    {
        Ramp ramp;
        setHighlightAlone(ramp.material, 115, 1000);
        ramp.build(true);
        CHECK(ramp.pixel(63 * 256) == 0);
    }
    {
        Ramp ramp;
        setHighlightAlone(ramp.material, -200, 100);
        ramp.build(true);
        CHECK(ramp.pixel(0) == grey(47));
        CHECK(ramp.pixel(63 * 256 + 255) == grey(173));
    }
}

TEST_CASE("ambient and diffuse colours do not enter the textured ramp, the palette's fourth byte enters nothing")
{
    Ramp ramp;
    setColours(ramp.material);
    u8 palette[1024];
    for (u32 i = 0; i < 1024; ++i) palette[i] = static_cast<u8>(i * 37);
    ramp.texture.map.palette = palette;
    ramp.build(true);
    const RampEntry* const entries = ramp.material.renderPrivate->shadeRamp;
    const std::vector<RampEntry> before(entries, entries + 16384);

    ramp.material.ambientColour = colour(255, 255, 255);
    ramp.material.diffuseColour = colour(1, 2, 3);
    for (u32 i = 3; i < 1024; i += 4) palette[i] = 0;
    Kardeno_Update_Material_Dll(&ramp.material);
    CHECK(std::vector<RampEntry>(entries, entries + 16384) == before);
}

TEST_CASE("the palette is read as blue, green, red")
{
    Ramp ramp;
    ramp.material.tintColour = colour(255, 255, 255);
    u8 palette[1024] = {};
    palette[4 * 3] = 255;     // blue of entry 3
    palette[4 * 4 + 1] = 255; // green of entry 4
    palette[4 * 5 + 2] = 255; // red of entry 5
    ramp.texture.map.palette = palette;
    ramp.build(true);
    // (63 x 255 >> 8 = 62) x 255 >> 6 = 247
    CHECK(ramp.pixel(63 * 256 + 3) == rgb565Of(0, 0, 247 >> 3));
    CHECK(ramp.pixel(63 * 256 + 4) == rgb565Of(0, 247 >> 2, 0));
    CHECK(ramp.pixel(63 * 256 + 5) == rgb565Of(247 >> 3, 0, 0));
}
