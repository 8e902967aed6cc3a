// The reference renderer's walk over the host's objects, the same for a frame and for a pick.
#pragma once

#include "tests/reference/reference_materials.h"

#include <functional>

namespace kardeno::reference {

struct Walk {
    RenderView* view;
    HostContext* context;
    const Materials* materials;
    bool lights; // a pick never calls `light`
    std::function<void(SceneObject* drawn, SceneObject* owner)> takeFaces;

    void roots();

private:
    void chain(SceneObject* object, SceneObject* counterpart);
    void member(SceneObject* object, SceneObject* counterpart, SceneObject*& along);
    SceneObject* plain(SceneObject* object);
    void group(SceneObject* object, SceneObject* counterpart);

    void updateParts(SceneObject* first);
    bool findVisiblePart(SceneObject* object, SceneObject* counterpart);
    void forParts(SceneObject* first, SceneObject* counterpart,
                  const std::function<void(SceneObject* drawn, SceneObject* part)>& act);

    SceneObject* drawnObjectOf(SceneObject* object);
    void testBounds(SceneObject* drawn, SceneObject* object);
    void prepare(SceneObject* drawn, SceneObject* object);
};

} // namespace kardeno::reference
