#include "frame/object_walk.h"

namespace kardeno {

bool needsLight(const SceneObject& drawn)
{
    for (const MaterialNode* node = drawn.materials; node; node = node->next) {
        const i32 state = modeOf(*node->material).state;
        if (state == 1 || state == 2) return true;
    }
    return false;
}

} // namespace kardeno
