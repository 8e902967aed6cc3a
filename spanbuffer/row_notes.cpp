#include "spanbuffer/row_notes.h"

namespace kardeno {

namespace {

constinit RunNote notes[mostRunNotes] = {};

constexpr u32 rowsBetweenFailures = 16;

f64 size(f64 value)
{
    return value < 0 ? -value : value;
}

// The points at which an entering polygon is compared with others, from a row to the last one of its edge.
class EdgePath {
public:
    EdgePath(const ScanEdge& edge, f32 y, i32 row)
        : xStart(edge.x / 65536.0 + 1.0), yStart(y), xEnd(xStart + edge.xStep / 65536.0 * (edge.lastRow - row)),
          yEnd(yStart + (edge.lastRow - row))
    {
    }

    // Whether x does not wrap on the way.
    bool fits() const { return size(xEnd) < 32767.0; }

    // Whether one polygon is nearer than the other all the way, for certain. Along the path the difference of two
    // depths changes evenly, so that it is enough to look at both ends. The margin allows for a point that is off by
    // 1/128 of a pixel, and for depths that are off by a four-millionth of the largest number that they are computed
    // from. What is rounded to f32 is off by less than a quarter of that.
    bool isNearer(const PolygonState& one, const PolygonState& other) const
    {
        const f64 stepX = static_cast<f64>(one.invDepthStepX) - other.invDepthStepX;
        const f64 stepY = static_cast<f64>(one.invDepthStepY) - other.invDepthStepY;
        const f64 origin = static_cast<f64>(one.invDepthOrigin) - other.invDepthOrigin;
        const f64 sumX = size(one.invDepthStepX) + size(other.invDepthStepX);
        const f64 sumY = size(one.invDepthStepY) + size(other.invDepthStepY);
        const f64 sumOrigin = size(one.invDepthOrigin) + size(other.invDepthOrigin);
        const f64 largest = sumX * 32768.0 + sumY * 8192.0 + sumOrigin;
        const f64 margin = largest / 4194304.0 + 1e-40;
        return largest < 1e30 && stepX * xStart + stepY * yStart + origin > margin
               && stepX * xEnd + stepY * yEnd + origin > margin;
    }

private:
    f64 xStart, yStart, xEnd, yEnd;
};

// Whether two edges lie on the same line, and go on doing so.
bool areOneLine(const ScanEdge& a, const ScanEdge& b)
{
    return a.x == b.x && a.xStep == b.xStep;
}

// Writes down what happens at one edge after the other.
class NoteWriter {
public:
    explicit NoteWriter(const ScanEdge* theEdges) : edges(theEdges) {}

    u32 edge = 0;
    u32 count = 0;

    bool hasRoom() const { return count < mostRunNotes; }
    void beganRun(StateOffset polygon) { add(polygon | RunNote::begins); }
    void endedRun(StateOffset polygon)
    {
        // A run without a pixel is not worth a note.
        if (count > 0 && notes[count - 1].polygonAndFlag == (polygon | RunNote::begins)
            && areOneLine(edges[notes[count - 1].edge], edges[edge]))
            --count;
        else
            add(polygon);
    }

private:
    const ScanEdge* edges;

    void add(u32 polygonAndFlag)
    {
        if (hasRoom()) notes[count++] = {.edge = edge, .polygonAndFlag = polygonAndFlag};
    }
};

// Whether a polygon is entered and its neighbour left at two edges that are the same line. Which of the two is nearer
// there may change from row to row, as they can lie in one plane. It does not matter: if both hide what lies farther,
// or neither does, the same runs end and begin in the same column.
bool areNeighbours(const ScanEdge& entering, const ScanEdge& leaving, StateOffset neighbour)
{
    return leaving.side == (neighbour | (entering.side & ScanEdge::occludes)) && areOneLine(entering, leaving);
}

void stepAll(const ActiveEdges& active, i32 row, EdgeStepper& stepper)
{
    EdgeStepper stepping = stepper; // a copy of its own, which the compiler keeps in registers
    for (const ScanEdge* edge = active.edges; edge != active.edges + active.count; ++edge) stepping.step(*edge, row);
    stepper = stepping;
}

} // namespace

RowNotes::RowNotes(DepthStack& theStack, f32 firstY)
    : stack(theStack),
      rowsAreExact(firstY >= 0.0f && firstY <= 4096.0f && stored(truncated(firstY * 256.0) / 256.0) == firstY)
{
}

bool RowNotes::areWanted()
{
    if (rowsToWait == 0) return rowsAreExact;
    --rowsToWait;
    return false;
}

// Whether the polygon of an edge, which is about to be put on `under`, has the same place on all rows of the edge.
bool RowNotes::isSettled(const ScanEdge& edge, const ScanEdge* nextEdge, StateOffset under, i32 row) const
{
    const EdgePath path(edge, stack.y, row);
    if (!path.fits()) return false;
    const auto isNeighbour = [&](StateOffset other) { return nextEdge && areNeighbours(edge, *nextEdge, other); };
    const PolygonState& entering = stack.at(edge.polygon());
    for (StateOffset other = stack.top(); other != under; other = stack.at(other).below) {
        if (path.isNearer(stack.at(other), entering)) continue;
        if (stack.at(other).below != under || !isNeighbour(other)) return false;
    }
    if (under == BackgroundPolygon || path.isNearer(entering, stack.at(under))) return true;
    const StateOffset below = stack.at(under).below;
    return isNeighbour(under) && (below == BackgroundPolygon || path.isNearer(entering, stack.at(below)));
}

void RowNotes::walkNoting(const ActiveEdges& active, i32 row, EdgeStepper& stepper)
{
    NoteWriter writer(active.edges);
    stack.beginRow();
    areComplete = stack.isEmpty();
    for (u32 i = 0; i < active.count; ++i) {
        const ScanEdge& edge = active.edges[i];
        const StateOffset polygon = edge.polygon();
        writer.edge = i;
        if (!stack.crosses(edge)) {
            areComplete = false;
        } else if (edge.entering()) {
            const StateOffset under = stack.placeFor(edge);
            areComplete = areComplete && isSettled(edge, i + 1 < active.count ? &edge + 1 : nullptr, under, row);
            stack.putIn(polygon, under, edge.x, writer);
        } else {
            stack.takeOut(polygon, edge.x, writer);
        }
        if (!stack.memoryLeft) return;
    }
    stepAll(active, row, stepper);
    count = writer.count;
    areComplete = areComplete && stack.isEmpty() && writer.hasRoom();
    if (!areComplete) rowsToWait = rowsBetweenFailures;
}

void RowNotes::walkByNotes(const ActiveEdges& active, i32 row, EdgeStepper& stepper)
{
    stack.beginRow();
    for (const RunNote* note = notes; note != notes + count; ++note) {
        const StateOffset polygon = note->polygonAndFlag & ~RunNote::begins;
        const i32 column = columnOf(active.edges[note->edge].x);
        if (note->polygonAndFlag & RunNote::begins) {
            stack.openRun(stack.at(polygon), column);
        } else {
            stack.closeRun(polygon, column);
            if (!stack.memoryLeft) return;
        }
    }
    stepAll(active, row, stepper);
}

} // namespace kardeno
