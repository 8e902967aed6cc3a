// A scene that nobody would make on purpose: numbers of every kind, outcodes that lie, outlines of any shape and
// number of corners, views out of range, trees of every form. What a host is bound to stays true: pointers and
// indices are good, texture maps are as large as they say, and every material has a row whose needs it meets.
#pragma once

#include "tests/robustness/byte_source.h"
#include "tests/support/test_scene.h"

namespace kardeno::tests {

// A frame buffer of just the pixels that a view may draw, whatever its rectangle and pitch, between guards.
class ExactFrame {
public:
    explicit ExactFrame(const RenderView& view);

    u16* pixels();
    // Whether nothing but pixels of the rectangle was written since the frame was made.
    bool onlyRectangleWritten() const;

private:
    static constexpr i32 guard = 64;
    static constexpr u16 untouched = 0xa55a;
    i32 first = 0; // element of the frame buffer that storage[guard] is
    std::vector<u16> storage;
    std::vector<bool> mayBeWritten;
};

class HostileScene {
public:
    HostileScene(TestHost& host, ByteSource& source);

    TestScene scene;
    // A point on the screen to pick at.
    f32 pointX();
    f32 pointY();

private:
    ByteSource& source;
    std::deque<TestTexture> textures;
    std::vector<TestMaterial*> materials;
    std::vector<TestObject*> objects;

    void makeView();
    void limitWork();
    void choosePitch();
    void makeTextures();
    void makeMaterial();
    void pointAtAnyRow(TestMaterial& material);
    void makeObject();
    void makeFace();
    i32 makeVertex(f32 screenX, f32 screenY, f32 z);
    void setNormal(TestFace& face);
};

} // namespace kardeno::tests
