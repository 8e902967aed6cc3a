// What all parts of the library know about the way in which a material is drawn: its row of the render-mode table and
// its shade ramp.
#pragma once

#include "kardeno_soft/render_modes.h"

namespace kardeno {

// A shade ramp has 64 entries, one for each light level. That of a material with a texture map has 64 x 256: the entry
// of a level and a palette index is level x 256 + index.
inline constexpr u32 rampLevels = 64;
inline constexpr u32 paletteSize = 256;

// The table is filled at initialisation. Rows never move, and only their `state` changes afterwards.
extern RenderMode RenderModeTable[renderModeRowCount];

// The row of a material. A render state must have been chosen for the material before.
inline RenderMode& modeOf(const SceneMaterial& material)
{
    return *material.renderPrivate->mode;
}

} // namespace kardeno
