// The stage of the page: one scene at a time, built anew whenever a choice about its materials changes, and the frame
// buffer that it is drawn into.
#pragma once

#include "inspector/frame_record.h"
#include "sample_host/host/model.h"
#include "sample_host/host/scene.h"
#include "sample_host/reading/scene_file.h"

#include <memory>
#include <optional>

namespace page {

using namespace sample_host;
using namespace inspector;

// What a scene is built from.
struct Choices {
    int scene = 0; // one of ownScenes; behind them the gallery, the model and the scene file that were read
    int galleryRow = 0;
    PixelFormat format = PixelFormat::rgb565;
    int renderState = 1;
    TextureKind textures = TextureKind::trueColour;
    RecipeChanges changes;
};

class Stage {
public:
    Stage();

    void build(const Choices& choices);
    void takeModel(Model model) { model_ = std::move(model); }
    void takeScene(SceneFile scene) { sceneFile_ = std::move(scene); }
    void resize(int width, int height);

    Scene& scene() { return *scene_; }
    FrameBuffer& frame() { return *frame_; }
    const Choices& choices() const { return choices_; }

    // Draws the frame at a phase and notes how each face fared. `followed` names a face by its number in the record;
    // -1: none.
    void drawRecorded(double phase, i32 followed);
    const FrameRecord& record() const { return record_; }

private:
    RendererTable renderer_;
    Choices choices_;
    std::optional<Model> model_;
    std::optional<SceneFile> sceneFile_;
    int width_ = 640, height_ = 480;
    // In this order, because a scene releases its records through the engine.
    std::unique_ptr<Engine> engine_;
    std::unique_ptr<Scene> scene_;
    std::unique_ptr<FrameBuffer> frame_;
    FrameRecord record_;
};

// There is one renderer in a module, and one stage.
Stage& stage();

} // namespace page
