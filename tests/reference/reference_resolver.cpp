#include "tests/reference/reference_resolver.h"

#include "tests/reference/reference_arithmetic.h"

#include <algorithm>
#include <deque>

namespace kardeno::reference {

namespace {

// A side of a polygon; x in 16.16 fixed point on the row that is being resolved.
struct Side {
    i32 x, xStep;
    bool entering;
    i32 lastRow;
    Polygon* polygon;
};

struct Resolver {
    i32 firstRow, endRow, firstColumn, endColumn;
    std::deque<Side> sides;
    std::vector<std::vector<Side*>> starting; // by row, counted from the first: ascending x

    std::vector<Side*> active; // left to right
    Polygon background;
    std::vector<Polygon*> stack; // the background first, the nearest last
    i32 row = 0;
    f32 rowY = 0;

    explicit Resolver(const RenderView& view);
    void addSides(Polygon& polygon);
    void addSide(Polygon& polygon, const Corner& a, const Corner& b);
    void mergeStarting();
    void walkRow();
    void enter(const Side& side);
    void leave(const Side& side);
    void closeRun(Polygon& polygon, i32 column);
    void step();
};

Resolver::Resolver(const RenderView& view)
    : firstRow(truncated(view.top)), endRow(truncated(view.projection->bottom)), firstColumn(truncated(view.left)),
      endColumn(truncated(view.projection->right)), rowY(view.top)
{
    starting.resize(static_cast<size_t>(std::max(0, endRow - firstRow)));
    background.invDepthOrigin = -1000000.0f;
    background.occludes = true;
    background.visible = true;
    stack.push_back(&background);
}

void Resolver::addSides(Polygon& polygon)
{
    const size_t count = polygon.corners.size();
    for (size_t i = 0; i < count; ++i) addSide(polygon, polygon.corners[i], polygon.corners[(i + 1) % count]);
}

void Resolver::addSide(Polygon& polygon, const Corner& a, const Corner& b)
{
    const i32 dy = wrappedDifference(b.scanY, a.scanY);
    if (dy == 0) return;
    const Corner& upper = dy > 0 ? a : b;
    const Corner& lower = dy > 0 ? b : a;
    Side side;
    side.polygon = &polygon;
    side.entering = dy > 0;
    side.x = truncated(upper.screenX * 65536.0);
    side.xStep = truncated(((static_cast<f64>(b.screenX) - a.screenX) * 65536.0) * (1.0 / dy));

    // Rows outside the view are cut off; the side still has the x that it would have had on its first row inside.
    i32 top = upper.scanY;
    if (lower.scanY <= firstRow || top >= endRow) return;
    if (top < firstRow) {
        side.x = wrappedSum(side.x, wrappedProduct(side.xStep, wrappedDifference(firstRow, top)));
        top = firstRow;
    }
    side.lastRow = std::min(lower.scanY, endRow) - 1;
    if (side.lastRow < top) return;

    sides.push_back(side);
    std::vector<Side*>& list = starting[static_cast<size_t>(top - firstRow)];
    const auto place = std::find_if(list.begin(), list.end(), [&](const Side* other) { return other->x >= side.x; });
    list.insert(place, &sides.back());
}

// A new side goes before an active one with the same x. The place is only ever looked for further right.
void Resolver::mergeStarting()
{
    size_t place = 0;
    for (Side* side : starting[static_cast<size_t>(row - firstRow)]) {
        while (place < active.size() && side->x > active[place]->x) ++place;
        active.insert(active.begin() + static_cast<std::ptrdiff_t>(place), side);
        ++place;
    }
}

f64 depthAt(const Polygon& polygon, f64 x, f64 y)
{
    return polygon.invDepthStepX * x + polygon.invDepthStepY * y + polygon.invDepthOrigin;
}

void Resolver::closeRun(Polygon& polygon, i32 column)
{
    const i32 start = std::max(polygon.runStart, firstColumn);
    const i32 end = std::min(column, endColumn);
    if (end > start) polygon.spans.push_back({start, end - start, row});
}

void Resolver::enter(const Side& side)
{
    Polygon& polygon = *side.polygon;
    const i32 column = side.x >> 16;

    // Depth is compared once, one whole pixel right of the side; of equal depths the one entered last is nearer.
    const f32 x = single(side.x / 65536.0 + 1.0);
    const f32 depth = single(depthAt(polygon, x, rowY));
    size_t below = stack.size() - 1;
    while (below > 0 && depthAt(*stack[below], x, rowY) > depth) --below;
    stack.insert(stack.begin() + static_cast<std::ptrdiff_t>(below) + 1, &polygon);

    if (!stack[below]->visible) {
        polygon.visible = false;
        return;
    }
    polygon.visible = true;
    polygon.runStart = column;
    if (!polygon.occludes) return;
    for (;; --below) {
        closeRun(*stack[below], column);
        stack[below]->visible = false;
        if (below == 0 || !stack[below - 1]->visible) return;
    }
}

void Resolver::leave(const Side& side)
{
    Polygon& polygon = *side.polygon;
    const i32 column = side.x >> 16;
    const size_t place = static_cast<size_t>(std::find(stack.begin(), stack.end(), &polygon) - stack.begin());

    if (polygon.visible) {
        closeRun(polygon, column);
        size_t below = place - 1;
        if (!stack[below]->visible) {
            for (;; --below) {
                stack[below]->visible = true;
                stack[below]->runStart = column;
                if (stack[below]->occludes) break;
            }
        }
    }
    stack.erase(stack.begin() + static_cast<std::ptrdiff_t>(place));
}

void Resolver::walkRow()
{
    background.runStart = firstColumn;
    for (const Side* side : active) {
        Polygon& polygon = *side->polygon;
        if (side->entering) {
            if (++polygon.insideCount == 1) enter(*side);
        } else {
            if (--polygon.insideCount == 0) leave(*side);
        }
    }
    if (background.visible) closeRun(background, endColumn);
}

void Resolver::step()
{
    std::erase_if(active, [&](const Side* side) { return side->lastRow == row; });
    for (size_t i = 0; i < active.size(); ++i) {
        active[i]->x = wrappedSum(active[i]->x, active[i]->xStep);
        for (size_t j = i; j > 0 && active[j]->x < active[j - 1]->x; --j) std::swap(active[j], active[j - 1]);
    }
}

} // namespace

std::vector<Span> resolveRows(const RenderView& view, std::vector<Polygon>& resolved, std::vector<Polygon>& sorted)
{
    Resolver resolver(view);
    for (Polygon& polygon : resolved) resolver.addSides(polygon);
    for (Polygon& polygon : sorted) resolver.addSides(polygon);
    for (resolver.row = resolver.firstRow; resolver.row < resolver.endRow; ++resolver.row) {
        resolver.mergeStarting();
        resolver.walkRow();
        resolver.step();
        resolver.rowY = single(resolver.rowY + 1.0);
    }
    return resolver.background.spans;
}

// One stable pass for each byte of the largest key that is not 0, the lowest byte first. Negative keys come out
// wherever the bytes that were looked at put them.
std::vector<size_t> farthestFirst(const std::vector<Polygon>& polygons)
{
    std::vector<size_t> order;
    if (polygons.empty()) return order;
    i32 largest = polygons[0].maxDepth;
    for (const Polygon& polygon : polygons) {
        order.push_back(order.size());
        largest = std::max(largest, polygon.maxDepth);
    }
    const u32 passes = largest <= 255 ? 1 : largest <= 65535 ? 2 : largest <= 16777215 ? 3 : 4;
    for (u32 pass = 0; pass < passes; ++pass) {
        const auto digit = [&](size_t index) {
            return (static_cast<u32>(polygons[index].maxDepth) >> (8 * pass)) & 0xff;
        };
        std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return digit(a) < digit(b); });
    }
    std::reverse(order.begin(), order.end());
    return order;
}

} // namespace kardeno::reference
