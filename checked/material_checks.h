// Looks at materials and their texture maps, when a state is chosen for them and when they are drawn with.
#pragma once

#include "checked/sentences.h"
#include "host/render_modes.h"

namespace kardeno::checked {

// What a row of the render-mode table needs of a material and of its faces.
struct RowNeeds {
    u32 texelBits; // of the map; 0: no map
    bool ramp;
    bool light;  // the intensities of the vertices
    bool shades; // the intensities or the colours of the vertices
    bool billboard;
};
const RowNeeds& needsOf(RenderModeRow row);

// The place with the material in it.
Place at(const Place& place, const SceneMaterial& material);

// Whether the material was added and not released.
bool isAdded(const SceneMaterial& material, const Place& place);

// Whether the library can choose a state for a material.
bool mayChooseState(const SceneMaterial& material, i32 state, const Place& place);
// Looks at a material for which a state was just chosen. `hadRamp` says whether it had a ramp before.
void lookAtChoice(const SceneMaterial& material, i32 state, bool hadRamp, const Place& place);

// Whether the library can fill the material's ramp again, if there is one.
bool mayRefillRamp(const SceneMaterial& material, const Place& place);

// Whether the material has a row of the table, which is left in *row.
bool hasRow(const SceneMaterial& material, const Place& place, RenderModeRow* row);
// The same, and it has what its row needs.
bool mayBeDrawnWith(const SceneMaterial& material, const Place& place, RenderModeRow* row);

} // namespace kardeno::checked
