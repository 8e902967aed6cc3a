#include "sample_host/host/renderer_linked.h"

namespace sample_host {

RendererTable linkedRenderer()
{
    RendererTable table;
#define TAKE(field, name) table.field = name;
    KARDENO_FUNCTIONS(TAKE)
#undef TAKE
    return table;
}

} // namespace sample_host
