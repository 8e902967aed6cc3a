// Scanline coherence. Where large polygons are drawn, many rows have the edges of the row before, in the same order,
// and the same runs of pixels are seen between them. On such rows the resolver does without the depth stack: while it
// walks along the first one, it notes down at which edges runs begin and end, and on the following ones it makes the
// spans by these notes.
//
// The notes hold as long as no edge starts, ends or crosses another one, and as long as every comparison of depths has
// the same outcome. They are kept only when all comparisons are settled: when the planes of two polygons are so far
// apart, on this row and at the lower end of the entering edge, that on no row between them anything can turn out the
// other way, with whatever is rounded.
#pragma once

#include "spanbuffer/active_edges.h"
#include "spanbuffer/depth_stack.h"

namespace kardeno {

inline constexpr u32 mostRunNotes = 2048; // rows on which more runs begin and end are not noted down

// At an edge a run of a polygon begins or ends.
struct RunNote {
    u32 edge; // its place among the active edges
    u32 polygonAndFlag;

    static constexpr u32 begins = 1;
};

class RowNotes {
public:
    RowNotes(DepthStack& theStack, f32 firstY);

    // Whether the notes tell all about a row that has the edges of the row before.
    bool hold() const { return areComplete; }

    // Whether such a row should be noted down.
    bool areWanted();

    // Walks along a row like the plain walk, and notes down what happens.
    void walkNoting(const ActiveEdges& active, i32 row, EdgeStepper& stepper);

    // Walks along a row by the notes, which hold.
    void walkByNotes(const ActiveEdges& active, i32 row, EdgeStepper& stepper);

    // The edges have changed.
    void forget() { areComplete = false; }

private:
    DepthStack& stack;
    const bool rowsAreExact; // whether the y of every row is free of rounding, so that depths change evenly
    bool areComplete = false;
    u32 count = 0;
    u32 rowsToWait = 0; // until another row is noted down, after one whose comparisons were not settled

    bool isSettled(const ScanEdge& edge, const ScanEdge* nextEdge, StateOffset under, i32 row) const;
};

} // namespace kardeno
