// The scenes that can be drawn, as a list: a name, a word about each, and the function that builds it.
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
// A room with pillars, a window of coloured glass, cones of light, and crates and balls that turn in it.
std::unique_ptr<Scene> buildRoomScene(Engine& engine, const SceneRequest& request);
// Marching robots: groups with parts, of which nearer ones have more polygons.
std::unique_ptr<Scene> buildRobotsScene(Engine& engine, const SceneRequest& request);
// A fountain between fires, of particles that turn to the eye.
std::unique_ptr<Scene> buildParticlesScene(Engine& engine, const SceneRequest& request);

inline constexpr SceneEntry modelScene{"model", "a model from a file", buildModelScene};
inline constexpr SceneEntry ownScenes[]{
    {"room", "a lit room with a window of coloured glass and cones of light", buildRoomScene},
    {"robots", "marching robots, the nearer ones with more polygons", buildRobotsScene},
    {"particles", "a fountain between fires", buildParticlesScene},
};
inline constexpr const SceneEntry& roomScene = ownScenes[0];

} // namespace sample_host
