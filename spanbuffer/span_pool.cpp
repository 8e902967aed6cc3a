#include "spanbuffer/span_pool.h"

#include <assert.h>

namespace kardeno {

constinit SpanPoolRecord SpanPool = {};

namespace {

bool growSpanPool(HostContext& context)
{
    SpanPool.capacity += spanPoolGrowth;
    const u32 bytes = static_cast<u32>(SpanPool.capacity) * u32{sizeof(Span)};
    void* const block = context.realloc(SpanPool.spans, bytes);
    if (!block) {
        // Intended: the capacity stays raised and the stored base moves back by one step's bytes; the edge pool
        // recovers in another way. The spans made so far stay in the block that `held` points at.
        SpanPool.spans =
            reinterpret_cast<Span*>(reinterpret_cast<uintptr_t>(SpanPool.spans) - spanPoolGrowth * sizeof(Span));
        return false;
    }
    SpanPool.spans = static_cast<Span*>(block);
    SpanPool.held = SpanPool.spans;
    SpanPool.heldCapacity = SpanPool.capacity;
    return true;
}

} // namespace

void resetSpanPool()
{
    SpanPool.spans = SpanPool.held;
    SpanPool.capacity = SpanPool.heldCapacity;
    SpanPool.count = 0;
}

bool appendSpan(HostContext& context, ScreenPolygon& polygon, i32 x, i32 xEnd, i32 y)
{
    if (x >= xEnd) return true;
    if (SpanPool.count >= SpanPool.capacity && !growSpanPool(context)) return false;
    assert(SpanPool.spans == SpanPool.held && SpanPool.count < SpanPool.heldCapacity);
    SpanPool.spans[SpanPool.count] = {.x = x, .length = xEnd - x, .y = y, .next = polygon.spanHead};
    polygon.spanHead = SpanPool.count;
    ++SpanPool.count;
    return true;
}

} // namespace kardeno
