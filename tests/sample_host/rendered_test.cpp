// The host together with the renderer's library, whose file CTest names in the environment.
#include "sample_host/host/projected_outline.h"
#include "sample_host/host/renderer_file.h"
#include "sample_host/scenes/gallery.h"
#include "sample_host/scenes/scenes.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

using namespace sample_host;

namespace {

struct Renderer {
    HostMemory memory;
    RendererFile file{std::getenv("KARDENO_LIBRARY") ? std::getenv("KARDENO_LIBRARY") : "none"};
};

// A frame of the gallery's stage for each way of drawing, one behind the other.
std::vector<u16> galleryFrames(const RendererTable& renderer, PixelFormat format)
{
    Engine engine(renderer, format);
    std::vector<u16> pixels;
    for (const GalleryRow& row : galleryRows()) {
        FrameBuffer frame(format, 88, 66);
        buildGalleryScene(engine, row)->draw(frame, 0);
        pixels.insert(pixels.end(), frame.pixels.begin(), frame.pixels.end());
    }
    return pixels;
}

} // namespace

TEST_CASE("the materials of the gallery are drawn by the twenty rows, in their order")
{
    const Renderer renderer;
    Engine engine(renderer.file.table(), PixelFormat::rgb565);
    const Material plain(engine, {}, {});
    const RenderMode* expected = plain.renderPrivate->mode - rowUnlitPlain;
    for (const GalleryRow& row : galleryRows()) {
        CAPTURE(row.name);
        const Material material(engine, row.recipe, row.mode);
        CHECK(material.renderPrivate->mode == expected);
        ++expected;
    }
}

TEST_CASE("a material with vertex colours that is not opaque, or has a shading mode, is refused")
{
    const Renderer renderer;
    Engine engine(renderer.file.table(), PixelFormat::rgb565);
    CHECK_THROWS_AS(Material(engine, {.transparency = 50, .vertexColours = true}, {}), std::runtime_error);
    CHECK_THROWS_AS(Material(engine, {.shadingMode = 2, .vertexColours = true}, {}), std::runtime_error);
}

TEST_CASE("a renderer that is linked in draws the same frames as one that is loaded from its file")
{
    const Renderer loaded;
    const RendererTable& linkedIn = linkedRendererOfTheTests();
    for (const PixelFormat format : {PixelFormat::rgb565, PixelFormat::rgb555}) {
        const std::vector<u16> fromFile = galleryFrames(loaded.file.table(), format);
        const std::vector<u16> linked = galleryFrames(linkedIn, format);
        CHECK(fromFile == linked);
        CHECK(std::count(linked.begin(), linked.end(), 0) < std::ptrdiff_t(linked.size() / 2));
    }
    CHECK((linkedIn.render != loaded.file.table().render)); // really two of them
}

TEST_CASE("a file that is not there, or not the renderer, is refused with a sentence that names it")
{
    CHECK_THROWS_WITH_AS(RendererFile("no such renderer"), doctest::Contains("no such renderer"), std::runtime_error);
    CHECK_THROWS_WITH_AS(RendererFile("README.md"), doctest::Contains("README.md"), std::runtime_error);
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
    Engine engine(renderer.file.table(), PixelFormat::rgb565);
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
    Engine engine(renderer.file.table(), PixelFormat::rgb565);
    const std::unique_ptr<Scene> scene = buildRobotsScene(engine, {TextureKind::trueColour, 1});
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
        Engine engine(renderer.file.table(), PixelFormat::rgb565);
        const std::unique_ptr<Scene> scene = entry.build(engine, {TextureKind::trueColour, 1});
        FrameBuffer first(engine.format, 160, 120), last = first, between = first;
        scene->draw(first, 0);
        scene->draw(between, 0.37);
        scene->draw(last, 0);
        CHECK(first.pixels == last.pixels);
        CHECK(first.pixels != between.pixels);
        // Nothing is uncovered: the scenes are closed all round.
        CHECK(std::count(first.pixels.begin(), first.pixels.end(), 0) < 100);
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
