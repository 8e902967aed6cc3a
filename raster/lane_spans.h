// The set-up of spans for a stored polygon whose rows stand in the LaneRowTable. It is the scanline set-up of
// span_walk.h, with the values of a row in one vector. Gradients are formed when a span of the row needs them.
#pragma once

#include "raster/lane_rows.h"
#include "raster/span_gradients.h"
#include "raster/span_walk.h"

namespace kardeno {

template <class Format>
class LaneSpans {
public:
    explicit LaneSpans(i32 topRow) : top(topRow) {}

    i32 x = 0; // the column that the values belong to
    f32x4 start = {};
    f32x4 step = {};

    // The shade of LitTextured, which becomes an integer at the row's left end.
    i32 shade = 0;
    i32 shadeStep = 0;

    // Goes to a span. `length` may be anything that says whether it has more than one pixel.
    void goTo(const Span& span)
    {
        if (span.y != row) startRow(span.y);
        if (!hasGradients && (span.length > 1 || span.x != x)) setGradients();
        if (span.x != x) advanceTo(span.x);
    }

    // Writes the values for an inner routine.
    void give(SpanGradients& gradients) const
    {
        gradients.x = x;
        if constexpr (carriesTexture<Format>) {
            storeLanes(&gradients.start.invDepth, start);
            storeLanes(&gradients.step.invDepth, step);
            storeLanes(&gradients.step8.invDepth, step * 8.0f);
        } else if constexpr (isInPerspective<Format>) {
            gradients.start.invDepth = start[0];
            gradients.start.intensity = start[1];
            gradients.step8.invDepth = step[0] * 8.0f;
            gradients.step8.intensity = step[1] * 8.0f;
        } else {
            giveColours(gradients.start, start);
            giveColours(gradients.step, step);
        }
        if constexpr (hasShadeOnScreen) {
            gradients.shade = shade;
            gradients.shadeStep = shadeStep;
        }
        if constexpr (trailingValues<Format> == 3) {
            giveColours(gradients.start, further);
            giveColours(gradients.step, furtherStep);
        }
    }

private:
    static constexpr bool hasShadeOnScreen = Format::Attributes::template contains<ShadeOnScreen>();
    static constexpr u32 furtherCount = trailingValues<Format> == 3 ? 3 : 0;

    const i32 top;
    i32 row = -1;
    bool hasGradients = false;
    f32 further[3] = {};
    f32 furtherStep[3] = {};

    template <class Three>
    static void giveColours(Interpolants& to, const Three& from)
    {
        to.colourR = from[0];
        to.colourG = from[1];
        to.colourB = from[2];
    }

    static i32 columnOf(f32x4 lanes) { return truncated(lanes[3]); }

    void startRow(i32 y)
    {
        row = y;
        hasGradients = false;
        const LaneSide& left = LaneRowTable[y - top].left;
        start = loadedLanes(left.lanes);
        x = columnOf(start);
        if constexpr (hasShadeOnScreen) shade = truncated(left.further[0]);
        for (u32 i = 0; i < furtherCount; ++i) further[i] = left.further[i];
    }

    void setGradients()
    {
        const LaneRow& ends = LaneRowTable[row - top];
        const f32x4 left = loadedLanes(ends.left.lanes);
        const f32x4 right = loadedLanes(ends.right.lanes);
        const i32 width = wrappingDifference(columnOf(right), columnOf(left));
        const f32 inverse = stored(width >= 0 ? reciprocal(static_cast<u32>(width)) : 1.0 / width); // 0 for 0
        step = scaledDifference(left, right, inverse);
        if constexpr (hasShadeOnScreen)
            shadeStep = truncated((static_cast<f64>(ends.right.further[0]) - ends.left.further[0]) * inverse);
        for (u32 i = 0; i < furtherCount; ++i)
            furtherStep[i] = scaledDifference(ends.left.further[i], ends.right.further[i], inverse);
        hasGradients = true;
    }

    void advanceTo(i32 column)
    {
        const i32 columns = wrappingDifference(column, x);
        const f64x4 moved =
            __builtin_convertvector(start, f64x4) + __builtin_convertvector(step, f64x4) * static_cast<f64>(columns);
        start = __builtin_convertvector(moved, f32x4);
        if constexpr (hasShadeOnScreen) shade = wrappingSum(shade, wrappingProduct(shadeStep, columns));
        for (u32 i = 0; i < furtherCount; ++i)
            further[i] = stored(further[i] + static_cast<f64>(furtherStep[i]) * columns);
        x = column;
    }
};

} // namespace kardeno
