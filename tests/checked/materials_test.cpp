// Materials that were not added, have no state, a map that does not fit or a ramp that is too short.
#include "host/render_modes.h"
#include "tests/checked/good_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Tells what is heard when a render state is chosen for a material of the scene.
Names heardAtChoice(SceneMaterial& material, i32 state, i32 expected = 1)
{
    return heardIn([&] { CHECK(Kardeno_Set_Material_Render_State_Dll(&material, state) == expected); });
}

// The scene's square with another material.
struct WithMaterial : GoodScene {
    TestTexture pixels{16, 8, 4};
    TestTexture palettised{8, 8, 4};

    // A material that was added and has no state yet.
    TestMaterial& added(TestTexture& texture)
    {
        TestMaterial& other = scene.bareMaterial();
        other.textureMap = &texture.map;
        Kardeno_Add_Material_Dll(&other);
        return other;
    }

    TestMaterial& use(TestMaterial& other)
    {
        face.material = &other;
        object.nodes.front().material = &other;
        return other;
    }
};

} // namespace

TEST_CASE("a material that was never added gets no state, and its faces are left out")
{
    WithMaterial good;
    TestMaterial& other = good.scene.bareMaterial();
    CHECK(heardAtChoice(other, 0, 0) == Names{"material-not-added"});
    good.use(other);
    CHECK(good.draw() == Names{"material-not-added"});
    CHECK_FALSE(good.isDrawn());
}

TEST_CASE("a private record that the library did not give is not followed")
{
    WithMaterial good;
    TestMaterial& other = good.scene.bareMaterial();
    other.renderPrivate = reinterpret_cast<MaterialPrivate*>(16);
    CHECK(heardAtChoice(other, 0, 0) == Names{"material-not-added"});
    CHECK(heardIn([&] { Kardeno_Update_Material_Dll(&other); }) == Names{"material-not-added"});
    CHECK(heardIn([&] { Kardeno_Release_Material_Dll(&other); }) == Names{"material-not-added"});
    CHECK(heardIn([&] { CHECK(Kardeno_Get_Material_Render_State_Dll(&other) == 0); }) == Names{"material-not-added"});
    good.use(other);
    CHECK(good.draw() == Names{"material-not-added"});
}

TEST_CASE("a material without a state is told of, and its faces are left out")
{
    WithMaterial good;
    TestMaterial& other = good.use(good.scene.bareMaterial());
    CHECK(Kardeno_Add_Material_Dll(&other) == 1);
    CHECK(good.draw() == Names{"missing-state"});
    CHECK_FALSE(good.isDrawn());
    CHECK(heardAtChoice(other, 0) == Names{});
    CHECK(good.draw() == Names{});
}

TEST_CASE("a material that was released is told of, and its faces are left out")
{
    WithMaterial good;
    TestMaterial& other = good.use(good.scene.addMaterial());
    Kardeno_Release_Material_Dll(&other);
    CHECK(good.draw() == Names{"material-released"});
    CHECK_FALSE(good.isDrawn());
    CHECK(heardAtChoice(other, 0, 0) == Names{"material-released"});
    CHECK(heardIn([&] { Kardeno_Release_Material_Dll(&other); }) == Names{"material-released-twice"});
    CHECK(Kardeno_Add_Material_Dll(&other) == 1);
    CHECK(heardAtChoice(other, 0) == Names{});
    CHECK(good.draw() == Names{});
}

TEST_CASE("a material that is added twice is hinted at")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial();
    CHECK(heardIn([&] { CHECK(Kardeno_Add_Material_Dll(&other) == 1); }) == Names{"material-added-again"});
}

TEST_CASE("a record that the host moved is as good as before")
{
    WithMaterial good;
    TestMaterial moved = good.material;
    moved.materialFlags = &moved.flagBlock;
    good.use(moved);
    CHECK(heardAtChoice(moved, 0) == Names{});
    CHECK(good.draw() == Names{});
    CHECK(good.isDrawn());
}

TEST_CASE("a material without a place for its flag word is told of at each call that writes it")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial();
    other.materialFlags = nullptr;
    CHECK(heardAtChoice(other, 0, 0) == Names{"missing-flag-block"});
    CHECK(heardIn([&] { Kardeno_Set_Material_Fct_Dll(&other); }) == Names{"missing-flag-block"});
}

TEST_CASE("a 16-bit map in a lit state is told of")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial(0, &good.pixels);
    CHECK(heardAtChoice(other, 1) == Names{"lit-pixels"});
    CHECK(heardAtChoice(other, 2) == Names{"lit-pixels"});
    CHECK(heardAtChoice(other, 0) == Names{});
}

TEST_CASE("a sum of properties that has no row is told of with its reason")
{
    WithMaterial good;
    struct Case {
        i32 state, transparency, shadingMode;
        TestTexture* texture;
        const char* reason;
    };
    for (const Case& c : {
             Case{0, 30, 0, nullptr, "transparency is neither 0 nor 50"},
             Case{1, -1, 0, nullptr, "transparency is neither 0 nor 50"},
             Case{0, 0, 1, nullptr, "this shadingMode needs a texture map"},
             Case{0, 0, 1, &good.palettised, "a palettised map has this shadingMode in states 1 and 2 only"},
             Case{0, 50, 0, &good.palettised, "a palettised map is half transparent in states 1 and 2 only"},
             Case{0, 50, 1, &good.pixels, "this shadingMode cannot be half transparent here"},
             Case{1, 50, 2, &good.palettised, "this shadingMode cannot be half transparent here"},
             Case{1, 0, 11, &good.palettised, "a billboard has a row in state 0 only"},
             Case{0, 0, 10, &good.palettised, "a billboard needs a 16-bit map"},
         }) {
        CAPTURE(c.reason);
        TestMaterial& other = good.scene.bareMaterial();
        other.textureMap = c.texture ? &c.texture->map : nullptr;
        other.transparency = c.transparency;
        other.shadingMode = c.shadingMode;
        CHECK(Kardeno_Add_Material_Dll(&other) == 1);
        const Hearing hearing;
        CHECK(Kardeno_Set_Material_Render_State_Dll(&other, c.state) == 1);
        REQUIRE(hearing.names() == Names{"fallback-row"});
        CHECK(hearing.sentences()[0].find(c.reason) != std::string::npos);
    }
}

TEST_CASE("a state that chooses a fallback row by itself is not spoken of")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial();
    CHECK(heardAtChoice(other, stateFallback) == Names{});
    other.transparency = 50;
    CHECK(heardAtChoice(other, stateFallback) == Names{});
    CHECK(heardAtChoice(other, -7) == Names{});
}

TEST_CASE("a map without an image is told of")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial(0, &good.pixels);
    good.pixels.map.image = nullptr;
    CHECK(heardAtChoice(other, 0, 0) == Names{"missing-image"});
    good.use(other);
    CHECK(good.draw() == Names{"missing-image"});
    other.textureMap = nullptr;
    CHECK(good.draw() == Names{"missing-image"});
    CHECK_FALSE(good.isDrawn());
}

TEST_CASE("a palettised map without a palette is told of where a ramp is made from it")
{
    WithMaterial good;
    TestMaterial& other = good.added(good.palettised);
    const u8* const palette = good.palettised.map.palette;
    good.palettised.map.palette = nullptr;
    CHECK(heardAtChoice(other, 0, 0) == Names{"missing-palette"});
    CHECK(heardAtChoice(other, 1, 0) == Names{"missing-palette"});
    good.palettised.map.palette = palette;
    CHECK(heardAtChoice(other, 1) == Names{});
    good.palettised.map.palette = nullptr;
    CHECK(heardIn([&] { Kardeno_Update_Material_Dll(&other); }) == Names{"missing-palette"});
}

TEST_CASE("texels of neither 8 nor 16 bits are told of")
{
    WithMaterial good;
    good.pixels.image().bitsPerTexel = 24;
    CHECK(heardAtChoice(good.added(good.pixels), 0) == Names{"texel-bits"});
}

TEST_CASE("sizes, mask and shift of an image that do not fit together are told of")
{
    WithMaterial good;
    TextureImage& image = good.pixels.image(); // 8 x 4: the mask is 31 and the shift 3
    TestMaterial& other = good.scene.addMaterial(0, &good.pixels);
    CHECK(heardAtChoice(other, 0) == Names{});
    const TextureImage right = image;

    image.width = 7;
    CHECK(heardAtChoice(other, 0) == Names{"map-size"});
    image.width = std::numeric_limits<f32>::quiet_NaN();
    CHECK(heardAtChoice(other, 0) == Names{"map-size"});
    image = right;
    image.height = 0;
    CHECK(heardAtChoice(other, 0) == Names{"map-size"});
    image = right;
    image.rowShift = 2;
    CHECK(heardAtChoice(other, 0) == Names{"map-size"});
    image.rowShift = 40;
    CHECK(heardAtChoice(other, 0) == Names{"map-size"});
    image = right;
    image.indexMask = 15;
    CHECK(heardAtChoice(other, 0) == Names{"map-size"});
    image.indexMask = 63;
    CHECK(heardAtChoice(other, 0, 0) == Names{"map-beyond-end"});
    image = right;
    image.is256x256 = 1;
    CHECK(heardAtChoice(other, 0, 0) == Names{"map-beyond-end"});
    good.use(other);
    CHECK(good.draw() == Names{"map-beyond-end"});
    CHECK_FALSE(good.isDrawn());
}

TEST_CASE("a larger image that is marked as 256 x 256 is told of, and one that lacks the mark is hinted at")
{
    WithMaterial good;
    TestTexture large(16, 512, 256), unmarked(16, 256, 256), marked(16, 256, 256, true);
    large.image().is256x256 = 1;
    CHECK(heardAtChoice(good.added(large), 0) == Names{"map-size"});
    CHECK(heardAtChoice(good.added(unmarked), 0) == Names{"map-unmarked"});
    CHECK(heardAtChoice(good.added(marked), 0) == Names{});
}

TEST_CASE("a ramp that was built without a map is too short for one")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial(1);
    other.textureMap = &good.palettised.map;
    CHECK(heardAtChoice(other, 1, 0) == Names{"short-ramp"});
    Kardeno_Set_Material_Fct_Dll(&other);
    CHECK(heardIn([&] { Kardeno_Update_Material_Dll(&other); }) == Names{"short-ramp"});

    // A host that moves the row by itself gets no further.
    other.renderPrivate->mode += rowLitTextured - rowLitPlain;
    good.use(other);
    CHECK(good.draw() == Names{"short-ramp"});
    CHECK_FALSE(good.isDrawn());

    Kardeno_Release_Material_Dll(&other);
    CHECK(Kardeno_Add_Material_Dll(&other) == 1);
    CHECK(heardAtChoice(other, 1) == Names{});
    CHECK(good.draw() == Names{});
}

TEST_CASE("a row that needs a ramp is not drawn without one")
{
    WithMaterial good;
    TestMaterial& other = good.use(good.scene.addMaterial(0));
    other.renderPrivate->mode += rowLitPlain - rowUnlitPlain;
    CHECK(good.draw() == Names{"missing-ramp"});
    CHECK_FALSE(good.isDrawn());
}

TEST_CASE("a mode that is no row of the table is told of")
{
    WithMaterial good;
    TestMaterial& other = good.use(good.scene.addMaterial(0));
    RenderMode* const right = other.renderPrivate->mode;
    other.renderPrivate->mode = RenderModeTable + renderModeRowCount;
    CHECK(good.draw() == Names{"missing-row"});
    other.renderPrivate->mode = reinterpret_cast<RenderMode*>(reinterpret_cast<u8*>(right) + 4);
    CHECK(good.draw() == Names{"missing-row"});
    other.renderPrivate->mode = right;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a map of another kind than the row was chosen for is told of")
{
    WithMaterial good;
    TestMaterial& other = good.use(good.scene.addMaterial(0, &good.pixels));
    other.textureMap = &good.palettised.map;
    CHECK(good.draw() == Names{"map-of-other-kind"});
    CHECK_FALSE(good.isDrawn());

    TestMaterial& scaled = good.use(good.scene.addMaterial(stateFallback, &good.palettised));
    scaled.renderPrivate->mode += rowSpareB - rowFallbackFlat;
    CHECK(good.draw() == Names{"map-of-other-kind"});
}

TEST_CASE("a material that a callback spoils after it was used ends the frame before it is drawn")
{
    WithMaterial good;
    TestMaterial& other = good.use(good.scene.addMaterial(0, &good.pixels));
    TestObject& later = good.scene.addRoot("later");
    later.onPrepare = [&] { other.textureMap = nullptr; };
    CHECK(good.draw() == Names{"missing-image"});
    CHECK(good.isUntouched());
}

TEST_CASE("a shininess beyond its range is hinted at")
{
    WithMaterial good;
    TestMaterial& other = good.scene.addMaterial(0);
    other.shininess = 101;
    CHECK(heardAtChoice(other, 0) == Names{});
    CHECK(heardAtChoice(other, 1) == Names{"shininess-range"});
}
