// Scenes for picks, and a pick's three results as one value.
#pragma once

#include "tests/support/test_scene.h"

namespace kardeno::tests {

struct Hit {
    const SceneObject* object;
    i32 faceIndex;
    f32 depth;
    bool operator==(const Hit&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Hit& hit)
{
    return out << hit.object << ", face " << hit.faceIndex << ", depth " << hit.depth;
}

class PickScene {
public:
    // 100 pixels to the unit at depth 1.
    explicit PickScene(const TestView::Settings& settings = {.scaleX = 100, .scaleY = 100}) : scene(host, settings) {}

    TestHost host;
    TestScene scene;

    TestFace& addFace(TestObject& object, const std::vector<ScreenCorner>& corners)
    {
        return scene.addFace(object, scene.bareMaterial(), corners); // picks need no material
    }
    TestFace& addRectangle(TestObject& object, f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z)
    {
        return addFace(object, TestScene::rectangle(x, y, xEnd, yEnd, z));
    }

    Hit pick(f32 x, f32 y)
    {
        Hit hit = {nullptr, 12345, -12345};
        scene.log.clear();
        hit.object = Kardeno_Pick_Dll(&scene.view.record, x, y, &hit.faceIndex, &hit.depth);
        return hit;
    }

    Hit nothing() const { return {nullptr, 0, scene.view.record.farZ}; }
};

} // namespace kardeno::tests
