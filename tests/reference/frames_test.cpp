// Whole frames and picks of random scenes, by the library and by the reference renderer.
#include "tests/reference/comparison.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <limits>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr u32 reduction = 10;
#else
constexpr u32 reduction = 1;
#endif

// The scenes must also be worth comparing: much is seen of them, and points hit something.
Compared compare(u32 firstSeed, u32 count, Theme theme)
{
    const Compared compared = compareScenes(firstSeed, count / reduction, {theme, {}});
    checkOverAllSeeds(compared.polygonsSeen >= 2 * compared.scenes);
    checkOverAllSeeds(compared.hits >= compared.picks / 10);
    return compared;
}

} // namespace

TEST_CASE("scenes of everything at once are drawn and picked alike")
{
    compare(1000000, 800, Theme::everything);
}

TEST_CASE("trees of groups, parts and levels of detail are walked, drawn and picked alike")
{
    compare(2000000, 400, Theme::trees);
}

TEST_CASE("stacks of see-through polygons are drawn and picked alike")
{
    compare(3000000, 400, Theme::seeThrough);
}

TEST_CASE("slivers, posts and spoilt outlines are drawn and picked alike")
{
    compare(4000000, 400, Theme::slivers);
}

TEST_CASE("billboards are drawn and picked alike")
{
    compare(5000000, 300, Theme::billboards);
}

TEST_CASE("solids through the near plane, the far plane and the sides are drawn and picked alike")
{
    compare(6000000, 500, Theme::clipped);
}

TEST_CASE("polygons that reach beyond the view are cut alike")
{
    compare(7000000, 500, Theme::loosePlanes);
}

TEST_CASE("every row of the render-mode table draws alike")
{
    for (i32 row = 0; row < reference::rowCount; ++row) {
        const reference::Row chosen = static_cast<reference::Row>(row);
        CAPTURE(std::string(reference::nameOf(chosen)));
        const u32 firstSeed = 8000000 + 10000 * static_cast<u32>(row);
        const Compared compared = compareScenes(firstSeed, 60 / reduction, {Theme::oneRow, chosen});
        CHECK(compared.polygonsSeen + compared.latePolygons >= 2 * compared.scenes);
        CHECK(compared.hits >= compared.picks / 10);
    }
}

TEST_CASE("views of 4,096 rows and of long rows are drawn alike")
{
    compare(9000000, 40, Theme::tallAndWide);
}

TEST_CASE("frames in whose middle every list and pool grows are drawn alike")
{
    // The first frame makes nine blocks; here the lists, the sort arrays and both pools grow once more.
    checkOverAllSeeds(compare(10000000, 10, Theme::crowds).mostGrowths >= 14);
}

TEST_CASE("meshes of tens of thousands of small faces are drawn alike")
{
    const Compared compared =
        compareScenes(12000000, 2, {.theme = Theme::meshes, .crowd = static_cast<i32>(150 / reduction)});
    checkOverAllSeeds(compared.polygonsSeen >= compared.scenes * 1000);
}

TEST_CASE("64 layers over one another are drawn alike")
{
    const Compared compared = compareScenes(13000000, 100 / reduction, {.theme = Theme::layers, .crowd = 64});
    checkOverAllSeeds(compared.polygonsSeen >= 2 * compared.scenes);
}

TEST_CASE("16,000 edges that start on one row are drawn alike")
{
    const Compared compared =
        compareScenes(14000000, 4, {.theme = Theme::fullRows, .crowd = static_cast<i32>(8000 / reduction)});
    checkOverAllSeeds(compared.polygonsSeen >= compared.scenes * 20);
}

TEST_CASE("edges of which hundreds cross on a row are drawn alike")
{
    const Compared compared = compareScenes(15000000, 40 / reduction, {.theme = Theme::crossings, .crowd = 300});
    checkOverAllSeeds(compared.polygonsSeen >= compared.scenes * 20);
}

TEST_CASE("the plain fillers alone draw every row and every kind of scene alike")
{
    for (i32 row = 0; row < reference::rowCount; ++row) {
        const reference::Row chosen = static_cast<reference::Row>(row);
        CAPTURE(std::string(reference::nameOf(chosen)));
        const u32 firstSeed = 16000000 + 10000 * static_cast<u32>(row);
        compareScenes(firstSeed, 20 / reduction, {Theme::oneRow, chosen}, Fillers::plain);
    }
    for (const Theme theme : {Theme::everything, Theme::trees, Theme::seeThrough, Theme::slivers, Theme::billboards,
                              Theme::clipped, Theme::loosePlanes}) {
        CAPTURE(static_cast<i32>(theme));
        compareScenes(17000000 + 10000 * static_cast<u32>(theme), 30 / reduction, {theme, {}}, Fillers::plain);
    }
    compareScenes(18000000, 10 / reduction, {Theme::tallAndWide, {}}, Fillers::plain);
}

TEST_CASE("views that cannot be drawn are refused alike, and picked alike")
{
    constexpr f32 infinite = std::numeric_limits<f32>::infinity();
    constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();
    forEachSeed(11000000, 20, [&](u32 seed) {
        RandomScene scene(seed, {Theme::everything, {}}, referenceRenderer());
        RenderView& view = scene.scene.view.record;
        ViewProjection& projection = scene.scene.view.projection;
        const auto compareWith = [&](f32& field, f32 bad) {
            const f32 good = field;
            field = bad;
            CHECK(compareFrames(scene) == "");
            CHECK(comparePicks(scene, 20.5f, 30) == "");
            field = good;
        };
        for (f32* const edge : {&view.left, &view.top, &projection.right, &projection.bottom}) {
            for (const f32 bad : {infinite, -infinite, notANumber}) compareWith(*edge, bad);
        }
        compareWith(view.left, -32769);
        compareWith(view.top, -0.25f);
        compareWith(projection.right, 32768);
        compareWith(projection.bottom, 4096.5f);
        compareWith(view.top, 4000); // below the bottom: no rows, and nothing wrong

        view.camera = nullptr;
        CHECK(compareFrames(scene) == "");
        CHECK(comparePicks(scene, 20.5f, 30) == "");
    });
}
