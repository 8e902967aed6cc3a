// Whole frames and picks of random scenes, by the library and by the reference renderer.
#include "tests/reference/comparison.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr i32 reduction = 10;
#else
constexpr i32 reduction = 1;
#endif

// The scenes must also be worth comparing: much is seen of them, and points hit something.
void compare(u32 firstSeed, i32 count, Theme theme)
{
    const Compared compared = compareScenes(firstSeed, count / reduction, {theme, {}});
    CHECK(compared.polygonsSeen >= 2 * compared.scenes);
    CHECK(compared.hits >= compared.picks / 10);
    CHECK(compared.openFrames <= compared.frames / 20 + 1);
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
        compareScenes(8000000 + 10000 * static_cast<u32>(row), 60 / reduction, {Theme::oneRow, chosen});
    }
}

TEST_CASE("views of 4,096 rows and of long rows are drawn alike")
{
    compare(9000000, 40, Theme::tallAndWide);
}

TEST_CASE("frames in whose middle every list and pool grows are drawn alike")
{
    compare(10000000, 10, Theme::crowds);
}
