// What lies under a pixel, for people.
#pragma once

#include "sample_host/host/scene.h"

namespace sample_host {

// "'crate', face 3, at depth 2.5000, material 'wood', row LitTextured"; "nothing" where there is nothing. The pick is
// one of the frame that was drawn last.
std::string pickInWords(const Pick& pick);

} // namespace sample_host
