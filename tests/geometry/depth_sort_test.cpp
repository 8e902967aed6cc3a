// The order of see-through polygons. The passes are told apart by the work arrays that they write.
#include "geometry/depth_sort.h"
#include "geometry/list_storing.h"
#include "tests/support/test_host.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <numeric>

using namespace kardeno;
using namespace kardeno::tests;

using Keys = std::vector<i32>;
using Indices = std::vector<u32>;

constexpr u32 untouched = 0xa5a5a5a5;

// A list with these keys, and sort arrays of 512 entries that nobody has written to.
class Sorting {
public:
    explicit Sorting(const Keys& keys)
    {
        reservePolygon(host.context(), sortedPolygons);
        for (SortArray* array : {&sortArrays.sortOrder, &sortArrays.sortKeys, &sortArrays.sortScratch})
            std::fill_n(array->entries, 512, untouched);
        for (const i32 key : keys) add(key);
        SortPolygonsByDepth(sortedPolygons);
    }

    // The numbers of the polygons in an array's first entries.
    Indices numbersIn(const SortArray& array) const
    {
        Indices numbers;
        for (size_t i = 0; i < positions.size(); ++i) {
            const auto found = std::find(positions.begin(), positions.end(), array.entries[i]);
            numbers.push_back(static_cast<u32>(found - positions.begin()));
        }
        return numbers;
    }
    Indices order() const { return numbersIn(sortArrays.sortOrder); }
    static bool wrote(const SortArray& array) { return array.entries[0] != untouched; }
    // 1 writes the order alone, 2 the keys too, 3 the scratch array too; 4 writes the keys twice.
    static i32 arraysWritten()
    {
        return wrote(sortArrays.sortOrder) + wrote(sortArrays.sortKeys) + wrote(sortArrays.sortScratch);
    }

private:
    TestHost host;
    Indices positions; // of the polygons, in list order

    // Polygons of different sizes, every second one with all its corners on one row.
    void add(i32 key)
    {
        ScreenPolygon polygon = {};
        polygon.vertexCount = 3 + static_cast<i32>(positions.size() % 14);
        polygon.scanY[0] = positions.size() % 2 ? 5 : 0;
        polygon.maxDepth = key;
        StoredPolygon* const place = reservePolygon(host.context(), sortedPolygons);
        storePolygon<PositionsOnly, SortedPolygons>(polygon, *place);
        positions.push_back(positionIn(sortedPolygons, *place));
    }
};

static Indices orderOf(const Keys& keys)
{
    return Sorting(keys).order();
}

TEST_CASE("a list of one polygon is in order after a single pass")
{
    const Sorting sorting({70});
    CHECK(sorting.order() == Indices{0});
    CHECK(Sorting::arraysWritten() == 1);
}

TEST_CASE("keys 7, 3, 7, 1 take one pass and come out as 3, 1, 0, 2")
{
    const Sorting sorting({7, 3, 7, 1});
    CHECK(sorting.order() == Indices{3, 1, 0, 2});
    CHECK(Sorting::arraysWritten() == 1);
}

TEST_CASE("keys 300 and 44 take two passes")
{
    const Sorting sorting({300, 44}); // one byte alone would leave a tie: 300 is 256 + 44
    CHECK(sorting.order() == Indices{1, 0});
    CHECK(Sorting::arraysWritten() == 2);
}

TEST_CASE("there are as many passes as the largest key needs")
{
    struct Case {
        i32 largest;
        i32 arrays;
    };
    for (const Case& c : {Case{0, 1}, {255, 1}, {256, 2}, {65535, 2}, {65536, 3}, {16777215, 3}}) {
        CAPTURE(c.largest);
        const Sorting sorting({c.largest, 0});
        CHECK(sorting.order() == (c.largest == 0 ? Indices{0, 1} : Indices{1, 0}));
        CHECK(Sorting::arraysWritten() == c.arrays);
    }
}

TEST_CASE("the third pass reads the scratch array, the fourth the keys")
{
    {
        // The last of three passes takes its input from the scratch array and leaves the keys as the first pass wrote
        // them: by the low byte.
        const Sorting sorting({0x010003, 0x020002, 0x000001});
        CHECK(sorting.order() == Indices{2, 0, 1});
        CHECK(sorting.numbersIn(sortArrays.sortKeys) == Indices{2, 1, 0});
    }
    {
        // Of four passes the third overwrites them: in order of the low three bytes.
        const Sorting sorting({0x01020003, 0x02010002, 0x00030001});
        CHECK(sorting.order() == Indices{2, 0, 1});
        CHECK(sorting.numbersIn(sortArrays.sortKeys) == Indices{1, 0, 2});
    }
}

TEST_CASE("a key of 16,777,216 takes four passes, 16,777,215 takes three")
{
    // Only a fourth pass looks at the top byte, where -1 has 255.
    CHECK(orderOf({-1, 16777216, 5}) == Indices{2, 1, 0});
    // Three passes take -1 as 16,777,215: equal to the other key, and in list order.
    CHECK(orderOf({-1, 16777215, 5}) == Indices{2, 0, 1});
}

TEST_CASE("every byte of the key decides")
{
    CHECK(orderOf({0x04030201, 0x04030200, 0x04030101, 0x04020301, 0x03040302}) == Indices{4, 3, 2, 1, 0});
}

TEST_CASE("equal keys keep the order of the list, however many passes there are")
{
    for (const i32 key : {9, 900, 90000, 90000000}) {
        CAPTURE(key);
        CHECK(orderOf({key, 4, key, 4, key, 4}) == Indices{1, 3, 5, 0, 2, 4});
    }
}

TEST_CASE("a negative key among keys below 256 sorts by its lowest byte only")
{
    const Sorting sorting({-1, 254, 255, -256});
    CHECK(sorting.order() == Indices{3, 1, 0, 2}); // as 255, 254, 255, 0
    CHECK(Sorting::arraysWritten() == 1);
}

TEST_CASE("a list of negative keys only takes one pass")
{
    const Sorting sorting({-1, -1000, -2});
    CHECK(sorting.order() == Indices{1, 2, 0}); // lowest bytes 255, 24, 254
    CHECK(Sorting::arraysWritten() == 1);
}

TEST_CASE("with two passes a negative key sorts by its two lowest bytes")
{
    CHECK(orderOf({-1, 65535, 300, -65536}) == Indices{3, 2, 0, 1}); // as 65,535, 65,535, 300, 0
}

TEST_CASE("with four passes negative keys sort after every other key")
{
    CHECK(orderOf({-1, 2147483647, -2147483647 - 1, 16777216, 0}) == Indices{4, 3, 1, 2, 0});
}

TEST_CASE("a polygon without rows counts as any other: the deepest one decides the number of passes")
{
    // Polygon 0 has all its corners on one row. Four passes take -256 as the largest of all; the one pass that 5 needs
    // would take it as 0.
    CHECK(orderOf({16777216, -256, 5}) == Indices{2, 0, 1});
}

TEST_CASE("a long list comes out as a stable sort would leave it")
{
    u32 state = 12345;
    Keys keys;
    for (i32 i = 0; i < 512; ++i) {
        state = state * 1664525 + 1013904223;
        keys.push_back(static_cast<i32>(state >> (i % 3 ? 6 : 22))); // up to 26 bits, a third of them 10 bits
    }
    Indices expected(keys.size());
    std::iota(expected.begin(), expected.end(), 0u);
    std::stable_sort(expected.begin(), expected.end(), [&](u32 a, u32 b) { return keys[a] < keys[b]; });
    CHECK(orderOf(keys) == expected);
}
