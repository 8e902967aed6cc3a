// How a material is drawn: one of twenty shared rows of routines, and the private record that points a material at one.
// A row is a chain: a face-emission routine, the six plane clippers that it calls, and the span filler of the result.
#pragma once

#include "interface/host_records.h"

namespace kardeno {

struct ScreenPolygon;

using EmitRoutine = void (*)(const RenderView* view, const SceneFace* face);
using ClipRoutine = void (*)(const RenderView* view, ScreenPolygon* polygon);
// Draws the polygon's visible spans. Pixel (x, y) is frameBuffer[y * pitch + x]; the argument is read by no filler.
using FillRoutine = void (*)(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// The six clippers of a vertex format, in the order in which a row holds them. The emission routines call them through
// the row of the face's material.
struct ClipperFamily {
    ClipRoutine near;
    ClipRoutine far;
    ClipRoutine right;
    ClipRoutine left;
    ClipRoutine bottom;
    ClipRoutine top;
};

struct RenderMode {
    i32 state; // the render state most recently chosen with this row, by whichever material
    EmitRoutine emit;
    ClipperFamily clip;
    FillRoutine fill;
};
static_assert(sizeof(RenderMode) == 36);

// The rows, in their order in memory.
struct ModeRow {
    enum Index : u32 {
        FallbackFlat,
        FallbackBlend,
        UnlitPlain,
        UnlitTextured,
        UnlitTexturedShade1,
        UnlitTranslucent,
        UnlitTexturedTranslucent,
        UnlitTexturedShade2,
        UnlitTexturedShade10,
        UnlitTexturedShade11,
        UnlitPalettised,
        LitPlain,
        LitTextured,
        LitTexturedShade1,
        LitTranslucent,
        LitTexturedTranslucent,
        LitTexturedShade1Translucent,
        LitTexturedShade2,
        SpareA, // no render state selects the spare rows; a material's `mode` can be pointed at them
        SpareB,
        count
    };
};

// Filled at initialisation; rows never move, and only `state` changes afterwards.
extern RenderMode RenderModeTable[ModeRow::count];

// A ramp entry holds a 16-bit pixel in its upper half. 64 entries (one per light level), or 64 x 256 (level x 256 +
// palette index) for a material with a texture map.
using RampEntry = u32;
inline constexpr u32 rampLevels = 64;
inline constexpr u32 paletteSize = 256;

// The renderer's record on a material, allocated zero-filled through the host.
struct MaterialPrivate {
    RenderMode* mode;     // 0 until a render state is first chosen
    RampEntry* shadeRamp; // 0 until a row first needs it; keeps its size for the material's life
};
static_assert(sizeof(MaterialPrivate) == 8);

// Bits of the material flag word.
enum : u32 {
    flagTextured = 1,
    flagShade1 = 2,
    flagHalfTransparent = 4,
    flagOtherTransparency = 8,
    flagShade2 = 64,
    flagShade10 = 256,
    flagShade11 = 512
};

// The row of a material that has been given one.
inline RenderMode& modeOf(const SceneMaterial& material)
{
    return *material.renderPrivate->mode;
}

} // namespace kardeno
