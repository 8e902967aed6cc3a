// What the inspector counts in a frame.
//
//   KARDENO_UPDATE_GOLDEN=1 tests_sample_host -tc="the counts of the host's scenes*"
//
// writes tests/sample_host/golden_counts.json anew.
#include "inspector/frame_summary.h"
#include "tests/sample_host/board_stage.h"
#include "tests/sample_host/golden_counts.h"
#include "tests/support/golden_hashes.h"

#include <doctest/doctest.h>

#include <fstream>

using namespace sample_host;
using inspector::FrameSummary;

namespace {

struct Stage : BoardStage {
    Stage() : BoardStage(inspector::watchedRenderer()) {}
    FrameSummary counts() { return inspector::drawAndCount(scene, frame, 0); }
};

constexpr Board middle = boardInTheMiddle;

} // namespace

TEST_CASE("a square of half the picture's height has two edges, and cuts each of its rows in three spans")
{
    Stage stage;
    stage.add(middle);
    const FrameSummary counts = stage.counts();
    CHECK(counts.objects == 1);
    CHECK(counts.facesTested == 1);
    CHECK(counts.polygons == 1);
    CHECK(counts.resolved == 1);
    CHECK(counts.facesCut == 0);
    CHECK(counts.edges == 2); // its level sides are none
    CHECK(counts.spans == 60);
    CHECK(counts.backgroundSpans == 60 + 2 * 60); // the rows above and below, and both sides of the others
    CHECK(counts.pixels == 3600);
    CHECK(counts.depthComparisons == 0);
}

TEST_CASE("faces that show their backs are hidden, the others become polygons of their lists")
{
    Stage stage;
    stage.add(middle);
    stage.add({{-0.5, -0.5, -1}, {1, 0, 0}, {0, 1, 0}}); // behind
    stage.add({{-0.5, -0.5, 1}, {1, 0, 0}, {0, 1, 0}},
              {.transparency = 50});                  // in front: at half the distance as large as the middle
    stage.add({{1, -1, 0.5}, {-2, 0, 0}, {0, 2, 0}}); // seen from behind
    stage.add({{50, -1, 0}, {2, 0, 0}, {0, 2, 0}});   // to the right of the picture: its object is not asked for
    stage.add({{0, -9, -1}, {1, 0, 0}, {0, 9.5, 0}}); // over the lower edge
    const FrameSummary counts = stage.counts();
    CHECK(counts.objects == 5);
    CHECK(counts.facesTested == 5);
    CHECK(counts.facesHidden == 1);
    CHECK(counts.facesOutside == 0);
    CHECK(counts.facesOnOneRow == 0);
    CHECK(counts.facesCut == 1);
    CHECK(counts.polygons == 4);
    CHECK(counts.resolved == 3);
    CHECK(counts.sorted == 1);
    CHECK(counts.lateSorted == 0);
    CHECK(counts.edges == 8);
    CHECK(counts.depthComparisons > 0);
}

TEST_CASE("a face beside the picture is outside, when another one of its object is seen")
{
    Stage stage;
    Mesh mesh;
    addBoard(mesh, 0, middle);
    addBoard(mesh, 0, {{5, -1, 0}, {2, 0, 0}, {0, 2, 0}});
    Material* material = stage.scene.addMaterial({});
    stage.scene.addObject(mesh, {&material, 1});
    const FrameSummary counts = stage.counts();
    CHECK(counts.objects == 1);
    CHECK(counts.facesTested == 2);
    CHECK(counts.facesOutside == 1);
    CHECK(counts.polygons == 1);
}

TEST_CASE("a polygon without height is counted as one on one row")
{
    Stage stage;
    stage.add({{-1, 0.001, 0}, {2, 0, 0}, {0, 0.001, 0}});
    const FrameSummary counts = stage.counts();
    CHECK(counts.facesOnOneRow == 1);
    CHECK(counts.polygons == 0);
    CHECK(counts.spans == 0);
}

TEST_CASE("the counts of the host's scenes are the same in every build, and counting changes no pixel")
{
    nlohmann::ordered_json counted;
    for (const SceneEntry& entry : ownScenes) {
        CAPTURE(entry.name);
        Engine engine(inspector::watchedRenderer(), PixelFormat::rgb565);
        const std::unique_ptr<Scene> scene = entry.build(engine, {TextureKind::trueColour, 1});
        FrameBuffer drawn(PixelFormat::rgb565, 160, 120), watched = drawn;
        scene->draw(drawn, 0);
        counted[entry.name] = asJson(inspector::drawAndCount(*scene, watched, 0));
        CHECK((watched.pixels == drawn.pixels));
    }
    if (kardeno::tests::updatesGoldenHashes()) std::ofstream(goldenCountsFile) << counted.dump(4) << "\n";
    std::ifstream file(goldenCountsFile);
    REQUIRE(file.is_open());
    const std::string golden{std::istreambuf_iterator<char>(file), {}};
    CHECK(golden == counted.dump(4) + "\n");
}
