#include "host/host_context.h"

namespace kardeno {

constinit HostContext* hostContext = nullptr;

} // namespace kardeno
