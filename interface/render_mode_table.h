// The render-mode table. Each of its twenty rows names the emission routine, the clippers and the filler that draw a
// material.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// Fills in the routines of all rows of RenderModeTable and RunFillers, and leaves their `state` as it is.
void fillRenderModeTable();

} // namespace kardeno
