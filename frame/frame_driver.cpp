#include "frame/frame_driver.h"

#include "frame/object_walk.h"
#include "geometry/polygon_lists.h"
#include "raster/flat_fills.h"
#include "raster/span_walk.h"
#include "spanbuffer/depth_sort.h"
#include "spanbuffer/scanline_resolver.h"
#include "spanbuffer/span_pool.h"

namespace kardeno {

namespace {

// What every filler call of a frame is given.
struct FillerCall {
    u16* frameBuffer;
    u32 argument;
    u32 pitch;
};

struct FaceEmitter {
    static constexpr bool lights = true;

    static void visitFaces(RenderView* view, SceneObject*, SceneObject* drawn)
    {
        forEachTestedFace(*drawn, [view](SceneFace* face, i32) { modeOf(*face->material).emit(view, face); });
    }
};

// Whether the rectangle fits the scanline tables and 16.16 columns. False for NaN and infinities too.
bool isDrawable(const RenderView& view)
{
    const f32 right = view.projection->right;
    const f32 bottom = view.projection->bottom;
    constexpr f32 largest = 3.402823466e+38f;
    return view.left >= -32768.0f && view.left <= largest && right <= 32767.0f && right >= -largest && view.top >= 0.0f
           && view.top <= largest && bottom <= 4096.0f && bottom >= -largest;
}

// A left or top so large that it truncates to the smallest integer: the rectangle is empty, and no table has its first
// column or row.
bool beginsBeyondIntegers(const RenderView& view)
{
    constexpr f32 tooLarge = 2147483648.0f;
    return view.left >= tooLarge || view.top >= tooLarge;
}

Filing fileList(const RenderView* view, const PolygonList& list)
{
    for (i32 i = 0; i < list.count; ++i) {
        const Filing result = AddPolygonEdges(view, &list.held[i]);
        if (result != Filing::done) return result;
    }
    return Filing::done;
}

// A pool that grew may have moved: everything filed so far is stale, and the pass begins again.
bool fileEdges(const RenderView* view)
{
    Filing result;
    do {
        ResetEdgeTable(view);
        result = fileList(view, resolvedPolygons);
        if (result == Filing::done) result = fileList(view, sortedPolygons);
    } while (result == Filing::poolGrew);
    return result == Filing::done;
}

void resolve(const RenderView* view, u16* frameBuffer)
{
    resetSpanPool();
    ResolveScanlines(view, {
                               .edgeStartTable = EdgeStartTable,
                               .edgePool = EdgePool.edges,
                               .edgeEndTable = EdgeEndTable,
                               .leftGuard = &LeftGuardEdge,
                               .rightGuard = &RightGuardEdge,
                               .stackTop = &StackTopPolygon,
                               .background = &BackgroundPolygon,
                               .frameBuffer = frameBuffer,
                           });
}

void fill(const ScreenPolygon& polygon, const FillerCall& call)
{
    modeOf(*polygon.material).fill(&polygon, call.frameBuffer, call.argument, call.pitch);
}

void drawInListOrder(const PolygonList& list, const FillerCall& call)
{
    for (i32 i = 0; i < list.count; ++i) fill(list.held[i], call);
}

// Farthest first. Without room for the sort the list is drawn from its last record to its first.
void drawFarToNear(const PolygonList& list, const FillerCall& call)
{
    if (list.count == 0) return;
    const bool canSort = sortArrays.canHold(list.count);
    if (canSort) SortPolygonsByDepth(list.held, list.count);
    for (i32 i = list.count - 1; i >= 0; --i) {
        const u32 index = canSort ? sortArrays.sortOrder.entries[i] : static_cast<u32>(i);
        fill(list.held[index], call);
    }
}

} // namespace

void renderFrame(RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags)
{
    if (!view->camera) return;
    view->camera->functions->prepare(view->camera, view);
    if (!isDrawable(*view)) return;

    resetPolygonLists();
    FaceEmitter emitter;
    ObjectWalk(view, emitter).walkRoots();
    if (beginsBeyondIntegers(*view)) return;

    setStackEnds();
    setGuardEdges(*view, &BackgroundPolygon);
    if (!fileEdges(view)) return;
    resolve(view, frameBuffer);

    drawnRectangle = {
        .left = truncated(view->left),
        .top = truncated(view->top),
        .right = truncated(view->projection->right),
        .bottom = truncated(view->projection->bottom),
    };
    const FillerCall call = {frameBuffer, fillerArgument, static_cast<u32>(view->pitch)};
    // The background's flat colour is 0, of which both bytes are the low one.
    if (flags & clearUncovered) fillFaceColourLowByte(&BackgroundPolygon, frameBuffer, fillerArgument, call.pitch);
    drawInListOrder(resolvedPolygons, call);
    drawFarToNear(sortedPolygons, call);
    drawFarToNear(lateSortedPolygons, call);
}

} // namespace kardeno
