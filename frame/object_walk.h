// The walk over the host's object tree: one piece of code for frames and picks. It decides the order of the host's
// callbacks, which objects are skipped, how the parts of a group are culled as one, and when the cache of projected
// vertices loses its validity. Transformation and lighting are the host's.
//
// Two trees are walked side by side: the object tree, and the drawn objects that the host's selectLevel answers with.
// They have children and siblings in the same places; where the drawn side runs out, the object itself stands in.
#pragma once

#include "host/render_modes.h"

#include <concepts>

namespace kardeno {

// A visitor says whether objects are lit on the walk, and takes the faces of each drawn object for the object of the
// tree that owns them.
template <class Visitor>
concept FaceVisitor = requires(Visitor visitor, RenderView* view, SceneObject* object)
{
    {
        Visitor::lights
        } -> std::convertible_to<bool>;
    visitor.visitFaces(view, object, object);
};

// True when any of the drawn object's materials is in render state 1 or 2.
bool needsLight(const SceneObject& drawn);

// The faces of a drawn object that pass the host's own test: visit(face, index).
template <class Visit>
void forEachTestedFace(const SceneObject& drawn, Visit visit)
{
    for (i32 i = 0; i < drawn.faceCount; ++i) {
        SceneFace* const face = drawn.faces[i];
        if (face->faceTest->test(face)) visit(face, i);
    }
}

template <FaceVisitor Visitor>
class ObjectWalk {
public:
    ObjectWalk(HostContext& theContext, RenderView* theView, Visitor& theVisitor)
        : context(theContext), view(theView), visitor(theVisitor)
    {
    }

    void walkRoots()
    {
        for (SceneObject* root = view->firstObject; root; root = root->nextRoot) walkObject(root, root);
    }

private:
    HostContext& context;
    RenderView* view;
    Visitor& visitor;

    static bool isGroup(const SceneObject& object) { return *object.groupFlag != 0; }
    static bool isPart(const SceneObject& object) { return !isGroup(object) && object.partOfGroup; }
    static SceneObject* orItself(SceneObject* counterpart, SceneObject* object)
    {
        return counterpart ? counterpart : object;
    }
    static const ObjectFunctions& functionsOf(const SceneObject& object) { return *object.objectClass->functions; }

    void place(SceneObject* object)
    {
        functionsOf(*object).update(object);
        functionsOf(*object).transform(object, view);
    }

    SceneObject* selectedLevel(SceneObject* object)
    {
        return orItself(functionsOf(*object).selectLevel(object, view), object);
    }

    void testBounds(SceneObject* drawn, SceneObject* object) { functionsOf(*drawn).testBounds(drawn, object, view); }

    // The new stamp makes every cached projection stale.
    void lightAndPrepare(SceneObject* drawn, SceneObject* object)
    {
        ++context.projectionStamp;
        if (Visitor::lights && needsLight(*drawn)) functionsOf(*drawn).light(drawn, object, view);
        functionsOf(*drawn).prepareVertices(drawn, object, view);
    }

    // The object and everything below it. Gives back what the object's next sibling has beside it.
    SceneObject* walkObject(SceneObject* object, SceneObject* counterpart)
    {
        SceneObject* beside = object;
        if (isGroup(*object))
            showGroup(object, counterpart);
        else if (!object->partOfGroup)
            beside = showPlain(object);

        // The children of a group are met a second time here: its parts are passed over, the others shown.
        SceneObject* childBeside = beside->firstChild;
        for (SceneObject* child = object->firstChild; child; child = child->nextSibling)
            childBeside = walkObject(child, orItself(childBeside, child));
        return beside->nextSibling;
    }

    SceneObject* showPlain(SceneObject* object)
    {
        place(object);
        SceneObject* const drawn = selectedLevel(object);
        testBounds(drawn, object);
        if (object->visible) {
            lightAndPrepare(drawn, object);
            visitor.visitFaces(view, object, drawn);
        }
        return drawn;
    }

    void showGroup(SceneObject* group, SceneObject* counterpart)
    {
        place(group);
        placeParts(group);

        SceneObject* drawn = selectedLevel(group);
        if (drawn == group) drawn = counterpart;
        testBounds(drawn, group);
        if (!group->visible) group->visible = anyPartVisible(group->firstChild, drawn->firstChild) ? 1 : 0;
        if (!group->visible) return;

        // All parts are prepared before any face is visited: the parts of a group share no vertices.
        lightAndPrepare(drawn, group);
        forEachPart(group, drawn, [this](SceneObject* part, SceneObject* shown) { lightAndPrepare(shown, part); });
        visitor.visitFaces(view, group, drawn);
        forEachPart(group, drawn,
                    [this](SceneObject* part, SceneObject* shown) { visitor.visitFaces(view, part, shown); });
    }

    void placeParts(SceneObject* parent)
    {
        for (SceneObject* child = parent->firstChild; child; child = child->nextSibling) {
            if (!isPart(*child)) continue;
            place(child);
            placeParts(child);
        }
    }

    // Every part below the parent with its counterpart, parents first. What is not a part is passed over with all that
    // is below it.
    template <class Visit>
    void forEachPart(SceneObject* parent, SceneObject* drawnParent, const Visit& visit)
    {
        SceneObject* counterpart = drawnParent->firstChild;
        for (SceneObject* child = parent->firstChild; child; child = child->nextSibling) {
            counterpart = orItself(counterpart, child);
            if (isPart(*child)) {
                visit(child, counterpart);
                forEachPart(child, counterpart, visit);
            }
            counterpart = counterpart->nextSibling;
        }
    }

    // Looks along a chain of siblings and below its parts for a part that the host finds visible; stops at the first.
    bool anyPartVisible(SceneObject* object, SceneObject* counterpart)
    {
        for (; object; object = object->nextSibling) {
            counterpart = orItself(counterpart, object);
            if (isPart(*object)) {
                testBounds(counterpart, object);
                if (object->visible || anyPartVisible(object->firstChild, counterpart->firstChild)) return true;
            }
            counterpart = counterpart->nextSibling;
        }
        return false;
    }
};

} // namespace kardeno
