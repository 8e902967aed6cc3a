// The walk over the host's object tree, which frames and picks share. It decides the order of the host's callbacks,
// which objects are skipped, how the parts of a group are culled as one, and when the cached projections of vertices
// become stale. Transforming and lighting the vertices is left to the host.
//
// The host's records and functions are reached through a `Host`: trusted_host.h has the one of the plain library.
//
// Two trees are walked side by side: the object tree, and the tree of the drawn objects, as the host's selectLevel
// chooses them. A drawn object has its children and siblings in the same places as its object. Where the drawn tree has
// no counterpart for an object, the object itself is drawn.
#pragma once

#include "host/render_modes.h"

#include <concepts>

namespace kardeno {

// A visitor says whether the walk has objects lit. Its visitFaces(view, object, drawn) is called for every visible
// object and takes the faces of the drawn object, which belong to the object of the tree.
template <class Visitor>
concept FaceVisitor = requires(Visitor visitor, RenderView* view, SceneObject* object)
{
    {
        Visitor::lights
        } -> std::convertible_to<bool>;
    visitor.visitFaces(view, object, object);
};

// Whether the row of any of the drawn object's materials was last chosen by render state 1 or 2.
bool needsLight(const SceneObject& drawn);

// Calls visit(face, index) for each face of a drawn object that passes the host's own test.
template <class Host, class Visit>
void forEachTestedFace(Host& host, const SceneObject& drawn, Visit visit)
{
    constexpr i32 lookAhead = 8;
    for (i32 i = 0; i < drawn.faceCount; ++i) {
        if (i + lookAhead < drawn.faceCount) __builtin_prefetch(drawn.faces[i + lookAhead]);
        SceneFace* const face = drawn.faces[i];
        if (host.passes(face, i)) visit(face, i);
    }
}

template <class Host, FaceVisitor Visitor>
class ObjectWalk {
public:
    ObjectWalk(Host& theHost, HostContext& theContext, RenderView* theView, Visitor& theVisitor)
        : host(theHost), context(theContext), view(theView), visitor(theVisitor)
    {
    }

    // Walks all trees of the view.
    void walkRoots()
    {
        for (SceneObject* root = view->firstObject; root; root = root->nextRoot) walkObject(root, root);
    }

private:
    Host& host;
    HostContext& context;
    RenderView* view;
    Visitor& visitor;

    bool isPart(const SceneObject& object) { return !host.isGroup(object) && object.partOfGroup; }
    static SceneObject* orItself(SceneObject* counterpart, SceneObject* object)
    {
        return counterpart ? counterpart : object;
    }

    void place(SceneObject* object)
    {
        host.update(object);
        host.transform(object, view);
    }

    SceneObject* selectedLevel(SceneObject* object) { return orItself(host.selectLevel(object, view), object); }

    // Has the host prepare the vertices of an object. The new stamp makes all cached projections stale.
    void lightAndPrepare(SceneObject* drawn, SceneObject* object)
    {
        ++context.projectionStamp;
        if (Visitor::lights && host.needsLight(*drawn)) host.light(drawn, object, view);
        host.prepareVertices(drawn, object, view);
    }

    void visitFaces(SceneObject* object, SceneObject* drawn)
    {
        if (host.mayVisitFaces(object, drawn)) visitor.visitFaces(view, object, drawn);
    }

    // Walks an object and everything below it. Returns the counterpart of the object's next sibling in the drawn tree.
    SceneObject* walkObject(SceneObject* object, SceneObject* counterpart)
    {
        SceneObject* beside = object;
        if (host.isGroup(*object))
            showGroup(object, counterpart);
        else if (!object->partOfGroup)
            beside = showPlain(object);

        // Here the children of a group are met a second time. Its parts are passed over, and the others are shown.
        SceneObject* childBeside = beside->firstChild;
        for (SceneObject* child = object->firstChild; child; child = child->nextSibling)
            childBeside = walkObject(child, orItself(childBeside, child));
        return beside->nextSibling;
    }

    SceneObject* showPlain(SceneObject* object)
    {
        place(object);
        SceneObject* const drawn = selectedLevel(object);
        host.testBounds(drawn, object, view);
        if (object->visible) {
            lightAndPrepare(drawn, object);
            visitFaces(object, drawn);
        }
        return drawn;
    }

    void showGroup(SceneObject* group, SceneObject* counterpart)
    {
        place(group);
        placeParts(group);

        SceneObject* drawn = selectedLevel(group);
        if (drawn == group) drawn = counterpart;
        host.testBounds(drawn, group, view);
        if (!group->visible) group->visible = anyPartVisible(group->firstChild, drawn->firstChild) ? 1 : 0;
        if (!group->visible) return;

        // All parts are prepared before any face is visited, which is why the parts of a group must not share vertices.
        lightAndPrepare(drawn, group);
        forEachPart(group, drawn, [this](SceneObject* part, SceneObject* shown) { lightAndPrepare(shown, part); });
        visitFaces(group, drawn);
        forEachPart(group, drawn, [this](SceneObject* part, SceneObject* shown) { visitFaces(part, shown); });
    }

    void placeParts(SceneObject* parent)
    {
        for (SceneObject* child = parent->firstChild; child; child = child->nextSibling) {
            if (!isPart(*child)) continue;
            place(child);
            placeParts(child);
        }
    }

    // Calls visit(part, counterpart) for all parts below the parent, parents before their children. An object that is
    // not a part is passed over with everything below it.
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

    // Tests the bounds of the parts among an object and its siblings, and of the parts below those, until one is
    // visible.
    bool anyPartVisible(SceneObject* object, SceneObject* counterpart)
    {
        for (; object; object = object->nextSibling) {
            counterpart = orItself(counterpart, object);
            if (isPart(*object)) {
                host.testBounds(counterpart, object, view);
                if (object->visible || anyPartVisible(object->firstChild, counterpart->firstChild)) return true;
            }
            counterpart = counterpart->nextSibling;
        }
        return false;
    }
};

} // namespace kardeno
