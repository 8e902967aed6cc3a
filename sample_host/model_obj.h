// Models from OBJ files, with their materials and images.
#pragma once

#include "sample_host/material.h"
#include "sample_host/mesh.h"

namespace sample_host {

struct Model {
    Mesh mesh; // of triangles only, moved and scaled into the sphere of radius 1 around the origin
    std::vector<MaterialRecipe> materials;
};

// Throws with a sentence that names the file: the model, or an image that it names.
Model readObjModel(const std::string& file);

} // namespace sample_host
