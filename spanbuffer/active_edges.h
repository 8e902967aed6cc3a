// The edges that cross the current scanline.
#pragma once

#include "spanbuffer/edge_table.h"
#include "support/arithmetic.h"

namespace kardeno {

// The active edges, in order of x. They lie at the start of one half of the pool's block; the part of the table whose
// rows are past is at their disposal as well.
struct ActiveEdges {
    ScanEdge* edges;
    u32 count;
    bool inWorkspace; // in which half of the block they lie

    ScanEdge* otherHalf() const { return inWorkspace ? EdgePool.edges : EdgePool.workspace(); }
};

// Moves edges that have been passed to the next row. They are kept in order of x: an edge that has crossed others is
// put back in its place among them, unless very many do.
class EdgeStepper {
public:
    explicit EdgeStepper(ScanEdge* edges) : first(edges), end(edges) {}

    // The edge lies where the last kept one ends, or behind that.
    void step(const ScanEdge& edge, i32 row)
    {
        if (edge.lastRow == row) return;

        // The edge is written in one piece, as the next row reads it.
        typedef u32 EdgeWords __attribute__((vector_size(16), aligned(4), may_alias)); // whose sums wrap
        constexpr EdgeWords onlyX = {~0u, 0, 0, 0};
        const EdgeWords words = *reinterpret_cast<const EdgeWords*>(&edge);
        const EdgeWords stepped = words + (__builtin_shufflevector(words, words, 1, 1, 1, 1) & onlyX);
        *reinterpret_cast<EdgeWords*>(end) = stepped;
        const i32 x = static_cast<i32>(stepped[0]);
        if (x >= greatest)
            greatest = x;
        else if (moves <= manyMoves)
            putBack(x);
        ++end;
    }

    u32 count() const { return static_cast<u32>(end - first); }

    // Whether so many edges have been passed, and all are kept as they stood.
    bool keptAll(u32 passed) const { return count() == passed && moves == 0; }

    // Otherwise so many edges have crossed others that a sort of all active edges is the faster way.
    bool areSorted() const { return moves <= manyMoves; }

private:
    static constexpr u32 manyMoves = 500; // places that edges were moved on one row

    ScanEdge* first;
    ScanEdge* end;
    i32 greatest = smallestI32; // the x of the last edge
    u32 moves = 0;

    // Moves the edge that was just kept back to its place.
    void putBack(i32 x)
    {
        ScanEdge* place = end;
        const ScanEdge moved = *end;
        do {
            *place = place[-1];
            --place;
            ++moves;
        } while (place != first && x < place[-1].x);
        *place = moved;
    }
};

} // namespace kardeno
