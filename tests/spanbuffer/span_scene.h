// Polygons in the span buffer alone: filed and resolved as a frame does it, their spans read back as plain values.
#pragma once

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

// The spans of a polygon, in the order of its list.
inline Runs runsOf(const ScreenPolygon& polygon)
{
    Runs runs;
    for (i32 index = polygon.spanHead; index != -1; index = SpanPool.held[index].next) {
        const Span& span = SpanPool.held[index];
        runs.push_back({span.x, span.x + span.length, span.y});
    }
    return runs;
}

// The spans of one row only.
inline Runs runsOf(const ScreenPolygon& polygon, i32 row)
{
    Runs runs;
    for (const Run& run : runsOf(polygon)) {
        if (run.y == row) runs.push_back(run);
    }
    return runs;
}

// The edges that start on a row, sorted as the resolver sorts them when it comes to the row.
inline std::vector<const ScanEdge*> edgesStartingOn(i32 row)
{
    ScanEdge& head = EdgeStartTable[row];
    if (head.next != &RightGuardEdge) head.next = sortedByX(head.next, &RightGuardEdge);
    std::vector<const ScanEdge*> edges;
    for (const ScanEdge* edge = head.next; edge != &RightGuardEdge; edge = edge->next) edges.push_back(edge);
    return edges;
}

// The edges whose last row this is.
inline std::vector<const ScanEdge*> edgesEndingOn(i32 row)
{
    std::vector<const ScanEdge*> edges;
    for (const ScanEdge* edge = EdgeEndTable[row]; edge; edge = edge->nextEnding) edges.push_back(edge);
    return edges;
}

// One frame's polygons.
class SpanScene {
public:
    explicit SpanScene(const TestView::Settings& settings = {}) : view(settings)
    {
        setStackEnds();
        setGuardEdges(drawn(), &BackgroundPolygon);
        ResetEdgeTable(drawn());
    }

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

    // The edges of all polygons, in the order in which they were added; begins again when the pool grew.
    EdgePass buildEdgeTable()
    {
        EdgePass result;
        do {
            ResetEdgeTable(drawn());
            result = EdgePass::done;
            for (ScreenPolygon& polygon : polygons) {
                if ((result = AddPolygonEdges(host.context(), drawn(), &polygon)) != EdgePass::done) break;
            }
        } while (result == EdgePass::poolGrew);
        return result;
    }

    // A whole frame up to the spans. May be called again: what emission sets is set anew.
    void resolve()
    {
        for (ScreenPolygon& polygon : polygons) {
            polygon.spanHead = -1;
            polygon.activeCount = 0;
            polygon.engineFlag = 1;
        }
        setStackEnds();
        setGuardEdges(drawn(), &BackgroundPolygon);
        if (buildEdgeTable() != EdgePass::done) return;
        resetSpanPool();
        ResolveScanlines(
            host.context(), drawn(), view.record.top,
            {EdgeStartTable, EdgeEndTable, &LeftGuardEdge, &RightGuardEdge, &StackTopPolygon, &BackgroundPolygon});
    }

    std::deque<ScreenPolygon> polygons;
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
