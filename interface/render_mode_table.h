// The twenty rows: which emission routine, clippers and span filler draw a material.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// Filled at initialisation; rows never move, and only `state` changes afterwards.
extern RenderMode RenderModeTable[renderModeRowCount];

// Fills every row's routines; `state` is left as it is.
void fillRenderModeTable();

} // namespace kardeno
