#include "host/render_modes.h"

namespace kardeno {

constinit RenderMode RenderModeTable[renderModeRowCount] = {};

} // namespace kardeno
