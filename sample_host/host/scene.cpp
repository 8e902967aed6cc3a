#include "sample_host/host/scene.h"

#include <chrono>

namespace sample_host {

namespace {

constexpr u8 clearUncovered = 1; // flag of a frame: what no polygon covers becomes black

} // namespace

FrameBuffer::FrameBuffer(PixelFormat pixelFormat, int visibleWidth, int rows)
    : format(pixelFormat), width(visibleWidth), height(rows), pitch((visibleWidth + 7) & ~7),
      pixels(std::size_t(pitch) * std::size_t(rows))
{
}

Image FrameBuffer::image() const
{
    Image image(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.set(x, y, unpackedPixel(format, pixels[std::size_t(y) * std::size_t(pitch) + std::size_t(x)]));
    return image;
}

Scene::Scene(Engine& engine, const MaterialMode& mode) : surroundings_{engine}, mode_(mode)
{
    engine.renderer.addCamera(&camera);
}

Scene::~Scene()
{
    surroundings_.engine.renderer.releaseCamera(&camera);
}

Material* Scene::addMaterial(const MaterialRecipe& recipe)
{
    MaterialRecipe changed = recipe;
    changeRecipe(changed, mode_.changes, mode_.renderState);
    return &materials_.emplace_back(surroundings_.engine, changed, mode_);
}

Object& Scene::addLevelGeometry(const Mesh& mesh, std::span<Material* const> palette, Object* parent)
{
    Object& object = objects_.emplace_back(surroundings_, mesh, palette, standing({}));
    polygonCount_ += object.faceCount;
    if (parent) parent->addChild(object);
    return object;
}

Object& Scene::addObject(const Mesh& mesh, std::span<Material* const> palette, Movement movement, Object* parent)
{
    Object& object = objects_.emplace_back(surroundings_, mesh, palette, std::move(movement));
    polygonCount_ += object.faceCount;
    if (parent) {
        parent->addChild(object);
        return object;
    }
    (lastRoot_ ? lastRoot_->nextRoot : firstRoot_) = &object;
    lastRoot_ = &object;
    return object;
}

void Scene::moveTo(double phase)
{
    surroundings_.phase = phase;
    camera.phase = phase;
}

double Scene::draw(FrameBuffer& frame, double phase)
{
    moveTo(phase);
    View view(camera, frame.width, frame.height, frame.pitch);
    view.firstObject = firstRoot_;

    const auto start = std::chrono::steady_clock::now();
    surroundings_.engine.renderer.render(&view, frame.pixels.data(), 0, clearUncovered);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

Pick Scene::pick(const FrameBuffer& frame, double phase, int x, int y)
{
    moveTo(phase);
    View view(camera, frame.width, frame.height, frame.pitch);
    view.firstObject = firstRoot_;

    Pick pick;
    const f32 middle = 0.5f; // of the pixel
    const SceneObject* object =
        surroundings_.engine.renderer.pick(&view, f32(x) + middle, f32(y) + middle, &pick.face, &pick.depth);
    pick.object = static_cast<const Object*>(object);
    return pick;
}

} // namespace sample_host
