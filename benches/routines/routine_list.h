// All inner routines, each with the forms in which it exists.
#pragma once

#include "raster/span_gradients.h"

#include <string>
#include <vector>

namespace kardeno::benches {

struct Form {
    const char* name; // "plain", "packed", "bare" (twice, when the bare loop has two forms)
    SpanRoutine routine;
};

struct Routine {
    std::string name;
    const char* map; // "256x256", "any" or, without a texture, ""
    const char* format;
    u32 bitsPerTexel; // 0 without a texture
    std::vector<Form> forms;
};

// The routines for 5-6-5 and, when they are others, those for 5-5-5.
std::vector<Routine> allRoutines();

} // namespace kardeno::benches
