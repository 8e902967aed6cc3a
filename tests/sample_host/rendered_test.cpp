// The host together with the renderer's library, whose file CTest names in the environment.
#include "sample_host/gallery.h"
#include "sample_host/host_memory.h"
#include "sample_host/pick_mark.h"
#include "sample_host/scenes.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace sample_host;

namespace {

struct Renderer {
    HostMemory memory;
    RendererLibrary library{std::getenv("KARDENO_LIBRARY") ? std::getenv("KARDENO_LIBRARY") : "none"};
};

// The row that a material is drawn by: the first word of the renderer's record.
const char* rowOf(const SceneMaterial& material)
{
    const char* row = nullptr;
    std::memcpy(&row, material.renderPrivate, sizeof row);
    return row;
}

} // namespace

TEST_CASE("the materials of the gallery are drawn by the twenty rows, in their order")
{
    const Renderer renderer;
    Engine engine(renderer.library, PixelFormat::rgb565);
    const Material plain(engine, {}, {});
    const char* table = rowOf(plain) - 2 * 36;
    int index = 0;
    for (const GalleryRow& row : galleryRows()) {
        CAPTURE(row.name);
        const Material material(engine, row.recipe, row.mode);
        CHECK(rowOf(material) == table + 36 * index);
        ++index;
    }
}

TEST_CASE("what no render state can draw takes the nearest mode that can")
{
    const MaterialMode lit{TextureKind::trueColour, 1}, palettised{TextureKind::palettised, 0};
    CHECK(drawableMode({}, lit).textures == TextureKind::palettised);
    CHECK(drawableMode({}, palettised).textures == TextureKind::palettised);
    CHECK(drawableMode({.transparency = 50}, palettised).textures == TextureKind::trueColour);
    CHECK(drawableMode({.glows = true}, lit).renderState == 0);
    CHECK(drawableMode({.shadingMode = 11}, lit).renderState == 0);
    CHECK(drawableMode({.shadingMode = 10}, lit).textures == TextureKind::trueColour);
}

TEST_CASE("a pick in the middle of the gallery's stage finds the block, and one beside it the wall")
{
    const Renderer renderer;
    Engine engine(renderer.library, PixelFormat::rgb565);
    const std::unique_ptr<Scene> scene = buildGalleryScene(engine, galleryRows()[2]);
    const FrameBuffer frame(PixelFormat::rgb565, 176, 132);
    const Pick onBlock = scene->pick(frame, 0, 80, 95), onStage = scene->pick(frame, 0, 88, 3);
    REQUIRE(onBlock.object);
    REQUIRE(onStage.object);
    CHECK(onBlock.object->name == "block");
    CHECK(onStage.object->name == "stage");
    CHECK(onBlock.depth < onStage.depth);
    CHECK(onBlock.object->outline(onBlock.face).size() == 4);
}

TEST_CASE("a pick of a robot finds a part of it, and one past the edge of the world nothing")
{
    const Renderer renderer;
    Engine engine(renderer.library, PixelFormat::rgb565);
    const std::unique_ptr<Scene> scene = buildRobotsScene(engine, {.mode = {TextureKind::trueColour, 1}});
    const FrameBuffer frame(PixelFormat::rgb565, 640, 480);
    const Pick pick = scene->pick(frame, 0, 265, 172);
    REQUIRE(pick.object);
    CHECK(pick.object->name == "robot 1, head");
    CHECK(pick.depth > 3);
    CHECK(pick.depth < 5);

    scene->camera.farZ = 1;
    CHECK(scene->pick(frame, 0, 265, 172).object == nullptr);
}

TEST_CASE("every scene draws the same frame at both ends of its movements")
{
    const Renderer renderer;
    for (const SceneEntry& entry : ownScenes) {
        CAPTURE(entry.name);
        Engine engine(renderer.library, PixelFormat::rgb565);
        const std::unique_ptr<Scene> scene = entry.build(engine, {.mode = {TextureKind::trueColour, 1}});
        FrameBuffer first(engine.format, 160, 120), last = first, between = first;
        scene->draw(first, 0);
        scene->draw(between, 0.37);
        scene->draw(last, 0);
        CHECK(first.pixels == last.pixels);
        CHECK(first.pixels != between.pixels);
        // Nothing is uncovered: the scenes are closed all round.
        CHECK(std::ranges::count(first.pixels, 0) < 100);
    }
}

TEST_CASE("an outline that crosses the near plane is cut there, one behind it is gone")
{
    Camera camera;
    camera.nearZ = 1;
    const View view(camera, 100, 100, 104);
    const std::vector<Pixel> whole = projectedOutline({{-1, -1, 2}, {1, -1, 2}, {1, 1, 2}}, view);
    REQUIRE(whole.size() == 3);
    CHECK(whole[0].x == 25);
    CHECK(whole[0].y == 75);
    const std::vector<Pixel> cut = projectedOutline({{0, 0, 2}, {0, 0, 0}, {0, 1, 2}}, view);
    REQUIRE(cut.size() == 4);
    CHECK(cut[1].x == 50);
    CHECK(cut[2].y == 25); // half way between Y = 0 and Y = 1, at Z = 1
    CHECK(projectedOutline({{0, 0, 0.5f}, {1, 0, 0.5f}, {0, 1, 0.5f}}, view).empty());
}
