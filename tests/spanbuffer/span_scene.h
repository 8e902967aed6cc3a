// Polygons in the span buffer alone: filed and resolved as a frame does it, their spans read back as plain values.
#pragma once

#include "geometry/list_storing.h"
#include "spanbuffer/edge_sort.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/scanline_resolver.h"
#include "spanbuffer/span_pool.h"
#include "tests/support/test_host.h"
#include "tests/support/test_view.h"

#include <deque>
#include <ostream>

namespace kardeno::tests {

// A visible run: columns x up to, not including, xEnd of row y.
struct Run {
    i32 x, xEnd, y;
    bool operator==(const Run&) const = default;
};
using Runs = std::vector<Run>;

inline std::ostream& operator<<(std::ostream& out, const Runs& runs)
{
    for (const Run& run : runs) out << "row " << run.y << ": [" << run.x << ", " << run.xEnd << ") ";
    return out;
}

inline Run runOf(const Span& span)
{
    return {span.x, span.x + span.length, span.y};
}

// The spans of a polygon, in the order of its list. BackgroundPolygon may be given instead of one.
inline Runs runsOf(const ScreenPolygon& polygon)
{
    Runs runs;
    if (polygon.spanHead == -1) return runs;
    const Span* span = SpanPool.sorted() + polygon.spanHead;
    for (; !span->isLast; ++span) runs.push_back(runOf(*span));
    runs.push_back(runOf(*span));
    return runs;
}

inline Runs runsOf(StateOffset polygon)
{
    Runs runs;
    for (const Span& span : spansOf(polygon)) runs.push_back(runOf(span));
    return runs;
}

// The spans of one row only.
template <class Polygon>
Runs runsOf(const Polygon& polygon, i32 row)
{
    Runs runs;
    for (const Run& run : runsOf(polygon)) {
        if (run.y == row) runs.push_back(run);
    }
    return runs;
}

using Edges = std::vector<ScanEdge>;

// The edges that start on a row, sorted as the resolver sorts them when it comes to the row.
inline Edges edgesStartingOn(i32 row)
{
    Edges edges(EdgePool.edges + EdgeStartTable[row], EdgePool.edges + EdgeStartTable[row + 1]);
    Edges sorted(edges.size());
    sortStartingEdges(edges.data(), static_cast<u32>(edges.size()), sorted.data());
    return sorted;
}

// The edges whose last row this is.
inline Edges edgesEndingOn(i32 row)
{
    Edges edges(EdgePool.edges, EdgePool.edges + EdgePool.count);
    std::erase_if(edges, [row](const ScanEdge& edge) { return edge.lastRow != row; });
    return edges;
}

// One frame's polygons. They are stored in the resolved list, in a block that has just as much room as a list of so
// many polygons is sure to have.
class SpanScene {
public:
    explicit SpanScene(const TestView::Settings& settings = {}) : view(settings) {}

    TestHost host;
    TestView view;

    // A polygon of constant depth; larger is nearer.
    ScreenPolygon& add(std::initializer_list<Corner> corners, f32 depth = 1, bool occludes = true)
    {
        ScreenPolygon& polygon = polygons.emplace_back(screenPolygon(corners, view, depth));
        polygon.occludes = occludes;
        return polygon;
    }

    // Columns x to xEnd and rows y to yEnd, with the winding that is drawn.
    ScreenPolygon& addRectangle(f32 x, f32 y, f32 xEnd, f32 yEnd, f32 depth = 1, bool occludes = true)
    {
        return add({{x, y}, {x, yEnd}, {xEnd, yEnd}, {xEnd, y}}, depth, occludes);
    }
    ScreenPolygon& addSeeThrough(f32 x, f32 y, f32 xEnd, f32 yEnd, f32 depth = 1)
    {
        return addRectangle(x, y, xEnd, yEnd, depth, false);
    }

    // The view's rectangle in whole pixels.
    DrawnRectangle drawn() const { return truncatedRectangle(view.record); }

    // Stores all polygons in the order in which they were added, as emission does, and builds the edge table from them.
    bool buildEdgeTable()
    {
        storePolygons();
        return kardeno::buildEdgeTable(host.context(), drawn());
    }

    // A whole frame up to the spans. May be called again.
    void resolve()
    {
        for (ScreenPolygon& polygon : polygons) polygon.spanHead = -1;
        if (!buildEdgeTable()) return;
        resetSpanPool();
        ResolveScanlines(host.context(), drawn(), view.record.top, alikeRows);
        for (size_t i = 0; i < polygons.size(); ++i) {
            const PolygonState& state = stateAt(stateOf(i));
            if (state.spanCount > 0) polygons[i].spanHead = static_cast<i32>(state.firstSpan);
        }
    }

    // The state of the i-th polygon that was added, once the edge table is built.
    StateOffset stateOf(size_t i) const { return stored[i] ? stored[i]->state : unseenState; }

    std::deque<ScreenPolygon> polygons;
    AlikeRows alikeRows = AlikeRows::byNotes;

private:
    std::vector<u8> block;
    std::vector<const StoredPolygon*> stored; // null for a polygon that is counted only

    void storePolygons()
    {
        resetPolygonLists();
        resetSideCounts(drawn());
        block.assign(polygons.size() * listRecordBytes, 0);
        stored.clear();
        PolygonList& list = resolvedPolygons;
        list.records = list.held = reinterpret_cast<StoredPolygon*>(block.data());
        list.capacity = list.heldCapacity = static_cast<i32>(polygons.size());
        for (const ScreenPolygon& polygon : polygons) {
            StoredPolygon* const place = list.end();
            storePolygon<PositionsOnly, ResolvedPolygons>(polygon, *place);
            place->occludes = polygon.occludes != 0;
            stored.push_back(list.end() == place ? nullptr : place);
        }
    }
};

inline void setPlane(ScreenPolygon& polygon, f32 stepX, f32 stepY, f32 origin)
{
    polygon.invDepthStepX = stepX;
    polygon.invDepthStepY = stepY;
    polygon.invDepthOrigin = origin;
}

inline Runs background(i32 row)
{
    return runsOf(BackgroundPolygon, row);
}

} // namespace kardeno::tests
