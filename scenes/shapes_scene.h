// The shapes that scenes are composed of. Their vertices carry their light: an intensity from one lamp, and colour
// channels that follow from the direction in which the surface faces.
#pragma once

#include "scenes/base_scene.h"

namespace kardeno::scenes {

// Where a shape is placed: the directions of its three axes, each of length 1, and its origin.
struct Placement {
    Vector right{1, 0, 0}, up{0, 1, 0}, away{0, 0, 1};
    Vector origin{};

    Vector operator()(const Vector& p) const { return origin + p.x * right + p.y * up + p.z * away; }
    Vector direction(const Vector& d) const { return d.x * right + d.y * up + d.z * away; }
};

// Returns the placement that a quaternion rotates to. The quaternion has whole numbers, so the matrix of the rotation
// is made of fractions and needs no square root.
Placement turned(i32 w, i32 x, i32 y, i32 z, const Vector& origin = {});

// Adds shapes, in the current material, to one object of a scene.
struct Workbench {
    Scene& scene;
    Object& object;
    SceneMaterial* material = nullptr;
    u16 faceColour = 0; // of the next face; grows by colourStep from face to face
    u16 colourStep = 0;
    f64 minIntensity = 24, maxIntensity = 250;

    explicit Workbench(Scene& theScene) : scene(theScene), object(theScene.addObject()) {}

    VertexShade shadeOf(const Vector& normal) const;
    void face(const std::vector<Corner>& corners);

    // A rectangle that faces the viewer when it is not turned. The map lies repeatU times over its width and repeatV
    // times over its height.
    void panel(const Placement& placement, f64 halfWidth, f64 halfHeight, f64 repeatU = 1, f64 repeatV = 1);
    void box(const Placement& placement, f64 halfWidth, f64 halfHeight, f64 halfDepth, f64 repeat = 1);
    // A ball of 12 meridians and 6 rings, smoothly shaded.
    void ball(const Placement& placement, f64 radius);
    // The four triangles of a pyramid; its square base is left open.
    void pyramid(const Placement& placement, f64 halfBase, f64 height);
    // The face that a billboard is made from. It is twice as wide as high, because the billboard is a square all the
    // same.
    void billboard(const Vector& centre, f64 halfSize);
};

} // namespace kardeno::scenes
