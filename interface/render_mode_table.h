// The twenty rows: which emission routine, clippers and span filler draw a material.
#pragma once

#include "interface/render_modes.h"

namespace kardeno {

// Fills every row's routines; `state` is left as it is.
void fillRenderModeTable();

} // namespace kardeno
