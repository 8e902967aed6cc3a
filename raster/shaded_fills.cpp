#include "raster/shaded_fills.h"

namespace kardeno {

namespace {

void fillWith(SpanRoutine routine, const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch)
{
    SpanGradients span;
    span.ramp = polygon.material->renderPrivate->shadeRamp;
    fillSpans<ShadedValues>(polygon, frameBuffer, pitch, routine, span);
}

} // namespace

void fillShaded(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    fillWith(drawShadedSpan<Replace>, *polygon, frameBuffer, pitch);
}

void fillShadedHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    fillWith(shadedHalfBlend[fillerFormat(*hostContext)], *polygon, frameBuffer, pitch);
}

} // namespace kardeno
