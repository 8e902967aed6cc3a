// The counts of a frame for people, and for programs.
#pragma once

#include "sample_host/host/frame_counts.h"

#include <string>

namespace sample_host {

// A line for each stage, in the order in which a frame goes through them.
std::string countsAsText(const std::string& sceneName, const FrameCounts& counts);

// One JSON object, on lines of its own.
std::string countsAsJson(const FrameCounts& counts);

} // namespace sample_host
