#include "sample_host/counts_in_words.h"
#include "sample_host/host/frame_counts.h"
#include "sample_host/reading/scene_file.h"
#include "tests/sample_host/board_stage.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

using namespace sample_host;

namespace {

struct Stage : BoardStage {
    Stage() : BoardStage(linkedRendererOfTheTests()) {}
};

constexpr Board middle = boardInTheMiddle;

} // namespace

TEST_CASE("a square of half the picture's height counts as one face, one polygon, and a run of pixels in each row")
{
    Stage stage;
    stage.add(middle);
    const FrameCounts counts = countFrame(stage.scene, stage.frame, 0);
    CHECK(counts.objects == 1);
    CHECK(counts.objectsDrawn == 1);
    CHECK(counts.verticesPrepared == 4);
    CHECK(counts.verticesLit == 0); // the material is unlit
    CHECK(counts.facesTested == 1);
    CHECK(counts.facesEmitted == 1);
    CHECK(counts.polygonsInView == 1);
    CHECK(counts.polygonsVisible == 1);
    CHECK(counts.spans == 60);
    CHECK(counts.pixelsDrawn == 3600);
    CHECK(counts.pixelsCovered == 3600);
    CHECK(counts.pixelsOfPicture == 19200);
    for (const int cut : counts.clipped) CHECK(cut == 0);
}

TEST_CASE("what is hidden draws no pixel, what is transparent draws them again, and what looks away is only tested")
{
    Stage stage;
    stage.add(middle);
    stage.add({{-0.5, -0.5, -1}, {1, 0, 0}, {0, 1, 0}}); // behind
    stage.add({{-0.5, -0.5, 1}, {1, 0, 0}, {0, 1, 0}},
              {.transparency = 50});                  // in front: at half the distance twice as large
    stage.add({{1, -1, 0.5}, {-2, 0, 0}, {0, 2, 0}}); // seen from behind
    const FrameCounts counts = countFrame(stage.scene, stage.frame, 0);
    CHECK(counts.facesTested == 4);
    CHECK(counts.facesEmitted == 3);
    CHECK(counts.polygonsInView == 3);
    CHECK(counts.polygonsVisible == 2);
    CHECK(counts.pixelsDrawn == 7200);
    CHECK(counts.pixelsCovered == 3600);
}

TEST_CASE("a polygon that reaches over an edge of the picture is cut there once")
{
    Stage stage;
    stage.add({{0, -1, 0}, {9, 0, 0}, {0, 2, 0}});
    const FrameCounts counts = countFrame(stage.scene, stage.frame, 0);
    CHECK(counts.clipped[2] == 1); // right
    CHECK(counts.clipped[0] + counts.clipped[1] + counts.clipped[3] + counts.clipped[4] + counts.clipped[5] == 0);
    CHECK(counts.pixelsDrawn == 80 * 60);
}

TEST_CASE("counting changes no pixel, and the materials have their rows again afterwards")
{
    for (const SceneEntry& entry : ownScenes) {
        CAPTURE(entry.name);
        Engine engine(linkedRendererOfTheTests(), PixelFormat::rgb565);
        const std::unique_ptr<Scene> scene = entry.build(engine, {TextureKind::trueColour, 1});
        FrameBuffer drawn(PixelFormat::rgb565, 160, 120), counted(PixelFormat::rgb565, 160, 120);
        scene->draw(drawn, 0.25);
        std::vector<RenderMode*> rows;
        for (const Material& material : scene->materials()) rows.push_back(material.renderPrivate->mode);
        const FrameCounts counts = countFrame(*scene, counted, 0.25);
        CHECK((drawn.pixels == counted.pixels));
        CHECK(counts.pixelsDrawn >= counts.pixelsCovered);
        std::size_t i = 0;
        for (const Material& material : scene->materials()) CHECK(material.renderPrivate->mode == rows[i++]);
    }
}

TEST_CASE("the counts are said in words, one thing in the singular, and as JSON")
{
    FrameCounts counts;
    counts.objects = counts.facesTested = 1;
    counts.verticesPrepared = 4;
    counts.pixelsDrawn = 300;
    counts.pixelsCovered = 200;
    counts.pixelsOfPicture = 800;
    counts.clipped[2] = 5;
    const std::string text = countsAsText("room", counts, std::nullopt);
    CHECK(text.starts_with("room, one frame\n"));
    CHECK(text.find("1 object asked for") != std::string::npos);
    CHECK(text.find("4 vertices prepared") != std::string::npos);
    CHECK(text.find("1 face tested") != std::string::npos);
    CHECK(text.find("right 5,") != std::string::npos);
    CHECK(text.find("300 pixels drawn, 200 of the picture's 800 (25.0 %), 1.50 times each") != std::string::npos);
    const std::string json = countsAsJson(counts, std::nullopt);
    CHECK(json.starts_with("{\n  \"objects\": 1,"));
    CHECK(json.find("\"right\": 5") != std::string::npos);
}

TEST_CASE("what is inside of the renderer is said behind the host's counts, or that it could not be seen")
{
    const inspector::FrameSummary inside{.objects = 2,
                                         .facesTested = 9,
                                         .facesHidden = 4,
                                         .facesCut = 3,
                                         .edges = 1,
                                         .spans = 77,
                                         .depthComparisons = 12};
    const std::string text = countsAsText("room", {}, inside);
    CHECK(text.find("faces      9 tested: 4 show their backs, ") != std::string::npos);
    CHECK(text.find("1 edge, 12 depths compared, 77 spans of polygons") != std::string::npos);
    CHECK(countsAsText("room", {}, std::nullopt).find("not counted: the library draws another frame")
          != std::string::npos);
    const std::string json = countsAsJson({}, inside);
    CHECK(json.find("\"inside\": {\n    \"objects\": 2,\n    \"facesTested\": 9,") != std::string::npos);
    CHECK(countsAsJson({}, std::nullopt).find("\"inside\": null") != std::string::npos);
}

TEST_CASE("a pick leads to the material, its row, and the group of the model")
{
    Engine engine(linkedRendererOfTheTests(), PixelFormat::rgb565);
    Scene scene(engine, {TextureKind::trueColour, 1});
    scene.camera.height = 0;
    Mesh mesh;
    mesh.groups = {"left", "right"};
    addBoard(mesh, 0, {{-1, -1, 0}, {1, 0, 0}, {0, 2, 0}});
    addBoard(mesh, 1, {{0, -1, 0}, {1, 0, 0}, {0, 2, 0}});
    mesh.polygons[1].group = 1;
    const std::array<Material*, 2> palette{scene.addMaterial({.name = "plain"}),
                                           scene.addMaterial({.name = "glass", .transparency = 50})};
    scene.addObject(mesh, palette);
    FrameBuffer frame(PixelFormat::rgb565, 160, 120);
    scene.draw(frame, 0);
    const Pick left = scene.pick(frame, 0, 70, 60), right = scene.pick(frame, 0, 90, 60);
    REQUIRE(left.object);
    REQUIRE(right.object);
    CHECK(left.object->materialOf(left.face)->name == "plain");
    CHECK(left.object->materialOf(left.face)->row() == rowLitPlain);
    CHECK(left.object->groupOf(left.face).empty());
    CHECK(right.object->materialOf(right.face)->name == "glass");
    CHECK(right.object->materialOf(right.face)->row() == rowLitTranslucent);
    CHECK(right.object->groupOf(right.face) == "right");
    CHECK(left.object->materialOf(99) == nullptr);
}
