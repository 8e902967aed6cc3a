// The shade of lit textures beyond its 64 levels, and the two ways of addressing below them.
#include "host/pixel_format.h"
#include "raster/shaded_fills.h"
#include "tests/raster/filler_setup.h"

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

namespace {

// Palette indices as in the set-up `flat`, the shade in levels.
SpanGradients shaded(f32 level, f32 step)
{
    SpanGradients span = flat();
    span.shade = static_cast<i32>(level * 256);
    span.shadeStep = static_cast<i32>(step * 256);
    return span;
}

// 62.5 + 0.5 a pixel:  3e 3f 3f 00 00 01 01 02 | 02 03 03 04 04 05 05 06 | 06
SpanGradients rising()
{
    return shaded(62.5f, 0.5f);
}

// 1.5 - 0.5 a pixel:   01 01 00 00 3f 3f 3e 3e | 3d 3d 3c 3c 3b 3b 3a 3a | 39
SpanGradients falling()
{
    return shaded(1.5f, -0.5f);
}

constexpr TexturedSpans litTextures[] = {
    {.routines = litTexture, .bitsPerTexel = 8, .destination = 0x7777, .key = 0xff},
    {.routines = colourKeyedLitTexture, .bitsPerTexel = 8, .destination = 0x7777, .key = 0xff},
};
constexpr TexturedSpans halfBlends[] = {
    {.routines = litTextureHalfBlend, .bitsPerTexel = 8, .destination = 0x2108},
    {.routines = colourKeyedLitHalfBlend, .bitsPerTexel = 8, .destination = 0x2108},
};
constexpr TexturedSpans add = {.routines = litTextureAdd, .bitsPerTexel = 8, .destination = 0x4a52};

} // namespace

// The routines for square maps of the lit texture, its colour-keyed twin and the lit half blend would take eight bits
// of level and read past the ramp; they take six, like all others.
TEST_CASE("a shade of 64.0 or more wraps to level 0")
{
    // clang-format off
    for (const TexturedSpans& spans : litTextures) {
        checkTexturedSpans(spans, rising(), {
            {square, both,  "3e6d 3f6d 3f5e 005f 0040 0140 0131 0232 | 0223 0323 0314 0415 0406 0506 05f7 06f8 | 06e9"},
            {any,    both,  "3e6d 3f6d 3f5e 005f 0050 0150 0141 0242 | 0233 0333 0324 0425 0416 0516 0507 0608 | 06f9"},
        });
    }
    for (const TexturedSpans& spans : halfBlends) {
        checkTexturedSpans(spans, rising(), {
            {square, in565, "2baa 2c2a 2c33 10b3 10a4 1124 110c 118d | 1185 1205 120e 128e 1287 1307 136f 13f0 | 13e8"},
            {any,    in565, "2baa 2c2a 2c33 10b3 10ac 112c 1124 11a5 | 118d 120d 1206 1286 128f 130f 1307 1388 | 13f0"},
        });
    }
    checkTexturedSpans(add, rising(), {
        {square, in565, "7fff 7fff 7fff 42bf 4292 4392 437f 447f | 4455 4555 457f 467f 4658 4758 4fff 4fff | 4ffb"},
        {any,    in565, "7fff 7fff 7fff 42bf 42bf 43bf 4393 4494 | 447f 457f 4556 4657 467f 477f 4759 4ffa | 4fff"},
    });
    // clang-format on
}

TEST_CASE("a negative shade comes in from level 63")
{
    // clang-format off
    for (const TexturedSpans& spans : litTextures) {
        checkTexturedSpans(spans, falling(), {
            {square, both,  "016d 016d 005e 005f 3f40 3f40 3e31 3e32 | 3d23 3d23 3c14 3c15 3b06 3b06 3af7 3af8 | 39e9"},
            {any,    both,  "016d 016d 005e 005f 3f50 3f50 3e41 3e42 | 3d33 3d33 3c24 3c25 3b16 3b16 3a07 3a08 | 39f9"},
        });
    }
    for (const TexturedSpans& spans : halfBlends) {
        checkTexturedSpans(spans, falling(), {
            {square, in565, "112a 112a 10b3 10b3 2c24 2c24 2b8c 2b8d | 2b05 2b05 2a8e 2a8e 2a07 2a07 29ef 29f0 | 2968"},
            {any,    in565, "112a 112a 10b3 10b3 2c2c 2c2c 2ba4 2ba5 | 2b0d 2b0d 2a86 2a86 2a0f 2a0f 2987 2988 | 2970"},
        });
    }
    checkTexturedSpans(add, falling(), {
        {square, in565, "439f 439f 42bf 42bf 7ff2 7ff2 7fff 7fff | 7755 7755 767f 767f 7558 7558 753f 753f | 741b"},
        {any,    in565, "439f 439f 42bf 42bf 7fff 7fff 7ff3 7ff4 | 777f 777f 7656 7657 757f 757f 7459 745a | 743f"},
    });
    // clang-format on
}

TEST_CASE("a shade of 256.0 or more has the level of what is left of it")
{
    // 256 + 10, and far below 0: -1024 + 10. The pixels of the set-up `flat`.
    for (const f32 level : {266.0f, -1014.0f}) {
        // clang-format off
        checkTexturedSpans(litTextures[0], shaded(level, 0.5f), {
            {square, both, "0a6d 0a6d 0b5e 0b5f 0c40 0c40 0d31 0d32 | 0e23 0e23 0f14 0f15 1006 1006 11f7 11f8 | 12e9"},
        });
        // clang-format on
    }
}

TEST_CASE("the shade's sum wraps at 32 bits")
{
    // 0x7fffff80 + 0x80 is -2^31: level 63 (0x7fffff80 AND 0x3f00 is 0x3f00), then 0, 0, 1, 1, ...
    SpanGradients span = flat();
    span.step8.texU = span.step8.texV = 0;
    span.shade = 0x7fffff80;
    span.shadeStep = 0x80;
    checkTexturedSpans(
        litTextures[0], span,
        {{any, both, "3f6d 006d 006d 016d 016d 026d 026d 036d | 036d 046d 046d 056d 056d 066d 066d 076d | 076d"}});
}

TEST_CASE("a 256 x 256 lit texture looks the same addressed as a square and as any map, at every shade below 64.0")
{
    // Columns 100 to 116 of row 200: palette indices 0x84, 0x85, ... of the pattern. The shade stays 1/256 below the
    // next level, or exactly on its own.
    const TexturedSpanRoutines* const routines[] = {&litTexture, &colourKeyedLitTexture, &litTextureHalfBlend,
                                                    &colourKeyedLitHalfBlend, &litTextureAdd};
    const std::vector<RampEntry> ramp = markedTexturedRamp();
    MarkedTexture texture(8, square);
    for (i32 level = 0; level < 64; ++level) {
        for (const i32 fraction : {0, 255}) {
            SpanGradients span = flat();
            span.start.texU = 100 * 256;
            span.start.texV = 200 * 256;
            span.step8 = {.texU = 8 * 256};
            span.shade = level * 256 + fraction;
            span.shadeStep = 0;
            span.texture = &texture.image();
            span.ramp = ramp.data();
            span.key = 0x87;
            for (const TexturedSpanRoutines* both : routines) {
                for (const PixelFormat format : {rgb555, rgb565}) {
                    Pixels asSquare(17, 0x1234);
                    Pixels asAny(17, 0x1234);
                    SpanGradients record = span;
                    record.count = 17;
                    both->map256x256[format](&record, asSquare.data());
                    record = span;
                    record.count = 17;
                    both->anyMap[format](&record, asAny.data());
                    CHECK(text(asSquare) == text(asAny));
                    if (both == &litTexture) {
                        CHECK(asSquare[0] == level * 256 + 0x84);
                        CHECK(asSquare[3] == level * 256 + 0x87);
                    }
                }
            }
        }
    }
}
