// Growths of a polygon list of which the host refuses a part. A growth asks four times: 1 for the list, 2, 3 and 4 for
// the sort order, keys and scratch. What is stored afterwards is as odd as it is on purpose; nothing is ever written
// through a pointer that went stale, and the test host aborts when a block that was given back is written to or given
// back twice.
#include "geometry/polygon_lists.h"
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u32 recordBytes = listRecordBytes;
constexpr u32 stepBytes = 512 * recordBytes;

using Numbers = std::vector<i32>;

// Every choice of refused calls that has a sort array in it and leaves the list alone.
const std::vector<Numbers> sortRefusals = {{2}, {3}, {4}, {2, 3}, {2, 4}, {3, 4}, {2, 3, 4}};

bool contains(const Numbers& numbers, i32 number)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

bool emitOne(OneFace& one)
{
    return one.isTaken<ResolvedPolygons>(emit<PositionsOnly, ResolvedPolygons>);
}

i32 emitMany(OneFace& one, i32 times)
{
    i32 taken = 0;
    for (i32 i = 0; i < times; ++i) taken += emitOne(one);
    return taken;
}

// A list with room for 512 faces that is full, and no calls noted so far.
void fillFirstStep(OneFace& one)
{
    one.triangle();
    REQUIRE(emitMany(one, 512) == 512);
    one.host.calls.clear();
}

// The blocks that were given back, in order, are the sort arrays' results that were not refused, in order.
void checkFrees(const std::vector<ServiceCall>& calls, const Numbers& refused)
{
    std::vector<const void*> expected;
    for (size_t i = 1; i < 4; ++i) {
        if (!contains(refused, static_cast<i32>(i + 1))) expected.push_back(calls[i].result);
    }
    REQUIRE(calls.size() == 4 + expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        CHECK(calls[4 + i].kind == ServiceCall::free);
        CHECK(calls[4 + i].block == expected[i]);
    }
}

struct Stored {
    const void* records = resolvedPolygons.records;
    i32 capacity = resolvedPolygons.capacity;
    const void* order = sortArrays.sortOrder.entries;
    const void* keys = sortArrays.sortKeys.entries;
    const void* scratch = sortArrays.sortScratch.entries;
    i32 sortCapacity = sortArrays.capacity;
};

} // namespace

TEST_CASE("first growth, list refused: the sort arrays are kept, and the next face asks for the list alone")
{
    OneFace one;
    one.triangle();
    one.host.refuseCalls({1});
    CHECK_FALSE(emitOne(one));

    CHECK(one.host.calls.size() == 4); // the sort arrays are asked for all the same, and nothing is freed
    CHECK(resolvedPolygons.records == nullptr);
    CHECK(resolvedPolygons.capacity == 0);
    CHECK(sortArrays.capacity == 512);
    CHECK(sortArrays.sortOrder.entries == one.host.calls[1].result);
    CHECK(sortArrays.sortKeys.entries == one.host.calls[2].result);
    CHECK(sortArrays.sortScratch.entries == one.host.calls[3].result);
    one.host.calls.clear();

    CHECK(emitOne(one));
    REQUIRE(one.host.calls.size() == 1);
    CHECK(one.host.calls[0].block == nullptr);
    CHECK(one.host.calls[0].bytes == stepBytes);
    CHECK(resolvedPolygons.capacity == 512);
}

TEST_CASE("first growth, list refused again and again: every face asks once more")
{
    OneFace one;
    one.triangle();
    one.host.refuseCalls({1, 5, 6});
    for (i32 i = 0; i < 3; ++i) CHECK_FALSE(emitOne(one));
    CHECK(one.host.calls.size() == 6);
    CHECK(emitOne(one));
    CHECK(one.host.calls.size() == 7);
}

TEST_CASE("Intended: when a sort array is refused the list keeps its raised capacity and its old stored pointer")
{
    for (const bool moves : {true, false}) {
        for (const Numbers& refused : sortRefusals) {
            CAPTURE(moves);
            CAPTURE(refused[0]);
            CAPTURE(refused.size());
            OneFace one;
            one.triangle();
            one.host.moveBlocks(moves);
            one.host.refuseCalls(refused);
            CHECK_FALSE(emitOne(one));

            checkFrees(one.host.calls, refused);
            CHECK(resolvedPolygons.records == nullptr); // the old one, though the block was obtained
            CHECK(resolvedPolygons.capacity == 512);
            CHECK(sortArrays.sortOrder.entries == nullptr);
            CHECK(sortArrays.sortKeys.entries == nullptr);
            CHECK(sortArrays.sortScratch.entries == nullptr);
            CHECK(sortArrays.capacity == 0);
            CHECK(one.host.liveBlocks() == 1); // the list's block is not released
            one.host.calls.clear();

            // With a null pointer and a capacity nothing is asked for again: the list takes no face in any frame.
            CHECK(emitMany(one, 600) == 0);
            resetPolygonLists();
            CHECK(emitMany(one, 600) == 0);
            CHECK(resolvedPolygons.count == 0);
            CHECK(one.host.calls.empty());

            // The other lists make a new start with the sort arrays.
            CHECK(one.emitted<PositionsOnly, SortedPolygons>() != nullptr);
            REQUIRE(one.host.calls.size() == 4);
            for (const ServiceCall& call : one.host.calls) CHECK(call.block == nullptr);
            CHECK(sortArrays.canHold(1));
        }
    }
}

TEST_CASE("first growth, everything refused: the list takes no face, not even when there is memory again")
{
    OneFace one;
    one.triangle();
    one.host.refuseFrom(1);
    CHECK_FALSE(emitOne(one));
    CHECK(one.host.calls.size() == 4); // nothing to give back
    CHECK(resolvedPolygons.records == nullptr);
    CHECK(resolvedPolygons.capacity == 512);
    CHECK(sortArrays.capacity == 0);

    one.host.refuseNothing();
    CHECK(emitMany(one, 10) == 0);
    resetPolygonLists();
    CHECK(emitMany(one, 10) == 0);
    CHECK(one.host.calls.size() == 4);
}

TEST_CASE("later growth, list refused: the face is dropped, the full list stays, and the next face asks again")
{
    for (const bool moves : {true, false}) {
        CAPTURE(moves);
        OneFace one;
        one.host.moveBlocks(moves);
        fillFirstStep(one);
        const Stored before;
        one.host.refuseCalls({1});
        CHECK_FALSE(emitOne(one));

        REQUIRE(one.host.calls.size() == 4);
        CHECK(one.host.calls[0].block == before.records);
        CHECK(one.host.calls[0].bytes == 2 * stepBytes);
        CHECK(resolvedPolygons.records == before.records);
        CHECK(resolvedPolygons.capacity == 512);
        CHECK(resolvedPolygons.count == 512);
        CHECK(sortArrays.capacity == 1024);
        CHECK(sortArrays.sortScratch.entries == one.host.calls[3].result);
        one.host.calls.clear();

        CHECK(emitOne(one));
        REQUIRE(one.host.calls.size() == 1);
        CHECK(one.host.calls[0].block == before.records);
        CHECK(one.host.calls[0].bytes == 2 * stepBytes);
        CHECK(resolvedPolygons.count == 513);
        CHECK(resolvedPolygons.capacity == 1024);
    }
}

TEST_CASE(
    "later growth, a sort array refused and the list moved: later faces and frames get none, earlier records stay")
{
    for (const Numbers& refused : sortRefusals) {
        CAPTURE(refused[0]);
        CAPTURE(refused.size());
        OneFace one;
        fillFirstStep(one);
        const Stored before;
        one.host.refuseCalls(refused);
        CHECK_FALSE(emitOne(one));

        checkFrees(one.host.calls, refused);
        CHECK(one.host.calls[0].block == before.records);
        CHECK(one.host.calls[1].block == before.order);
        CHECK(one.host.calls[2].block == before.keys);
        CHECK(one.host.calls[3].block == before.scratch);
        CHECK(resolvedPolygons.records == before.records); // stale
        CHECK(resolvedPolygons.capacity == 1024);
        CHECK(sortArrays.sortOrder.entries == before.order);
        CHECK(sortArrays.sortKeys.entries == before.keys);
        CHECK(sortArrays.sortScratch.entries == before.scratch);
        CHECK(sortArrays.capacity == 512);
        const auto* const moved = static_cast<const StoredPolygon*>(one.host.calls[0].result);
        one.host.calls.clear();

        // What the list took earlier is found in the block that really holds it.
        CHECK(emitMany(one, 600) == 0);
        CHECK(resolvedPolygons.count == 512);
        CHECK(resolvedPolygons.held == moved);
        i32 found = 0;
        for (const StoredPolygon* polygon = moved; polygon != resolvedPolygons.end(); polygon = following(polygon)) {
            constexpr CornerLayout layout = cornerLayout<PositionsOnly>;
            CHECK(placeOf(cornersOf(*polygon) + 2 * layout.bytes, layout).x == 20);
            ++found;
        }
        CHECK(found == 512);

        resetPolygonLists();
        CHECK(emitMany(one, 600) == 0);
        CHECK(resolvedPolygons.count == 0);
        CHECK(one.host.calls.empty());
    }
}

TEST_CASE("Intended: what was just obtained is given back, although the stored pointers may name those very blocks")
{
    for (const Numbers& refused : sortRefusals) {
        CAPTURE(refused[0]);
        CAPTURE(refused.size());
        OneFace one;
        one.host.moveBlocks(false);
        fillFirstStep(one);
        const Stored before;
        one.host.refuseCalls(refused);
        CHECK_FALSE(emitOne(one));

        checkFrees(one.host.calls, refused);
        CHECK(resolvedPolygons.records == before.records);
        CHECK(resolvedPolygons.capacity == 1024);
        // Grown in place, the blocks that were given back are those that the arrays name.
        CHECK(one.host.calls[1].result == (contains(refused, 2) ? nullptr : before.order));
        CHECK(one.host.calls[2].result == (contains(refused, 3) ? nullptr : before.keys));
        CHECK(one.host.calls[3].result == (contains(refused, 4) ? nullptr : before.scratch));
        CHECK(sortArrays.sortOrder.entries == before.order);
        CHECK(sortArrays.sortKeys.entries == before.keys);
        CHECK(sortArrays.sortScratch.entries == before.scratch);
        CHECK(sortArrays.capacity == 512);
        one.host.calls.clear();

        // The list itself goes on: only the face in hand was dropped.
        CHECK(emitMany(one, 512) == 512);
        CHECK(resolvedPolygons.count == 1024);
        CHECK(one.host.calls.empty());
        resetPolygonLists();
        CHECK(emitMany(one, 1024) == 1024);
        CHECK(one.host.calls.empty());
    }
}

TEST_CASE("list and sort array refused: the old block is used to its real end, in this frame and in later ones")
{
    for (const bool moves : {true, false}) {
        for (const Numbers& sortRefused : sortRefusals) {
            CAPTURE(moves);
            CAPTURE(sortRefused[0]);
            CAPTURE(sortRefused.size());
            OneFace one;
            one.host.moveBlocks(moves);
            fillFirstStep(one);
            const Stored before;
            Numbers refused = sortRefused;
            refused.push_back(1);
            one.host.refuseCalls(refused);
            CHECK_FALSE(emitOne(one));

            checkFrees(one.host.calls, refused);
            CHECK(resolvedPolygons.records == before.records);
            CHECK(resolvedPolygons.capacity == 1024); // more than the block holds
            CHECK(sortArrays.capacity == 512);
            one.host.calls.clear();

            CHECK(emitMany(one, 100) == 0);
            CHECK(resolvedPolygons.count == 512);
            resetPolygonLists();
            CHECK(emitMany(one, 600) == 512);
            CHECK(one.host.calls.empty());
        }
    }
}

TEST_CASE("sort arrays that were given back can hold nothing, those that were refused keep their entries")
{
    for (const Numbers& refused : sortRefusals) {
        CAPTURE(refused[0]);
        CAPTURE(refused.size());
        OneFace one;
        one.host.moveBlocks(false);
        fillFirstStep(one);
        CHECK(sortArrays.canHold(512));
        one.host.refuseCalls(refused);
        emitOne(one);
        const bool noneGivenBack = refused.size() == 3;
        CHECK(sortArrays.canHold(512) == noneGivenBack);
        CHECK_FALSE(sortArrays.canHold(513));
    }
}

TEST_CASE(
    "the sort arrays grow next from what they still have: a block that was given back never reaches the host again")
{
    for (const bool moves : {true, false}) {
        for (const Numbers& refused : sortRefusals) {
            CAPTURE(moves);
            CAPTURE(refused[0]);
            CAPTURE(refused.size());
            OneFace one;
            one.host.moveBlocks(moves);
            fillFirstStep(one);
            const Stored before;
            one.host.refuseCalls(refused);
            emitOne(one);
            one.host.calls.clear();

            // Another list that needs longer sort arrays: they have room for 512.
            i32 taken = 0;
            for (i32 i = 0; i < 513; ++i) taken += one.isTaken<SortedPolygons>(emit<PositionsOnly, SortedPolygons>);
            CHECK(taken == 513);
            REQUIRE(one.host.calls.size() == 5); // the list's first 512 records; then the list and the sort arrays
            const void* const old[] = {before.order, before.keys, before.scratch};
            for (i32 i = 0; i < 3; ++i) {
                const ServiceCall& call = one.host.calls[static_cast<size_t>(2 + i)];
                CHECK(call.block == (contains(refused, i + 2) ? old[i] : nullptr));
                CHECK(call.bytes == 1024 * 4);
            }
            CHECK(sortArrays.capacity == 1024);
            CHECK(sortArrays.canHold(1024));
        }
    }
}

TEST_CASE("a sorted list meets the same refusals in the same way")
{
    OneFace one;
    one.triangle();
    one.host.refuseCalls({3});
    CHECK(one.emitted<PositionsOnly, SortedPolygons>() == nullptr);
    CHECK(sortedPolygons.records == nullptr);
    CHECK(sortedPolygons.capacity == 512);
    CHECK(one.emitted<PositionsOnly, SortedPolygons>() == nullptr);
    CHECK(emitOne(one)); // the resolved list makes its own start
}
