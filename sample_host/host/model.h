// A model: what a file says about one thing, before it becomes the renderer's.
#pragma once

#include "sample_host/host/material.h"
#include "sample_host/host/mesh.h"

#include <string>
#include <vector>

namespace sample_host {

struct Model {
    std::string name;
    Mesh mesh; // inside the sphere of radius 1 around the origin
    std::vector<MaterialRecipe> materials;
    std::vector<std::string> remarks; // sentences on what was wrong in the file and what was done about it
};

} // namespace sample_host
