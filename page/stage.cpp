#include "page/stage.h"

#include "sample_host/host/host_memory.h"
#include "sample_host/host/renderer_linked.h"
#include "sample_host/scenes/gallery.h"
#include "sample_host/scenes/model_scene.h"
#include "sample_host/scenes/scenes.h"

namespace page {

Stage::Stage() : renderer_(recordingRenderer(linkedRenderer())) {}

void Stage::build(const Choices& choices)
{
    choices_ = choices;
    scene_.reset();
    engine_ = std::make_unique<Engine>(renderer_, choices.format);
    resize(width_, height_);

    const MaterialMode mode{choices.textures, choices.renderState, choices.changes};
    constexpr int gallery = int(std::size(ownScenes));
    if (choices.scene < gallery) {
        scene_ = ownScenes[choices.scene].build(*engine_, mode);
        return;
    }
    if (choices.scene == gallery + 2 && sceneFile_) {
        scene_ = buildSceneFile(*engine_, *sceneFile_, mode);
        return;
    }
    if (choices.scene == gallery + 1 && model_) {
        scene_ = buildModelScene(*engine_, *model_, mode);
        return;
    }
    // A row of the gallery has its own mode; only the row's material is changed, not the stage around it.
    std::vector<GalleryRow> rows = galleryRows();
    GalleryRow& row = rows[std::size_t(choices.galleryRow) % rows.size()];
    changeRecipe(row.recipe, choices.changes, choices.renderState);
    scene_ = buildGalleryScene(*engine_, row);
}

void Stage::resize(int width, int height)
{
    width_ = width;
    height_ = height;
    frame_ = std::make_unique<FrameBuffer>(choices_.format, width, height);
}

void Stage::drawRecorded(double phase, i32 followed)
{
    startRecord(record_, followed);
    scene_->draw(*frame_, phase);
    endRecord();
}

Stage& stage()
{
    static const HostMemory memory;
    static Stage only;
    return only;
}

} // namespace page
