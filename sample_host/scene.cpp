#include "sample_host/scene.h"

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
    engine.library.addCamera(&camera);
}

Scene::~Scene()
{
    surroundings_.engine.library.releaseCamera(&camera);
}

Material* Scene::addMaterial(const MaterialRecipe& recipe)
{
    return &materials_.emplace_back(surroundings_.engine, recipe, mode_);
}

Object& Scene::addObject(const Mesh& mesh, std::span<Material* const> palette, const Movement& movement, Object* parent)
{
    Object& object = objects_.emplace_back(surroundings_, mesh, palette, movement);
    polygonCount_ += object.faceCount;
    if (parent) {
        parent->addChild(object);
        return object;
    }
    SceneObject** end = &firstRoot_;
    while (*end) end = &(*end)->nextRoot;
    *end = &object;
    return object;
}

double Scene::draw(FrameBuffer& frame, double phase)
{
    surroundings_.phase = phase;
    camera.phase = phase;
    View view(camera, frame.width, frame.height, frame.pitch);
    view.firstObject = firstRoot_;

    const auto start = std::chrono::steady_clock::now();
    surroundings_.engine.library.render(&view, frame.pixels.data(), 0, clearUncovered);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

} // namespace sample_host
