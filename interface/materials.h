// The renderer's side of a material: its private record, its flag word and its row of the render-mode table.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// Gives the material a private record, filled with zeros. Returns false when the host gave no memory.
bool addMaterial(HostContext& context, SceneMaterial& material);

// Frees the shade ramp and the private record. The pointer renderPrivate is not cleared.
void releaseMaterial(HostContext& context, const SceneMaterial& material);

// Refills the shade ramp, if there is one. The flag word and the row stay as they are.
void updateMaterial(HostContext& context, const SceneMaterial& material);

// Recomputes the flag word from the texture map, the transparency and the shading mode.
void setMaterialFlags(SceneMaterial& material);

// Recomputes the flag word, selects the row and stores the state in it. Returns false for a material without a private
// record, and when a shade ramp was needed and refused; the material then keeps its row.
bool setMaterialState(HostContext& context, SceneMaterial& material, i32 state);

// Returns the state most recently chosen with the material's row, or 0 for a material without a row. Rows are shared,
// so another material may have chosen the state.
i32 materialState(const SceneMaterial& material);

} // namespace kardeno
