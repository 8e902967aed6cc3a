// What the span buffer found in the frame drawn last, seen from inside the library.
#pragma once

#include "geometry/polygon_lists.h"
#include "spanbuffer/scanline_resolver.h"
#include "spanbuffer/span_pool.h"

#include <cstdlib>
#include <ostream>
#include <vector>

namespace kardeno::scenes {

struct VisibleSpan {
    i32 x, length, y;
    bool operator==(const VisibleSpan&) const = default;
};

inline std::vector<VisibleSpan> spansOf(const ScreenPolygon& polygon)
{
    std::vector<VisibleSpan> spans;
    for (i32 index = polygon.spanHead; index != -1; index = SpanPool.held[index].next) {
        const Span& span = SpanPool.held[index];
        spans.push_back({span.x, span.length, span.y});
    }
    return spans;
}

inline std::vector<VisibleSpan> backgroundSpans()
{
    return spansOf(BackgroundPolygon);
}

// Of every polygon of a list, in list order.
inline std::vector<std::vector<VisibleSpan>> spansOf(const PolygonList& list)
{
    std::vector<std::vector<VisibleSpan>> spans;
    for (i32 i = 0; i < list.count; ++i) spans.push_back(spansOf(list.held[i]));
    return spans;
}

// Gives the pools of edges and spans back, as if no frame had been drawn yet.
inline void releasePools()
{
    std::free(EdgePool.edges);
    std::free(SpanPool.held);
    EdgePool = {};
    SpanPool = {};
}

} // namespace kardeno::scenes
