// How things move: where an object stands in its parent, or in the scene when it has none, at a phase from 0 to 1.
#pragma once

#include "sample_host/host/vector_maths.h"

#include <functional>

namespace sample_host {

// Gives the place at a phase. It is called while the renderer draws, and therefore may not throw. Where the scene is to
// repeat without a jump, the place at phase 1 is that at phase 0.
using Movement = std::function<Placement(double phase)>;

inline Movement standing(const Placement& place)
{
    return [place](double) { return place; };
}

// Turns around an axis of length 1 while the phase goes from 0 to 1.
inline Movement turning(const Placement& place, const Vector& axis, double turns)
{
    return [=](double phase) { return place * turned(axis, turns * phase); };
}

// Swings around an axis of length 1 to both sides of a middle; all in turns.
struct Swing {
    Vector axis{1, 0, 0};
    double middle = 0, width = 0;
    int beats = 1;   // while the phase goes from 0 to 1
    double lead = 0; // in beats
};
inline Movement swinging(const Placement& place, const Swing& swing)
{
    return [=](double phase) {
        return place * turned(swing.axis, swing.middle + swing.width * sineOfTurn(swing.beats * phase + swing.lead));
    };
}

} // namespace sample_host
