// Scenes from the text of JSON files; docs/scene_files.md says what may stand in them.
#pragma once

#include "sample_host/host/progress.h"
#include "sample_host/host/scene.h"
#include "sample_host/reading/named_files.h"

#include <string_view>

namespace sample_host {

// A scene as a file says it, before there is a renderer.
struct SceneFile {
    struct Thing {
        std::string name;
        std::size_t mesh = 0; // its place in `meshes`, of which the first one is empty
        Movement movement;
        bool isGroup = false, isPart = false, isSprite = false;
        std::vector<std::size_t> levels; // their places in `levels`
        std::vector<double> limits;
        std::vector<Thing> children;
    };
    // What the fields of a camera are set to.
    struct CameraPlace {
        Vector target{};
        double distance = 3, height = 1, startTurn = 0, turnsPerRound = 1, sway = 0, zoom = 1.8;
        double nearPlane = 0.1, farPlane = 100;
    };

    std::string name, contents;
    CameraPlace camera;
    Light light;
    std::vector<MaterialRecipe> materials;
    std::vector<Mesh> meshes;
    std::vector<Thing> levels;
    std::vector<Thing> objects;
    std::vector<std::string> remarks;
};

// A scene, or a sentence on why there is none: it names the file, the line or the key, and what is expected there.
struct SceneReading {
    std::optional<SceneFile> scene;
    std::string problem;
};

// Reads the text of a scene file. `files` opens the models and images that it names.
SceneReading readSceneText(const std::string& name, std::string_view text, const NamedFiles& files);

std::unique_ptr<Scene> buildSceneFile(Engine& engine, const SceneFile& file, const MaterialMode& mode,
                                      const Progress& progress = {});

} // namespace sample_host
