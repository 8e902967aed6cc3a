#include "raster/flat_fills.h"

#include "host/host_context.h"
#include "raster/colour_runs.h"
#include "raster/span_walk.h"

namespace kardeno {

namespace {

using ColourRoutine = void (*)(u16* pixels, i32 length, u16 colour);

ColourRoutine halfBlend()
{
    constexpr ColourRoutine routines[pixelFormatCount] = {blendRun<HalfBlend<rgb555>>, blendRun<HalfBlend<rgb565>>};
    return routines[fillerFormat(*hostContext)];
}

// Fills; as an object, so that its code is inlined where it is passed to.
constexpr auto fillPixels = [](u16* pixels, i32 length, u16 colour) { fillRun(pixels, length, colour); };

// The low byte of a colour in both bytes.
u16 lowByteTwice(u16 colour)
{
    return static_cast<u16>((colour & 0xff) * 0x101);
}

// Draws the spans of a polygon.
template <class Routine>
void drawPolygon(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, u16 colour, Routine routine)
{
    forEachSpan(polygon,
                [&](const Span& span) { routine(pixelAt(frameBuffer, pitch, span.x, span.y), span.length, colour); });
}

// Draws the spans of a run of polygons; colourOfPolygon(polygon) returns the colour of each.
template <class ColourOfPolygon, class Routine>
void drawRun(PolygonRun& run, const FillTarget& target, ColourOfPolygon colourOfPolygon, Routine routine)
{
    forEachInRun(run, [&](const StoredPolygon& polygon, const SpanList& spans) {
        const u16 colour = colourOfPolygon(polygon);
        for (const Span& span : spans) routine(target.pixelsOf(span), span.length, colour);
    });
}

u16 faceColourLowByte(const StoredPolygon& polygon)
{
    return lowByteTwice(polygon.faceColour);
}

u16 faceColour(const StoredPolygon& polygon)
{
    return polygon.faceColour;
}

u16 diffuseColour(const StoredPolygon& polygon)
{
    return polygon.material->diffuseColour.packed;
}

} // namespace

void clearSpans(const SpanList& spans, const FillTarget& target)
{
    for (const Span& span : spans) fillRun(target.pixelsOf(span), span.length, 0);
}

void fillFaceColourLowByte(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    drawPolygon(*polygon, frameBuffer, pitch, lowByteTwice(polygon->faceColour), fillPixels);
}

void fillFaceColourHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    drawPolygon(*polygon, frameBuffer, pitch, polygon->faceColour, halfBlend());
}

void fillDiffuse(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    drawPolygon(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed, fillPixels);
}

void fillDiffuseHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    drawPolygon(*polygon, frameBuffer, pitch, polygon->material->diffuseColour.packed, halfBlend());
}

void fillRunFaceColourLowByte(PolygonRun& run, const FillTarget& target)
{
    drawRun(run, target, faceColourLowByte, fillPixels);
}

void fillRunFaceColourHalfBlend(PolygonRun& run, const FillTarget& target)
{
    drawRun(run, target, faceColour, halfBlend());
}

void fillRunDiffuse(PolygonRun& run, const FillTarget& target)
{
    drawRun(run, target, diffuseColour, fillPixels);
}

void fillRunDiffuseHalfBlend(PolygonRun& run, const FillTarget& target)
{
    drawRun(run, target, diffuseColour, halfBlend());
}

} // namespace kardeno
