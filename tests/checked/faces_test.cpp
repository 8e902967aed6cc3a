// Faces with corners, outcodes, normals and outlines that do not fit.
#include "kardeno_soft/checked.h"
#include "tests/checked/good_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr f32 infinite = std::numeric_limits<f32>::infinity();
constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();

void setNormal(SceneFace& face, f32 x, f32 y, f32 z)
{
    face.normalX = x;
    face.normalY = y;
    face.normalZ = z;
}

} // namespace

TEST_CASE("a hole among the faces is told of, and the others are drawn")
{
    GoodScene good;
    good.object.faceList.insert(good.object.faceList.begin(), nullptr);
    good.object.faces = good.object.faceList.data();
    good.object.faceCount = 2;
    CHECK(good.draw() == Names{"missing-face"});
    CHECK(good.isDrawn());
    CHECK(good.pick() == Names{"missing-face"});
}

TEST_CASE("a face without a test is told of and left out")
{
    GoodScene good;
    const FaceTest empty = {};
    good.face.faceTest = &empty;
    CHECK(good.draw() == Names{"missing-face-test"});
    good.face.faceTest = nullptr;
    CHECK(good.draw() == Names{"missing-face-test"});
    CHECK_FALSE(good.isDrawn());
}

TEST_CASE("nothing is said of a face that its test leaves out")
{
    GoodScene good;
    good.face.shown = false;
    good.face.vertexCount = -3;
    good.face.material = nullptr;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a face without a material is told of and left out")
{
    GoodScene good;
    good.face.material = nullptr;
    CHECK(good.draw() == Names{"missing-material"});
    CHECK_FALSE(good.isDrawn());
    CHECK(good.pick() == Names{});
}

TEST_CASE("a number of corners beyond 3 to 10 is told of")
{
    GoodScene good;
    for (const i32 count : {0, 2, -1, 17, 1000000}) {
        good.face.vertexCount = count;
        CHECK(good.draw() == Names{"corner-count"});
        CHECK(good.pick() == Names{"corner-count"});
        CHECK_FALSE(good.isDrawn());
    }
}

TEST_CASE("a billboard of another number of corners than 4 is told of")
{
    GoodScene good;
    TestTexture glow(16, 8, 8);
    TestMaterial& shine = good.scene.addMaterial(0, &glow, shadingBillboard);
    good.face.material = &shine;
    CHECK(good.draw() == Names{});
    good.face.vertexCount = 3;
    CHECK(good.draw() == Names{"billboard-corners"});
}

TEST_CASE("a face without indices is told of and left out")
{
    GoodScene good;
    good.face.vertexIndices = nullptr;
    CHECK(good.draw() == Names{"missing-indices"});
    CHECK(good.pick() == Names{"missing-indices"});
}

TEST_CASE("an index below 0 is told of, and one beyond the arrays when their size is known")
{
    GoodScene good;
    good.face.indices[2] = -1;
    CHECK(good.draw() == Names{"index-outside"});
    CHECK_FALSE(good.isDrawn());

    CheckedSizes& sizes = *KARDENO_CHECKED_SIZES(&good.context());
    sizes = {.mark = checkedSizesMark, .markAgain = ~u32{checkedSizesMark}, .vertexCount = 4, .framePixels = 0};
    good.face.indices[2] = 4;
    CHECK(good.draw() == Names{"index-outside"});
    CHECK(good.pick() == Names{"index-outside"});
    good.face.indices[2] = 2;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a textured face without texture coordinates is told of and left out")
{
    GoodScene good;
    TestTexture map(16, 8, 8);
    good.face.material = &good.scene.addMaterial(0, &map);
    good.face.texCoords = nullptr;
    CHECK(good.draw() == Names{"missing-tex-coords"});
    good.face.material = &good.material;
    CHECK(good.draw() == Names{});
}

TEST_CASE("texture coordinates that are no numbers are told of, and a u beyond 1 is hinted at")
{
    GoodScene good;
    TestTexture map(16, 8, 8);
    good.face.material = &good.scene.addMaterial(0, &map);
    good.face.coordinates[1].v = notANumber;
    CHECK(good.draw() == Names{"tex-coord-not-finite"});
    good.face.coordinates[1] = {0, 5};
    CHECK(good.draw() == Names{});
    good.face.coordinates[1] = {1.5f, 0};
    CHECK(good.draw() == Names{"tex-coord-beyond"});
}

TEST_CASE("a vertex that is no number is told of")
{
    GoodScene good;
    good.vertex(good.face, 1).x = notANumber;
    CHECK(good.draw() == Names{"vertex-not-finite"});
    good.vertex(good.face, 1).x = infinite;
    CHECK(good.draw() == Names{"vertex-not-finite"});
}

TEST_CASE("outcodes of 0, the wrong way round and contradicting are told of")
{
    GoodScene good;
    for (u32& outcode : good.host.outcodes) outcode = 0;
    CHECK(good.draw() == Names{"outcode-zero"});
    for (u32& outcode : good.host.outcodes) outcode = outcodeAll;
    CHECK(good.draw() == Names{});

    good.outcode(good.face, 0) = outcodeAll & ~outcodeLeft;
    CHECK(good.draw() == Names{"outcode-wrong"});
    good.outcode(good.face, 0) = outcodeAll;

    // Far to the left: 10 units away and 30 to the side.
    good.vertex(good.face, 0).x = -30;
    CHECK(good.draw() == Names{"outcode-wrong"});
    good.outcode(good.face, 0) = outcodeLeft;
    const Names reversed = good.draw();
    CHECK(reversed == Names{"outcode-reversed"});
    good.outcode(good.face, 0) = outcodeAll & ~outcodeLeft;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a vertex behind the near plane or beyond the far one that is told to be inside is told of")
{
    GoodScene good;
    for (const f32 z : {0.5f, -3.0f, 2000.0f}) {
        CAPTURE(z);
        good.vertex(good.face, 0).z = z;
        const Names names = good.draw();
        CHECK(std::count(names.begin(), names.end(), "outcode-wrong") == 1);
    }
}

TEST_CASE("a vertex within two pixels of a side may be told to be on either side")
{
    GoodScene good;
    TestFace& face = good.addFace(good.object, good.material, TestScene::rectangle(0, 0, 63.5f, 47, 5));
    CHECK(good.draw() == Names{});
    good.outcode(face, 0) &= ~u32{outcodeLeft | outcodeTop};
    good.outcode(face, 2) &= ~u32{outcodeRight | outcodeBottom};
    CHECK(good.draw() == Names{});
}

TEST_CASE("a stamp ahead of its time is told of")
{
    GoodScene good;
    good.host.stamps[static_cast<size_t>(good.face.indices[3])] = 0x40000000;
    CHECK(good.draw() == Names{"stamp-ahead"});
}

TEST_CASE("a normal of 0 or of no numbers is told of")
{
    GoodScene good;
    setNormal(good.face, 0, 0, 0);
    CHECK(good.draw() == Names{"normal-zero"});
    setNormal(good.face, 0, notANumber, 1);
    CHECK(good.draw() == Names{"normal-zero"});
}

TEST_CASE("a normal upright on the first corner gives no depth and is told of")
{
    GoodScene good;
    const CameraVertex& corner = good.vertex(good.face, 0);
    setNormal(good.face, corner.z, 0, -corner.x);
    CHECK(good.draw() == Names{"normal-through-eye"});
}

TEST_CASE("a normal may have any length and either direction, and is told of when it leans")
{
    GoodScene good; // the square is parallel to the screen
    for (const f32 length : {1.0f, -1.0f, 1000.0f, -0.001f}) {
        setNormal(good.face, 0, 0, length);
        CHECK(good.draw() == Names{});
    }
    setNormal(good.face, 0.04f, 0, 1); // a little more than 2 degrees
    CHECK(good.draw() == Names{});
    setNormal(good.face, 0.2f, 0, 1); // about 11 degrees
    CHECK(good.draw() == Names{"normal-wrong"});
    setNormal(good.face, 0, 1, 0);
    CHECK(good.draw() == Names{"normal-wrong"});
}

TEST_CASE("a billboard may have the normal of its square, whatever its corners are")
{
    GoodScene good;
    TestTexture glow(16, 8, 8);
    good.face.material = &good.scene.addMaterial(0, &glow, shadingBillboard);
    setNormal(good.face, 0.5f, 0, 1);
    CHECK(good.draw() == Names{});
    setNormal(good.face, 0, 0, 0);
    CHECK(good.draw() == Names{"normal-zero"});
    good.face.material = &good.scene.addMaterial(0, &glow, shadingBillboardOverAll);
    CHECK(good.draw() == Names{});
}

TEST_CASE("corners that do not lie in a plane are hinted at")
{
    GoodScene good;
    good.vertex(good.face, 2).z = 12;
    // The corner moves along the line of sight, so that the outline on the screen and the outcode stay.
    good.vertex(good.face, 2).x *= 1.2f;
    good.vertex(good.face, 2).y *= 1.2f;
    const Names names = good.draw();
    CHECK(std::count(names.begin(), names.end(), "not-flat") == 1);
}

TEST_CASE("an outline that is not convex is told of")
{
    GoodScene good;
    good.addFace(good.object, good.material, {{16, 12, 5}, {16, 36, 5}, {24, 16, 5}, {48, 12, 5}});
    CHECK(good.draw() == Names{"not-convex"});
}

TEST_CASE("corners that repeat or lie on a line are convex")
{
    GoodScene good;
    good.addFace(good.object, good.material,
                 {{16, 12, 5}, {16, 36, 5}, {48, 36, 5}, {48, 36, 5}, {48, 24, 5}, {48, 12, 5}});
    CHECK(good.draw() == Names{});
}

TEST_CASE("a frame of nothing but backs is told of, and a single back is hinted at")
{
    const Hearing nobody;
    GoodScene good;
    std::reverse(good.face.indices.begin(), good.face.indices.end());
    CHECK(good.draw() == Names{"backs-shown", "only-backs"});
    CHECK_FALSE(good.isDrawn());

    good.addFace(good.object, good.material);
    CHECK(good.draw() == Names{"backs-shown"});
    good.object.faceCount = 1;
    CHECK(good.draw() == Names{"backs-shown"}); // a front was seen once
}

TEST_CASE("an intensity beyond 0 to 255 is told of where the face is lit")
{
    GoodScene good;
    VertexShade& shade = good.host.shades[static_cast<size_t>(good.face.indices[0])];
    shade.intensity = 300;
    CHECK(good.draw() == Names{});
    CHECK(Kardeno_Set_Material_Render_State_Dll(&good.material, 1) == 1);
    CHECK(good.draw() == Names{"intensity-range"});
    shade.intensity = -1;
    CHECK(good.draw() == Names{"intensity-range"});
    shade.intensity = notANumber;
    CHECK(good.draw() == Names{"intensity-range"});
    shade.intensity = 255;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a face that was never added is told of and left out")
{
    GoodScene good;
    u16* const block = good.face.faceColour;
    u16 own = 7;
    TestFace& other = good.scene.addFace(good.object, good.material, TestScene::rectangle(16, 12, 48, 36, 5));
    other.faceColour = &own;
    CHECK(good.draw() == Names{"face-not-added"});
    other.faceColour = nullptr;
    CHECK(good.draw() == Names{"face-not-added"});
    CHECK(good.isDrawn()); // the square behind
    good.object.faceCount = 1;
    good.face.faceColour = &own;
    CHECK(good.draw() == Names{"face-colour-replaced"});
    CHECK(heardIn([&] { Kardeno_Release_Face_Dll(&good.face); }) == Names{"face-colour-replaced"});
    good.face.faceColour = block;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a face that was released is told of, and so is its second release")
{
    GoodScene good;
    Kardeno_Release_Face_Dll(&good.face);
    CHECK(good.draw() == Names{"face-released"});
    CHECK_FALSE(good.isDrawn());
    CHECK(heardIn([&] { Kardeno_Release_Face_Dll(&good.face); }) == Names{"face-released-twice"});
    CHECK(Kardeno_Add_Face_Dll(&good.face) == 1);
    CHECK(good.draw() == Names{});
    CHECK(heardIn([&] { Kardeno_Add_Face_Dll(&good.face); }) == Names{"face-added-again"});
}
