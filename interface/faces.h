// The renderer keeps a random flat colour for each face, in a block of two bytes. The fallback rows draw the face in
// this colour, so that faces whose material has no row of its own are told apart on the screen.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// Allocates the colour block of a face and stores a random colour in it. Returns false when the host gave no memory.
// The first block is lost when a face is added again.
bool addFace(HostContext& context, SceneFace& face);

// Frees the colour block of a face, if there is one. The pointer faceColour is not cleared.
void releaseFace(HostContext& context, const SceneFace& face);

} // namespace kardeno
