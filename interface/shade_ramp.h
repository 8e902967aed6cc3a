// A material's shade ramp: the pixel of every light level, for untextured materials, or of every light level and
// palette entry, for textured ones. Lit rows and palettised maps look their colours up in it.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// Allocates the material's ramp, sized by its current flag word, and fills it. False when the host gave no memory.
bool buildShadeRamp(HostContext& context, SceneMaterial& material);

// Fills the ramp that the material has, from its current colours, palette and flag word.
// Intended: which of the two ramps is filled follows the flag word of now, the size that of when the ramp was built; a
// host that adds or removes a texture map releases and adds the material again.
void fillShadeRamp(const HostContext& context, const SceneMaterial& material);

} // namespace kardeno
