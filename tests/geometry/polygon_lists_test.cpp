#include "geometry/polygon_lists.h"
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u32 recordBytes = listRecordBytes;

// Emits the face so many times into a list.
template <class TargetList>
void emitTimes(OneFace& one, i32 times)
{
    for (i32 i = 0; i < times; ++i) REQUIRE(one.isTaken<TargetList>(emit<PositionsOnly, TargetList>));
}

void leaveTwoCorners(const RenderView*, ScreenPolygon* polygon)
{
    polygon->vertexCount = 2;
}

bool isEmpty(const PolygonList& list)
{
    return !list.records && list.count == 0 && list.capacity == 0;
}

// Looked at before any test runs.
const bool emptyAtLoad = isEmpty(resolvedPolygons) && isEmpty(sortedPolygons) && isEmpty(lateSortedPolygons)
                         && !sortArrays.sortOrder.entries && !sortArrays.sortKeys.entries
                         && !sortArrays.sortScratch.entries && sortArrays.capacity == 0;

void checkRealloc(const ServiceCall& call, const void* block, u32 bytes)
{
    CHECK(call.kind == ServiceCall::realloc);
    CHECK(call.block == block);
    CHECK(call.bytes == bytes);
}

} // namespace

TEST_CASE("at load all lists and sort arrays are null and empty")
{
    CHECK(emptyAtLoad);
}

TEST_CASE("the first face ever asks for 512 records, then for 512 words each for sort order, keys and scratch")
{
    OneFace one;
    one.triangle();
    emitTimes<ResolvedPolygons>(one, 1);

    REQUIRE(one.host.calls.size() == 4);
    checkRealloc(one.host.calls[0], nullptr, 512 * recordBytes);
    for (size_t i = 1; i < 4; ++i) checkRealloc(one.host.calls[i], nullptr, 512 * 4);
    CHECK(resolvedPolygons.records == one.host.calls[0].result);
    CHECK(sortArrays.sortOrder.entries == one.host.calls[1].result);
    CHECK(sortArrays.sortKeys.entries == one.host.calls[2].result);
    CHECK(sortArrays.sortScratch.entries == one.host.calls[3].result);
    CHECK(resolvedPolygons.capacity == 512);
    CHECK(sortArrays.capacity == 512);
    CHECK(resolvedPolygons.count == 1);
}

TEST_CASE("a list that is full grows by 512 records before the next one is written, and the sort arrays with it")
{
    OneFace one;
    one.triangle();
    emitTimes<SortedPolygons>(one, 512);
    CHECK(one.host.calls.size() == 4);
    CHECK(sortedPolygons.count == 512);
    CHECK(sortedPolygons.capacity == 512);
    const void* const records = sortedPolygons.records;
    const void* const order = sortArrays.sortOrder.entries;
    const void* const keys = sortArrays.sortKeys.entries;
    const void* const scratch = sortArrays.sortScratch.entries;
    one.host.calls.clear();

    emitTimes<SortedPolygons>(one, 1);
    REQUIRE(one.host.calls.size() == 4);
    checkRealloc(one.host.calls[0], records, 1024 * recordBytes);
    checkRealloc(one.host.calls[1], order, 1024 * 4);
    checkRealloc(one.host.calls[2], keys, 1024 * 4);
    checkRealloc(one.host.calls[3], scratch, 1024 * 4);
    CHECK(sortedPolygons.records == one.host.calls[0].result);
    CHECK(sortArrays.sortOrder.entries == one.host.calls[1].result);
    CHECK(sortArrays.sortKeys.entries == one.host.calls[2].result);
    CHECK(sortArrays.sortScratch.entries == one.host.calls[3].result);
    CHECK(sortedPolygons.capacity == 1024);
    CHECK(sortArrays.capacity == 1024);
    CHECK(sortedPolygons.count == 513);
}

TEST_CASE("a list's count never passes its capacity, nor do the sort arrays fall behind the longest list")
{
    OneFace one;
    one.triangle();
    for (i32 i = 0; i < 1600; ++i) {
        emitTimes<SortedPolygons>(one, 1);
        if (i % 3 == 0) emitTimes<ResolvedPolygons>(one, 1);
        REQUIRE(sortedPolygons.count <= sortedPolygons.capacity);
        REQUIRE(resolvedPolygons.count <= resolvedPolygons.capacity);
        REQUIRE(sortArrays.canHold(sortedPolygons.count));
    }
    CHECK(sortedPolygons.capacity == 2048);
    CHECK(resolvedPolygons.capacity == 1024);
    CHECK(sortArrays.capacity == 2048);
}

TEST_CASE("the records that a list holds survive its growth, wherever the host puts the block")
{
    OneFace one;
    one.triangle();
    for (i32 i = 0; i < 600; ++i) {
        one.colour = static_cast<u16>(i);
        emitTimes<ResolvedPolygons>(one, 1);
    }
    bool same = true;
    const StoredPolygon* polygon = resolvedPolygons.held;
    for (i32 i = 0; i < 600; ++i, polygon = following(polygon)) same = same && polygon->faceColour == i;
    CHECK(same);
    CHECK(polygon == resolvedPolygons.end());
    ScreenPolygon first;
    expand(*resolvedPolygons.held, first);
    CHECK(first.screenX[2] == 20);
    CHECK(first.scanY[2] == 20);
}

TEST_CASE("the sort arrays grow only when they are too short for the list that grows")
{
    OneFace one;
    one.triangle();
    emitTimes<ResolvedPolygons>(one, 513);
    CHECK(sortArrays.capacity == 1024);
    one.host.calls.clear();

    emitTimes<SortedPolygons>(one, 1);
    REQUIRE(one.host.calls.size() == 1);
    checkRealloc(one.host.calls[0], nullptr, 512 * recordBytes);

    emitTimes<SortedPolygons>(one, 512);
    REQUIRE(one.host.calls.size() == 2);
    checkRealloc(one.host.calls[1], one.host.calls[0].result, 1024 * recordBytes);
    CHECK(sortArrays.capacity == 1024);

    emitTimes<SortedPolygons>(one, 512);
    REQUIRE(one.host.calls.size() == 6);
    for (size_t i = 3; i < 6; ++i) CHECK(one.host.calls[i].bytes == 1536 * 4);
}

TEST_CASE("the three lists grow apart from each other")
{
    OneFace one;
    for (const f32 x : {100.0f, 100.0f, 120.0f, 120.0f}) one.screenCorner(x, 100);
    emitTimes<ResolvedPolygons>(one, 3);
    emitTimes<SortedPolygons>(one, 2);
    REQUIRE(one.emittedBillboard<LateSortedPolygons>() != nullptr);
    CHECK(resolvedPolygons.count == 3);
    CHECK(sortedPolygons.count == 2);
    CHECK(lateSortedPolygons.count == 1);
    CHECK(one.host.reallocs().size() == 6);
    CHECK(resolvedPolygons.records != sortedPolygons.records);
    CHECK(sortedPolygons.records != lateSortedPolygons.records);
}

TEST_CASE("a new frame empties the lists, keeps their memory and begins again at its start")
{
    OneFace one;
    one.triangle();
    REQUIRE(one.emitted<Textured, ResolvedPolygons>() != nullptr);
    emitTimes<SortedPolygons>(one, 1);
    const StoredPolygon* const first = resolvedPolygons.held;
    one.host.calls.clear();

    resetPolygonLists();
    for (const PolygonList* list : {&resolvedPolygons, &sortedPolygons, &lateSortedPolygons}) {
        CHECK(list->count == 0);
        CHECK(list->storedCount == 0);
        CHECK(list->end() == list->held);
    }
    CHECK(resolvedPolygons.capacity == 512);
    CHECK(sortArrays.capacity == 512);

    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>() != nullptr);
    CHECK(resolvedPolygons.held == first);
    CHECK(first->format == positionsOnly);
    CHECK(first->bytesBefore == 0);
    CHECK(following(first) == resolvedPolygons.end());
    CHECK(one.host.calls.empty());
}

TEST_CASE("frames of the same size allocate nothing after the first")
{
    OneFace one;
    one.triangle();
    emitTimes<ResolvedPolygons>(one, 700);
    one.host.calls.clear();
    for (i32 frame = 0; frame < 3; ++frame) {
        resetPolygonLists();
        emitTimes<ResolvedPolygons>(one, 700);
    }
    CHECK(one.host.calls.empty());
}

TEST_CASE("the place of a face that was dropped half-way is taken by the next one")
{
    OneFace one;
    one.triangle();
    emitTimes<ResolvedPolygons>(one, 1);

    one.host.outcodes[0] &= ~u32{outcodeRight};
    one.mode.clip.rightPlane = leaveTwoCorners;
    CHECK(one.emittedWithOwnClippers<PositionsOnly, ResolvedPolygons>() == nullptr);
    CHECK(resolvedPolygons.count == 1);
    const StoredPolygon* const place = resolvedPolygons.end();

    one.host.outcodes[0] = outcodeAll;
    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>() != nullptr);
    CHECK(following(resolvedPolygons.held) == place);
    CHECK(following(place) == resolvedPolygons.end());
    CHECK(place->cornerCount == 3);
}

TEST_CASE("a face that turns out invisible makes room in a full list all the same")
{
    OneFace one;
    one.triangle();
    emitTimes<ResolvedPolygons>(one, 512);
    one.host.calls.clear();
    for (u32& outcode : one.host.outcodes) outcode = 0;
    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>() == nullptr);
    CHECK(one.host.calls.size() == 4);
    CHECK(resolvedPolygons.capacity == 1024);
    CHECK(resolvedPolygons.count == 512);
}
