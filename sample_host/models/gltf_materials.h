// The materials of a glTF file.
#pragma once

#include "sample_host/host/model.h"
#include "sample_host/reading/gltf_numbers.h"

namespace sample_host {

struct GltfMaterials {
    std::vector<MaterialRecipe> recipes; // the file's, and behind them a plain one for what has none
    std::vector<bool> bothSides;         // seen from behind too; one for each recipe
    std::vector<std::string> remarks;
};

// Images lie in `folder` or in the file itself. An image that cannot be used is remarked on, and its material is drawn
// in its base colour.
GltfMaterials materialsOf(const tinygltf::Model& file, const std::string& name, const std::string& folder);

// Keeps an image of the file as it is, for materialsOf to read.
bool keepImageBytes(tinygltf::Image* image, int number, std::string* error, std::string* warning, int width, int height,
                    const unsigned char* bytes, int size, void*);

} // namespace sample_host
