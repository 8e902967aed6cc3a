// The stable sort of edge lists, against sorts worked out by hand and against the standard library's.
#include "scenes/random_numbers.h"
#include "spanbuffer/edge_sort.h"
#include "tests/spanbuffer/span_scene.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

using namespace kardeno;
using namespace kardeno::tests;
using scenes::RandomNumbers;

namespace {

using Columns = std::vector<i32>;

// Edges with these x, linked in this order and ended by `end`.
std::vector<ScanEdge> linkedEdges(const Columns& columns, ScanEdge* end)
{
    std::vector<ScanEdge> edges(columns.size());
    for (size_t i = 0; i < edges.size(); ++i) {
        edges[i].x = columns[i];
        edges[i].next = i + 1 < edges.size() ? &edges[i + 1] : end;
    }
    return edges;
}

// The places that the edges had in the list before, in the order in which they stand after the sort.
std::vector<size_t> sortedPlaces(const Columns& columns)
{
    ScanEdge end = {};
    std::vector<ScanEdge> edges = linkedEdges(columns, &end);
    std::vector<size_t> places;
    for (const ScanEdge* edge = sortedByX(edges.data(), &end); edge != &end; edge = edge->next)
        places.push_back(static_cast<size_t>(edge - edges.data()));
    return places;
}

std::vector<size_t> stablySortedPlaces(const Columns& columns)
{
    std::vector<size_t> places(columns.size());
    for (size_t i = 0; i < places.size(); ++i) places[i] = i;
    std::stable_sort(places.begin(), places.end(), [&](size_t a, size_t b) { return columns[a] < columns[b]; });
    return places;
}

constexpr i32 largest = 2147483647;
constexpr i32 smallest = -largest - 1;

} // namespace

TEST_CASE("edges are sorted by ascending x, and those with the same x keep their order")
{
    using Places = std::vector<size_t>;
    CHECK(sortedPlaces({5}) == Places{0});
    CHECK(sortedPlaces({5, 5}) == Places{0, 1});
    CHECK(sortedPlaces({5, 3}) == Places{1, 0});
    CHECK(sortedPlaces({7, 3, 7, -1, 3}) == Places{3, 1, 4, 0, 2});
}

TEST_CASE("x from one end of the integers to the other do not wrap")
{
    CHECK(sortedPlaces({largest, smallest, 0, -1, largest, smallest}) == std::vector<size_t>{1, 5, 3, 2, 0, 4});
}

TEST_CASE("long lists with many equal x, crowded in one place or spread out, are sorted as a stable sort does")
{
    forEachSeed(60, [](u32 seed) {
        RandomNumbers random(seed);
        Columns columns;
        const i32 length = random.integer(1, 3000);
        const i32 spread = random.oneOf({1, 3, 60, 5000, 40000000, 1000000000});
        const bool crowded = random.chance(50);
        for (i32 i = 0; i < length; ++i) {
            const bool outlier = crowded && random.oneIn(200);
            columns.push_back(outlier ? random.integer(-1000000000, 1000000000) : random.integer(-spread, spread));
        }
        CHECK(sortedPlaces(columns) == stablySortedPlaces(columns));
    });
}

// 100 thin polygons whose upper corners stand in one order and whose lower corners in the opposite one: on the way down
// nearly every pair of edges crosses, and more than 500 of them on one row. Their depths are so that the one that is
// entered last is not the nearest, and the spans tell which edges were passed first.
TEST_CASE("polygons of which hundreds cross between two rows come out as exactly as few do")
{
    SpanScene scene({.left = 0, .top = 0, .right = 400, .bottom = 3});
    for (i32 i = 0; i < 100; ++i) {
        const f32 above = static_cast<f32>(i * 2);
        const f32 below = static_cast<f32>(198 - i * 2);
        scene.add({{above, 0}, {below, 2}, {below + 2, 2}, {above + 2, 0}}, static_cast<f32>(1 + (i * 37) % 100));
    }
    scene.resolve();
    // Row 0: side by side, two columns each. Row 1: every left edge at 99, every right one at 101, the nearest covers
    // it.
    for (i32 i = 0; i < 100; ++i) {
        CAPTURE(i);
        const ScreenPolygon& polygon = scene.polygons[static_cast<size_t>(i)];
        CHECK(runsOf(polygon, 0) == Runs{{i * 2, i * 2 + 2, 0}});
        const bool nearest = (i * 37) % 100 == 99;
        CHECK(runsOf(polygon, 1) == (nearest ? Runs{{99, 101, 1}} : Runs{}));
    }
}
