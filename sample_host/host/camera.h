// The camera and the view through it.
#pragma once

#include "sample_host/host/renderer_table.h"
#include "sample_host/host/vector_maths.h"

namespace sample_host {

// A camera that circles around a target. The renderer's record is the base class.
struct Camera : SceneCamera {
    Camera();

    Vector target{};
    double distance = 3;
    double height = 1;        // of the eye above the target
    double startTurn = 0;     // of the circle, at phase 0
    double turnsPerRound = 1; // while the phase goes from 0 to 1
    double sway = 0;          // to both sides of that, in turns
    double zoom = 1.8;        // a thing that is `zoom` times its size away fills half of the picture's height
    double nearZ = 0.1, farZ = 100;
    double phase = 0;

    // From the scene to the eye at a phase: X to the right, Y up, Z away.
    Placement sceneToEye(double atPhase) const;
    // The same for the current frame, stretched as the view says. Written at the renderer's call that places the
    // camera.
    Placement fromScene{};
};

// A view that covers a frame buffer of this size. It is the renderer's record with the projection that it points to.
struct View : RenderView {
    View(Camera& viewCamera, int width, int height, int rowPixels);
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    Camera& eye() const { return *static_cast<Camera*>(camera); }
    double width() const { return mapping_.right; }
    double height() const { return mapping_.bottom; }

    // By how much camera space is stretched in X and in Y. Thereby the four side planes of the view's pyramid become
    // X = -Z, X = Z, Y = Z and Y = -Z, which are the planes that outcodes speak of.
    double stretchX() const { return eye().zoom * height() / width(); }
    double stretchY() const { return eye().zoom; }

private:
    ViewProjection mapping_{};
};

} // namespace sample_host
