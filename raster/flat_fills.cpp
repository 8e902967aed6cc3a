#include "raster/flat_fills.h"

#include "host/host_context.h"
#include "raster/colour_runs.h"
#include "raster/span_walk.h"

namespace kardeno {

namespace {

// Blends a colour over every pixel of the polygon's spans.
template <class Blend>
void blendColour(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour)
{
    forEachSpan(polygon, [&](const Span& span) {
        blendRun<Blend>(pixelAt(frameBuffer, pitch, span.x, span.y), span.length, colour);
    });
}

void halfBlendColour(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour)
{
    constexpr decltype(&blendColour<HalfBlend<rgb555>>) routines[pixelFormatCount] = {blendColour<HalfBlend<rgb555>>,
                                                                                      blendColour<HalfBlend<rgb565>>};
    routines[fillerFormat(*hostContext)](polygon, frameBuffer, pitch, colour);
}

} // namespace

void fillFaceColourLowByte(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    const u16 colour = static_cast<u16>((polygon->faceColour & 0xff) * 0x101);
    forEachSpan(*polygon,
                [&](const Span& span) { fillRun(pixelAt(frameBuffer, pitch, span.x, span.y), span.length, colour); });
}

void fillFaceColourHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    halfBlendColour(*polygon, frameBuffer, pitch, polygon->faceColour);
}

void fillDiffuse(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    const u16 colour = polygon->material->diffuseColour.packed;
    forEachSpan(*polygon,
                [&](const Span& span) { fillRun(pixelAt(frameBuffer, pitch, span.x, span.y), span.length, colour); });
}

void fillDiffuseHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    halfBlendColour(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed);
}

} // namespace kardeno
