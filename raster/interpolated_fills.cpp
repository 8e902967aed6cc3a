#include "raster/interpolated_fills.h"

#include "raster/span_walk.h"

#include <assert.h>

namespace kardeno {

namespace {

// Returns what all spans of a textured polygon take from the material. The set-up of each row fills in the rest.
SpanGradients texturedSpan(const SceneMaterial& material, const TexturedSpanRoutines& routines)
{
    SpanGradients span;
    span.texture = material.textureMap->image;
    span.ramp = material.renderPrivate->shadeRamp;
    span.key = routines.keyOf(*material.textureMap);
    return span;
}

} // namespace

template <class Format>
void fillTexturedSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, const TexturedSpanRoutines& routines,
                       PixelFormat pixelFormat)
{
    SpanGradients span = texturedSpan(*polygon.material, routines);
    fillSpans<SpanValues<Format>>(polygon, frameBuffer, pitch, routines.choose(*span.texture, pixelFormat), span);
}

template <class Format>
void fillTexturedOutline(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch,
                         const TexturedSpanRoutines& routines, PixelFormat pixelFormat)
{
    using Values = SpanValues<Format>;
    SpanGradients span = texturedSpan(*polygon.material, routines);
    const SpanRoutine routine = routines.choose(*span.texture, pixelFormat);

    const OutlineExtent extent = walkEdges<Values>(polygon);
    const i32 top = polygon.scanY[extent.topVertex];
    const i32 bottom = polygon.scanY[extent.bottomVertex];
    const DrawnRectangle& drawn = drawnRectangle;

    for (i32 y = top < drawn.top ? drawn.top : top; y < bottom && y < drawn.bottom; ++y) {
        const OutlineRow& row = OutlineTable[y];
        const i32 x = row.left.x < drawn.left ? drawn.left : row.left.x;
        const i32 xEnd = row.right.x > drawn.right ? drawn.right : row.right.x;
        if (x >= xEnd) continue;
        assert(fitsTables(drawn) && x >= drawn.left && xEnd <= drawn.right);
        setUpRow<Values>(span, row);
        advanceTo<Values>(span, x);
        span.count = xEnd - x;
        routine(&span, pixelAt(frameBuffer, pitch, x, y));
    }
}

template <class Format>
void fillPlainSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, SpanRoutine routine)
{
    SpanGradients span;
    span.ramp = polygon.material->renderPrivate->shadeRamp;
    fillSpans<SpanValues<Format>>(polygon, frameBuffer, pitch, routine, span);
}

template void fillTexturedSpans<Textured>(const ScreenPolygon&, u16*, u32, const TexturedSpanRoutines&, PixelFormat);
template void fillTexturedSpans<LitTextured>(const ScreenPolygon&, u16*, u32, const TexturedSpanRoutines&, PixelFormat);
template void fillTexturedSpans<ColouredTextured>(const ScreenPolygon&, u16*, u32, const TexturedSpanRoutines&,
                                                  PixelFormat);
template void fillTexturedOutline<Textured>(const ScreenPolygon&, u16*, u32, const TexturedSpanRoutines&, PixelFormat);
template void fillPlainSpans<Lit>(const ScreenPolygon&, u16*, u32, SpanRoutine);
template void fillPlainSpans<Coloured>(const ScreenPolygon&, u16*, u32, SpanRoutine);

} // namespace kardeno
