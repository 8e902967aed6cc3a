#include "raster/flat_fills.h"

#include "host/host_context.h"
#include "raster/pixel_blends.h"
#include "raster/span_walk.h"

#include <string.h>

namespace kardeno {

namespace {

// Blends a colour over every pixel of the polygon's spans.
template <class Blend>
void blendColour(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour)
{
    forEachSpan(polygon, [&](const Span& span) {
        u16* pixels = pixelAt(frameBuffer, pitch, span.x, span.y);
        for (i32 i = 0; i < span.length; ++i) pixels[i] = Blend::over(pixels[i], colour);
    });
}

void halfBlendColour(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour)
{
    constexpr decltype(&blendColour<Replace>) routines[pixelFormatCount] = {blendColour<HalfBlend<rgb555>>,
                                                                            blendColour<HalfBlend<rgb565>>};
    routines[fillerFormat(*hostContext)](polygon, frameBuffer, pitch, colour);
}

} // namespace

void fillFaceColourLowByte(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    forEachSpan(*polygon, [&](const Span& span) {
        memset(pixelAt(frameBuffer, pitch, span.x, span.y), polygon->faceColour & 0xff,
               static_cast<u32>(span.length) * sizeof(u16));
    });
}

void fillFaceColourHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    halfBlendColour(*polygon, frameBuffer, pitch, polygon->faceColour);
}

void fillDiffuse(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    blendColour<Replace>(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed);
}

void fillDiffuseHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    halfBlendColour(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed);
}

} // namespace kardeno
