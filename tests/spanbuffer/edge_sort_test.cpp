// The stable sorts of edges, against orders worked out by hand and against the standard library's sort.
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

// Edges with these x, each marked by its place.
Edges markedEdges(const Columns& columns)
{
    Edges edges;
    for (size_t i = 0; i < columns.size(); ++i)
        edges.push_back({.x = columns[i], .xStep = 0, .side = static_cast<u32>(i), .lastRow = 0});
    return edges;
}

std::vector<size_t> placesOf(const Edges& edges)
{
    std::vector<size_t> places;
    for (const ScanEdge& edge : edges) places.push_back(edge.side);
    return places;
}

// Room for edges with a fence on either side, which no sort may touch.
class FencedEdges {
public:
    explicit FencedEdges(const Edges& edges) : all(edges.size() + 2, fence)
    {
        std::copy(edges.begin(), edges.end(), all.begin() + 1);
    }
    ~FencedEdges()
    {
        for (const ScanEdge& end : {all.front(), all.back()}) {
            CHECK(end.x == fence.x);
            CHECK(end.side == fence.side);
        }
    }

    ScanEdge* data() { return all.data() + 1; }
    u32 count() const { return static_cast<u32>(all.size()) - 2; }
    std::vector<size_t> places() const { return placesOf(Edges(all.begin() + 1, all.end() - 1)); }

private:
    static constexpr ScanEdge fence = {.x = -12345, .xStep = 0, .side = 0xfefefefe, .lastRow = 0};
    Edges all;
};

// The places that the edges had before, in the order in which they stand after the sort.
std::vector<size_t> sortedPlaces(const Columns& columns)
{
    FencedEdges edges(markedEdges(columns));
    FencedEdges workspace(Edges(columns.size()));
    sortStably(edges.data(), edges.count(), workspace.data());
    return edges.places();
}

// The same of edges that start on one row.
std::vector<size_t> sortedStartingPlaces(const Columns& columns)
{
    FencedEdges edges(markedEdges(columns));
    FencedEdges sorted(Edges(columns.size()));
    sortStartingEdges(edges.data(), edges.count(), sorted.data());
    return sorted.places();
}

std::vector<size_t> stablySortedPlaces(const Columns& columns)
{
    std::vector<size_t> places(columns.size());
    for (size_t i = 0; i < places.size(); ++i) places[i] = i;
    std::stable_sort(places.begin(), places.end(), [&](size_t a, size_t b) { return columns[a] < columns[b]; });
    return places;
}

// Likewise, but of those with the same x the last one comes first.
std::vector<size_t> stablySortedFromTheLast(const Columns& columns)
{
    std::vector<size_t> places(columns.size());
    for (size_t i = 0; i < places.size(); ++i) places[i] = places.size() - 1 - i;
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
        CHECK(sortedStartingPlaces(columns) == stablySortedFromTheLast(columns));
    });
}

TEST_CASE("of edges that start on a row those with the same x come last added first")
{
    using Places = std::vector<size_t>;
    CHECK(sortedStartingPlaces({}) == Places{});
    CHECK(sortedStartingPlaces({5}) == Places{0});
    CHECK(sortedStartingPlaces({5, 5}) == Places{1, 0});
    CHECK(sortedStartingPlaces({7, 3, 7, -1, 3}) == Places{3, 4, 1, 2, 0});
}

// Up to 12 edges are sorted by insertion, more by buckets, and those that crowd in a few buckets by merging.
TEST_CASE("few, many and crowded edges of a row are sorted alike")
{
    struct Case {
        const char* name;
        i32 (*column)(i32 i, i32 count);
    };
    const Case cases[] = {
        {"all the same", [](i32, i32) { return 77; }},
        {"all the smallest", [](i32, i32) { return smallest; }},
        {"all the largest", [](i32, i32) { return largest; }},
        {"in order", [](i32 i, i32) { return i * 70000; }},
        {"the other way round", [](i32 i, i32 count) { return (count - i) * 70000; }},
        {"one apart", [](i32 i, i32 count) { return (i * 7) % count; }},
        {"the two ends of the integers", [](i32 i, i32) { return i % 2 ? smallest : largest; }},
        {"crowded beside one far away", [](i32 i, i32) { return i == 0 ? largest : i % 3; }},
        {"crowded before one far away", [](i32 i, i32) { return i == 0 ? smallest : largest - i % 3; }},
        {"25 in each place", [](i32 i, i32) { return i / 25 * 1000000; }},
        {"24 in each place", [](i32 i, i32) { return i / 24 * 1000000; }},
        {"over all integers", [](i32 i, i32) { return static_cast<i32>(static_cast<u32>(i) * 2654435761u); }},
    };
    for (const Case& c : cases) {
        CAPTURE(c.name);
        for (const i32 count : {1, 2, 11, 12, 13, 24, 25, 26, 100, 1023, 1024, 1025, 3000}) {
            CAPTURE(count);
            Columns columns;
            for (i32 i = 0; i < count; ++i) columns.push_back(c.column(i, count));
            CHECK(sortedStartingPlaces(columns) == stablySortedFromTheLast(columns));
            CHECK(sortedPlaces(columns) == stablySortedPlaces(columns));
        }
    }
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
