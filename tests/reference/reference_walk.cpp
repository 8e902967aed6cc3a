#include "tests/reference/reference_walk.h"

namespace kardeno::reference {

namespace {

bool isGroup(const SceneObject* object)
{
    return *object->groupFlag != 0;
}

bool isPart(const SceneObject* object)
{
    return !isGroup(object) && object->partOfGroup != 0;
}

const ObjectFunctions& functionsOf(const SceneObject* object)
{
    return *object->objectClass->functions;
}

// Where the tree of drawn objects runs out, the object itself stands in.
SceneObject* orItself(SceneObject* counterpart, SceneObject* object)
{
    return counterpart ? counterpart : object;
}

} // namespace

void Walk::roots()
{
    for (SceneObject* root = view->firstObject; root; root = root->nextRoot) {
        SceneObject* along = nullptr;
        member(root, root, along);
    }
}

void Walk::chain(SceneObject* object, SceneObject* counterpart)
{
    while (object) {
        SceneObject* along = nullptr;
        member(object, orItself(counterpart, object), along);
        counterpart = along->nextSibling;
        object = object->nextSibling;
    }
}

// One object and everything below it. `along` is the object whose children and sibling are the next counterparts.
void Walk::member(SceneObject* object, SceneObject* counterpart, SceneObject*& along)
{
    along = object;
    if (isGroup(object)) {
        group(object, counterpart);
    } else if (!isPart(object)) {
        along = plain(object);
    }
    chain(object->firstChild, along->firstChild);
}

SceneObject* Walk::plain(SceneObject* object)
{
    functionsOf(object).update(object);
    functionsOf(object).transform(object, view);
    SceneObject* const drawn = drawnObjectOf(object);
    testBounds(drawn, object);
    if (object->visible) {
        prepare(drawn, object);
        takeFaces(drawn, object);
    }
    return drawn;
}

void Walk::group(SceneObject* object, SceneObject* counterpart)
{
    functionsOf(object).update(object);
    functionsOf(object).transform(object, view);
    updateParts(object->firstChild);
    SceneObject* drawn = drawnObjectOf(object);
    if (drawn == object && counterpart) drawn = counterpart;
    testBounds(drawn, object);
    if (!object->visible) {
        object->visible = findVisiblePart(object->firstChild, drawn->firstChild);
        if (!object->visible) return;
    }
    prepare(drawn, object);
    forParts(object->firstChild, drawn->firstChild,
             [&](SceneObject* partDrawn, SceneObject* part) { prepare(partDrawn, part); });
    takeFaces(drawn, object);
    forParts(object->firstChild, drawn->firstChild, takeFaces);
}

void Walk::updateParts(SceneObject* first)
{
    for (SceneObject* part = first; part; part = part->nextSibling) {
        if (!isPart(part)) continue;
        functionsOf(part).update(part);
        functionsOf(part).transform(part, view);
        updateParts(part->firstChild);
    }
}

bool Walk::findVisiblePart(SceneObject* object, SceneObject* counterpart)
{
    while (object && !isPart(object)) {
        counterpart = orItself(counterpart, object)->nextSibling;
        object = object->nextSibling;
    }
    if (!object) return false;
    SceneObject* const drawn = orItself(counterpart, object);
    testBounds(drawn, object);
    return object->visible || findVisiblePart(object->firstChild, drawn->firstChild)
           || findVisiblePart(object->nextSibling, drawn->nextSibling);
}

void Walk::forParts(SceneObject* first, SceneObject* counterpart,
                    const std::function<void(SceneObject* drawn, SceneObject* part)>& act)
{
    for (SceneObject* part = first; part; part = part->nextSibling) {
        SceneObject* const drawn = orItself(counterpart, part);
        if (isPart(part)) {
            act(drawn, part);
            forParts(part->firstChild, drawn->firstChild, act);
        }
        counterpart = drawn->nextSibling;
    }
}

SceneObject* Walk::drawnObjectOf(SceneObject* object)
{
    return orItself(functionsOf(object).selectLevel(object, view), object);
}

void Walk::testBounds(SceneObject* drawn, SceneObject* object)
{
    functionsOf(drawn).testBounds(drawn, object, view);
}

void Walk::prepare(SceneObject* drawn, SceneObject* object)
{
    ++context->projectionStamp;
    bool lit = false;
    for (const MaterialNode* node = drawn->materials; node && !lit; node = node->next) {
        const i32 state = materials->stateOf(materials->of(node->material).row);
        lit = state == 1 || state == 2;
    }
    if (lit && lights) functionsOf(drawn).light(drawn, object, view);
    functionsOf(drawn).prepareVertices(drawn, object, view);
}

} // namespace kardeno::reference
