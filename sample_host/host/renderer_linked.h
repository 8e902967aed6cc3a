// The renderer from a library that is linked with the program, for places where no file can be loaded.
#pragma once

#include "sample_host/host/renderer_table.h"

namespace sample_host {

// The functions that the program is linked with. Such a renderer is never unloaded and keeps the memory that it was
// given for ever, so the HostMemory must last until its last call.
RendererTable linkedRenderer();

} // namespace sample_host
