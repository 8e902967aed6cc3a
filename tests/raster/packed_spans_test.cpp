// The packed inner routines beside the plain ones, which define the pixels.
#include "raster/colour_fills.h"
#include "raster/colour_tables.h"
#include "raster/shaded_fills.h"
#include "raster/unlit_textures.h"
#include "tests/raster/random_spans.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <deque>
#include <string>

using namespace kardeno;
using namespace kardeno::tests;
using scenes::RandomNumbers;

namespace {

struct TexturedTwins {
    const char* name;
    const TexturedSpanRoutines& plain;
    const TexturedSpanRoutines& packed;
    u32 bitsPerTexel;
};

const TexturedTwins everyTexturedRoutine[] = {
    {"textureCopy", plainTextureCopy, textureCopy, 16},
    {"palettisedCopy", plainPalettisedCopy, palettisedCopy, 8},
    {"colourKeyedCopy", plainColourKeyedCopy, colourKeyedCopy, 16},
    {"textureHalfBlend", plainTextureHalfBlend, textureHalfBlend, 16},
    {"textureAdd", plainTextureAdd, textureAdd, 16},
    {"wholeOutlineAdd", plainWholeOutlineAdd, wholeOutlineAdd, 16},
    {"litTexture", plainLitTexture, litTexture, 8},
    {"colourKeyedLitTexture", plainColourKeyedLitTexture, colourKeyedLitTexture, 8},
    {"litTextureHalfBlend", plainLitTextureHalfBlend, litTextureHalfBlend, 8},
    {"colourKeyedLitHalfBlend", plainColourKeyedLitHalfBlend, colourKeyedLitHalfBlend, 8},
    {"litTextureAdd", plainLitTextureAdd, litTextureAdd, 8},
    {"colourScaledTexture", plainColourScaledTexture, colourScaledTexture, 16},
};

struct PlainTwins {
    const char* name;
    const PlainSpanRoutines& plain;
    const PlainSpanRoutines& packed;
};

const PlainTwins everyUntexturedRoutine[] = {
    {"shadedCopy", plainShadedCopy, shadedCopy},
    {"shadedHalfBlend", plainShadedHalfBlend, shadedHalfBlend},
    {"gouraudColour", plainGouraudColour, gouraudColour},
};

// Maps of 256 x 256, small, wide, high and of more texels than 16 bits can count.
std::deque<TestTexture> randomTextures()
{
    std::deque<TestTexture> textures;
    for (const u32 bits : {8u, 16u}) {
        for (const bool fewValues : {false, true}) {
            textures.push_back(randomTexture(bits, 256, 256, true, fewValues));
            textures.push_back(randomTexture(bits, 256, 256, false, fewValues));
            textures.push_back(randomTexture(bits, 1, 1, false, fewValues));
            textures.push_back(randomTexture(bits, 16, 16, false, fewValues));
            textures.push_back(randomTexture(bits, 512, 8, false, fewValues));
            textures.push_back(randomTexture(bits, 4, 256, false, fewValues));
            textures.push_back(randomTexture(bits, 1024, 128, false, fewValues));
        }
    }
    return textures;
}

// Seeds that let every length meet every alignment of the first pixel.
constexpr u32 lengths = longestSpan + 1;
constexpr u32 alignments = 8;

void checkTextured(SpanGradients (&makeSpan)(RandomNumbers&))
{
    std::deque<TestTexture> textures = randomTextures();
    const std::vector<RampEntry> ramp = randomRamp();
    for (const PixelFormat format : {rgb555, rgb565}) {
        buildColourScaleTables(format);
        forEachSeed(lengths * alignments, [&](u32 seed) {
            RandomNumbers random(seed);
            SpanGradients span = makeSpan(random);
            span.count = static_cast<i32>(seed % lengths);
            const i32 begin = static_cast<i32>(seed / lengths % alignments);
            const RandomRow before(random);
            for (const TexturedTwins& twins : everyTexturedRoutine) {
                for (TestTexture& texture : textures) {
                    if (texture.image().bitsPerTexel != twins.bitsPerTexel) continue;
                    span.texture = &texture.image();
                    span.ramp = ramp.data();
                    const std::string wrong =
                        difference(twins.plain.choose(texture.image(), format),
                                   twins.packed.choose(texture.image(), format), span, begin, before);
                    if (wrong.empty()) continue;
                    CAPTURE(twins.name);
                    CAPTURE(format);
                    CAPTURE(texture.image().width);
                    CAPTURE(texture.image().is256x256);
                    CHECK(wrong == "");
                }
            }
        });
    }
    buildColourScaleTables(rgb565);
}

void checkUntextured(SpanGradients (&makeSpan)(RandomNumbers&))
{
    const std::vector<RampEntry> ramp = randomRamp();
    for (const PixelFormat format : {rgb555, rgb565}) {
        forEachSeed(lengths * alignments * 4, [&](u32 seed) {
            RandomNumbers random(seed);
            SpanGradients span = makeSpan(random);
            span.ramp = ramp.data();
            span.count = static_cast<i32>(seed % lengths);
            const i32 begin = static_cast<i32>(seed / lengths % alignments);
            const RandomRow before(random);
            for (const PlainTwins& twins : everyUntexturedRoutine) {
                CAPTURE(twins.name);
                CAPTURE(format);
                CHECK(difference(twins.plain[format], twins.packed[format], span, begin, before) == "");
            }
        });
    }
}

} // namespace

TEST_CASE("packed textured spans of any length and alignment leave the pixels and the count of the plain ones")
{
    checkTextured(ordinarySpan);
}

TEST_CASE("packed textured spans have the plain ones' pixels for infinities, for no numbers and beyond 32 bits")
{
    checkTextured(extremeSpan);
}

TEST_CASE("packed untextured spans of any length and alignment leave the pixels and the count of the plain ones")
{
    checkUntextured(ordinarySpan);
}

TEST_CASE("packed untextured spans have the plain ones' pixels for infinities, for no numbers and beyond 32 bits")
{
    checkUntextured(extremeSpan);
}
