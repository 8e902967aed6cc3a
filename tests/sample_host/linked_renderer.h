// The renderer that is linked with the tests. It keeps its lists and pools until the program ends, and so must the
// memory that they lie in.
#pragma once

#include "sample_host/host/host_memory.h"
#include "sample_host/host/renderer_linked.h"

namespace sample_host {

inline const RendererTable& linkedRendererOfTheTests()
{
    static const HostMemory memory;
    static const RendererTable renderer = linkedRenderer();
    return renderer;
}

} // namespace sample_host
