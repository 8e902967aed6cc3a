#include "tests/support/test_scene.h"

#include <cstring>

namespace kardeno::tests {

namespace {

template <class Record>
void zeroRecord(Record& record)
{
    std::memset(static_cast<void*>(&record), 0, sizeof(Record));
}

TestScene* cameraScene = nullptr; // of the camera that was given out last: cameras know no scene

TestObject& own(SceneObject* object)
{
    return static_cast<TestObject&>(*object);
}

void logCall(const char* callback, SceneObject* drawn, SceneObject* object)
{
    const std::string names = drawn == object ? own(object).name : own(drawn).name + "/" + own(object).name;
    own(object).scene->log.push_back(std::string(callback) + " " + names);
}

void update(SceneObject* object)
{
    logCall("update", object, object);
}

void transform(SceneObject* object, RenderView*)
{
    logCall("transform", object, object);
}

SceneObject* selectLevel(SceneObject* object, RenderView*)
{
    logCall("selectLevel", object, object);
    return own(object).level;
}

void testBounds(SceneObject* drawn, SceneObject* object, RenderView*)
{
    logCall("testBounds", drawn, object);
    object->visible = own(object).boundsVisible;
}

void light(SceneObject* drawn, SceneObject* object, RenderView*)
{
    logCall("light", drawn, object);
    if (own(drawn).onLight) own(drawn).onLight();
}

void prepareVertices(SceneObject* drawn, SceneObject* object, RenderView*)
{
    logCall("prepareVertices", drawn, object);
    if (own(drawn).onPrepare) own(drawn).onPrepare();
}

i32 testFace(SceneFace* face)
{
    const TestFace& tested = static_cast<TestFace&>(*face);
    if (!tested.name.empty()) cameraScene->log.push_back("test " + tested.name);
    return tested.shown;
}

void prepareCamera(SceneCamera*, RenderView* view)
{
    cameraScene->log.push_back("camera");
    if (cameraScene->onCamera) cameraScene->onCamera(view);
}

u32 log2Of(i32 value)
{
    u32 bits = 0;
    while ((1 << bits) < value) ++bits;
    return bits;
}

} // namespace

TestTexture::TestTexture(u32 bitsPerTexel, i32 width, i32 height, bool is256x256) : rowLength(width)
{
    const u32 texels = static_cast<u32>(width * height);
    const u32 bytes = texels * (bitsPerTexel == 8 ? 1 : 2);
    storage = std::make_unique<u32[]>((sizeof(TextureImage) + bytes + 3) / 4);
    image().bitsPerTexel = bitsPerTexel;
    image().is256x256 = is256x256;
    image().indexMask = texels - 1;
    image().rowShift = log2Of(width);
    image().width = static_cast<f32>(width);
    image().height = static_cast<f32>(height);
    zeroRecord(map);
    zeroRecord(palette);
    map.image = &image();
    map.palette = palette;
}

void TestTexture::setTexel(i32 x, i32 y, u32 value)
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

void TestTexture::setPalette(u32 index, u8 red, u8 green, u8 blue)
{
    palette[4 * index] = blue;
    palette[4 * index + 1] = green;
    palette[4 * index + 2] = red;
}

void TestObject::addChild(TestObject& child)
{
    SceneObject** link = &firstChild;
    while (*link) link = &(*link)->nextSibling;
    *link = &child;
}

TestScene::TestScene(TestHost& theHost, const TestView::Settings& settings) : host(theHost), view(settings)
{
    zeroRecord(camera);
    cameraFunctions.prepare = prepareCamera;
    camera.functions = &cameraFunctions;
    faceTest.test = testFace;
    view.record.camera = &camera;
    cameraScene = this;
}

TestScene::~TestScene() = default;

TestObject& TestScene::addObject(const std::string& name, TestObject* parent)
{
    TestObject& object = objects.emplace_back();
    zeroRecord(static_cast<SceneObject&>(object));
    zeroRecord(object.ownClass);
    zeroRecord(object.functions);
    object.name = name;
    object.scene = this;
    object.functions.update = update;
    object.functions.transform = transform;
    object.functions.selectLevel = selectLevel;
    object.functions.testBounds = testBounds;
    object.functions.light = light;
    object.functions.prepareVertices = prepareVertices;
    object.ownClass.functions = &object.functions;
    object.objectClass = &object.ownClass;
    object.groupFlag = &object.isGroup;
    if (parent) parent->addChild(object);
    return object;
}

TestObject& TestScene::addRoot(const std::string& name)
{
    TestObject& object = addObject(name, nullptr);
    (lastRoot ? lastRoot->nextRoot : view.record.firstObject) = &object;
    lastRoot = &object;
    return object;
}

TestMaterial& TestScene::bareMaterial()
{
    TestMaterial& material = materials.emplace_back();
    zeroRecord(static_cast<SceneMaterial&>(material));
    zeroRecord(material.flagBlock);
    material.materialFlags = &material.flagBlock;
    return material;
}

TestMaterial& TestScene::addMaterial(i32 state, TestTexture* texture, i32 shadingMode, i32 transparency)
{
    TestMaterial& material = bareMaterial();
    material.textureMap = texture ? &texture->map : nullptr;
    material.shadingMode = shadingMode;
    material.transparency = transparency;
    Kardeno_Add_Material_Dll(&material);
    Kardeno_Set_Material_Render_State_Dll(&material, state);
    return material;
}

TestFace& TestScene::addFace(TestObject& object, SceneMaterial& material, const std::vector<ScreenCorner>& corners,
                             u16 faceColour)
{
    const ViewProjection& projection = view.projection;
    TestFace& face = faces.emplace_back();
    zeroRecord(static_cast<SceneFace&>(face));
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

TestFace& TestScene::addFace(TestObject& object, SceneMaterial& material, const std::vector<ScreenCorner>& corners,
                             const std::vector<TexCoord>& texCoords)
{
    TestFace& face = addFace(object, material, corners);
    face.coordinates = texCoords;
    face.texCoords = face.coordinates.data();
    return face;
}

std::vector<ScreenCorner> TestScene::rectangle(f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z)
{
    return {{x, y, z}, {x, yEnd, z}, {xEnd, yEnd, z}, {xEnd, y, z}};
}

void TestScene::draw(TestFrame& frame, u8 flags)
{
    view.record.pitch = frame.pitch();
    Kardeno_Render_Dll(&view.record, frame.pixels(), 0, flags);
}

} // namespace kardeno::tests
