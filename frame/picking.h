// Picking finds the face that lies nearest under a point of the screen, and its object. It walks the object tree as a
// frame does, with the same host callbacks except `light`. It draws nothing and leaves the frame's lists alone.
#pragma once

#include "frame/object_walk.h"

namespace kardeno {

// Returns the object that owns the nearest face under (x, y), or null without a hit. It is the object of the tree, not
// its drawn counterpart. *faceIndex becomes the face's index in the drawn geometry, or 0 without a hit; *depth becomes
// the camera-space Z of the face at the point, or farZ without a hit. Without a camera nothing is written. Of faces at
// the same depth the one visited first wins, and a face exactly at farZ is never hit.
SceneObject* pick(HostContext& context, RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);

// Keeps the nearest face under a point of the screen.
struct NearestFace {
    HostContext& context;
    f32 x, y;
    i32* faceIndex;
    f32* depth;
    SceneObject* owner;

    // Takes the face in place of the nearest one so far, if it is nearer.
    void consider(const RenderView& view, const SceneFace& face, i32 index, SceneObject* ownerOfFace);
};

// The visitor of the object walk that looks for the nearest face.
template <class Host>
struct FacePicker {
    static constexpr bool lights = false;

    Host& host;
    NearestFace& nearest;

    void visitFaces(RenderView* view, SceneObject* owner, SceneObject* drawn)
    {
        forEachTestedFace(host, *drawn,
                          [&](SceneFace* face, i32 index) { nearest.consider(*view, *face, index, owner); });
    }
};

// The same as pick() for a host that is reached in any way.
template <class Host>
SceneObject* pickOf(Host& host, HostContext& context, RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth)
{
    if (!view->camera) return nullptr;
    host.prepareCamera(view);

    *depth = view->farZ;
    *faceIndex = 0;
    NearestFace nearest = {context, x, y, faceIndex, depth, nullptr};
    if (!host.mayWalk(view)) return nullptr;
    FacePicker<Host> picker = {host, nearest};
    ObjectWalk(host, context, view, picker).walkRoots();
    return nearest.owner;
}

} // namespace kardeno
