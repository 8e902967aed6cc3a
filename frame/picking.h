// Picking finds the face that lies nearest under a point of the screen, and its object. It walks the object tree as a
// frame does, with the same host callbacks except `light`. It draws nothing and leaves the frame's lists alone.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// Returns the object that owns the nearest face under (x, y), or null without a hit. It is the object of the tree, not
// its drawn counterpart. *faceIndex becomes the face's index in the drawn geometry, or 0 without a hit; *depth becomes
// the camera-space Z of the face at the point, or farZ without a hit. Without a camera nothing is written. Of faces at
// the same depth the one visited first wins, and a face exactly at farZ is never hit.
SceneObject* pick(HostContext& context, RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);

} // namespace kardeno
