#include "frame/frame_driver.h"

#include "frame/trusted_host.h"
#include "geometry/depth_sort.h"
#include "raster/flat_fills.h"
#include "raster/span_walk.h"
#include "spanbuffer/scanline_resolver.h"
#include "spanbuffer/span_pool.h"

namespace kardeno {

namespace {

// Draws polygons with the filler of their material, as many as it takes at once.
void fill(PolygonRun& run, const FillTarget& target)
{
    const RenderMode& mode = modeOf(*run.next->material);
    const uintptr_t row =
        (reinterpret_cast<uintptr_t>(&mode) - reinterpret_cast<uintptr_t>(RenderModeTable)) / sizeof(RenderMode);
    if (row < renderModeRowCount && RunFillers[row]) return RunFillers[row](run, target);
    fillPlainly(*run.next, target);
    run.next = following(run.next);
}

// Draws the polygons of a list in list order.
void drawInOrder(const PolygonList& list, const FillTarget& target)
{
    PolygonRun run = {.next = list.held, .end = list.end()};
    while (run.next != run.end) fill(run, target);
}

void drawOne(const StoredPolygon* polygon, const FillTarget& target)
{
    PolygonRun run = {.next = polygon, .end = following(polygon)};
    fill(run, target);
}

// Draws the polygons of a list from the farthest to the nearest. A list that the sort arrays have no room for is drawn
// from its last polygon to its first.
void drawFromFarToNear(const PolygonList& list, const FillTarget& target)
{
    if (list.storedCount == 0) return;
    if (sortArrays.canHold(list.storedCount)) {
        SortPolygonsByDepth(list);
        for (i32 i = list.storedCount - 1; i >= 0; --i)
            drawOne(&polygonAt(list, sortArrays.sortOrder.entries[i]), target);
        return;
    }
    const StoredPolygon* polygon = list.end();
    u32 bytesBefore = list.lastBytes;
    for (i32 i = 0; i < list.storedCount; ++i) {
        polygon = reinterpret_cast<const StoredPolygon*>(reinterpret_cast<const u8*>(polygon) - bytesBefore);
        bytesBefore = polygon->bytesBefore;
        drawOne(polygon, target);
    }
}

} // namespace

void drawLists(HostContext& context, const RenderView& view, u16* frameBuffer, u32 fillerArgument, u8 flags)
{
    const DrawnRectangle drawn = truncatedRectangle(view);
    if (!fitsTables(drawn)) return;
    if (!buildEdgeTable(context, drawn)) return;
    resetSpanPool();
    ResolveScanlines(context, drawn, view.top);

    drawnRectangle = drawn;
    const FillTarget target = {frameBuffer, fillerArgument, static_cast<u32>(view.pitch)};
    if (flags & clearUncovered) clearSpans(spansOf(BackgroundPolygon), target);
    drawInOrder(resolvedPolygons, target);
    drawFromFarToNear(sortedPolygons, target);
    drawFromFarToNear(lateSortedPolygons, target);
}

void renderFrame(HostContext& context, RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags)
{
    TrustedHost host;
    renderFrameOf(host, context, view, frameBuffer, fillerArgument, flags);
}

} // namespace kardeno
