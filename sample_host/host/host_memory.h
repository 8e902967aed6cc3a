// The memory that the renderer asks the host for.
#pragma once

#include "sample_host/host/renderer_table.h"

namespace sample_host {

// A renderer has memory as long as such an object lives. It never releases its lists and pools by itself, so the
// destructor of the last object releases what is still held. An object is made before a renderer is loaded and
// destroyed after that renderer is unloaded. The blocks hang on a static variable, because the renderer hands its
// memory functions nothing that would lead to an object.
class HostMemory {
public:
    HostMemory();
    ~HostMemory();
    HostMemory(const HostMemory&) = delete;
    HostMemory& operator=(const HostMemory&) = delete;

    // Fills in the three memory functions.
    static void serve(HostContext& context);
};

} // namespace sample_host
