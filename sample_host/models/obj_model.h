// Models from OBJ files, with their materials and images.
#pragma once

#include "sample_host/host/model.h"
#include "sample_host/host/progress.h"

namespace sample_host {

// The model has the name of the file, and its mesh consists of triangles. Throws with a sentence that names the file
// and, where there is one, the line. What a model lacks, as an image, is no reason to throw: it is remarked on.
Model readObjModel(const std::string& file, const Progress& progress = {});

} // namespace sample_host
