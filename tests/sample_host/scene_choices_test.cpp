#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/scenes.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

using namespace sample_host;

TEST_CASE("the changes of a mode are made in each recipe before its material is made")
{
    Engine engine(linkedRendererOfTheTests(), PixelFormat::rgb565);
    MaterialMode mode{TextureKind::trueColour, 0};
    mode.changes.transparency = 50;
    Scene scene(engine, mode);
    const Material* material = scene.addMaterial({.diffuse = {255, 0, 0}});
    CHECK(material->transparency == 50);
    CHECK(material->diffuseColour.packed == 0xf800);
    CHECK(material->renderPrivate->mode - (Scene(engine, {}).addMaterial({})->renderPrivate->mode)
          == rowUnlitTranslucent - rowUnlitPlain);
}

TEST_CASE("what the renderer has no row for stays as the scene has it")
{
    const auto changed = [](MaterialRecipe recipe, const RecipeChanges& changes, int renderState) {
        changeRecipe(recipe, changes, renderState);
        return recipe;
    };
    const auto image = std::make_shared<const Image>(8, 8);
    CHECK(changed({}, {.shadingMode = 2}, 1).shadingMode == 0); // without an image
    CHECK(changed({.image = image}, {.shadingMode = 2}, 1).shadingMode == 2);
    CHECK(changed({.shadingMode = 11, .image = image}, {.shadingMode = 0, .transparency = 50}, 1).shadingMode == 11);
    CHECK(changed({.vertexColours = true}, {.transparency = 50}, 1).transparency == 0);
    CHECK(changed({.image = image}, {.shadingMode = 2, .transparency = 50}, 1).transparency == 0);
    CHECK(changed({.image = image}, {.shadingMode = 1, .transparency = 50}, 1).transparency == 50);
    CHECK(changed({.image = image}, {.shadingMode = 1, .transparency = 50}, 0).transparency == 0);
    CHECK(changed({.image = image, .glows = true}, {.shadingMode = 1, .transparency = 50}, 1).transparency == 0);
}

TEST_CASE("larger textures are halved until they are small enough, each pixel to the mean of four")
{
    auto image = std::make_shared<Image>(16, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 16; ++x) image->set(x, y, {u8(x % 2 ? 30 : 10), u8(y % 2 ? 200 : 100), 7});
    MaterialRecipe recipe{.image = image};
    changeRecipe(recipe, {.largestTexture = 16}, 1);
    CHECK(recipe.image == image);
    changeRecipe(recipe, {.largestTexture = 4}, 1);
    CHECK(recipe.image->width == 4);
    CHECK(recipe.image->height == 1);
    CHECK(recipe.image->colour(3).red == 20);
    CHECK(recipe.image->colour(3).green == 150);
    CHECK(recipe.image->colour(3).blue == 7);
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
