#include "spanbuffer/scanline_resolver.h"

#include "spanbuffer/edge_sort.h"
#include "spanbuffer/row_notes.h"

#include <assert.h>

namespace kardeno {

namespace {

// How many edges ahead of the walk the state of a polygon is fetched into the cache.
constexpr u32 lookAhead = 8;

// Passes the last edge of a row, behind which no other one stands that could be compared with it.
[[gnu::noinline]] void passLast(DepthStack& stack, const ScanEdge& edge)
{
    stack.pass(edge);
}

// Enters and leaves polygons along the row, and moves the edges to the next row.
void walkPlainly(DepthStack& stack, const ActiveEdges& active, i32 row, EdgeStepper& theStepper)
{
    stack.beginRow();
    EdgeStepper stepper = theStepper;
    const ScanEdge* edge = active.edges;
    const ScanEdge* const end = edge + active.count;
    const ScanEdge* const fetchedEnd = end - (active.count < lookAhead ? active.count : lookAhead);
    while (end - edge > 1) {
        if (edge < fetchedEnd) __builtin_prefetch(&stack.at(edge[lookAhead].polygon()));
        if (edge->x == edge[1].x && stack.replace(*edge, edge[1])) {
            if (!stack.memoryLeft) return;
            stepper.step(*edge++, row);
        } else {
            stack.pass(*edge);
            if (!stack.memoryLeft) return;
        }
        stepper.step(*edge++, row);
    }
    if (edge != end) {
        passLast(stack, *edge);
        if (!stack.memoryLeft) return;
        stepper.step(*edge, row);
    }
    theStepper = stepper;
}

// Sorts the edges that start on the row, and merges them with the active edges. A starting edge goes before an active
// one with the same x. Returns how many start.
u32 mergeStartingEdges(ActiveEdges& active, i32 row)
{
    const u32 first = EdgeStartTable[row];
    const u32 starting = EdgeStartTable[row + 1] - first;
    if (starting == 0) return 0;

    // The active edges come from rows before this one, so they end before `first` in either half.
    ScanEdge* const sorted = EdgePool.workspace() + first;
    sortStartingEdges(EdgePool.edges + first, starting, sorted);
    if (active.count == 0) {
        active = {.edges = sorted, .count = starting, .inWorkspace = true};
        return starting;
    }
    const ScanEdge* before = active.edges;
    const ScanEdge* const beforeEnd = before + active.count;
    const ScanEdge* added = sorted;
    const ScanEdge* const addedEnd = sorted + starting;
    ScanEdge* const merged = active.otherHalf();
    ScanEdge* to = merged;
    // Which list the next edge comes from is hard to predict: the choice is made without a branch.
    while (before != beforeEnd && added != addedEnd) {
        const u32 takesAdded = added->x <= before->x ? 1 : 0;
        *to++ = *(takesAdded ? added : before);
        added += takesAdded;
        before += 1 - takesAdded;
    }
    while (before != beforeEnd) *to++ = *before++;
    while (added != addedEnd) *to++ = *added++;
    active = {.edges = merged, .count = active.count + starting, .inWorkspace = !active.inWorkspace};
    return starting;
}

} // namespace

void ResolveScanlines(HostContext& context, const DrawnRectangle& drawn, f32 firstY, AlikeRows alikeRows)
{
    assert(fitsTables(drawn));
    DepthStack stack(context, drawn, firstY);
    RowNotes notes(stack, firstY);
    bool isAlike = false; // the row has the edges of the row before, in the same order
    ActiveEdges active = {.edges = EdgePool.workspace(), .count = 0, .inWorkspace = true};
    const i32 rowsEnd = drawn.left < drawn.right ? drawn.bottom : drawn.top; // without a column nothing is visible
    for (i32 row = drawn.top; row < rowsEnd && stack.memoryLeft; ++row) {
        const u32 starting = mergeStartingEdges(active, row);
        EdgeStepper stepper(active.edges);
        isAlike = isAlike && starting == 0 && alikeRows == AlikeRows::byNotes;
        if (!isAlike) notes.forget();
        if (notes.hold())
            notes.walkByNotes(active, row, stepper);
        else if (isAlike && notes.areWanted())
            notes.walkNoting(active, row, stepper);
        else
            walkPlainly(stack, active, row, stepper);
        isAlike = stepper.keptAll(active.count);
        active.count = stepper.count();
        if (!stepper.areSorted()) sortStably(active.edges, active.count, active.otherHalf());
        stack.endRow(row);
    }
    sortSpansByPolygon(drawn);
}

} // namespace kardeno
