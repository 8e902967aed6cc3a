// Shapes to compose scenes of. All have their light in their vertices: an intensity from one lamp, and colour channels
// from the way they face.
#pragma once

#include "scenes/base_scene.h"

namespace kardeno::scenes {

// Where the three axes of a shape go, each of length 1, and its origin.
struct Placement {
    Vector right{1, 0, 0}, up{0, 1, 0}, away{0, 0, 1};
    Vector origin{};

    Vector operator()(const Vector& p) const { return origin + p.x * right + p.y * up + p.z * away; }
    Vector direction(const Vector& d) const { return d.x * right + d.y * up + d.z * away; }
};

// The rotation of a quaternion of whole numbers: its matrix is made of fractions.
Placement turned(i32 w, i32 x, i32 y, i32 z, const Vector& origin = {});

// What shapes are added with.
struct Workbench {
    Scene& scene;
    Object& object;
    SceneMaterial* material = nullptr;
    u16 faceColour = 0; // of the flat fallbacks; counts up from face to face by colourStep
    u16 colourStep = 0;
    f64 minIntensity = 24, maxIntensity = 250;

    explicit Workbench(Scene& theScene) : scene(theScene), object(theScene.addObject()) {}

    VertexShade shadeOf(const Vector& normal) const;
    void face(const std::vector<Corner>& corners);

    // A rectangle that faces the viewer when it is not turned. The map is repeated over it; past `repeatU` 1 it wraps.
    void panel(const Placement& placement, f64 halfWidth, f64 halfHeight, f64 repeatU = 1, f64 repeatV = 1);
    void box(const Placement& placement, f64 halfWidth, f64 halfHeight, f64 halfDepth, f64 repeat = 1);
    // 12 meridians, 6 rings, smooth.
    void ball(const Placement& placement, f64 radius);
    // A pyramid of four triangles on a square that is left open.
    void pyramid(const Placement& placement, f64 halfBase, f64 height);
    // What a billboard is made of; its corners are far from square so that it shows that they do not matter.
    void billboard(const Vector& centre, f64 halfSize);
};

} // namespace kardeno::scenes
