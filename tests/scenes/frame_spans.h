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

inline std::vector<VisibleSpan> visibleSpansOf(StateOffset polygon)
{
    std::vector<VisibleSpan> spans;
    for (const Span& span : spansOf(polygon)) spans.push_back({span.x, span.length, span.y});
    return spans;
}

inline std::vector<VisibleSpan> backgroundSpans()
{
    return visibleSpansOf(BackgroundPolygon);
}

// Of every polygon of a list that is stored, in list order.
inline std::vector<std::vector<VisibleSpan>> spansOf(const PolygonList& list)
{
    std::vector<std::vector<VisibleSpan>> spans;
    for (const StoredPolygon* polygon = list.held; polygon != list.end(); polygon = following(polygon))
        spans.push_back(visibleSpansOf(polygon->state));
    return spans;
}

// The outlines of all polygons of a list that are stored, in list order.
inline std::vector<ScreenPolygon> outlinesOf(const PolygonList& list)
{
    std::vector<ScreenPolygon> outlines;
    for (const StoredPolygon* polygon = list.held; polygon != list.end(); polygon = following(polygon))
        expand(*polygon, outlines.emplace_back());
    return outlines;
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
