// Scenes for tests: objects, faces, materials and textures that live as long as the scene, with host callbacks that
// write down every call.
#pragma once

#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_frame.h"
#include "tests/support/test_host.h"
#include "tests/support/test_view.h"

#include <cstring>
#include <deque>
#include <functional>
#include <memory>
#include <string>

namespace kardeno::tests {

class TestScene;

// A texture map with its image and palette. Texels are 16-bit pixels, or palette indices when bitsPerTexel is 8.
class TestTexture {
public:
    // The image is square-addressed (the fast path) when `is256x256` is set; width and height are powers of two.
    TestTexture(u32 bitsPerTexel, i32 width, i32 height, bool is256x256 = false);

    void setTexel(i32 x, i32 y, u32 value);
    void setPalette(u32 index, u8 red, u8 green, u8 blue);
    TextureImage& image() { return *reinterpret_cast<TextureImage*>(storage.get()); }

    TextureMap map;

private:
    i32 rowLength;
    std::unique_ptr<u32[]> storage; // image record, then texels
    u8 palette[1024];
};

struct TestMaterial : SceneMaterial {
    MaterialFlags flagBlock;
};

struct TestFace : SceneFace {
    std::vector<i32> indices;
    std::vector<TexCoord> coordinates;
    bool shown = true; // what the face test answers
    std::string name;
};

// An object that answers callbacks as its fields say, and writes "<callback> <name>" into the scene's log; where the
// drawn object is another than the object itself, "<callback> <drawn>/<name>".
struct TestObject : SceneObject {
    std::string name;
    TestScene* scene = nullptr;
    ObjectClass ownClass;
    ObjectFunctions functions;
    i32 isGroup = 0;
    i32 boundsVisible = 1;            // what testBounds stores into `visible` of the object
    SceneObject* level = nullptr;     // what selectLevel answers
    std::vector<SceneFace*> faceList; // `faces` points here
    std::deque<MaterialNode> nodes;
    std::function<void()> onPrepare; // called in prepareVertices
    std::function<void()> onLight;   // called in light

    void addChild(TestObject& child); // after the children that it has
};

// A corner on the screen with its camera depth.
struct ScreenCorner {
    f32 x, y, z = 1;
};

class TestScene {
public:
    explicit TestScene(TestHost& host, const TestView::Settings& settings = {});
    ~TestScene();
    TestScene(const TestScene&) = delete;
    TestScene& operator=(const TestScene&) = delete;

    TestHost& host;
    TestView view;
    SceneCamera camera;
    CameraFunctions cameraFunctions;
    std::function<void(RenderView*)> onCamera; // the camera's function
    std::vector<std::string> log;              // calls of callbacks, in order, "test <face>" for named faces included

    // An object at the end of the chain of roots, or below a parent.
    TestObject& addRoot(const std::string& name = "");
    TestObject& addObject(const std::string& name, TestObject* parent);

    // A material that was added to the library and given a render state.
    TestMaterial& addMaterial(i32 state = 0, TestTexture* texture = nullptr, i32 shadingMode = 0, i32 transparency = 0);
    // The same without any call of the library.
    TestMaterial& bareMaterial();

    // A face of an object. Corners are given on the screen and become vertices of the host; their outcodes are those of
    // the view, the normal that of the first three corners. The face has a colour block of its own.
    TestFace& addFace(TestObject& object, SceneMaterial& material, const std::vector<ScreenCorner>& corners,
                      u16 faceColour = 0);
    // The same, with a texture coordinate for each corner.
    TestFace& addFace(TestObject& object, SceneMaterial& material, const std::vector<ScreenCorner>& corners,
                      const std::vector<TexCoord>& texCoords);
    // The rectangle of columns x to xEnd and rows y to yEnd, counter-clockwise on the screen, at a depth.
    static std::vector<ScreenCorner> rectangle(f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z = 1);

    // One frame.
    void draw(TestFrame& frame, u8 flags = 0);

private:
    std::deque<TestObject> objects;
    std::deque<TestFace> faces;
    std::deque<TestMaterial> materials;
    std::deque<u16> faceColours;
    TestObject* lastRoot = nullptr;
    FaceTest faceTest;
};

} // namespace kardeno::tests
