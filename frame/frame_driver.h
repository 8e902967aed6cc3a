// One frame, from the host's call to the last filled span: walk the object tree and emit polygons, file their edges,
// resolve every scanline into spans, and let each polygon's filler draw.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

inline constexpr u8 clearUncovered = 1; // flag: pixels that no polygon covers become 0

// Draws one frame. Does nothing without a camera; draws nothing when the view's rectangle is out of range or the edge
// pool cannot grow.
void renderFrame(HostContext& context, RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags);

} // namespace kardeno
