// What is to be drawn, and the scene that it becomes.
#pragma once

#include "sample_host/host/model.h"
#include "sample_host/options.h"
#include "sample_host/reading/scene_file.h"

#include <iosfwd>
#include <optional>

namespace sample_host {

// Read before the renderer is loaded: a model, the scene of a file, or neither when it is a scene of our own.
struct Subject {
    std::optional<Model> model;
    std::optional<SceneFile> sceneFile;
    std::string sceneName = "room";
};

// Reads what the options name. Remarks on it go to `out`.
Subject readSubject(const Options& options, std::ostream& out, const Progress& progress);

std::unique_ptr<Scene> buildSubject(Engine& engine, const Subject& subject, const MaterialMode& mode,
                                    const Progress& progress = {});

} // namespace sample_host
