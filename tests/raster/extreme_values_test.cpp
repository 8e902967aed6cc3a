// Depths, coordinates and shades that no valid polygon has: whatever they are, texels come from the map, colours from
// the ramp, and pixels go where the span lies.
//
// Maps and ramps hold one value everywhere, so that a pixel tells whether it came from there; they lie in blocks of
// their own, which the sanitizers watch.
#include "host/pixel_format.h"
#include "raster/colour_fills.h"
#include "raster/colour_tables.h"
#include "raster/shaded_fills.h"
#include "raster/unlit_textures.h"
#include "tests/raster/row_setup.h"

#include <algorithm>
#include <limits>

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;

namespace {

constexpr f32 infinity = std::numeric_limits<f32>::infinity();
constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();
constexpr f32 largest = std::numeric_limits<f32>::max();
constexpr f32 smallest = std::numeric_limits<f32>::denorm_min();
constexpr i32 smallestInteger = std::numeric_limits<i32>::min();
constexpr i32 largestInteger = std::numeric_limits<i32>::max();

constexpr f32 depths[] = {0, -0.0f, 1, -1, smallest, largest, infinity, -infinity, notANumber};
constexpr f32 values[] = {0, 1e6f, -1e6f, 3e9f, -5e9f, 1e12f, largest, -largest, infinity, -infinity, notANumber};
constexpr f32 steps[] = {0, -3e9f, largest, -infinity, notANumber};

struct RoutineSet {
    const TexturedSpanRoutines& routines;
    u32 bitsPerTexel;
    u16 overBlack; // what the colour 0x1234 makes of black: itself, half of 0x1214, or 0x1214 (bit 5 masked out)
};

const RoutineSet everyTexturedRoutine[] = {
    {textureCopy, 16, 0x1234},
    {palettisedCopy, 8, 0x1234},
    {colourKeyedCopy, 16, 0x1234},
    {textureHalfBlend, 16, 0x090a},
    {textureAdd, 16, 0x1214},
    {wholeOutlineAdd, 16, 0x1214},
    {litTexture, 8, 0x1234},
    {colourKeyedLitTexture, 8, 0x1234},
    {litTextureHalfBlend, 8, 0x090a},
    {litTextureAdd, 8, 0x1214},
    {colourKeyedLitHalfBlend, 8, 0x090a},
    {colourScaledTexture, 16, 0x1234},
};

constexpr u32 key = 0xffff; // no texel has it

// Tables whose every sum is 0x1234.
void makeScalingConstant()
{
    std::fill_n(colourScaleTables.redScale, 65536, 0x1000u);
    std::fill_n(colourScaleTables.greenScale, 65536, 0x0200u);
    std::fill_n(colourScaleTables.blueScale, 65536, 0x0034u);
}

// 17 pixels over black, with a pixel of fence on either side.
bool drawsOnly(SpanGradients span, SpanRoutine routine, u16 colour)
{
    Pixels row(19, 0);
    row.front() = row.back() = 0xfe0c;
    span.count = 17;
    routine(&span, &row[1]);
    return row.front() == 0xfe0c && row.back() == 0xfe0c
           && std::all_of(row.begin() + 1, row.end() - 1, [colour](u16 pixel) { return pixel == colour; });
}

// A record whose values mix what an interpolant may be.
SpanGradients extremeRecord(f32 depth, f32 depthStep, f32 value, f32 step)
{
    SpanGradients span = flat();
    span.start = {depth, value, step, value, value, step, value};
    span.step = {depthStep, step, step, step, step, value, value};
    span.step8 = {depthStep, step, value, step, step, value, value};
    return span;
}

} // namespace

TEST_CASE("no depth and no coordinate makes a textured span read outside its map or its ramp")
{
    makeScalingConstant();
    const std::vector<RampEntry> ramp(64 * 256, 0x12340000);
    for (const RoutineSet& set : everyTexturedRoutine) {
        for (const Addressing addressing : {any, square}) {
            const i32 size = addressing == square ? 256 : 16;
            TestTexture texture(set.bitsPerTexel, size, size, addressing == square);
            for (i32 y = 0; y < size; ++y) {
                for (i32 x = 0; x < size; ++x) texture.setTexel(x, y, 0x1234);
            }
            i32 wrong = 0;
            for (const PixelFormat format : {rgb555, rgb565}) {
                const SpanRoutine routine = set.routines.choose(texture.image(), format);
                for (const f32 depth : depths) {
                    for (const f32 depthStep : steps) {
                        for (const f32 value : values) {
                            for (const f32 step : steps) {
                                SpanGradients span = extremeRecord(depth, depthStep, value, step);
                                span.texture = &texture.image();
                                span.ramp = ramp.data();
                                span.key = key;
                                wrong += !drawsOnly(span, routine, set.overBlack);
                            }
                        }
                    }
                }
            }
            CHECK(wrong == 0);
        }
    }
    buildColourScaleTables(rgb565);
}

TEST_CASE("no shade makes a lit span read outside its ramp")
{
    const std::vector<RampEntry> ramp(64 * 256, 0x12340000);
    const i32 shades[] = {0, -1, 0x3fff, 0x4000, 0xff00, 0x10000, largestInteger, smallestInteger};
    const i32 shadeSteps[] = {0, 1, -1, 0x4000, -0x7fff, largestInteger, smallestInteger};
    for (const RoutineSet& set : everyTexturedRoutine) {
        if (set.bitsPerTexel != 8) continue;
        for (const Addressing addressing : {any, square}) {
            // The last palette index, so that one level too many would lie past the end.
            const i32 size = addressing == square ? 256 : 16;
            TestTexture texture(8, size, size, addressing == square);
            for (i32 y = 0; y < size; ++y) {
                for (i32 x = 0; x < size; ++x) texture.setTexel(x, y, 255);
            }
            for (const i32 shade : shades) {
                for (const i32 shadeStep : shadeSteps) {
                    SpanGradients span = flat();
                    span.texture = &texture.image();
                    span.ramp = ramp.data();
                    span.key = key;
                    span.shade = shade;
                    span.shadeStep = shadeStep;
                    for (const PixelFormat format : {rgb555, rgb565}) {
                        CHECK(drawsOnly(span, set.routines.choose(texture.image(), format), set.overBlack));
                    }
                }
            }
        }
    }
}

TEST_CASE("no depth and no shade makes an untextured span read outside its ramp of 64 entries")
{
    const std::vector<RampEntry> ramp(64, 0x12340000);
    for (const f32 depth : depths) {
        for (const f32 depthStep : steps) {
            for (const f32 value : values) {
                for (const f32 step : steps) {
                    SpanGradients span = extremeRecord(depth, depthStep, value, step);
                    span.ramp = ramp.data();
                    const bool right = drawsOnly(span, shadedCopy[rgb565], 0x1234)
                                       && drawsOnly(span, shadedHalfBlend[rgb555], 0x090a)
                                       && drawsOnly(span, shadedHalfBlend[rgb565], 0x090a);
                    CHECK(right);
                }
            }
        }
    }
}

TEST_CASE("where depth is 0, infinite or not a number the first texel is drawn")
{
    // 1 / 0 is infinite, and so is a coordinate times it; what does not fit in 32 bits truncates to -2^31, whose column
    // is 0 in any map, and rounds to the low 32 bits of an infinity, which are 0. A coordinate over an infinite depth
    // is 0.
    const TexturedSpans rounding = {.routines = textureCopy, .bitsPerTexel = 16, .destination = 0x7777};
    const TexturedSpans truncating = {.routines = palettisedCopy, .bitsPerTexel = 8, .destination = 0x7777};
    for (const f32 depth : {0.0f, infinity, -infinity, notANumber}) {
        SpanGradients span = flat();
        span.start.invDepth = depth;
        const Format both = Format::both;
        // clang-format off
        checkTexturedSpans(rounding, span, {
            {square, both, "0000 0000 0000 0000 0000 0000 0000 0000 | 0000 0000 0000 0000 0000 0000 0000 0000 | 0000"},
            {any,    both, "0000 0000 0000 0000 0000 0000 0000 0000 | 0000 0000 0000 0000 0000 0000 0000 0000 | 0000"},
        });
        checkTexturedSpans(truncating, span, {
            {square, both, "3f00 3f00 3f00 3f00 3f00 3f00 3f00 3f00 | 3f00 3f00 3f00 3f00 3f00 3f00 3f00 3f00 | 3f00"},
            {any,    both, "3f00 3f00 3f00 3f00 3f00 3f00 3f00 3f00 | 3f00 3f00 3f00 3f00 3f00 3f00 3f00 3f00 | 3f00"},
        });
        // clang-format on
    }
}

TEST_CASE("channels that are infinite or no numbers truncate to -2^31, which is black")
{
    // -2^31 has no bits in any field; the steps, -2^31 as well, come and go.
    SpanGradients span = flat();
    for (const f32 value : {infinity, -infinity, notANumber, 1e30f}) {
        span.start.colourR = span.start.colourG = span.start.colourB = value;
        span.step.colourR = span.step.colourG = span.step.colourB = value;
        CHECK(drawsOnly(span, gouraudColour[rgb555], 0));
        CHECK(drawsOnly(span, gouraudColour[rgb565], 0));
    }
}

TEST_CASE("no vertex makes a filler write beside its spans")
{
    // Every row of the table, each array of the polygon in turn spoilt at one vertex or at all of them.
    f32(ScreenPolygon::*const arrays[])[maxCorners] = {
        &ScreenPolygon::screenX,   &ScreenPolygon::invDepth, &ScreenPolygon::texU,    &ScreenPolygon::texV,
        &ScreenPolygon::intensity, &ScreenPolygon::colourR,  &ScreenPolygon::colourG, &ScreenPolygon::colourB};
    const u32 bitsPerTexel[renderModeRowCount] = {0, 0, 0, 16, 16, 0, 16, 16, 16, 16, 8, 0, 8, 8, 0, 8, 8, 8, 0, 16};
    for (u32 row = 0; row < renderModeRowCount; ++row) {
        CAPTURE(row);
        const RowSettings settings = {.bitsPerTexel = bitsPerTexel[row]};
        RowScene scene(static_cast<RenderModeRow>(row), settings, 16, square, SetUp::receding);
        const bool fillsOutline = row == rowUnlitTexturedShade10;
        drawnRectangle = {0, 1, 9, 2};
        const ScreenPolygon polygon = scene.polygon;
        for (const auto array : arrays) {
            for (const f32 value : values) {
                for (const i32 corner : {0, 2, -1}) {
                    scene.polygon = polygon;
                    for (i32 i = 0; i < 4; ++i) {
                        if (corner == -1 || corner == i) (scene.polygon.*array)[i] = value;
                    }
                    CHECK(scene.drawn({{6, 3, 1}, {0, 2, 1}}, 0, 0, 40) == text(Pixels(40, 0x7777)));
                    CHECK(scene.drawn({{6, 3, 1}, {0, 2, 1}}, 1, 9, 40) == text(Pixels(31, 0x7777)));
                    if (fillsOutline) continue;
                    CHECK(scene.drawn({{6, 3, 1}, {0, 2, 1}}, 1, 2, 6) == text(Pixels(4, 0x7777)));
                }
            }
        }
    }
}
