// A scene: its materials, objects and camera, and the one function that draws it.
#pragma once

#include "sample_host/object.h"

#include <deque>

namespace sample_host {

// Pixels as the renderer writes them. A row may be longer than what is seen of it.
struct FrameBuffer {
    FrameBuffer(PixelFormat pixelFormat, int visibleWidth, int rows);

    PixelFormat format;
    int width, height, pitch;
    std::vector<u16> pixels;

    Image image() const;
};

class Scene {
public:
    Scene(Engine& engine, const MaterialMode& mode);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    // The returned records live as long as the scene.
    Material* addMaterial(const MaterialRecipe& recipe);
    Object& addObject(const Mesh& mesh, std::span<Material* const> palette, const Movement& movement = {},
                      Object* parent = nullptr);

    // Draws the scene at a phase of its movements, from 0 to 1. Gives the milliseconds that the renderer took.
    double draw(FrameBuffer& frame, double phase);

    int polygonCount() const { return polygonCount_; }

    std::string name;     // of its files
    std::string contents; // for people
    Camera camera;
    Lamp& lamp() { return surroundings_.lamp; }

private:
    Surroundings surroundings_;
    MaterialMode mode_;
    // In this order, because an object's faces go before the materials that they have.
    std::deque<Material> materials_;
    std::deque<Object> objects_;
    SceneObject* firstRoot_ = nullptr;
    int polygonCount_ = 0;
};

} // namespace sample_host
