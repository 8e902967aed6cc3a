// What the meshes of a scene file are made of.
#pragma once

#include "sample_host/host/mesh.h"
#include "sample_host/reading/json_file.h"

namespace sample_host {

// Adds one shape, an object of one key such as "box", to the mesh. Materials are named by their places among `names`.
void addShape(Mesh& mesh, const JsonEntry& shape, const std::vector<std::string>& names);

} // namespace sample_host
