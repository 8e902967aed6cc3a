// The counts of the frames of the host's scenes: one file for every build, the page, and the command that says them.
#pragma once

#include "inspector/frame_summary.h"

#include <nlohmann/json.hpp>

namespace sample_host {

inline const char* const goldenCountsFile = "tests/sample_host/golden_counts.json";

inline nlohmann::ordered_json asJson(const inspector::FrameSummary& summary)
{
    nlohmann::ordered_json json;
    inspector::forEachCount(summary, [&](const char* name, i32 count) { json[name] = count; });
    return json;
}

} // namespace sample_host
