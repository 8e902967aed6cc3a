// Scenes that tests, benches and pages draw, and the small host that holds them. It knows nothing but the renderer's
// public header, and computes with + - * / alone: a scene has the same numbers on every machine.
//
// Geometry is given in eye space: X to the right, Y up, Z away. What fills half of the height of the picture is its
// size times the zoom away. There is one renderer for a process: making a scene, or drawing another than the last one,
// initialises it with that scene's context.
#pragma once

#include "kardeno_soft/kardeno_soft.h"
#include "scenes/texture_scene.h"

#include <deque>
#include <memory>
#include <vector>

namespace kardeno::scenes {

struct Vector {
    f64 x = 0, y = 0, z = 0;
};

constexpr Vector operator+(const Vector& a, const Vector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

constexpr Vector operator*(f64 factor, const Vector& a)
{
    return {factor * a.x, factor * a.y, factor * a.z};
}

constexpr f64 dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

// How a material is made. The defaults give an opaque, unlit surface of its diffuse colour.
struct Surface {
    i32 state = 0;
    i32 shadingMode = 0;
    i32 transparency = 0;
    Texture* texture = nullptr;
    Colour ambient{24, 24, 24};
    Colour diffuse{200, 200, 200};
    Colour specular{0, 0, 0};
    Colour tint{255, 255, 255};
    i32 shininess = 0;
    i32 specularLevel = 0;
    enum SpareRow { none, gouraud, scaledTexture } spareRow = none; // instead of what the state selects
};

struct Material : SceneMaterial {
    MaterialFlags flagWords;
};

struct Corner {
    i32 vertex;
    f32 u = 0, v = 0;
};

struct Face : SceneFace {
    std::vector<i32> indices;
    std::vector<TexCoord> coordinates;
};

struct Object : SceneObject {
    ObjectClass ownClass;
    i32 group;
    std::vector<SceneFace*> faceList;
    std::deque<MaterialNode> nodes;
};

class Scene {
public:
    struct Settings {
        i32 bitsPerPixel = 16;
        f32 left = 0, top = 0, right = 256, bottom = 192; // the drawn rectangle
        f32 nearZ = 1, farZ = 1000;
        f64 zoom = 1.5;
    };

    explicit Scene(const Settings& settings);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const Settings settings;
    RenderView view;

    // The texture map is made in the scene's pixel format. See texture_scene.h.
    Texture& addTexture(i32 bitsPerTexel, i32 width, i32 height, Picture picture);
    Material& addMaterial(const Surface& surface);
    // At the end of the chain of roots.
    Object& addObject();
    i32 addVertex(const Vector& place, const VertexShade& shade = {});
    // Flat and convex, 3 to 10 corners, counter-clockwise where it is seen. The colour is what the flat fallbacks draw.
    Face& addFace(Object& object, SceneMaterial& material, const std::vector<Corner>& corners, u16 faceColour = 0);

    // Whether the plane of the corners lies well off the eye: a face that is seen exactly edge-on has no depth plane.
    bool isOffTheEye(const std::vector<Corner>& corners) const;

    // One frame; `clear` sets what nothing covers to 0.
    void draw(u16* pixels, i32 pitch, bool clear = true);
    SceneObject* pick(f32 x, f32 y, i32* faceIndex, f32* depth);

    i32 width() const { return static_cast<i32>(settings.right); } // of a frame that holds the drawn rectangle
    i32 height() const { return static_cast<i32>(settings.bottom); }

    // All faces and materials, in the order in which they were made.
    std::deque<Face> faces;
    std::deque<Material> materials;
    std::deque<Object> objects;

private:
    ViewProjection projection;
    SceneCamera camera;
    std::unique_ptr<HostContext> context;
    std::vector<CameraVertex> cameraVertices;
    std::vector<ScreenVertex> screenVertices;
    std::vector<VertexShade> shades;
    std::vector<u32> outcodes;
    std::vector<u32> stamps;
    std::deque<Texture> textures;

    void initialiseRenderer(); // unless this scene did so last
    Vector normalOf(const std::vector<Corner>& corners) const;
};

} // namespace kardeno::scenes
