// The one global through which the renderer reaches the host's services and vertex arrays. It is read only by routines
// whose signature has no place for it: the exported functions, and the emission routines and fillers of the render-mode
// table. They hand the context on as an argument.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// The host's record, set at each initialisation and null before the first. The host owns it.
extern HostContext* hostContext;

} // namespace kardeno
