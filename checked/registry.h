// What the host has added and not yet released. A material is known by its private record and a face by its colour
// block, so that a host may move its own records about as it likes.
#pragma once

#include "kardeno_soft/render_modes.h"

namespace kardeno::checked {

enum class Standing {
    good,
    unknown,  // never added
    released, // added once, and released
    foreign   // a face whose faceColour is not what it was given
};

void rememberMaterial(const SceneMaterial& material);
void rememberFace(const SceneFace& face);
void forgetMaterial(const SceneMaterial& material);
void forgetFace(const SceneFace& face);
// The number of entries of a ramp that was just built.
void rememberRamp(const void* ramp, u32 entries);

Standing standingOf(const SceneMaterial& material);
Standing standingOf(const SceneFace& face);
// How many materials were added before this one; -1 when it is unknown.
i32 numberOf(const SceneMaterial& material);
// The entries of a ramp; 0 when it is unknown.
u32 entriesOfRamp(const void* ramp);

} // namespace kardeno::checked
