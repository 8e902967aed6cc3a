// The frame driver takes a frame from the host's call to the last filled span. It walks the object tree and emits
// polygons, adds their edges to the edge table, resolves every scanline into spans and lets the polygons' fillers draw.
#pragma once

#include "frame/object_walk.h"
#include "geometry/polygon_lists.h"
#include "geometry/side_counts.h"
#include "host/drawn_rectangle.h"

namespace kardeno {

inline constexpr u8 clearUncovered = 1; // the flag by which pixels that no polygon covers become 0

// Draws one frame. Does nothing without a camera, and draws nothing when the view's rectangle is out of range or the
// edge pool cannot grow. `fillerArgument` is handed to the fillers, which ignore it.
void renderFrame(HostContext& context, RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags);

// Draws what the walk has left in the lists.
void drawLists(HostContext& context, const RenderView& view, u16* frameBuffer, u32 fillerArgument, u8 flags);

// The visitor of the object walk that hands every face to the emission routine of its material.
template <class Host>
struct FaceEmitter {
    static constexpr bool lights = true;

    Host& host;

    void visitFaces(RenderView* view, SceneObject*, SceneObject* drawn)
    {
        forEachTestedFace(host, *drawn, [view](SceneFace* face, i32) { modeOf(*face->material).emit(view, face); });
    }
};

// The same as renderFrame() for a host that is reached in any way.
template <class Host>
void renderFrameOf(Host& host, HostContext& context, RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags)
{
    if (!view->camera) return;
    host.prepareCamera(view);
    if (!host.mayWalk(view) || !isDrawable(*view)) return;

    resetPolygonLists();
    resetSideCounts(truncatedRectangle(*view));
    FaceEmitter<Host> emitter = {host};
    ObjectWalk(host, context, view, emitter).walkRoots();
    if (host.mayDraw()) drawLists(context, *view, frameBuffer, fillerArgument, flags);
}

} // namespace kardeno
