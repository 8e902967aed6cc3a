// The counts of a frame for people, and for programs.
#pragma once

#include "inspector/frame_summary.h"
#include "sample_host/host/frame_counts.h"

#include <optional>
#include <string>

namespace sample_host {

// A line for each stage, in the order in which a frame goes through them: first as the host sees them, then as they are
// inside of the renderer, if that could be seen.
std::string countsAsText(const std::string& sceneName, const FrameCounts& counts,
                         const std::optional<inspector::FrameSummary>& inside);

// One JSON object, on lines of its own. What is inside is an object in it, or null.
std::string countsAsJson(const FrameCounts& counts, const std::optional<inspector::FrameSummary>& inside);

} // namespace sample_host
