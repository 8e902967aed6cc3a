// The scenes that are made by code, as a list: a name, a few words about each, and the function that builds it.
#pragma once

#include "sample_host/host/scene.h"

#include <string_view>

namespace sample_host {

struct SceneEntry {
    const char* name;
    const char* shows;
    std::unique_ptr<Scene> (*build)(Engine& engine, const MaterialMode& mode);
};

// A room with pillars, a window of coloured glass, cones of light, and crates and balls that turn in it.
std::unique_ptr<Scene> buildRoomScene(Engine& engine, const MaterialMode& mode);
// Marching robots: groups with parts, of which nearer ones have more polygons.
std::unique_ptr<Scene> buildRobotsScene(Engine& engine, const MaterialMode& mode);
// A fountain between fires, of particles that turn to the eye.
std::unique_ptr<Scene> buildParticlesScene(Engine& engine, const MaterialMode& mode);

inline constexpr SceneEntry ownScenes[]{
    {"room", "a lit room with a window of coloured glass and cones of light", buildRoomScene},
    {"robots", "marching robots, the nearer ones with more polygons", buildRobotsScene},
    {"particles", "a fountain between fires", buildParticlesScene},
};

// The scene of that name; null if there is none.
inline const SceneEntry* sceneNamed(std::string_view name)
{
    for (const SceneEntry& entry : ownScenes)
        if (name == entry.name) return &entry;
    return nullptr;
}

} // namespace sample_host
