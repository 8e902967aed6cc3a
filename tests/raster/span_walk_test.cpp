#include "raster/span_walk.h"
#include "tests/raster/filler_setup.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// What inner routines were called with.
struct Call {
    i32 x;
    i32 count;
    f32 texU;
    u16* pixels;
};
std::vector<Call> calls;
u16 anyFrame[1024];

void record(SpanGradients* span, u16* pixels)
{
    calls.push_back({span->x, span->count, span->start.texU, pixels});
}

// An inner routine that works on the record itself as if it were its own.
void recordAndSpoil(SpanGradients* span, u16* pixels)
{
    record(span, pixels);
    span->count = -99;
}

// Columns 0 to 16 of rows 0 to 8. texU is 0 on the left of row 0 and 1000 more on each row; it gains 2 a column.
ScreenPolygon slopedPolygon()
{
    ScreenPolygon polygon;
    std::memset(&polygon, 0, sizeof polygon);
    polygon.vertexCount = 4;
    const f32 x[] = {0, 0, 16, 16};
    const i32 y[] = {0, 8, 8, 0};
    const f32 u[] = {0, 8000, 8032, 32};
    for (i32 i = 0; i < 4; ++i) {
        polygon.screenX[i] = x[i];
        polygon.scanY[i] = y[i];
        polygon.texU[i] = u[i];
    }
    polygon.spanHead = -1;
    return polygon;
}

// The calls for a list of spans, in a frame of the pitch.
std::vector<Call> callsFor(const std::vector<SpanLists::Run>& runs, u16* frameBuffer = anyFrame, u32 pitch = 100,
                           SpanRoutine routine = record)
{
    const TestHost host;
    SpanLists spans;
    ScreenPolygon polygon = slopedPolygon();
    spans.give(polygon, runs);
    calls.clear();
    SpanGradients span;
    std::memset(&span, 0, sizeof span);
    fillSpans<List<SpanTexU>>(polygon, frameBuffer, pitch, routine, span);
    return calls;
}

} // namespace

TEST_CASE("a polygon without spans calls no inner routine and lays out no outline")
{
    OutlineTable[0].left.x = -777;
    CHECK(callsFor({}).empty());
    CHECK(OutlineTable[0].left.x == -777);
}

TEST_CASE("spans are drawn in the order of the list")
{
    const std::vector<Call> made = callsFor({{8, 4, 3}, {2, 3, 3}, {5, 1, 0}});
    REQUIRE(made.size() == 3);
    CHECK(made[0].x == 8);
    CHECK(made[0].count == 4);
    CHECK(made[1].x == 2);
    CHECK(made[1].count == 3);
    CHECK(made[2].x == 5);
    CHECK(made[2].count == 1);
}

TEST_CASE("the spans of a list may lie anywhere in the pool")
{
    const TestHost host;
    ScreenPolygon polygon = slopedPolygon();
    Span pool[] = {{9, 9, 9, 1}, {3, 3, 5, 0}, {2, 2, 5, 0}, {1, 1, 5, 1}, {9, 9, 9, 0}};
    SpanPool.held = reinterpret_cast<MadeSpan*>(pool);
    polygon.spanHead = 1;
    std::vector<i32> seen;
    forEachSpan(polygon, [&](const Span& span) { seen.push_back(span.x); });
    CHECK(seen == std::vector<i32>{3, 2, 1});
}

TEST_CASE("spans are found in the block that holds them, whatever the pool's stored base says")
{
    const TestHost host;
    ScreenPolygon polygon = slopedPolygon();
    // A block with room for two spans, of which one was made.
    struct {
        MadeSpan made[2] = {};
        Span sorted[2] = {{4, 1, 5, 1}, {}};
    } pool;
    SpanPool.held = pool.made;
    SpanPool.heldCapacity = 2;
    SpanPool.spans = nullptr;
    polygon.spanHead = 0;
    forEachSpan(polygon, [](const Span& span) { CHECK(span.x == 4); });
}

TEST_CASE("a span of length 0 is handed on with no pixels to draw, and the list goes on behind it")
{
    const std::vector<Call> made = callsFor({{8, 0, 3}, {2, 3, 3}});
    REQUIRE(made.size() == 2);
    CHECK(made[0].count == 0);
    CHECK(made[1].count == 3);
}

TEST_CASE("the pixel of column x on row y is element y x pitch + x of the frame buffer")
{
    u16 frame[1000];
    const std::vector<Call> made = callsFor({{7, 1, 4}, {0, 1, 0}, {0, 1, 2}}, frame, 100);
    REQUIRE(made.size() == 3);
    CHECK(made[0].pixels - frame == 407);
    CHECK(made[1].pixels - frame == 0);
    CHECK(made[2].pixels - frame == 200);
}

TEST_CASE("a negative column lies before the row's first pixel, and the values of the row go on to the left")
{
    u16 frame[1000];
    const std::vector<Call> made = callsFor({{-3, 2, 4}}, frame, 100);
    REQUIRE(made.size() == 1);
    CHECK(made[0].pixels - frame == 397);
    CHECK(made[0].texU == 4000 - 6);
}

TEST_CASE("a negative pitch makes a frame that lies upside down in memory")
{
    u16 frame[1000];
    const std::vector<Call> made = callsFor({{7, 1, 4}}, frame + 900, static_cast<u32>(-100));
    REQUIRE(made.size() == 1);
    CHECK(made[0].pixels - frame == 507);
}

TEST_CASE("the first span of a row starts from the row's left values, moved to its own column")
{
    const std::vector<Call> made = callsFor({{5, 1, 3}, {0, 1, 2}, {15, 1, 7}});
    REQUIRE(made.size() == 3);
    CHECK(made[0].texU == 3010);
    CHECK(made[1].texU == 2000);
    CHECK(made[2].texU == 7030);
}

TEST_CASE("further spans of a row move on from the column of the span before, to the right and to the left")
{
    const std::vector<Call> made = callsFor({{5, 1, 3}, {9, 1, 3}, {9, 1, 3}, {1, 1, 3}});
    REQUIRE(made.size() == 4);
    CHECK(made[0].texU == 3010);
    CHECK(made[1].texU == 3018);
    CHECK(made[2].texU == 3018);
    CHECK(made[3].texU == 3002);
}

TEST_CASE("a row that comes up again after another row is set up anew")
{
    const std::vector<Call> made = callsFor({{5, 1, 3}, {5, 1, 4}, {6, 1, 3}});
    REQUIRE(made.size() == 3);
    CHECK(made[0].texU == 3010);
    CHECK(made[1].texU == 4010);
    CHECK(made[2].texU == 3012);
}

TEST_CASE("a row that is set up anew forgets the rounding of earlier moves, a row that goes on keeps it")
{
    // Row 1 of a polygon whose texU is 2^24 + column: moves of one column lose their 1 (2^24 + 1 is no f32).
    const TestHost host;
    SpanLists spans;
    ScreenPolygon polygon = slopedPolygon();
    for (i32 i = 0; i < 4; ++i) polygon.texU[i] = i < 2 ? 16777216.0f : 16777232.0f;
    SpanGradients span;
    std::memset(&span, 0, sizeof span);

    spans.give(polygon, {{1, 1, 1}, {2, 1, 1}});
    calls.clear();
    fillSpans<List<SpanTexU>>(polygon, anyFrame, 100, record, span);
    CHECK(calls[1].texU == 16777216.0f);

    spans.give(polygon, {{1, 1, 1}, {1, 1, 2}, {2, 1, 1}});
    calls.clear();
    fillSpans<List<SpanTexU>>(polygon, anyFrame, 100, record, span);
    CHECK(calls[2].texU == 16777218.0f);
}

TEST_CASE("what an inner routine leaves in the count is not looked at")
{
    const std::vector<Call> made = callsFor({{5, 17, 3}, {9, 4, 3}}, anyFrame, 100, recordAndSpoil);
    REQUIRE(made.size() == 2);
    CHECK(made[0].count == 17);
    CHECK(made[1].count == 4);
    CHECK(made[1].texU == 3018);
}

TEST_CASE("a row without width draws its left values all along")
{
    const TestHost host;
    SpanLists spans;
    ScreenPolygon polygon = slopedPolygon();
    polygon.screenX[2] = polygon.screenX[3] = 0; // as wide as nothing
    spans.give(polygon, {{0, 1, 3}, {5, 1, 3}});
    calls.clear();
    SpanGradients span;
    std::memset(&span, 0, sizeof span);
    fillSpans<List<SpanTexU>>(polygon, anyFrame, 100, record, span);
    REQUIRE(calls.size() == 2);
    CHECK(calls[0].texU == 3000);
    CHECK(calls[1].texU == 3000);
}
