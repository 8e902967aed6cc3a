// Looks at the host's context and at the view of a frame or a pick.
#pragma once

#include "checked/sentences.h"
#include "kardeno_soft/checked.h"

namespace kardeno::checked {

// What the host told of its sizes; the numbers are 0 where it told nothing.
CheckedSizes sizesOf(const HostContext& context);

// At initialisation, and again at every call that needs the services. False: the library cannot work with it.
bool isUsable(const HostContext& context, const Place& place);
void lookAtFormat(const HostContext& context, const Place& place);

// Whether the camera can be called.
bool mayBePrepared(const RenderView& view, const Place& place);

bool hasProjection(const RenderView& view, const Place& place);

// Whether the view can be walked, after the camera's function has run.
bool mayBeWalked(const RenderView& view, const Place& place);

// Whether the view's rectangle lies within the frame buffer, as far as its size is known.
bool liesInFrame(const RenderView& view, const HostContext& context, const Place& place);

// Whether the drawn rectangle is 90 degrees wide and high.
bool isNinetyDegrees(const RenderView& view);

} // namespace kardeno::checked
