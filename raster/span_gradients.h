// What a filler hands to the inner routine that draws a span: where the span begins, the interpolated values there, and
// how they change along the row.
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

// A filler sets only the fields that its inner routine reads.
struct SpanGradients {
    i32 x;              // first column of the span, to which the start values belong
    i32 count;          // pixels still to draw; the inner routine subtracts 8 for every block that it has drawn
    Interpolants start; // at x
    Interpolants step;  // per pixel
    Interpolants step8; // per 8 pixels
    const TextureImage* texture;
    const RampEntry* ramp;
    i32 shade;     // lit textured spans: the shade at x in 8.8 fixed point, linear on the screen
    i32 shadeStep; // per pixel
    u32 key;       // the texel that a colour-keyed span leaves undrawn
};

// Draws `count` pixels to the right, beginning at *pixels. Of the span only `count` may be changed.
using SpanRoutine = void (*)(SpanGradients* span, u16* pixels);

} // namespace kardeno
