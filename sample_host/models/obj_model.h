// Models from OBJ files, with their materials and images.
#pragma once

#include "sample_host/host/model.h"

namespace sample_host {

// The model has the name of the file, and its mesh consists of triangles. Throws with a sentence that names the file
// and, where there is one, the line: of the model, or of the material that asks for an image.
Model readObjModel(const std::string& file);

} // namespace sample_host
