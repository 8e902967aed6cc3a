#include "interface/faces.h"

#include <stdlib.h>

namespace kardeno {

bool addFace(HostContext& context, SceneFace& face)
{
    face.faceColour = static_cast<u16*>(context.alloc(1, sizeof(u16)));
    if (!face.faceColour) return false;
    // Intended: 63,536, never seeded: a fresh process gives its faces the generator's first values in order.
    *face.faceColour = static_cast<u16>(rand() % 63536);
    return true;
}

void releaseFace(HostContext& context, const SceneFace& face)
{
    if (face.faceColour) context.free(face.faceColour);
}

} // namespace kardeno
