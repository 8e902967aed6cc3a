// A scene of boards, as seen from two units away, where 2 reaches from the middle of the picture to its upper edge.
#pragma once

#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/scenes.h"

namespace sample_host {

struct BoardStage {
    Engine engine;
    Scene scene{engine, {}};
    FrameBuffer frame{PixelFormat::rgb565, 160, 120};

    explicit BoardStage(const RendererTable& renderer) : engine(renderer, PixelFormat::rgb565)
    {
        scene.camera.distance = 2;
        scene.camera.height = 0;
        scene.camera.zoom = 1;
    }
    void add(const Board& board, MaterialRecipe recipe = {})
    {
        Mesh mesh;
        addBoard(mesh, 0, board);
        Material* material = scene.addMaterial(recipe);
        scene.addObject(mesh, {&material, 1});
    }
};

inline constexpr Board boardInTheMiddle{{-1, -1, 0}, {2, 0, 0}, {0, 2, 0}};

} // namespace sample_host
