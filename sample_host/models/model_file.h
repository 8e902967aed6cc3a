// Models from files of any form that the host knows.
#pragma once

#include "sample_host/host/model.h"
#include "sample_host/host/progress.h"

namespace sample_host {

// Files that end in .gltf or .glb are glTF, all others OBJ. Throws as their readers do.
Model readModel(const std::string& file, const Progress& progress = {});

} // namespace sample_host
