#include "spanbuffer/polygon_states.h"

#include <assert.h>

namespace kardeno {

constinit PolygonState* polygonStates = nullptr;

namespace {

// The states of a frame without polygons.
constinit PolygonState stackEnds[2] = {};

// A stored polygon and the states of two leave room in the part of a block that belongs to one polygon. The list with
// more polygons therefore has room for the states of both lists.
static_assert(storedBytes(maxCorners, cornerLayout<ColouredTextured>.bytes) + 4 * sizeof(PolygonState)
                  + alignof(StoredPolygon)
              <= listRecordBytes);

void setEnd(StateOffset end, StateOffset above, StateOffset below, u8 visible)
{
    PolygonState& state = stateAt(end);
    state = {};
    state.invDepthOrigin = emptyDepth;
    state.above = above;
    state.below = below;
    state.occludes = 1;
    state.isVisible = visible;
}

} // namespace

void layOutStates()
{
    constexpr uintptr_t alignment = sizeof(PolygonState);
    const PolygonList& list =
        resolvedPolygons.storedCount >= sortedPolygons.storedCount ? resolvedPolygons : sortedPolygons;
    polygonStates = stackEnds;
    if (list.storedCount > 0) {
        const uintptr_t free = (reinterpret_cast<uintptr_t>(list.end()) + (alignment - 1)) & ~(alignment - 1);
        polygonStates = reinterpret_cast<PolygonState*>(free);
        assert(
            reinterpret_cast<uintptr_t>(polygonStates + 2 + resolvedPolygons.storedCount + sortedPolygons.storedCount)
            <= reinterpret_cast<uintptr_t>(list.held) + static_cast<uintptr_t>(list.heldCapacity) * listRecordBytes);
    }
    setEnd(BackgroundPolygon, StackTopPolygon, BackgroundPolygon, 1);
    setEnd(StackTopPolygon, StackTopPolygon, BackgroundPolygon, 0);
}

} // namespace kardeno
