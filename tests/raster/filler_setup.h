// What the tests of the fillers share: spans without a resolver, textures and ramps whose entries tell where they lie,
// and two set-ups whose coordinates can be worked out in the head.
//
// Rows of pixels are written as text, four hexadecimal digits a pixel; a bar may stand between blocks of 8.
#pragma once

#include "raster/span_gradients.h"
#include "raster/textured_spans.h"
#include "spanbuffer/span_pool.h"
#include "tests/support/test_frame.h"
#include "tests/support/test_host.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace kardeno::tests {

using Pixels = std::vector<u16>;

std::string text(const Pixels& pixels);
Pixels pixelsOf(const std::string& text);

// Gives polygons spans that no resolver made. A polygon's list runs in the order in which its spans are given. Make it
// after the host, whose coming and going empties the pool.
class SpanLists {
public:
    struct Run {
        i32 x, length, y;
    };
    void give(ScreenPolygon& polygon, const std::vector<Run>& runs);

private:
    std::vector<Span> spans;
};

// How a map is addressed: as any map by row shift and index mask, or as one of 256 x 256.
enum class Addressing { any, square };

// A 16 x 16 pattern of texels that tell where they lie: texel (x, y) is the pixel 0xYYXX, or the palette index 0xYX.
// As any map it is 16 x 16; as a square map it is repeated over 256 x 256.
struct MarkedTexture : TestTexture {
    MarkedTexture(u32 bitsPerTexel, Addressing addressing);
    void replace(u32 old, u32 value); // every such texel by another

private:
    u32 bits;
    i32 size;
};

// Ramps whose pixels tell their level: 0xLLII for 64 levels of 256 indices, or 0xLLLL for 64 plain levels. The lower
// halves of the entries, which are no pixels, hold rubbish.
std::vector<RampEntry> markedTexturedRamp();
std::vector<RampEntry> markedPlainRamp();

// Set-up `flat`: depth 1 everywhere, so that every value moves by its step from pixel to pixel. In texels and levels:
//
//   pixel   0     1     2     3     4     5     6     7   | 8     9    10    11    12    13    14    15   | 16
//   u     13.00 13.75 14.50 15.25 16.00 16.75 17.50 18.25 |19.00 19.75 20.50 21.25 22.00 22.75 23.50 24.25 |25.00
//   v      6.5   6.0   5.5   5.0   4.5   4.0   3.5   3.0  | 2.5   2.0   1.5   1.0   0.5   0.0  -0.5  -1.0  |-1.5
//
// Texels as 0xYX. A square map goes on in column 0 of the same row, any 16 x 16 map in column 0 of the next one:
//   square  6d 6d 5e 5f 40 40 31 32 | 23 23 14 15 06 06 f7 f8 | e9
//   any     6d 6d 5e 5f 50 50 41 42 | 33 33 24 25 16 16 07 08 | f9
//
// Shade of textured rows, from 10.0 by 0.5, and of untextured rows, from 10.0 by 0.75:
//           0a 0a 0b 0b 0c 0c 0d 0d | 0e 0e 0f 0f 10 10 11 11 | 12
//           0a 0a 0b 0c 0d 0d 0e 0f | 10 10 11 12 13 13 14 15 | 16
SpanGradients flat();

// Set-up `receding`: inverse depth 1, 0.75, 0.5 at pixels 0, 8, 16. Divided by it, in 1/256 texel:
//
//   pixel            0             8                          16
//   u                0        383.75 / 0.75 = 511 2/3      767.5 / 0.5 = 1535
//   v             3072       2111.75 / 0.75 = 2815 2/3    1151.5 / 0.5 = 2303
//
//   truncated u:  511 >> 3 = 63     0   63  126  189  252  315  378  441
//                1024 >> 3 = 128  511  639  767  895 1023 1151 1279 1407   then 1535
//   truncated v: -257 >> 3 = -33 3072 3039 3006 2973 2940 2907 2874 2841
//                -512 >> 3 = -64 2815 2751 2687 2623 2559 2495 2431 2367   then 2303
//           c0 b0 b0 b0 b0 b1 b1 b1 | a1 a2 a2 a3 93 94 94 95 | 85
//
//   rounded u:    512 >> 3 = 64     0   64  128  192  256  320  384  448
//                1023 >> 3 = 127  512  639  766  893 1020 1147 1274 1401   then 1535
//   rounded v:   -256 >> 3 = -32 3072 3040 3008 2976 2944 2912 2880 2848
//                -513 >> 3 = -65 2816 2751 2686 2621 2556 2491 2426 2361   then 2303
//           c0 b0 b0 b0 b1 b1 b1 b1 | b2 a2 a2 a3 93 94 94 95 | 85
//
// Shade of textured rows, from 50.0 by -0.25:
//           32 31 31 31 31 30 30 30 | 30 2f 2f 2f 2f 2e 2e 2e | 2e
//
// Shade of untextured rows: 12800, then 9215.75 / 0.75 = 12287 2/3, then 5631.5 / 0.5 = 11263:
//   truncated:   -513 >> 3 = -65   12800 12735 12670 12605 12540 12475 12410 12345
//               -1024 >> 3 = -128  12287 12159 12031 11903 11775 11647 11519 11391   then 11263
//           32 31 31 31 30 30 30 30 | 2f 2f 2e 2e 2d 2d 2c 2c | 2b
SpanGradients receding();

// The same set-ups for an untextured row's shade.
SpanGradients flatShade();
SpanGradients recedingShade();

// The lengths at which spans are tried: without a pixel, within a block, around its end and around the end of the next.
inline constexpr i32 spanLengths[] = {0, 1, 5, 7, 8, 9, 16, 17};

// Draws spans of all those lengths over pixels that all hold `destination`, from even and odd pixels on, and checks
// that they are the first of the 17 pixels given and that nothing beside them was touched. In the record only the count
// may have changed: a routine that draws in blocks takes 8 off for each whole one.
enum class Count { takesBlocksOff, stays };
void checkSpan(const SpanGradients& setUp, SpanRoutine routine, u16 destination, const char* pixels,
               Count count = Count::takesBlocksOff);

// One line of a table of textured spans: the addressing, the pixel format, the first 17 pixels.
enum class Format { both, in555, in565 };
struct SpanCase {
    Addressing addressing;
    Format format;
    const char* pixels;
};

// What the lines of a table have in common. The texture is a MarkedTexture, the ramp a marked one of 64 x 256 entries.
struct TexturedSpans {
    const TexturedSpanRoutines& routines;
    u32 bitsPerTexel;
    u16 destination;
    u32 key = 0;              // texel that the record names as the key
    u32 texelThatIsZero = ~0; // texel whose place the texel 0 takes
};

void checkTexturedSpans(const TexturedSpans& spans, const SpanGradients& setUp, const std::vector<SpanCase>& cases);

} // namespace kardeno::tests
