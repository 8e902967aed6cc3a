// Picking: which face, and of which object, lies nearest under a point of the screen. Walks the object tree as a frame
// does, with the same host callbacks but `light`; draws nothing and leaves the frame's lists alone.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// The object (of the tree, not its drawn counterpart) that owns the nearest face under (x, y), or null. *faceIndex is
// the face's index in the drawn geometry, or 0; *depth its camera-space Z at the point, or farZ. Without a camera
// nothing is written. Of faces at the same depth the first one met wins; a face exactly at farZ is never hit.
SceneObject* pick(HostContext& context, RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);

} // namespace kardeno
