// The render-mode table. Each of its twenty rows names the emission routine, the clippers and the filler that draw a
// material.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// The table is filled at initialisation. Rows never move, and only their `state` changes afterwards.
extern RenderMode RenderModeTable[renderModeRowCount];

// Fills in the routines of all rows and leaves their `state` as it is.
void fillRenderModeTable();

} // namespace kardeno
