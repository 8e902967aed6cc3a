// What a filler hands to the inner routine of a span: where the span begins, the interpolated values there, and how
// they change along the row.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// The values that a filler can interpolate.
struct Interpolants {
    f32 invDepth;
    f32 texU, texV;
    f32 intensity;
    f32 colourR, colourG, colourB;
};

// Every slot is 32 bits wide; a family of fillers sets only those that it uses.
struct SpanGradients {
    i32 x;              // first column of the span; the start values belong to it
    i32 count;          // pixels still to draw; the inner routine takes 8 off for every block that it finishes
    Interpolants start; // at x
    Interpolants step;  // per pixel
    Interpolants step8; // per 8 pixels
    const TextureImage* texture;
    const RampEntry* ramp;
    i32 shade;     // lit textured spans: the 8.8 shade at x, linear on the screen
    i32 shadeStep; // per pixel
    u32 key;       // texel that a colour-keyed span leaves undrawn
};

// Draws `count` pixels rightward. Works on copies of the start values: only `count` is changed.
using SpanRoutine = void (*)(SpanGradients* span, u16* pixels);

} // namespace kardeno
