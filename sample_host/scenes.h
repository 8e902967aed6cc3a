// The scenes that can be drawn, as a list: a name, a word about it, and the function that builds it.
#pragma once

#include "sample_host/scene.h"

namespace sample_host {

struct SceneRequest {
    std::string modelFile{}; // for the scene that shows a model
    MaterialMode mode{};
};

struct SceneEntry {
    const char* name;
    const char* shows;
    std::unique_ptr<Scene> (*build)(Engine& engine, const SceneRequest& request);
};

// The model turns below a lamp; the scene has the name of the file.
std::unique_ptr<Scene> buildModelScene(Engine& engine, const SceneRequest& request);
// A room of our own making: floor, walls, pillars, and crates and balls that turn in it.
std::unique_ptr<Scene> buildRoomScene(Engine& engine, const SceneRequest& request);

inline constexpr SceneEntry modelScene{"model", "a model from a file", buildModelScene};
inline constexpr SceneEntry roomScene{"room", "a room of our own making", buildRoomScene};
inline constexpr SceneEntry scenes[]{modelScene, roomScene};

} // namespace sample_host
