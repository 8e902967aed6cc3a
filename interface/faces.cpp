#include "interface/faces.h"

#include "interface/host_context.h"

#include <stdlib.h>

namespace kardeno {

bool addFace(SceneFace& face)
{
    face.faceColour = static_cast<u16*>(hostContext->alloc(1, sizeof(u16)));
    if (!face.faceColour) return false;
    // Intended: 63,536. Never seeded here: a fresh process gives its faces the generator's first values in order.
    *face.faceColour = static_cast<u16>(rand() % 63536);
    return true;
}

void releaseFace(const SceneFace& face)
{
    if (face.faceColour) hostContext->free(face.faceColour);
}

} // namespace kardeno
