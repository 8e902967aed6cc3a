// Looks at the object tree: that it ends, that parts have a group, and that objects have what is asked of them.
#pragma once

#include "checked/sentences.h"

namespace kardeno::checked {

// Whether the walk over the view's trees comes to an end. Tells of parts that no group encloses.
bool treeEnds(const RenderView& view, const Place& place);

// Whether the object is a group; an object without a flag is none.
bool isGroup(const SceneObject& object, const Place& place);

// The functions of an object; 0 when it has none.
const ObjectFunctions* functionsOf(const SceneObject& object, const Place& place);

// Whether a function of the object is there.
template <class Function>
bool isThere(Function function, const char* name, const Place& place)
{
    if (!function) tell(Mistake::missingFunction, place, "%s", name);
    return function;
}

} // namespace kardeno::checked
