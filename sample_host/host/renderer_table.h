// The renderer as the engine sees it: a table of its 28 functions. Two ways fill the table, and the engine does not
// know which one did: renderer_file.h loads the library's file at run time, renderer_linked.h takes the functions of a
// library that is linked with the program. The public header is here only for the records and the functions' types.
#pragma once

#include "kardeno_soft/kardeno_soft.h"

namespace sample_host {

// The library's records and numbers go by their own names in the host.
using namespace kardeno;

using RendererTable = kardeno::Functions;

} // namespace sample_host
