#include "sample_host/window.h"

#include "sample_host/host/failure.h"

namespace sample_host {

std::unique_ptr<Window> openWindow(const std::string&, int, int)
{
    fail("this build of the sample host has no windows; expected is one with SDL2 (tools/setup window, preset native) "
         "or one for Windows");
}

} // namespace sample_host
