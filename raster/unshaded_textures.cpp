#include "raster/unshaded_textures.h"

namespace kardeno {

void fillWholeOutlineAdd(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    SpanGradients span = texturedSpan<NoKey>(*polygon->material);
    const SpanRoutine routine = wholeOutlineAdd.choose(*span.texture, fillerFormat(*hostContext));

    const OutlineExtent extent = walkOutline<UnlitValues>(*polygon);
    const i32 top = polygon->scanY[extent.topVertex];
    const i32 bottom = polygon->scanY[extent.bottomVertex];
    const DrawnRectangle& drawn = drawnRectangle;

    for (i32 y = top < drawn.top ? drawn.top : top; y < bottom && y < drawn.bottom; ++y) {
        const OutlineRow& row = OutlineTable[y];
        const i32 x = row.left.x < drawn.left ? drawn.left : row.left.x;
        const i32 xEnd = row.right.x > drawn.right ? drawn.right : row.right.x;
        if (x >= xEnd) continue;
        setUpRow<UnlitValues>(span, row);
        advanceTo<UnlitValues>(span, x);
        span.count = xEnd - x;
        routine(&span, pixelAt(frameBuffer, pitch, x, y));
    }
}

} // namespace kardeno
