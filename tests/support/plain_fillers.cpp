#include "tests/support/plain_fillers.h"

#include "host/host_context.h"
#include "raster/colour_fills.h"
#include "raster/interpolated_fills.h"
#include "raster/pixel_blends.h"
#include "raster/shaded_fills.h"
#include "raster/span_walk.h"
#include "raster/unlit_textures.h"

#include <algorithm>

namespace kardeno::tests {

namespace {

template <class Blend>
void drawPlainly(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour)
{
    forEachSpan(polygon, [&](const Span& span) {
        u16* const pixels = pixelAt(frameBuffer, pitch, span.x, span.y);
        for (i32 i = 0; i < span.length; ++i) pixels[i] = Blend::over(pixels[i], colour);
    });
}

void blendPlainly(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour)
{
    if (fillerFormat(*hostContext) == rgb555)
        drawPlainly<HalfBlend<rgb555>>(polygon, frameBuffer, pitch, colour);
    else
        drawPlainly<HalfBlend<rgb565>>(polygon, frameBuffer, pitch, colour);
}

void faceColourLowByte(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    const u16 colour = static_cast<u16>((polygon->faceColour & 0xff) * 0x101);
    drawPlainly<Replace>(*polygon, frameBuffer, pitch, colour);
}

void faceColourBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    blendPlainly(*polygon, frameBuffer, pitch, polygon->faceColour);
}

void diffuse(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    drawPlainly<Replace>(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed);
}

void diffuseBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    blendPlainly(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed);
}

template <class Format, const TexturedSpanRoutines& routines>
constexpr FillRoutine spans = TexturedSpans<routines>::template fill<Format>;

FillRoutine plainFillerOf(RenderModeRow row)
{
    switch (row) {
    case rowFallbackFlat: return faceColourLowByte;
    case rowFallbackBlend: return faceColourBlend;
    case rowUnlitPlain: return diffuse;
    case rowUnlitTextured: return spans<Textured, plainTextureCopy>;
    case rowUnlitTexturedShade1: return spans<Textured, plainColourKeyedCopy>;
    case rowUnlitTranslucent: return diffuseBlend;
    case rowUnlitTexturedTranslucent: return spans<Textured, plainTextureHalfBlend>;
    case rowUnlitTexturedShade2: return spans<Textured, plainTextureAdd>;
    case rowUnlitTexturedShade10: return TexturedOutline<plainWholeOutlineAdd>::fill<Textured>;
    case rowUnlitTexturedShade11: return spans<Textured, plainTextureAdd>;
    case rowUnlitPalettised: return spans<Textured, plainPalettisedCopy>;
    case rowLitPlain: return PlainSpans<plainShadedCopy>::fill<Lit>;
    case rowLitTextured: return spans<LitTextured, plainLitTexture>;
    case rowLitTexturedShade1: return spans<LitTextured, plainColourKeyedLitTexture>;
    case rowLitTranslucent: return PlainSpans<plainShadedHalfBlend>::fill<Lit>;
    case rowLitTexturedTranslucent: return spans<LitTextured, plainLitTextureHalfBlend>;
    case rowLitTexturedShade1Translucent: return spans<LitTextured, plainColourKeyedLitHalfBlend>;
    case rowLitTexturedShade2: return spans<LitTextured, plainLitTextureAdd>;
    case rowSpareA: return PlainSpans<plainGouraudColour>::fill<Coloured>;
    case rowSpareB: return spans<ColouredTextured, plainColourScaledTexture>;
    case renderModeRowCount: break;
    }
    return nullptr;
}

} // namespace

PlainFillers::PlainFillers()
{
    for (u32 row = 0; row < renderModeRowCount; ++row) {
        keptRuns[row] = RunFillers[row];
        keptFillers[row] = RenderModeTable[row].fill;
        RunFillers[row] = nullptr;
        RenderModeTable[row].fill = plainFillerOf(static_cast<RenderModeRow>(row));
    }
}

PlainFillers::~PlainFillers()
{
    for (u32 row = 0; row < renderModeRowCount; ++row) {
        RunFillers[row] = keptRuns[row];
        RenderModeTable[row].fill = keptFillers[row];
    }
}

WithoutRunFillers::WithoutRunFillers()
{
    std::copy_n(RunFillers, renderModeRowCount, kept);
    std::fill_n(RunFillers, renderModeRowCount, RunFiller{nullptr});
}

WithoutRunFillers::~WithoutRunFillers()
{
    std::copy_n(kept, renderModeRowCount, RunFillers);
}

} // namespace kardeno::tests
