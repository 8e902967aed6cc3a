#include "spanbuffer/span_pool.h"

namespace kardeno {

constinit SpanPoolRecord SpanPool = {};
constinit u32 SpanRowEnds[scanlineCount] = {};

void resetSpanPool()
{
    SpanPool.spans = SpanPool.held;
    SpanPool.capacity = SpanPool.heldCapacity;
    SpanPool.count = 0;
}

bool growSpanPool(HostContext& context)
{
    SpanPool.capacity += spanPoolGrowth;
    const u32 bytes = static_cast<u32>(SpanPool.capacity) * spanPoolRecordBytes;
    void* const block = context.realloc(SpanPool.spans, bytes);
    if (!block) {
        // Intended: the capacity stays raised and the stored base moves back by one step's bytes; the edge pool
        // recovers in another way. The spans made so far stay in the block that `held` points at.
        SpanPool.spans = reinterpret_cast<MadeSpan*>(reinterpret_cast<uintptr_t>(SpanPool.spans)
                                                     - spanPoolGrowth * spanPoolRecordBytes);
        return false;
    }
    SpanPool.spans = static_cast<MadeSpan*>(block);
    SpanPool.held = SpanPool.spans;
    SpanPool.heldCapacity = SpanPool.capacity;
    return true;
}

void sortSpansByPolygon(const DrawnRectangle& drawn)
{
    // The place behind a polygon's spans goes down to its first one while they are put in their places.
    const StateOffset statesEnd = endOfStates();
    u32 place = 0;
    for (StateOffset offset = 0; offset != statesEnd; offset += sizeof(PolygonState)) {
        PolygonState& state = stateAt(offset);
        place += state.spanCount;
        state.firstSpan = place;
        state.spansEnd = place;
    }

    constexpr u32 lookAhead = 12;
    const MadeSpan* const made = SpanPool.held;
    Span* const sorted = SpanPool.sorted();
    const u32 count = static_cast<u32>(SpanPool.count);
    u32 i = 0;
    for (i32 y = drawn.top; i < count; ++y) {
        for (const u32 rowEnd = SpanRowEnds[y]; i < rowEnd; ++i) {
            if (i + lookAhead < count) __builtin_prefetch(&stateAt(made[i + lookAhead].polygon), 1);
            const MadeSpan& span = made[i];
            PolygonState& state = stateAt(span.polygon);
            const u32 at = --state.firstSpan;
            sorted[at] = {.x = span.x,
                          .length = span.length,
                          .y = static_cast<u16>(y),
                          .isLast = static_cast<u16>(at + 1 == state.spansEnd)};
        }
    }
}

} // namespace kardeno
