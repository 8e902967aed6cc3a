#include "tests/checked/good_scene.h"

namespace kardeno::tests {

namespace {

const TestView::Settings settings = {.right = GoodScene::width,
                                     .bottom = GoodScene::height,
                                     .nearZ = 1,
                                     .farZ = 1000,
                                     .centreX = GoodScene::width / 2,
                                     .centreY = GoodScene::height / 2,
                                     .scaleX = GoodScene::width / 2,
                                     .scaleY = GoodScene::height / 2};

const std::vector<ScreenCorner> square = TestScene::rectangle(16, 12, 48, 36, 10);

} // namespace

GoodScene::GoodScene(i32 bitsPerPixel)
    : host(bitsPerPixel), scene(host, settings), frame(width, height), object(scene.addRoot("object")),
      material(scene.addMaterial()), face(addFace(object, material, square))
{
    material.diffuseColour.packed = colour;
}

// Blocks are given back, so that another scene's blocks at the same addresses are new to the library.
GoodScene::~GoodScene()
{
    const Hearing nobodyListens;
    for (SceneFace* const some : object.faceList) {
        if (some) Kardeno_Release_Face_Dll(some);
    }
    Kardeno_Release_Material_Dll(&material);
}

TestFace& GoodScene::addFace(TestObject& toObject, SceneMaterial& withMaterial,
                             const std::vector<ScreenCorner>& corners)
{
    TestFace& added = scene.addFace(toObject, withMaterial, corners);
    added.faceColour = nullptr;
    Kardeno_Add_Face_Dll(&added);
    return added;
}

TestFace& GoodScene::addFace(TestObject& toObject, SceneMaterial& withMaterial, f32 z)
{
    return addFace(toObject, withMaterial, TestScene::rectangle(16, 12, 48, 36, z));
}

Names GoodScene::draw()
{
    return heardIn([&] { scene.draw(frame, frameClear); });
}

Names GoodScene::pick()
{
    return heardIn([&] {
        i32 faceIndex;
        f32 depth;
        Kardeno_Pick_Dll(&view(), width / 2, height / 2, &faceIndex, &depth);
    });
}

CameraVertex& GoodScene::vertex(const TestFace& ofFace, size_t corner)
{
    return host.cameraVertices[static_cast<size_t>(ofFace.indices[corner])];
}

u32& GoodScene::outcode(const TestFace& ofFace, size_t corner)
{
    return host.outcodes[static_cast<size_t>(ofFace.indices[corner])];
}

} // namespace kardeno::tests
