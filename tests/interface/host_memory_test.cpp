// What the renderer writes into the host's memory, and what it leaves alone.
#include "host/pixel_format.h"
#include "host/render_modes.h"
#include "interface/render_mode_table.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

using Bytes = std::vector<u8>;

template <class Record>
Bytes bytesOf(const Record& record)
{
    const u8* const begin = reinterpret_cast<const u8*>(&record);
    return Bytes(begin, begin + sizeof(Record));
}

template <class Item>
Bytes bytesOf(const std::vector<Item>& items)
{
    const u8* const begin = reinterpret_cast<const u8*>(items.data());
    return Bytes(begin, begin + items.size() * sizeof(Item));
}

// The offsets at which two copies of a record differ, as whole words.
std::vector<u32> changedWords(const Bytes& before, const Bytes& after)
{
    std::vector<u32> changed;
    for (u32 i = 0; i < before.size(); ++i) {
        if (before[i] != after[i] && (changed.empty() || changed.back() != i / 4 * 4)) changed.push_back(i / 4 * 4);
    }
    return changed;
}

using Offsets = std::vector<u32>;

template <size_t size>
void mark(u8 (&gap)[size])
{
    std::memset(gap, 0x5a, size);
}

void markGaps(SceneMaterial& material)
{
    mark(material.gap0);
    mark(material.gap84);
    mark(material.gap96);
}

void markGaps(SceneFace& face)
{
    mark(face.gap12);
    mark(face.gap24);
    mark(face.gap52);
}

void markGaps(SceneObject& object)
{
    mark(object.gap0);
    mark(object.gap48);
    mark(object.gap64);
    mark(object.gap88);
    mark(object.gap96);
    mark(object.gap108);
    mark(object.gap224);
}

void markGaps(RenderView& view)
{
    mark(view.gap4);
    mark(view.gap24);
    mark(view.gap40);
    mark(view.gap56);
}

void markGaps(HostContext& context)
{
    mark(context.gap0);
    mark(context.gap12);
    mark(context.gap28);
    mark(context.gap56);
    mark(context.gap356);
}

} // namespace

TEST_CASE("of a material only the private record's pointer is written, and of its flag block only the second word")
{
    TestHost host;
    TestScene scene(host);
    TestTexture texture(8, 4, 4);
    TestMaterial& material = scene.bareMaterial();
    markGaps(material);
    mark(material.flagBlock.gap0);
    mark(texture.map.gap0);
    mark(texture.map.gap54);
    mark(texture.image().gap4);
    material.textureMap = &texture.map;
    const Bytes before = bytesOf<SceneMaterial>(material);
    const Bytes flagsBefore = bytesOf(material.flagBlock);
    const Bytes mapBefore = bytesOf(texture.map);
    const Bytes imageBefore = bytesOf(texture.image());

    REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
    Kardeno_Set_Material_Fct_Dll(&material);
    REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
    Kardeno_Update_Material_Dll(&material);

    CHECK(changedWords(before, bytesOf<SceneMaterial>(material)) == Offsets{112});
    CHECK(changedWords(flagsBefore, bytesOf(material.flagBlock)) == Offsets{4});
    CHECK(bytesOf(texture.map) == mapBefore);
    CHECK(bytesOf(texture.image()) == imageBefore);

    const Bytes set = bytesOf<SceneMaterial>(material);
    Kardeno_Release_Material_Dll(&material);
    CHECK(bytesOf<SceneMaterial>(material) == set);
}

TEST_CASE("of a face only the colour block's pointer is written")
{
    TestHost host;
    SceneFace face;
    std::memset(&face, 0x5a, sizeof face);
    const Bytes before = bytesOf(face);

    REQUIRE(Kardeno_Add_Face_Dll(&face) == 1);
    CHECK(changedWords(before, bytesOf(face)) == Offsets{60});

    const Bytes added = bytesOf(face);
    Kardeno_Release_Face_Dll(&face);
    CHECK(bytesOf(face) == added);
}

TEST_CASE("a frame and a pick write projected vertices, their stamps, the stamp counter and a group's visibility alone")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 16});
    TestFrame frame(16, 16);
    TestTexture texture(8, 4, 4);
    TestMaterial& material = scene.addMaterial(1, &texture);
    TestObject& group = scene.addRoot("group");
    TestObject& part = scene.addObject("part", &group);
    group.isGroup = 1;
    group.boundsVisible = 0; // visible because of its part
    part.partOfGroup = 1;
    TestFace& face = scene.addFace(group, material, TestScene::rectangle(2, 2, 9, 9));
    scene.addFace(part, material, TestScene::rectangle(8, 1, 30, 12, 4)); // clipped at the right
    host.shades[0].intensity = 200;
    markGaps(material);
    markGaps(face);
    markGaps(group);
    markGaps(part);
    markGaps(scene.view.record);
    markGaps(host.context());
    part.visible = 1; // what the host's own bounds test will store
    group.visible = 7;
    scene.view.record.pitch = frame.pitch();

    const Bytes context = bytesOf(host.context());
    const Bytes view = bytesOf(scene.view.record);
    const Bytes projection = bytesOf(scene.view.projection);
    const Bytes camera = bytesOf(scene.camera);
    const Bytes groupRecord = bytesOf<SceneObject>(group);
    const Bytes partRecord = bytesOf<SceneObject>(part);
    const Bytes faceRecord = bytesOf<SceneFace>(face);
    const Bytes materialRecord = bytesOf<SceneMaterial>(material);
    const Bytes flags = bytesOf(material.flagBlock);
    const Bytes privateRecord = bytesOf(*material.renderPrivate);
    const Bytes map = bytesOf(texture.map);
    const Bytes image = bytesOf(texture.image());
    const Bytes vertices = bytesOf(host.cameraVertices);
    const Bytes outcodes = bytesOf(host.outcodes);
    const Bytes shades = bytesOf(host.shades);
    const u16 colour = *face.faceColour;

    scene.draw(frame, 1);
    i32 faceIndex;
    f32 depth;
    CHECK(Kardeno_Pick_Dll(&scene.view.record, 4, 4, &faceIndex, &depth) == &group);

    CHECK(changedWords(context, bytesOf(host.context())) == Offsets{16832});
    CHECK(bytesOf(scene.view.record) == view);
    CHECK(bytesOf(scene.view.projection) == projection);
    CHECK(bytesOf(scene.camera) == camera);
    CHECK(changedWords(groupRecord, bytesOf<SceneObject>(group)) == Offsets{92});
    CHECK(group.visible == 1);
    CHECK(bytesOf<SceneObject>(part) == partRecord);
    CHECK(bytesOf<SceneFace>(face) == faceRecord);
    CHECK(bytesOf<SceneMaterial>(material) == materialRecord);
    CHECK(bytesOf(material.flagBlock) == flags);
    CHECK(bytesOf(*material.renderPrivate) == privateRecord);
    CHECK(bytesOf(texture.map) == map);
    CHECK(bytesOf(texture.image()) == image);
    CHECK(bytesOf(host.cameraVertices) == vertices);
    CHECK(bytesOf(host.outcodes) == outcodes);
    CHECK(bytesOf(host.shades) == shades);
    CHECK(*face.faceColour == colour);
    CHECK(host.screenVertices[0].invDepth == 1);
    CHECK(host.stamps[0] == host.context().projectionStamp); // a group is emitted after all its parts are prepared
}

TEST_CASE("a view without a camera draws nothing and picks nothing")
{
    TestHost host;
    TestScene scene(host, {.right = 8, .bottom = 8});
    TestFrame frame(8, 8);
    scene.addFace(scene.addRoot(), scene.addMaterial(), TestScene::rectangle(0, 0, 8, 8));
    const u32 untouched = frame.hash();
    scene.view.record.camera = nullptr;

    scene.draw(frame, 1);
    CHECK(frame.hash() == untouched);

    i32 faceIndex;
    f32 depth;
    CHECK(Kardeno_Pick_Dll(&scene.view.record, 4, 4, &faceIndex, &depth) == nullptr);
    CHECK(scene.log.empty());
}

TEST_CASE("without a texture map a material is untextured everywhere: flag word, ramp and row")
{
    TestHost host;
    TestScene scene(host);
    host.calls.clear();
    const TestMaterial& material = scene.addMaterial(1);

    CHECK(material.flagBlock.flags == 0);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowLitPlain]);
    REQUIRE(host.calls.size() == 2);
    CHECK(host.calls[1].bytes == 64 * 4);
}

TEST_CASE("an image that has not 8 bits per texel counts as a true-colour map, whatever the number")
{
    TestHost host;
    TestScene scene(host);
    for (const u32 bitsPerTexel : {16u, 0u, 15u, 24u, 32u}) {
        CAPTURE(bitsPerTexel);
        TestTexture texture(16, 4, 4);
        texture.image().bitsPerTexel = bitsPerTexel;
        const TestMaterial& unlit = scene.addMaterial(0, &texture);
        CHECK(unlit.renderPrivate->mode == &RenderModeTable[rowUnlitTextured]);
        CHECK(unlit.renderPrivate->shadeRamp == nullptr);
        const TestMaterial& lit = scene.addMaterial(1, &texture);
        CHECK(lit.renderPrivate->mode == &RenderModeTable[rowFallbackFlat]);
    }
}

TEST_CASE("Intended: two tests of bitsPerPixel: other depths than 15 and 16 are 5-5-5 for tables and ramps, 5-6-5 for "
          "fillers")
{
    for (const i32 bitsPerPixel : {24, 32, 0, -16}) {
        CAPTURE(bitsPerPixel);
        TestHost host(bitsPerPixel);
        TestScene scene(host, {.right = 4, .bottom = 4});
        TestFrame frame(4, 4, 0);
        CHECK(tableFormat(host.context()) == rgb555);
        CHECK(fillerFormat(host.context()) == rgb565);

        // Level 63 of a ramp of full colours: ((63 x 255 x 255 x 3) >> 14) >> 2 = 750 >> 2 = 187, in 5-5-5: 23 in each
        // channel, 23 x (1024 + 32 + 1) = 0x5ef7.
        TestMaterial& material = scene.bareMaterial();
        material.diffuseColour = material.tintColour = {255, 255, 255, 0, 0};
        REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
        REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
        CHECK(material.renderPrivate->shadeRamp[63] == 0x5ef70000);

        // White half blended over black in 5-6-5: 0xf7df >> 1; in 5-5-5 it would be 0x7bdf >> 1.
        TestMaterial& blended = scene.addMaterial(0, nullptr, 0, 50);
        blended.diffuseColour.packed = 0xffff;
        scene.addFace(scene.addRoot(), blended, TestScene::rectangle(0, 0, 4, 4));
        scene.draw(frame);
        CHECK(frame.at(1, 1) == 0x7bef);
    }
}
