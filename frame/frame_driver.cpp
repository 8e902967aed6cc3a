#include "frame/frame_driver.h"

#include "frame/object_walk.h"
#include "geometry/depth_sort.h"
#include "geometry/polygon_lists.h"
#include "host/drawn_rectangle.h"
#include "raster/flat_fills.h"
#include "raster/span_walk.h"
#include "spanbuffer/scanline_resolver.h"
#include "spanbuffer/span_pool.h"

namespace kardeno {

namespace {

// The arguments that all filler calls of a frame share.
struct FillerCall {
    u16* frameBuffer;
    u32 argument;
    u32 pitch;
};

// The visitor of the object walk that hands every face to the emission routine of its material.
struct FaceEmitter {
    static constexpr bool lights = true;

    static void visitFaces(RenderView* view, SceneObject*, SceneObject* drawn)
    {
        forEachTestedFace(*drawn, [view](SceneFace* face, i32) { modeOf(*face->material).emit(view, face); });
    }
};

// Adds the edges of a list's polygons to the edge table. A list that is not resolved has no edges there.
template <class TargetList>
EdgePass addEdgesOf(HostContext& context, const DrawnRectangle& drawn)
{
    if constexpr (TargetList::resolved) {
        const PolygonList& list = TargetList::list();
        for (i32 i = 0; i < list.count; ++i) {
            const EdgePass result = AddPolygonEdges(context, drawn, &list.held[i]);
            if (result != EdgePass::done) return result;
        }
    }
    return EdgePass::done;
}

// Builds the edge table of the frame. When the edge pool grows it may move, which makes everything that was added
// stale: the pass begins again. Returns false when the host refused memory.
bool buildEdgeTable(HostContext& context, const DrawnRectangle& drawn)
{
    EdgePass result;
    do {
        ResetEdgeTable(drawn);
        result = addEdgesOf<ResolvedPolygons>(context, drawn);
        if (result == EdgePass::done) result = addEdgesOf<SortedPolygons>(context, drawn);
        if (result == EdgePass::done) result = addEdgesOf<LateSortedPolygons>(context, drawn);
    } while (result == EdgePass::poolGrew);
    return result == EdgePass::done;
}

void resolve(HostContext& context, const DrawnRectangle& drawn, f32 firstY)
{
    resetSpanPool();
    ResolveScanlines(context, drawn, firstY,
                     {
                         .edgeStartTable = EdgeStartTable,
                         .edgeEndTable = EdgeEndTable,
                         .leftGuard = &LeftGuardEdge,
                         .rightGuard = &RightGuardEdge,
                         .stackTop = &StackTopPolygon,
                         .background = &BackgroundPolygon,
                     });
}

void fill(const ScreenPolygon& polygon, const FillerCall& call)
{
    modeOf(*polygon.material).fill(&polygon, call.frameBuffer, call.argument, call.pitch);
}

// Draws the polygons of a list, in list order or, when the list is sorted, from the farthest to the nearest. A sorted
// list that the sort arrays have no room for is drawn from its last polygon to its first.
template <class TargetList>
void draw(const FillerCall& call)
{
    const PolygonList& list = TargetList::list();
    if constexpr (!TargetList::sorted) {
        for (i32 i = 0; i < list.count; ++i) fill(list.held[i], call);
    } else {
        if (list.count == 0) return;
        const bool canSort = sortArrays.canHold(list.count);
        if (canSort) SortPolygonsByDepth(list.held, list.count);
        for (i32 i = list.count - 1; i >= 0; --i) {
            const u32 index = canSort ? sortArrays.sortOrder.entries[i] : static_cast<u32>(i);
            fill(list.held[index], call);
        }
    }
}

} // namespace

void renderFrame(HostContext& context, RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags)
{
    if (!view->camera) return;
    view->camera->functions->prepare(view->camera, view);
    if (!isDrawable(*view)) return;

    resetPolygonLists();
    FaceEmitter emitter;
    ObjectWalk(context, view, emitter).walkRoots();

    const DrawnRectangle drawn = truncatedRectangle(*view);
    if (!fitsTables(drawn)) return;
    setStackEnds();
    setGuardEdges(drawn, &BackgroundPolygon);
    if (!buildEdgeTable(context, drawn)) return;
    resolve(context, drawn, view->top);

    drawnRectangle = drawn;
    const FillerCall call = {frameBuffer, fillerArgument, static_cast<u32>(view->pitch)};
    // The face colour of the background polygon is 0.
    if (flags & clearUncovered) fillFaceColourLowByte(&BackgroundPolygon, frameBuffer, fillerArgument, call.pitch);
    draw<ResolvedPolygons>(call);
    draw<SortedPolygons>(call);
    draw<LateSortedPolygons>(call);
}

} // namespace kardeno
