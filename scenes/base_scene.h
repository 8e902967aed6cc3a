// The scenes that the tests and other programs draw, and the small host that holds them. The host knows only the
// renderer's public header and computes with + - * / alone, so that a scene has the same numbers on every machine.
//
// Geometry is given in eye space: X points right, Y up and Z away from the eye. A height h fills half of the height of
// the picture at a distance of h times the zoom. There is one renderer in a process, which is initialised anew with the
// context of a scene whenever the scene is made, and whenever it is used after another one.
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

// What a material is made from. The defaults give an opaque, unlit surface in its diffuse colour.
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
    enum SpareRow { none, gouraud, scaledTexture } spareRow = none; // takes the place of the row that the state selects
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

    // What the following functions return lives as long as the scene. A texture map is made in the scene's pixel
    // format.
    Texture& addTexture(i32 bitsPerTexel, i32 width, i32 height, Picture picture);
    Material& addMaterial(const Surface& surface);
    // Adds an empty object at the end of the chain of roots.
    Object& addObject();
    // Returns the index of the new vertex.
    i32 addVertex(const Vector& place, const VertexShade& shade = {});
    // The corners, 3 to 10, are those of a flat and convex polygon and run counter-clockwise as it is seen. The flat
    // fallbacks draw the face colour.
    Face& addFace(Object& object, SceneMaterial& material, const std::vector<Corner>& corners, u16 faceColour = 0);

    // Whether the plane of the corners passes the eye at a distance. A face that is seen edge-on has no depth plane.
    bool isOffTheEye(const std::vector<Corner>& corners) const;

    // Draws one frame. When `clear` is set, pixels that no polygon covers become 0.
    void draw(u16* pixels, i32 pitch, bool clear = true);
    SceneObject* pick(f32 x, f32 y, i32* faceIndex, f32* depth);

    // The size of a frame that holds the drawn rectangle.
    i32 width() const { return static_cast<i32>(settings.right); }
    i32 height() const { return static_cast<i32>(settings.bottom); }

    // All faces, materials and objects, in the order in which they were made.
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

    void initialiseRenderer(); // does nothing when this scene was the last to initialise the renderer
    Vector normalOf(const std::vector<Corner>& corners) const;
};

} // namespace kardeno::scenes
