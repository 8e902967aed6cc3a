#include "benches/frames/sample_scene.h"

#include "sample_host/host/failure.h"
#include "sample_host/scenes/model_scene.h"
#include "sample_host/scenes/scenes.h"

#if !defined(__wasm__)
#include "sample_host/models/obj_model.h"
#endif

namespace benches {

namespace {

constexpr sample_host::MaterialMode lit{sample_host::TextureKind::trueColour, 1};

std::unique_ptr<sample_host::Scene> build(sample_host::Engine& engine, const std::string& name)
{
    if (const sample_host::SceneEntry* entry = sample_host::sceneNamed(name)) return entry->build(engine, lit);
#if defined(__wasm__)
    sample_host::fail("there is no scene '" + name + "'");
#else
    return sample_host::buildModelScene(engine, sample_host::readObjModel(name), lit);
#endif
}

} // namespace

SampleScene::SampleScene(const sample_host::RendererTable& renderer, const std::string& name, int width, int height)
    : engine_(renderer, sample_host::PixelFormat::rgb565), scene_(build(engine_, name)),
      frame_(sample_host::PixelFormat::rgb565, width, height)
{
}

} // namespace benches
