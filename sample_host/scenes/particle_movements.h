// How particles move. Each is born again and again, and no two of them alike.
#pragma once

#include "sample_host/host/movement.h"

namespace sample_host {

// Number `i` of `count` drops: thrown out of the mouth above the origin, and down to the water along a parabola.
struct Fountain {
    double spout = 1; // height of the mouth
    double waterLevel = 0;
};
Movement thrown(const Fountain& fountain, int i, int count);

// Number `i` of `count` flames: rises from a fire, swaying, and burns down to nothing.
Movement burning(const Vector& fire, int i, int count);

} // namespace sample_host
