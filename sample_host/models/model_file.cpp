#include "sample_host/models/model_file.h"

#include "sample_host/models/gltf_model.h"
#include "sample_host/models/obj_model.h"

#include <filesystem>

namespace sample_host {

Model readModel(const std::string& file, const Progress& progress)
{
    std::string ending = std::filesystem::path(file).extension().string();
    for (char& letter : ending)
        if (letter >= 'A' && letter <= 'Z') letter = char(letter - 'A' + 'a');
    return ending == ".gltf" || ending == ".glb" ? readGltfModel(file, progress) : readObjModel(file, progress);
}

} // namespace sample_host
