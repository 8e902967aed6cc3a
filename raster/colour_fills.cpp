#include "raster/colour_fills.h"

namespace kardeno {

void fillGouraud(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    SpanGradients span;
    fillSpans<ColourValues>(*polygon, frameBuffer, pitch, gouraud[fillerFormat(*hostContext)], span);
}

} // namespace kardeno
