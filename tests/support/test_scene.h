// Scenes for tests: objects, faces, materials and textures that live as long as the scene, with host callbacks that write
// down every call.
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

// An object that answers callbacks as its fields say, and writes "<callback> <name>" into the scene's log; where the drawn
// object is another than the object itself, "<callback> <drawn>/<name>".
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

// The host's functions in the scene's records, and helpers of the bodies below.
namespace scene_callbacks {

template <class Record>
void zeroRecord(Record& record)
{
    std::memset(static_cast<void*>(&record), 0, sizeof(Record));
}

inline TestScene* cameraScene = nullptr; // of the camera that was given out last: cameras know no scene

inline TestObject& own(SceneObject* object)
{
    return static_cast<TestObject&>(*object);
}

inline void logCall(const char* callback, SceneObject* drawn, SceneObject* object)
{
    const std::string names = drawn == object ? own(object).name : own(drawn).name + "/" + own(object).name;
    own(object).scene->log.push_back(std::string(callback) + " " + names);
}

inline void update(SceneObject* object)
{
    logCall("update", object, object);
}

inline void transform(SceneObject* object, RenderView*)
{
    logCall("transform", object, object);
}

inline SceneObject* selectLevel(SceneObject* object, RenderView*)
{
    logCall("selectLevel", object, object);
    return own(object).level;
}

inline void testBounds(SceneObject* drawn, SceneObject* object, RenderView*)
{
    logCall("testBounds", drawn, object);
    object->visible = own(object).boundsVisible;
}

inline void light(SceneObject* drawn, SceneObject* object, RenderView*)
{
    logCall("light", drawn, object);
    if (own(drawn).onLight) own(drawn).onLight();
}

inline void prepareVertices(SceneObject* drawn, SceneObject* object, RenderView*)
{
    logCall("prepareVertices", drawn, object);
    if (own(drawn).onPrepare) own(drawn).onPrepare();
}

inline i32 testFace(SceneFace* face)
{
    const TestFace& tested = static_cast<TestFace&>(*face);
    if (!tested.name.empty()) cameraScene->log.push_back("test " + tested.name);
    return tested.shown;
}

inline void prepareCamera(SceneCamera*, RenderView* view)
{
    cameraScene->log.push_back("camera");
    if (cameraScene->onCamera) cameraScene->onCamera(view);
}

inline u32 log2Of(i32 value)
{
    u32 bits = 0;
    while ((1 << bits) < value) ++bits;
    return bits;
}

} // namespace scene_callbacks

// Bodies.

inline TestTexture::TestTexture(u32 bitsPerTexel, i32 width, i32 height, bool is256x256) : rowLength(width)
{
    const u32 texels = static_cast<u32>(width * height);
    const u32 bytes = texels * (bitsPerTexel == 8 ? 1 : 2);
    storage = std::make_unique<u32[]>((sizeof(TextureImage) + bytes + 3) / 4);
    image().bitsPerTexel = bitsPerTexel;
    image().is256x256 = is256x256;
    image().indexMask = texels - 1;
    image().rowShift = scene_callbacks::log2Of(width);
    image().width = static_cast<f32>(width);
    image().height = static_cast<f32>(height);
    scene_callbacks::zeroRecord(map);
    scene_callbacks::zeroRecord(palette);
    map.image = &image();
    map.palette = palette;
}

inline void TestTexture::setTexel(i32 x, i32 y, u32 value)
{
    u8* const texels = reinterpret_cast<u8*>(storage.get()) + sizeof(TextureImage);
    const size_t index = static_cast<size_t>(y * rowLength + x);
    if (image().bitsPerTexel == 8) {
        texels[index] = static_cast<u8>(value);
    } else {
        const u16 pixel = static_cast<u16>(value);
        std::memcpy(texels + 2 * index, &pixel, 2);
    }
}

inline void TestTexture::setPalette(u32 index, u8 red, u8 green, u8 blue)
{
    palette[4 * index] = blue;
    palette[4 * index + 1] = green;
    palette[4 * index + 2] = red;
}

inline void TestObject::addChild(TestObject& child)
{
    SceneObject** link = &firstChild;
    while (*link) link = &(*link)->nextSibling;
    *link = &child;
}

inline TestScene::TestScene(TestHost& theHost, const TestView::Settings& settings) : host(theHost), view(settings)
{
    scene_callbacks::zeroRecord(camera);
    cameraFunctions.prepare = scene_callbacks::prepareCamera;
    camera.functions = &cameraFunctions;
    faceTest.test = scene_callbacks::testFace;
    view.record.camera = &camera;
    scene_callbacks::cameraScene = this;
}

inline TestObject& TestScene::addObject(const std::string& name, TestObject* parent)
{
    TestObject& object = objects.emplace_back();
    scene_callbacks::zeroRecord(static_cast<SceneObject&>(object));
    scene_callbacks::zeroRecord(object.ownClass);
    scene_callbacks::zeroRecord(object.functions);
    object.name = name;
    object.scene = this;
    object.functions.update = scene_callbacks::update;
    object.functions.transform = scene_callbacks::transform;
    object.functions.selectLevel = scene_callbacks::selectLevel;
    object.functions.testBounds = scene_callbacks::testBounds;
    object.functions.light = scene_callbacks::light;
    object.functions.prepareVertices = scene_callbacks::prepareVertices;
    object.ownClass.functions = &object.functions;
    object.objectClass = &object.ownClass;
    object.groupFlag = &object.isGroup;
    if (parent) parent->addChild(object);
    return object;
}

inline TestObject& TestScene::addRoot(const std::string& name)
{
    TestObject& object = addObject(name, nullptr);
    (lastRoot ? lastRoot->nextRoot : view.record.firstObject) = &object;
    lastRoot = &object;
    return object;
}

inline TestMaterial& TestScene::bareMaterial()
{
    TestMaterial& material = materials.emplace_back();
    scene_callbacks::zeroRecord(static_cast<SceneMaterial&>(material));
    scene_callbacks::zeroRecord(material.flagBlock);
    material.materialFlags = &material.flagBlock;
    return material;
}

inline TestMaterial& TestScene::addMaterial(i32 state, TestTexture* texture, i32 shadingMode, i32 transparency)
{
    TestMaterial& material = bareMaterial();
    material.textureMap = texture ? &texture->map : nullptr;
    material.shadingMode = shadingMode;
    material.transparency = transparency;
    Kardeno_Add_Material_Dll(&material);
    Kardeno_Set_Material_Render_State_Dll(&material, state);
    return material;
}

inline TestFace& TestScene::addFace(TestObject& object, SceneMaterial& material,
                                    const std::vector<ScreenCorner>& corners, u16 faceColour)
{
    const ViewProjection& projection = view.projection;
    TestFace& face = faces.emplace_back();
    scene_callbacks::zeroRecord(static_cast<SceneFace&>(face));
    for (const ScreenCorner& corner : corners) {
        u32 outcode = screenOutcode(view.record, corner.x, corner.y);
        if (corner.z < view.record.nearZ) outcode &= ~u32{outcodeNear};
        if (corner.z > view.record.farZ) outcode &= ~u32{outcodeFar};
        face.indices.push_back(host.addVertex((corner.x - projection.centreX) / projection.scaleX * corner.z,
                                              (projection.centreY - corner.y) / projection.scaleY * corner.z, corner.z,
                                              outcode));
    }
    face.coordinates.assign(corners.size(), TexCoord{0, 0});
    face.vertexCount = static_cast<i32>(corners.size());
    face.vertexIndices = face.indices.data();
    face.texCoords = face.coordinates.data();
    face.material = &material;
    face.faceTest = &faceTest;
    face.faceColour = &faceColours.emplace_back(faceColour);

    if (corners.size() >= 3) {
        const CameraVertex& a = host.cameraVertices[static_cast<size_t>(face.indices[0])];
        const CameraVertex& b = host.cameraVertices[static_cast<size_t>(face.indices[1])];
        const CameraVertex& c = host.cameraVertices[static_cast<size_t>(face.indices[2])];
        const f64 ux = b.x - a.x, uy = b.y - a.y, uz = b.z - a.z;
        const f64 wx = c.x - a.x, wy = c.y - a.y, wz = c.z - a.z;
        face.normalX = static_cast<f32>(uy * wz - uz * wy);
        face.normalY = static_cast<f32>(uz * wx - ux * wz);
        face.normalZ = static_cast<f32>(ux * wy - uy * wx);
    }

    object.faceList.push_back(&face);
    object.faces = object.faceList.data();
    object.faceCount = static_cast<i32>(object.faceList.size());
    object.nodes.push_back({&material, nullptr});
    if (object.nodes.size() > 1) (object.nodes.end() - 2)->next = &object.nodes.back();
    object.materials = &object.nodes.front();
    return face;
}

inline TestFace& TestScene::addFace(TestObject& object, SceneMaterial& material,
                                    const std::vector<ScreenCorner>& corners, const std::vector<TexCoord>& texCoords)
{
    TestFace& face = addFace(object, material, corners);
    face.coordinates = texCoords;
    face.texCoords = face.coordinates.data();
    return face;
}

inline std::vector<ScreenCorner> TestScene::rectangle(f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z)
{
    return {{x, y, z}, {x, yEnd, z}, {xEnd, yEnd, z}, {xEnd, y, z}};
}

inline void TestScene::draw(TestFrame& frame, u8 flags)
{
    view.record.pitch = frame.pitch();
    Kardeno_Render_Dll(&view.record, frame.pixels(), 0, flags);
}

} // namespace kardeno::tests
