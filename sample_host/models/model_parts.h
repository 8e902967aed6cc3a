// What readers of models do, whatever the form of the file.
#pragma once

#include "sample_host/host/model.h"

namespace sample_host {

// A board of two greys: on a model that has neither material nor image it lets the shape be seen.
std::shared_ptr<const Image> chequerboard();

// Moves and scales the places into the sphere of radius 1 around the origin. What is not finite is not looked at.
// False, and nothing is changed, when all are in one place or there are none.
bool fitIntoSphere(std::span<Vector> places);

inline bool isFinite(const Vector& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

// Draws the colours of the vertices of the model's mesh, in all of its materials that can: an opaque material without a
// shading mode. The others are remarked on.
void useVertexColours(Model& model);

} // namespace sample_host
