// The shade ramp of a material has a pixel for every light level or, when the material has a texture, for every light
// level and palette index. Lit rows and the unlit row for palettised maps look their colours up in it.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// Allocates the material's ramp, whose size follows from the current flag word, and fills it. Returns false when the
// host gave no memory.
bool buildShadeRamp(HostContext& context, SceneMaterial& material);

// Fills the material's ramp from its current colours, palette and flag word.
// Intended: which of the two ramps is filled follows the flag word of now, the size that of when the ramp was built. A
// host that adds or removes a texture map has to release the material and add it again.
void fillShadeRamp(const HostContext& context, const SceneMaterial& material);

} // namespace kardeno
