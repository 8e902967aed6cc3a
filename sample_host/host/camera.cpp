#include "sample_host/host/camera.h"

namespace sample_host {

namespace {

// The renderer calls this before anything else of a frame: the eye goes to its place on the circle.
void placeCamera(SceneCamera* record, RenderView* view) noexcept
{
    Camera& camera = *static_cast<Camera*>(record);
    const View& through = *static_cast<const View*>(view);
    const Placement stretch{{through.stretchX(), 0, 0}, {0, through.stretchY(), 0}, {0, 0, 1}, {}};
    camera.fromScene = stretch * camera.sceneToEye(camera.phase);
}

constexpr CameraFunctions cameraFunctions{placeCamera};

} // namespace

Camera::Camera() : SceneCamera{}
{
    functions = &cameraFunctions;
}

Placement Camera::sceneToEye(double atPhase) const
{
    const double turn = startTurn + turnsPerRound * atPhase + sway * sineOfTurn(atPhase);
    const Vector eye = target + Vector{sineOfTurn(turn) * distance, height, cosineOfTurn(turn) * distance};
    const Vector away = unit(target - eye);
    const Vector right = unit(cross(away, {0, 1, 0}));
    const Vector up = cross(right, away);
    // The three directions of the eye are the rows of its matrix.
    return {{right.x, up.x, away.x},
            {right.y, up.y, away.y},
            {right.z, up.z, away.z},
            {-dot(right, eye), -dot(up, eye), -dot(away, eye)}};
}

View::View(Camera& viewCamera, int width, int height, int rowPixels) : RenderView{}
{
    camera = &viewCamera;
    left = 0;
    top = 0;
    nearZ = f32(viewCamera.nearZ);
    farZ = f32(viewCamera.farZ);
    pitch = rowPixels;
    projection = &mapping_;

    // With the centre and the scale both half the picture, the edges of the picture are where |X| = Z and |Y| = Z.
    mapping_.right = f32(width);
    mapping_.bottom = f32(height);
    mapping_.centreX = mapping_.scaleX = f32(width) / 2;
    mapping_.centreY = mapping_.scaleY = f32(height) / 2;
    mapping_.invScaleX = 1 / mapping_.scaleX;
    mapping_.invScaleY = 1 / mapping_.scaleY;
    mapping_.centreXOverScaleX = mapping_.centreX / mapping_.scaleX;
    mapping_.centreYOverScaleY = mapping_.centreY / mapping_.scaleY;
}

} // namespace sample_host
