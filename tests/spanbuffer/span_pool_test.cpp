// The pool of visible runs: the sort by polygon, growth in mid-frame, and the recovery from a refused growth.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u32 stepBytes = 4096 * spanPoolRecordBytes;

// Spans that are made by hand, row after row from row 0, of polygons whose states are there.
class MadeSpans {
public:
    explicit MadeSpans(i32 polygons = 2)
    {
        for (i32 i = 0; i < polygons; ++i) scene.addRectangle(0, 0, 1, 1);
        scene.buildEdgeTable();
        scene.host.calls.clear();
    }

    SpanScene scene;

    StateOffset polygon(size_t i) const { return scene.stateOf(i); }

    // Makes a span as the resolver does. Returns false when the pool could not grow.
    bool make(StateOffset polygon, i32 x, i32 length)
    {
        if (SpanPool.count >= SpanPool.capacity && !growSpanPool(scene.host.context())) return false;
        SpanPool.spans[SpanPool.count++] = {polygon, static_cast<i16>(x), static_cast<u16>(length)};
        ++stateAt(polygon).spanCount;
        return true;
    }

    void endRow() { SpanRowEnds[row++] = static_cast<u32>(SpanPool.count); }

    void sort()
    {
        endRow();
        sortSpansByPolygon({0, 0, 320, row});
    }

private:
    i32 row = 0;
};

uintptr_t addressOf(const void* block)
{
    return reinterpret_cast<uintptr_t>(block);
}

} // namespace

TEST_CASE("the spans of a polygon lie together, the one made last first, and only the last of them says so")
{
    MadeSpans made;
    const StateOffset one = made.polygon(0);
    const StateOffset other = made.polygon(1);
    made.make(other, 8, 1);
    made.make(one, 3, 5);
    made.endRow();
    made.make(one, 9, 1);
    made.make(BackgroundPolygon, 10, 20);
    made.make(one, 30, 2);
    made.sort();

    CHECK(runsOf(one) == Runs{{30, 32, 1}, {9, 10, 1}, {3, 8, 0}});
    CHECK(runsOf(other) == Runs{{8, 9, 0}});
    CHECK(runsOf(BackgroundPolygon) == Runs{{10, 30, 1}});

    // In the order of the states: the background, then polygon after polygon.
    const Span* const sorted = SpanPool.sorted();
    constexpr i32 columns[] = {10, 30, 9, 3, 8};
    constexpr u16 isLast[] = {1, 0, 0, 1, 1};
    for (i32 i = 0; i < 5; ++i) {
        CAPTURE(i);
        CHECK(sorted[i].x == columns[i]);
        CHECK(sorted[i].isLast == isLast[i]);
    }
}

TEST_CASE("a polygon without spans has an empty list, wherever it stands among the others")
{
    MadeSpans made(5);
    made.make(made.polygon(1), 1, 1);
    made.make(made.polygon(3), 3, 1);
    made.sort();
    for (const size_t empty : {size_t{0}, size_t{2}, size_t{4}}) {
        CAPTURE(empty);
        CHECK(spansOf(made.polygon(empty)).empty());
    }
    CHECK(spansOf(StackTopPolygon).empty());
    CHECK(spansOf(BackgroundPolygon).empty());
    CHECK(runsOf(made.polygon(1)) == Runs{{1, 2, 0}});
    CHECK(runsOf(made.polygon(3)) == Runs{{3, 4, 0}});
}

TEST_CASE("rows without a span are passed over, and the rows of a frame may begin anywhere")
{
    MadeSpans made;
    const StateOffset one = made.polygon(0);
    SpanRowEnds[4] = 0;
    made.make(one, 5, 1);
    SpanRowEnds[5] = 1;
    SpanRowEnds[6] = 1;
    SpanRowEnds[7] = 1;
    made.make(one, 8, 1);
    SpanRowEnds[8] = 2;
    sortSpansByPolygon({0, 4, 320, 9});
    CHECK(runsOf(one) == Runs{{8, 9, 8}, {5, 6, 5}});
}

TEST_CASE("a frame without a span has nothing to sort")
{
    MadeSpans made;
    made.sort();
    CHECK(spansOf(made.polygon(0)).empty());
    CHECK(made.scene.host.calls.empty());
}

TEST_CASE("spans have columns from one end of 16 bits to the other")
{
    MadeSpans made;
    made.make(made.polygon(0), -32768, 65535);
    made.make(made.polygon(0), 32766, 1);
    made.sort();
    CHECK(runsOf(made.polygon(0)) == Runs{{32766, 32767, 0}, {-32768, 32767, 0}});
}

TEST_CASE("a run of no length, or of less, makes no span and does not grow a full pool")
{
    // Two spans on each of 2,048 rows: the pool is full when the background's last run closes, which begins at the
    // right edge or beyond it.
    for (const f32 xEnd : {30.0f, 33.0f}) {
        SpanScene scene({.right = 30, .bottom = 2048});
        scene.addRectangle(0, 0, 15, 2048);
        scene.addRectangle(15, 0, xEnd, 2048);
        scene.resolve();
        CHECK(SpanPool.count == 4096);
        CHECK(SpanPool.capacity == 4096);
        CHECK(runsOf(BackgroundPolygon).empty());
    }
}

TEST_CASE("the pool grows from nothing by 4,096 spans, and by as many again when it is full")
{
    MadeSpans made;
    const StateOffset polygon = made.polygon(0);
    for (i32 i = 0; i < 4096; ++i) REQUIRE(made.make(polygon, i, 1));
    const std::vector<ServiceCall>& calls = made.scene.host.calls;
    CHECK(calls.size() == 1);
    CHECK(SpanPool.capacity == 4096);
    made.endRow();
    REQUIRE(made.make(polygon, 7, 2));

    REQUIRE(calls.size() == 2);
    CHECK(calls[0].block == nullptr);
    CHECK(calls[0].bytes == stepBytes);
    CHECK(calls[1].block == calls[0].result);
    CHECK(calls[1].bytes == 2 * stepBytes);
    CHECK(SpanPool.capacity == 8192);
    CHECK(SpanPool.count == 4097);
    made.sort();
    CHECK(runsOf(polygon).size() == 4097); // what was made before has moved with the block
    CHECK(runsOf(polygon).front() == Run{7, 9, 1});
    CHECK(runsOf(polygon).back() == Run{0, 1, 0});
}

TEST_CASE("Intended: a refused growth leaves the capacity raised and moves the stored base back by one step's bytes")
{
    MadeSpans made;
    const StateOffset polygon = made.polygon(0);
    for (i32 i = 0; i < 4096; ++i) REQUIRE(made.make(polygon, i, 1));
    const void* const block = SpanPool.spans;

    made.scene.host.refuse(1);
    CHECK_FALSE(made.make(polygon, 7, 2));

    CHECK(SpanPool.capacity == 8192);
    CHECK(addressOf(SpanPool.spans) == addressOf(block) - stepBytes);
    CHECK(SpanPool.count == 4096);
    made.sort();
    CHECK(runsOf(polygon).size() == 4096); // what was made so far is found where it is
    CHECK(runsOf(polygon).front() == Run{4095, 4096, 0});
}

TEST_CASE("the frame after a refused growth starts from the block that is there, and asks for the same step again")
{
    MadeSpans made;
    const StateOffset polygon = made.polygon(0);
    std::vector<ServiceCall>& calls = made.scene.host.calls;
    for (i32 i = 0; i < 4096; ++i) REQUIRE(made.make(polygon, i, 1));
    const void* const block = SpanPool.spans;
    made.scene.host.refuse(1);
    CHECK_FALSE(made.make(polygon, 7, 2));
    calls.clear();

    resetSpanPool();
    CHECK(SpanPool.spans == block);
    CHECK(SpanPool.capacity == 4096);
    CHECK(SpanPool.count == 0);

    for (i32 i = 0; i < 4097; ++i) REQUIRE(made.make(polygon, i, 1));
    REQUIRE(calls.size() == 1);
    CHECK(calls[0].block == block);
    CHECK(calls[0].bytes == 2 * stepBytes);
}

TEST_CASE("after a refused first growth the next frame asks for a first block again")
{
    MadeSpans made;
    const StateOffset polygon = made.polygon(0);
    made.scene.host.refuse(1);
    CHECK_FALSE(made.make(polygon, 7, 2));
    CHECK(SpanPool.capacity == 4096);
    CHECK(addressOf(SpanPool.spans) == addressOf(nullptr) - stepBytes);
    made.sort();
    CHECK(spansOf(polygon).empty());

    resetSpanPool();
    CHECK(made.make(polygon, 7, 2));
    const std::vector<ServiceCall>& calls = made.scene.host.calls;
    REQUIRE(calls.size() == 2);
    CHECK(calls[1].block == nullptr);
    CHECK(calls[1].bytes == stepBytes);
}
