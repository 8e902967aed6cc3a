#include "inspector/opened_row.h"

#include "geometry/side_counts.h"
#include "spanbuffer/depth_plane.h"
#include "spanbuffer/span_pool.h"
#include "support/arithmetic.h"

#include <algorithm>
#include <map>

namespace inspector {

namespace {

constexpr i32 background = -1;

struct RowEdge {
    i32 x, xStep; // 16.16 fixed point
    i32 polygon;
    bool enters;
    i32 firstRow, lastRow;
};

// Adds the sides of a polygon that cover a row of the picture, from corner 0 to corner 1 first.
void addEdges(const StoredPolygon& polygon, i32 number, i32 rowsEnd, std::vector<RowEdge>& edges)
{
    const CornerLayout layout = cornerLayouts[polygon.format];
    for (u32 i = 0; i < polygon.cornerCount; ++i) {
        const u32 j = i + 1 < polygon.cornerCount ? i + 1 : 0;
        const CornerPlace& a = placeOf(cornersOf(polygon) + i * layout.bytes, layout);
        const CornerPlace& b = placeOf(cornersOf(polygon) + j * layout.bytes, layout);
        const SideRows rows = rowsOfSide(a.y, b.y, 0, rowsEnd);
        if (!rows.makesEdge) continue;

        const i32 dy = wrappingDifference(b.y, a.y);
        const CornerPlace& top = dy > 0 ? a : b;
        RowEdge edge{truncated(top.x * 65536.0), 0, number, dy > 0, rows.start, rows.end - 1};
        if (dy != 1 && dy != -1) {
            edge.xStep = truncated(((f64(b.x) - a.x) * 65536.0) * (1.0 / dy));
            edge.x = wrappingSum(edge.x, wrappingProduct(edge.xStep, wrappingDifference(rows.start, top.y)));
        }
        edges.push_back(edge);
    }
}

// The walk over all rows of a frame, with the depth stack as a plain list of numbers.
class PlainWalk {
public:
    PlainWalk(i32 width, i32 height) : width_(width)
    {
        std::vector<RowEdge> edges;
        for (const PolygonList* list : {&resolvedPolygons, &sortedPolygons}) {
            for (const StoredPolygon* polygon = list->held; polygon != list->end(); polygon = following(polygon)) {
                addEdges(*polygon, i32(states_.size()), height, edges);
                PolygonState state{};
                state.invDepthStepX = polygon->invDepthStepX;
                state.invDepthStepY = polygon->invDepthStepY;
                state.invDepthOrigin = polygon->invDepthOrigin;
                state.occludes = polygon->occludes;
                states_.push_back(state);
            }
        }
        starting_.resize(std::size_t(height));
        for (const RowEdge& edge : edges) starting_[std::size_t(edge.firstRow)].push_back(edge);
    }

    // Walks the next row.
    OpenedRow next()
    {
        const auto byX = [](const RowEdge& a, const RowEdge& b) { return a.x < b.x; };

        // Of edges that start at the same x the one added last goes first, and before those that were active already.
        std::vector<RowEdge> starting = starting_[std::size_t(row_)];
        std::reverse(starting.begin(), starting.end());
        starting.insert(starting.end(), active_.begin(), active_.end());
        active_ = std::move(starting);
        std::stable_sort(active_.begin(), active_.end(), byX);

        opened_ = {};
        backgroundRun_ = 0;
        backgroundIsVisible_ = visibleFrom(0);
        for (const RowEdge& edge : active_) pass(edge);
        if (backgroundIsVisible_) close(background, width_);

        std::vector<RowEdge> staying;
        for (RowEdge& edge : active_) {
            if (edge.lastRow == row_) continue;
            edge.x = wrappingSum(edge.x, edge.xStep);
            staying.push_back(edge);
        }
        std::stable_sort(staying.begin(), staying.end(), byX);
        active_ = std::move(staying);
        ++row_;
        y_ = stored(y_ + 1.0);
        return std::move(opened_);
    }

private:
    // Whether what lies at this place of the stack is seen: nothing that occludes lies nearer.
    bool visibleFrom(std::size_t place) const
    {
        for (std::size_t i = 0; i < place; ++i)
            if (states_[std::size_t(stack_[i])].occludes) return false;
        return true;
    }

    void close(i32 polygon, i32 column)
    {
        const i32 run = polygon == background ? backgroundRun_ : states_[std::size_t(polygon)].runStart;
        const i32 x = std::max(run, 0), end = std::min(column, width_);
        if (x < end) opened_.spans.push_back({x, end - x, polygon});
    }

    void open(i32 polygon, i32 column)
    {
        if (polygon == background) {
            backgroundRun_ = i16(column);
            backgroundIsVisible_ = true;
        } else {
            states_[std::size_t(polygon)].runStart = i16(column);
            states_[std::size_t(polygon)].isVisible = 1;
        }
    }

    void hide(i32 polygon, i32 column)
    {
        close(polygon, column);
        if (polygon == background)
            backgroundIsVisible_ = false;
        else
            states_[std::size_t(polygon)].isVisible = 0;
    }

    // What is seen below a place of the stack: the polygons down to the first that occludes, or to the background.
    template <class Visit>
    void forEachSeenBelow(std::size_t place, Visit visit)
    {
        for (; place < stack_.size(); ++place) {
            visit(stack_[place]);
            if (states_[std::size_t(stack_[place])].occludes) return;
        }
        visit(background);
    }

    void enter(const RowEdge& edge, OpenedRow::Event& event)
    {
        PolygonState& polygon = states_[std::size_t(edge.polygon)];
        const PlainSamplePoint point(stored(edge.x / 65536.0 + 1.0), y_);
        const f64 depth = stored(point.depthOf(polygon));
        std::size_t place = 0;
        for (; place < stack_.size(); ++place) {
            ++event.comparisons;
            if (!(point.depthOf(states_[std::size_t(stack_[place])]) > depth)) break;
        }
        const i32 column = edge.x >> 16;
        const bool isVisible = visibleFrom(place);
        if (isVisible && polygon.occludes) forEachSeenBelow(place, [&](i32 hidden) { hide(hidden, column); });
        stack_.insert(stack_.begin() + std::ptrdiff_t(place), edge.polygon);
        polygon.isVisible = 0;
        if (isVisible) open(edge.polygon, column);
    }

    void leave(const RowEdge& edge)
    {
        PolygonState& polygon = states_[std::size_t(edge.polygon)];
        const std::size_t place = std::size_t(std::find(stack_.begin(), stack_.end(), edge.polygon) - stack_.begin());
        const i32 column = edge.x >> 16;
        if (polygon.isVisible) {
            close(edge.polygon, column);
            if (polygon.occludes) forEachSeenBelow(place + 1, [&](i32 revealed) { open(revealed, column); });
        }
        polygon.isVisible = 0;
        if (place < stack_.size()) stack_.erase(stack_.begin() + std::ptrdiff_t(place));
    }

    void pass(const RowEdge& edge)
    {
        OpenedRow::Event event{edge.x / 65536.0, edge.polygon, edge.enters, 0, {}};
        i32& count = states_[std::size_t(edge.polygon)].activeCount;
        count += edge.enters ? 1 : -1;
        if (edge.enters && count == 1) enter(edge, event);
        if (!edge.enters && count == 0) leave(edge);
        event.stack = stack_;
        opened_.events.push_back(std::move(event));
    }

    const i32 width_;
    i32 row_ = 0;
    f32 y_ = 0;
    std::vector<PolygonState> states_;
    std::vector<std::vector<RowEdge>> starting_; // by their first row, in the order in which they were added
    std::vector<RowEdge> active_;
    std::vector<i32> stack_; // from the nearest to the farthest
    i32 backgroundRun_ = 0;
    bool backgroundIsVisible_ = true;
    OpenedRow opened_;
};

// The spans that the renderer made of a row.
std::vector<OpenedRow::RowSpan> madeSpans(i32 row)
{
    std::vector<OpenedRow::RowSpan> spans;
    for (u32 i = row > 0 ? SpanRowEnds[row - 1] : 0; i < SpanRowEnds[row]; ++i) {
        const MadeSpan& made = SpanPool.held[i];
        const bool isBackground = made.polygon == BackgroundPolygon;
        spans.push_back({made.x, made.length,
                         isBackground ? background : i32((made.polygon - firstPolygonState) / sizeof(PolygonState))});
    }
    return spans;
}

} // namespace

OpenedRow openRow(i32 row, i32 width, i32 height)
{
    PlainWalk walk(width, height);
    for (i32 above = 0; above < row; ++above) walk.next();
    OpenedRow opened = walk.next();
    opened.agrees = opened.spans == madeSpans(row);
    return opened;
}

i32 comparisonsOfFrame(i32 width, i32 height)
{
    PlainWalk walk(width, height);
    i32 comparisons = 0;
    for (i32 row = 0; row < height; ++row)
        for (const OpenedRow::Event& event : walk.next().events) comparisons += event.comparisons;
    return comparisons;
}

std::vector<OutlineRow> outlineRows(const StoredPolygon& polygon, i32 width, i32 height)
{
    std::vector<RowEdge> edges;
    addEdges(polygon, 0, height, edges);
    std::map<i32, OutlineRow> rows;
    for (RowEdge edge : edges) {
        for (i32 y = edge.firstRow; y <= edge.lastRow; ++y, edge.x = wrappingSum(edge.x, edge.xStep)) {
            const i32 column = std::clamp(edge.x >> 16, i32{0}, width);
            OutlineRow& row = rows.try_emplace(y, OutlineRow{y, column, column}).first->second;
            row.left = std::min(row.left, column);
            row.right = std::max(row.right, column);
        }
    }
    std::vector<OutlineRow> result;
    for (const auto& [y, row] : rows)
        if (row.left < row.right) result.push_back(row);
    return result;
}

} // namespace inspector
