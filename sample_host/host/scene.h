// A scene: its materials, objects and camera, and the one function that draws it.
#pragma once

#include "sample_host/host/object.h"

#include <deque>
#include <string>

namespace sample_host {

// Pixels as the renderer writes them. A row may be longer than what is seen of it.
struct FrameBuffer {
    FrameBuffer(PixelFormat pixelFormat, int visibleWidth, int rows);

    PixelFormat format;
    int width, height, pitch;
    std::vector<u16> pixels;

    Image image() const;
};

// What lies under a pixel.
struct Pick {
    const Object* object = nullptr; // none: there is nothing but the background
    i32 face = 0;                   // of the geometry that was drawn for the object
    f32 depth = 0;                  // camera space Z
};

class Scene {
public:
    Scene(Engine& engine, const MaterialMode& mode);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    // The returned records live as long as the scene.
    Material* addMaterial(const MaterialRecipe& recipe);
    // At the root of the scene or, with a parent, under that.
    Object& addObject(const Mesh& mesh, std::span<Material* const> palette, Movement movement = standing({}),
                      Object* parent = nullptr);
    // Stands nowhere in the scene: geometry that other objects draw as one of their levels.
    Object& addLevelGeometry(const Mesh& mesh, std::span<Material* const> palette, Object* parent = nullptr);

    // Draws the scene at a phase of its movements, from 0 to 1. Gives the milliseconds that the renderer took.
    double draw(FrameBuffer& frame, double phase);
    // What lies under a pixel of a frame of that size, drawn at that phase.
    Pick pick(const FrameBuffer& frame, double phase, int x, int y);

    // Of all objects and levels, seen or not.
    int polygonCount() const { return polygonCount_; }

    std::deque<Material>& materials() { return materials_; }
    // The renderer's calls are counted from now on, until this is called with null.
    void countCalls(FrameCounts* counts) { surroundings_.counts = counts; }

    std::string name;     // of its files
    std::string contents; // for people
    Camera camera;
    Light& light() { return surroundings_.light; }
    // Has all objects with levels of detail draw that one whatever their distance is; -1: by their distance again.
    void drawOnlyLevel(int level) { surroundings_.onlyLevel = level; }

private:
    void moveTo(double phase);

    Surroundings surroundings_;
    MaterialMode mode_;
    // In this order, because an object's faces go before the materials that they have.
    std::deque<Material> materials_;
    std::deque<Object> objects_;
    SceneObject* firstRoot_ = nullptr;
    SceneObject* lastRoot_ = nullptr;
    int polygonCount_ = 0;
};

} // namespace sample_host
