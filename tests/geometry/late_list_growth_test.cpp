// The late list as the first of the three that ever takes a polygon.
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// What the host was asked for since the last time, in bytes.
std::vector<u32> takenRequests(TestHost& host)
{
    std::vector<u32> bytes;
    for (const ServiceCall& call : host.calls) bytes.push_back(call.bytes);
    host.calls.clear();
    return bytes;
}

} // namespace

TEST_CASE(
    "a late billboard as the first polygon ever grows its list and the sort arrays; other lists then only their own")
{
    constexpr u32 records = 512 * listRecordBytes;
    constexpr u32 words = 512 * 4;
    OneFace one;
    one.screenCorner(10, 10);
    one.screenCorner(10, 20);
    one.screenCorner(20, 20);
    one.screenCorner(20, 10);

    REQUIRE(one.emittedBillboard<LateSortedPolygons>() != nullptr);
    CHECK(takenRequests(one.host) == std::vector<u32>{records, words, words, words});
    CHECK(lateSortedPolygons.count == 1);
    CHECK(lateSortedPolygons.capacity == 512);
    CHECK(sortArrays.capacity == 512);
    CHECK(sortArrays.canHold(1));

    REQUIRE(one.emitted<PositionsOnly, ResolvedPolygons>() != nullptr);
    CHECK(takenRequests(one.host) == std::vector<u32>{records});
    REQUIRE(one.emitted<PositionsOnly, SortedPolygons>() != nullptr);
    CHECK(takenRequests(one.host) == std::vector<u32>{records});
    CHECK(sortArrays.capacity == 512);
}
