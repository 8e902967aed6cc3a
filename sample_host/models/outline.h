// The outline of a face, as files have it, becomes triangles that can be drawn.
#pragma once

#include "sample_host/host/vector_maths.h"

#include <array>
#include <span>
#include <vector>

namespace sample_host {

// What is wrong with an outline.
enum class OutlineFault {
    none,
    tooFewCorners,
    noArea,         // all corners lie on one line, or the outline goes back on its own way: no triangles
    repeatsCorners, // drawn without the repetitions
    crossesItself,  // drawn as far as triangles were found
};

struct SplitOutline {
    std::vector<std::array<std::size_t, 3>> triangles; // by the places of their corners in the outline
    OutlineFault fault = OutlineFault::none;
};

// Splits a flat outline, convex or not, in a model of about the size 1. Every triangle has an area, and the outline's
// direction. An outline that comes back to one of its corners is split there, and what it goes round several times is
// drawn once; if one of the parts goes round the other way, it is a hole.
SplitOutline splitOutline(std::span<const Vector> corners);

} // namespace sample_host
