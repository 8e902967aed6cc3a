// A material's private record, flag word and choice of row.
#pragma once

#include "host/render_modes.h"

namespace kardeno {

// Hangs a zeroed private record on the material; false when the host gave no memory.
bool addMaterial(HostContext& context, SceneMaterial& material);

// Frees the ramp and the private record. The pointers to them are not cleared.
void releaseMaterial(HostContext& context, const SceneMaterial& material);

// Refills the ramp, if there is one; flag word and row stay.
void updateMaterial(HostContext& context, const SceneMaterial& material);

// Recomputes the flag word from texture map, transparency and shading mode.
void setMaterialFlags(SceneMaterial& material);

// Recomputes the flag word, selects the row and stores the state in it. False when a ramp was needed and refused, in
// which case the material keeps its row, and for a material without a private record.
bool setMaterialState(HostContext& context, SceneMaterial& material, i32 state);

// The state most recently chosen with the material's row. Rows are shared: another material may have chosen it.
i32 materialState(const SceneMaterial& material);

} // namespace kardeno
