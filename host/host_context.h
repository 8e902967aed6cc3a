// The one slot through which the renderer reaches the host's services and vertex arrays. Only routines whose signature
// has no place for it look here: the exported functions, and the emission routines and fillers of the render-mode
// table. Everything below them is handed the context as an argument.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// Borrowed from the host at initialisation, for the library's lifetime; null before.
extern HostContext* hostContext;

} // namespace kardeno
