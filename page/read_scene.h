// Reads a scene file, and the models and images that it names, from given files.
#pragma once

#include "page/given_files.h"
#include "sample_host/reading/scene_file.h"

namespace page {

// The one scene file among the given ones; null when there is none.
const GivenFile* sceneFileAmong(const GivenFiles& files);

sample_host::SceneReading readScene(const GivenFiles& files);

} // namespace page
