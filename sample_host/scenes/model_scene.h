// The scene that shows a model.
#pragma once

#include "sample_host/host/model.h"
#include "sample_host/host/progress.h"
#include "sample_host/host/scene.h"

namespace sample_host {

// The model stands on a floor below a lamp, and the camera goes round it. The scene has the name of the model.
std::unique_ptr<Scene> buildModelScene(Engine& engine, const Model& model, const MaterialMode& mode,
                                       const Progress& progress = {});

} // namespace sample_host
