// The materials of a scene file.
#pragma once

#include "sample_host/host/material.h"
#include "sample_host/models/json_entry.h"

namespace sample_host {

// Images that the entry names lie in `folder`.
MaterialRecipe materialIn(const JsonEntry& entry, const std::string& name, const std::string& folder);

} // namespace sample_host
