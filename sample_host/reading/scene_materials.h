// The materials of a scene file.
#pragma once

#include "sample_host/host/material.h"
#include "sample_host/reading/json_file.h"
#include "sample_host/reading/named_files.h"

namespace sample_host {

// Images that the entry names are among the files.
MaterialRecipe materialIn(const JsonEntry& entry, const std::string& name, const NamedFiles& files);

} // namespace sample_host
