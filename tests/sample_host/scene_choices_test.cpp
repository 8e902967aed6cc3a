#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/scenes.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

using namespace sample_host;

TEST_CASE("a mode that changes recipes changes each before its material is made")
{
    Engine engine(linkedRendererOfTheTests(), PixelFormat::rgb565);
    MaterialMode mode{TextureKind::trueColour, 0};
    mode.change = [](MaterialRecipe& recipe) { recipe.transparency = 50; };
    Scene scene(engine, mode);
    const Material* material = scene.addMaterial({.diffuse = {255, 0, 0}});
    CHECK(material->transparency == 50);
    CHECK(material->diffuseColour.packed == 0xf800);
    CHECK(material->renderPrivate->mode - (Scene(engine, {}).addMaterial({})->renderPrivate->mode)
          == rowUnlitTranslucent - rowUnlitPlain);
}

namespace {

// A board in front of the camera that is red near by and green farther away.
struct TwoLevels {
    explicit TwoLevels(Engine& engine) : scene(engine, {TextureKind::trueColour, 0})
    {
        const std::vector<Material*> palette{scene.addMaterial({.diffuse = {255, 0, 0}}),
                                             scene.addMaterial({.diffuse = {0, 255, 0}})};
        std::vector<Object*> levels;
        for (const int material : {0, 1}) {
            Mesh mesh;
            addBoard(mesh, material, {{-1, -1, 0}, {2, 0, 0}, {0, 2, 0}});
            levels.push_back(&scene.addLevelGeometry(mesh, palette));
        }
        constexpr double limit = 1;
        scene.addObject({}, {}).drawLevels(levels, {&limit, 1});
        scene.camera.height = 0; // three units away, which is beyond the limit
    }

    u16 middlePixel()
    {
        FrameBuffer frame(PixelFormat::rgb565, 16, 16);
        scene.draw(frame, 0);
        return frame.pixels[std::size_t(8 * frame.pitch + 8)];
    }

    Scene scene;
};

} // namespace

TEST_CASE("a scene draws one level of detail at every distance while it is told to")
{
    Engine engine(linkedRendererOfTheTests(), PixelFormat::rgb565);
    TwoLevels levels(engine);
    CHECK(levels.middlePixel() == 0x07e0);
    levels.scene.drawOnlyLevel(0);
    CHECK(levels.middlePixel() == 0xf800);
    levels.scene.drawOnlyLevel(1);
    CHECK(levels.middlePixel() == 0x07e0);
    levels.scene.drawOnlyLevel(7); // there are two: the last one is drawn
    CHECK(levels.middlePixel() == 0x07e0);
    levels.scene.drawOnlyLevel(-1);
    CHECK(levels.middlePixel() == 0x07e0);
}
