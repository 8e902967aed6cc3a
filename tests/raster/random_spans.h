// Random spans for comparing two routines that must draw the same pixels: ordinary and extreme values, textures and
// ramps full of random numbers, and rows of random pixels on either side of the span.
#pragma once

#include "raster/span_gradients.h"
#include "scenes/random_numbers.h"
#include "tests/support/test_scene.h"

#include <cstddef>
#include <vector>

namespace kardeno::tests {

// The longest span, and the pixels that lie before and after it.
inline constexpr i32 longestSpan = 70;
inline constexpr i32 guardPixels = 16;

// A texture of random texels. Of `fewValues` texels only the values 0 to 3 occur, so that a key hides a good part of
// them.
TestTexture randomTexture(u32 bitsPerTexel, i32 width, i32 height, bool is256x256, bool fewValues);

std::vector<RampEntry> randomRamp();

// Start values and steps as polygons have them, or any that an f32 can hold. `texture` and `ramp` are left to the
// caller.
SpanGradients ordinarySpan(scenes::RandomNumbers& random);
SpanGradients extremeSpan(scenes::RandomNumbers& random);

// A row of random pixels, in which the span begins `begin` pixels after an address that is a multiple of 16.
struct RandomRow {
    alignas(16) u16 row[guardPixels + 8 + longestSpan + guardPixels];

    explicit RandomRow(scenes::RandomNumbers& random);
    u16* at(i32 begin) { return row + guardPixels + begin; }
    bool operator==(const RandomRow& other) const;
};

// What is wrong with the second routine's way of drawing a span: an empty text if both leave the same row and the same
// record.
std::string difference(SpanRoutine plain, SpanRoutine packed, const SpanGradients& span, i32 begin,
                       const RandomRow& before);

} // namespace kardeno::tests
