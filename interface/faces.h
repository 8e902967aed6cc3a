// What the renderer keeps for a face: a block of two bytes with its random flat colour, which the fallback rows paint
// the face with, so that faces whose material has no supported mode are told apart on the screen.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// Allocates the colour block and draws its value; false when the host gave no memory. Adding a face again loses the
// first block.
bool addFace(HostContext& context, SceneFace& face);

// Frees the colour block, if there is one. The pointer is not cleared.
void releaseFace(HostContext& context, const SceneFace& face);

} // namespace kardeno
