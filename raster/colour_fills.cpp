#include "raster/colour_fills.h"

namespace kardeno {

void fillGouraud(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    SpanGradients span;
    const bool is555 = fillerFormat(*hostContext) == rgb555;
    fillSpans<ColourValues>(*polygon, frameBuffer, pitch, is555 ? drawGouraudSpan<Rgb555> : drawGouraudSpan<Rgb565>,
                            span);
}

} // namespace kardeno
