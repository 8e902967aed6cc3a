// What the rooms know of the render-mode table: the row that a material points at, its flag word and its shade ramp.
#pragma once

#include "kardeno_soft/render_modes.h"

namespace kardeno {

// 64 entries (one for each light level), or 64 x 256 (level x 256 + palette index) for a material with a texture map.
inline constexpr u32 rampLevels = 64;
inline constexpr u32 paletteSize = 256;

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
