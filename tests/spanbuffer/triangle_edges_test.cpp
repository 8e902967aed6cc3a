// Triangles, whose three sides become edges all at once. Given with one corner twice they have four corners and become
// edges one by one; the side between the two has no length and makes none.
#include "tests/spanbuffer/span_scene.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <random>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

Edges edgesOf(const std::vector<Corner>& corners)
{
    SpanScene scene({.left = 0, .top = 10, .right = 320, .bottom = 200});
    ScreenPolygon& polygon = scene.add({{0, 0}, {0, 0}, {0, 0}});
    polygon.vertexCount = static_cast<i32>(corners.size());
    for (size_t i = 0; i < corners.size(); ++i) {
        polygon.screenX[i] = corners[i].x;
        polygon.scanY[i] = truncated(corners[i].y);
    }
    REQUIRE(scene.buildEdgeTable());
    return {EdgePool.edges, EdgePool.edges + EdgePool.count};
}

} // namespace

TEST_CASE("a triangle has the edges that it has when one of its corners is given twice")
{
    const f32 extremes[] = {0.0f, -0.0f, 9.9f, 10.0f, 199.9f, 200.0f, 4096.0f, -3e9f, 3e9f, 1e30f, -1e30f};
    forEachSeed(4000, [&](u32 seed) {
        std::mt19937 random(seed);
        const auto number = [&](f32 width) {
            if (random() % 16 == 0) return extremes[random() % 11];
            return static_cast<f32>(random() % 65536) / 65536 * width;
        };
        const f32 size = seed % 2 ? 8.0f : 300.0f;
        Corner corners[3];
        for (Corner& corner : corners) corner = {number(320), 20 + number(size)};

        const Edges triangle = edgesOf({corners[0], corners[1], corners[2]});
        const Edges oneByOne = edgesOf({corners[0], corners[0], corners[1], corners[2]});
        REQUIRE(triangle.size() == oneByOne.size());
        for (size_t i = 0; i < triangle.size(); ++i) {
            CHECK(triangle[i].x == oneByOne[i].x);
            CHECK(triangle[i].xStep == oneByOne[i].xStep);
            CHECK(triangle[i].side == oneByOne[i].side);
            CHECK(triangle[i].lastRow == oneByOne[i].lastRow);
        }
    });
}
