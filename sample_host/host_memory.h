// The memory that the renderer asks the host for.
#pragma once

#include "sample_host/renderer_library.h"

namespace sample_host {

// While it lives, the renderer has memory. The renderer keeps its lists and pools until it is unloaded and leaves it to
// the host to release them then; so there is one of these, made before the library is loaded and gone after that is
// unloaded, and with it goes what is still held. The functions know of it through a static variable, because the
// renderer hands them nothing that would lead to it.
class HostMemory {
public:
    HostMemory() = default;
    ~HostMemory();
    HostMemory(const HostMemory&) = delete;
    HostMemory& operator=(const HostMemory&) = delete;

    // Fills in the three memory functions.
    static void serve(HostContext& context);
};

} // namespace sample_host
