// What the scanline resolver notes about each polygon: its depth plane, its place in the depth stack, and its spans.
// The states of all polygons of a frame lie in one array, which is laid out in the free part of the longer list's
// block.
#pragma once

#include "geometry/polygon_lists.h"

namespace kardeno {

using i16 = int16_t; // columns and rows are stored in 16 bits where a frame has many of them

// A state is named by its offset in bytes from the first state, so that an edge or a span finds it without arithmetic.
using StateOffset = u32;

struct PolygonState {
    f32 invDepthStepX; // the plane of inverse depth over the screen
    f32 invDepthStepY;
    f32 invDepthOrigin;
    i32 activeCount; // entering minus leaving edges that the walk has passed on the current scanline
    union {
        StateOffset above; // nearer neighbour in the depth stack of the current scanline
        u32 firstSpan;     // once all scanlines are resolved: where the polygon's spans begin,
    };
    union {
        StateOffset below; // farther neighbour
        u32 spansEnd;      // and where they end
    };
    u32 spanCount;
    i16 runStart; // column at which the current visible run began
    u8 occludes;  // 1 when the polygon hides what lies farther; 0 when it is see-through
    u8 isVisible; // in the depth stack: 1 while the polygon has an open run
};
static_assert(sizeof(PolygonState) == 32);

// The two ends of the depth stack come before the polygons. The background lies behind everything and gets a span
// wherever no occluding polygon is; its `below` is itself. The top is never compared, never visible and never drawn.
inline constexpr StateOffset StackTopPolygon = unseenState;
inline constexpr StateOffset BackgroundPolygon = StackTopPolygon + sizeof(PolygonState);
inline constexpr StateOffset firstPolygonState = BackgroundPolygon + sizeof(PolygonState);

// The inverse depth of both ends, which stands for an empty pixel.
inline constexpr f32 emptyDepth = -1000000.0f;

// The array of the frame. It is valid from layOutStates() until the next frame's emission.
extern PolygonState* polygonStates;

inline PolygonState& stateAt(StateOffset offset)
{
    return *reinterpret_cast<PolygonState*>(reinterpret_cast<u8*>(polygonStates) + offset);
}

// Finds room for the states of all polygons of the resolved lists and sets those of the two ends of the stack, which
// makes an empty stack.
void layOutStates();

// The offset behind the last state.
inline StateOffset endOfStates()
{
    const i32 polygons = resolvedPolygons.storedCount + sortedPolygons.storedCount;
    return firstPolygonState + static_cast<u32>(polygons) * StateOffset{sizeof(PolygonState)};
}

// Sets the state of a polygon as it is before the first scanline.
inline void setState(StateOffset offset, const StoredPolygon& polygon)
{
    PolygonState& state = stateAt(offset);
    state.invDepthStepX = polygon.invDepthStepX;
    state.invDepthStepY = polygon.invDepthStepY;
    state.invDepthOrigin = polygon.invDepthOrigin;
    state.activeCount = 0;
    state.spanCount = 0;
    state.occludes = polygon.occludes;
    state.isVisible = 1;
}

} // namespace kardeno
