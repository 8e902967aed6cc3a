// Scenes from JSON files on the disk.
#pragma once

#include "sample_host/host/progress.h"
#include "sample_host/reading/scene_file.h"

namespace sample_host {

// Reads the file, and the models and images that it names, which lie beside it. Throws with a sentence that names the
// file, the key and what is expected there.
SceneFile readSceneFile(const std::string& file, const Progress& progress = {});

} // namespace sample_host
