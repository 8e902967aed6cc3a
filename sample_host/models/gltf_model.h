// Models from glTF 2.0 files, in text or binary form (GLB), with their materials and images.
#pragma once

#include "sample_host/host/model.h"
#include "sample_host/host/progress.h"

namespace sample_host {

// The triangles of the file's scene as they stand before anything moves; of the materials the base colour, with its
// image, and the opacity. Throws with a sentence that names the file and the part of it that cannot be used. What can
// be left out is, and remarked on.
Model readGltfModel(const std::string& file, const Progress& progress = {});

} // namespace sample_host
