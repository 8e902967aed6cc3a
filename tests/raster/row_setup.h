// Whole fillers, called through the rows of the render-mode table as the frame driver calls them: a polygon whose rows
// lead to the set-ups `flat` and `receding` of filler_setup.h, a material, and a frame to draw into.
//
// The polygon covers columns 0 to 32 and rows 0 to 4. Its left values are the start values of the set-up, its right
// values lie 32 pixel gradients beyond.
#pragma once

#include "raster/span_walk.h"
#include "tests/raster/filler_setup.h"

namespace kardeno::tests {

enum class SetUp { flat, receding };

// What a material and a polygon bring to a row. bitsPerTexel 0 stands for a material without a texture map.
struct RowSettings {
    u32 bitsPerTexel = 0;
    u16 destination = 0x7777;
    u16 faceColour = 0;
    u16 diffuse = 0;
    u8 transparentIndex = 0xff;
    u16 transparentColour = 0xffff;
    u32 texelThatIsZero = ~0u;
    f32 channelsOnTheLeft[3] = {}; // red, green, blue
    f32 channelsOnTheRight[3] = {};
};

class RowScene {
public:
    RowScene(RenderModeRow row, const RowSettings& settings, i32 bitsPerPixel, Addressing addressing, SetUp setUp);

    // Row y of the frame after a filler call with the given spans; the frame held the destination colour everywhere,
    // and its fences must stand.
    std::string drawn(const std::vector<SpanLists::Run>& runs, i32 y, i32 x, i32 xEnd);
    void fill(TestFrame& frame);

    TestHost host;
    SpanLists spans;
    MarkedTexture texture;
    std::vector<RampEntry> ramp;
    MaterialPrivate privateRecord;
    SceneMaterial material;
    ScreenPolygon polygon;
    u16 destination;
};

// One line of a row's table: the first 9 pixels of a row.
struct RowCase {
    Format format;
    Addressing addressing;
    SetUp setUp;
    const char* pixels;
};

// Draws each line as a span of 9 pixels from column 0 on row 1 and, for the flat set-up, as one of 5 pixels from column
// 4 on row 2, which must be the last 5 of the 9.
void checkRow(RenderModeRow row, const RowSettings& settings, const std::vector<RowCase>& cases);

} // namespace kardeno::tests
