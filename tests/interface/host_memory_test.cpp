// What adding, changing and releasing write into the host's memory, and what records without a part mean.
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

// Those of a pointer: one word, or two.
Offsets pointerAt(u32 offset)
{
    return sizeof(void*) == 4 ? Offsets{offset} : Offsets{offset, offset + 4};
}

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
    std::memset(&material.renderPrivate, 0x5a, sizeof material.renderPrivate); // no word of a pointer looks like that
    material.textureMap = &texture.map;
    const Bytes before = bytesOf<SceneMaterial>(material);
    const Bytes flagsBefore = bytesOf(material.flagBlock);
    const Bytes mapBefore = bytesOf(texture.map);
    const Bytes imageBefore = bytesOf(texture.image());

    REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
    Kardeno_Set_Material_Fct_Dll(&material);
    REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
    Kardeno_Update_Material_Dll(&material);

    CHECK(changedWords(before, bytesOf<SceneMaterial>(material)) == pointerAt(offsetof(SceneMaterial, renderPrivate)));
    if (sizeof(void*) == 4) CHECK(changedWords(before, bytesOf<SceneMaterial>(material)) == Offsets{112});
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
    CHECK(changedWords(before, bytesOf(face)) == pointerAt(offsetof(SceneFace, faceColour)));
    if (sizeof(void*) == 4) CHECK(changedWords(before, bytesOf(face)) == Offsets{60});

    const Bytes added = bytesOf(face);
    Kardeno_Release_Face_Dll(&face);
    CHECK(bytesOf(face) == added);
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
