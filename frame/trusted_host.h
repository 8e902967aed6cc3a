// How the walk over the objects and the two drivers reach the host: its records, its functions, and the questions
// whether to go on. This form believes the host, calls its functions and always goes on. A form that looks at what the
// host hands over has the same members and stands elsewhere.
#pragma once

#include "frame/object_walk.h"

namespace kardeno {

struct TrustedHost {
    static void prepareCamera(RenderView* view) { view->camera->functions->prepare(view->camera, view); }

    // Asked before the lists are emptied, after each preparation of vertices, and before the frame is drawn.
    static bool mayWalk(const RenderView*) { return true; }
    static bool mayVisitFaces(SceneObject*, SceneObject*) { return true; }
    static bool mayDraw() { return true; }

    static bool isGroup(const SceneObject& object) { return *object.groupFlag != 0; }
    static bool needsLight(const SceneObject& drawn) { return kardeno::needsLight(drawn); }

    static void update(SceneObject* object) { functionsOf(*object).update(object); }
    static void transform(SceneObject* object, RenderView* view) { functionsOf(*object).transform(object, view); }
    static SceneObject* selectLevel(SceneObject* object, RenderView* view)
    {
        return functionsOf(*object).selectLevel(object, view);
    }
    static void testBounds(SceneObject* drawn, SceneObject* object, RenderView* view)
    {
        functionsOf(*drawn).testBounds(drawn, object, view);
    }
    static void light(SceneObject* drawn, SceneObject* object, RenderView* view)
    {
        functionsOf(*drawn).light(drawn, object, view);
    }
    static void prepareVertices(SceneObject* drawn, SceneObject* object, RenderView* view)
    {
        functionsOf(*drawn).prepareVertices(drawn, object, view);
    }

    // Whether the host's own test lets the face pass. `index` is its place among the faces of the drawn object.
    static bool passes(SceneFace* face, i32) { return face->faceTest->test(face); }

private:
    static const ObjectFunctions& functionsOf(const SceneObject& object) { return *object.objectClass->functions; }
};

} // namespace kardeno
