// The pool of visible runs: lists by index, growth in mid-frame, and the recovery from a refused growth.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

constexpr u32 stepBytes = 4096 * u32{sizeof(Span)};

static ScreenPolygon withoutSpans()
{
    ScreenPolygon polygon = {};
    polygon.spanHead = -1;
    return polygon;
}

static uintptr_t addressOf(const void* block)
{
    return reinterpret_cast<uintptr_t>(block);
}

TEST_CASE("a new span goes to the front of its polygon's list")
{
    TestHost host;
    ScreenPolygon one = withoutSpans();
    ScreenPolygon other = withoutSpans();
    CHECK(appendSpan(host.context(), one, 3, 8, 5));
    CHECK(appendSpan(host.context(), other, 8, 9, 5));
    CHECK(appendSpan(host.context(), one, 9, 10, 5));

    CHECK(one.spanHead == 2);
    CHECK(other.spanHead == 1);
    const Span* const spans = SpanPool.spans;
    CHECK(spans[2].next == 0);
    CHECK(spans[0].next == -1);
    CHECK(spans[0].x == 3);
    CHECK(spans[0].length == 5);
    CHECK(spans[0].y == 5);
}

TEST_CASE("a run of no length, or of less, makes no span and does not grow the pool")
{
    TestHost host;
    ScreenPolygon polygon = withoutSpans();
    CHECK(appendSpan(host.context(), polygon, 8, 8, 5));
    CHECK(appendSpan(host.context(), polygon, 8, 3, 5));
    CHECK(polygon.spanHead == -1);
    CHECK(host.calls.empty());
}

TEST_CASE("the pool grows from nothing by 4,096 spans, and by as many again when it is full")
{
    TestHost host;
    ScreenPolygon polygon = withoutSpans();
    for (i32 i = 0; i < 4096; ++i) REQUIRE(appendSpan(host.context(), polygon, i, i + 1, 0));
    CHECK(host.calls.size() == 1);
    CHECK(SpanPool.capacity == 4096);
    REQUIRE(appendSpan(host.context(), polygon, 7, 9, 1));

    REQUIRE(host.calls.size() == 2);
    CHECK(host.calls[0].block == nullptr);
    CHECK(host.calls[0].bytes == stepBytes);
    CHECK(host.calls[1].block == host.calls[0].result);
    CHECK(host.calls[1].bytes == 2 * stepBytes);
    CHECK(SpanPool.capacity == 8192);
    CHECK(SpanPool.count == 4097);
    CHECK(runsOf(polygon).size() == 4097); // the list leads into the moved block
    CHECK(runsOf(polygon).back() == Run{0, 1, 0});
}

TEST_CASE("Intended: a refused growth leaves the capacity raised and moves the stored base back by one step's bytes")
{
    TestHost host;
    ScreenPolygon polygon = withoutSpans();
    for (i32 i = 0; i < 4096; ++i) REQUIRE(appendSpan(host.context(), polygon, i, i + 1, 0));
    const void* const block = SpanPool.spans;

    host.refuse(1);
    CHECK_FALSE(appendSpan(host.context(), polygon, 7, 9, 1));

    CHECK(SpanPool.capacity == 8192);
    CHECK(addressOf(SpanPool.spans) == addressOf(block) - stepBytes);
    CHECK(SpanPool.count == 4096);
    CHECK(runsOf(polygon).size() == 4096); // what was made so far is found where it is
    CHECK(runsOf(polygon).front() == Run{4095, 4096, 0});
}

TEST_CASE("the frame after a refused growth starts from the block that is there, and asks for the same step again")
{
    TestHost host;
    ScreenPolygon polygon = withoutSpans();
    for (i32 i = 0; i < 4096; ++i) REQUIRE(appendSpan(host.context(), polygon, i, i + 1, 0));
    const void* const block = SpanPool.spans;
    host.refuse(1);
    CHECK_FALSE(appendSpan(host.context(), polygon, 7, 9, 1));
    host.calls.clear();

    resetSpanPool();
    CHECK(SpanPool.spans == block);
    CHECK(SpanPool.capacity == 4096);
    CHECK(SpanPool.count == 0);

    polygon.spanHead = -1;
    for (i32 i = 0; i < 4097; ++i) REQUIRE(appendSpan(host.context(), polygon, i, i + 1, 0));
    REQUIRE(host.calls.size() == 1);
    CHECK(host.calls[0].block == block);
    CHECK(host.calls[0].bytes == 2 * stepBytes);
}

TEST_CASE("after a refused first growth the next frame asks for a first block again")
{
    TestHost host;
    ScreenPolygon polygon = withoutSpans();
    host.refuse(1);
    CHECK_FALSE(appendSpan(host.context(), polygon, 7, 9, 1));
    CHECK(polygon.spanHead == -1);
    CHECK(SpanPool.capacity == 4096);
    CHECK(addressOf(SpanPool.spans) == addressOf(nullptr) - stepBytes);

    resetSpanPool();
    CHECK(appendSpan(host.context(), polygon, 7, 9, 1));
    REQUIRE(host.calls.size() == 2);
    CHECK(host.calls[1].block == nullptr);
    CHECK(host.calls[1].bytes == stepBytes);
}
