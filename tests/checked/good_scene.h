// A scene with nothing wrong in it: one object with one face, a square of the unlit material in the middle of a view of
// 64 x 48 pixels that is 90 degrees wide and high. Tests spoil one thing of it.
#pragma once

#include "tests/checked/hearing.h"
#include "tests/support/test_scene.h"

namespace kardeno::tests {

struct GoodScene {
    static constexpr u16 colour = 0x1234; // of the material
    static constexpr i32 width = 64, height = 48;

    TestHost host;
    TestScene scene;
    TestFrame frame;
    TestObject& object;
    TestMaterial& material;
    TestFace& face;

    explicit GoodScene(i32 bitsPerPixel = 16);
    ~GoodScene();

    RenderView& view() { return scene.view.record; }
    ViewProjection& projection() { return scene.view.projection; }
    HostContext& context() { return host.context(); }

    // A face that was added to the library, over the whole width of the square and in front of it.
    TestFace& addFace(TestObject& toObject, SceneMaterial& withMaterial, f32 z = 5);
    TestFace& addFace(TestObject& toObject, SceneMaterial& withMaterial, const std::vector<ScreenCorner>& corners);

    // The names of the mistakes of a frame, or of a pick at the middle.
    Names draw();
    Names pick();
    // Whether the last frame shows the square.
    bool isDrawn() const { return frame.at(width / 2, height / 2) == colour; }
    bool isUntouched() const { return frame.at(0, 0) == TestFrame::untouched; }

    // A camera vertex of a face of the scene.
    CameraVertex& vertex(const TestFace& ofFace, size_t corner);
    u32& outcode(const TestFace& ofFace, size_t corner);
};

} // namespace kardeno::tests
