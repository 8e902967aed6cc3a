#include "checked/tree_checks.h"

#include "checked/address_table.h"

namespace kardeno::checked {

namespace {

using Link = SceneObject* SceneObject::*;

// The objects on the way from a root to the one that is looked at have the value 1.
constinit AddressTable onTheWay;

// The first object of a chain that is met twice; 0 when the chain ends. The second pointer waits while the first one
// runs 1, 2, 4, 8 and so on links ahead.
const SceneObject* ringOf(const SceneObject* first, Link link)
{
    const SceneObject* waiting = first;
    i32 steps = 0, longest = 1;
    for (const SceneObject* object = first; object;) {
        object = object->*link;
        if (object && object == waiting) return object;
        if (++steps == longest) {
            waiting = object;
            steps = 0;
            longest *= 2;
        }
    }
    return nullptr;
}

Place at(const Place& place, const SceneObject* object)
{
    Place result = place;
    result.object = object;
    return result;
}

// `enclosed`: the parent is a group or an enclosed part of one.
bool endsBelow(const SceneObject* first, Link link, bool enclosed, const Place& place)
{
    if (const SceneObject* const object = ringOf(first, link)) {
        tell(Mistake::treeRing, at(place, object));
        return false;
    }
    for (const SceneObject* object = first; object; object = object->*link) {
        const bool group = isGroup(*object, at(place, object));
        if (!group && object->partOfGroup && !enclosed) tell(Mistake::partOutsideGroup, at(place, object));
        if (!object->firstChild) continue;

        u32* const isOnTheWay = onTheWay.findOrAdd(object);
        if (isOnTheWay && *isOnTheWay) {
            tell(Mistake::treeRing, at(place, object));
            return false;
        }
        if (isOnTheWay) *isOnTheWay = 1;
        const bool ends =
            endsBelow(object->firstChild, &SceneObject::nextSibling, group || (enclosed && object->partOfGroup), place);
        if (u32* const left = onTheWay.find(object)) *left = 0;
        if (!ends) return false;
    }
    return true;
}

} // namespace

bool treeEnds(const RenderView& view, const Place& place)
{
    return endsBelow(view.firstObject, &SceneObject::nextRoot, false, place);
}

bool isGroup(const SceneObject& object, const Place& place)
{
    if (object.groupFlag) return *object.groupFlag != 0;
    tell(Mistake::missingGroupFlag, place);
    return false;
}

const ObjectFunctions* functionsOf(const SceneObject& object, const Place& place)
{
    if (object.objectClass && object.objectClass->functions) return object.objectClass->functions;
    tell(Mistake::missingClass, place);
    return nullptr;
}

} // namespace kardeno::checked
