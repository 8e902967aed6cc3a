// The frame driver takes a frame from the host's call to the last filled span. It walks the object tree and emits
// polygons, adds their edges to the edge table, resolves every scanline into spans and lets the polygons' fillers draw.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

inline constexpr u8 clearUncovered = 1; // the flag by which pixels that no polygon covers become 0

// Draws one frame. Does nothing without a camera, and draws nothing when the view's rectangle is out of range or the
// edge pool cannot grow. `fillerArgument` is handed to the fillers, which ignore it.
void renderFrame(HostContext& context, RenderView* view, u16* frameBuffer, u32 fillerArgument, u8 flags);

} // namespace kardeno
