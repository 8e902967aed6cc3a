#include "host/pixel_format.h"
#include "raster/colour_fills.h"
#include "raster/colour_tables.h"
#include "tests/raster/filler_setup.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

namespace {

struct Channels {
    f32 red, green, blue;
};

SpanGradients withChannels(SpanGradients span, Channels start, Channels step)
{
    span.start.colourR = start.red;
    span.start.colourG = start.green;
    span.start.colourB = start.blue;
    span.step.colourR = step.red;
    span.step.colourG = step.green;
    span.step.colourB = step.blue;
    return span;
}

void checkGouraud(Channels start, Channels step, const char* in555, const char* in565)
{
    // No perspective, hence no blocks: the count stays.
    const SpanGradients span = withChannels(flat(), start, step);
    checkSpan(span, gouraudColour[rgb555], 0x7777, in555, Count::stays);
    checkSpan(span, gouraudColour[rgb565], 0x7777, in565, Count::stays);
}

} // namespace

TEST_CASE("a Gouraud span makes each pixel from the top bits of its channels")
{
    // Red 8, 16, 24, ... is field 1, 2, 3, ...; blue 248, 240, ... is 31, 30, ...; green 4, 8, 12, ... is 1, 2, 3, ...
    // of 63 and 0, 1, 1, 2, 2, ... of 31. The first pixel is (1 x 32 + 0) x 32 + 31 = 0x041f, or (1 x 64 + 1) x 32 + 31
    // = 0x083f.
    checkGouraud({8, 4, 248}, {8, 4, -8},
                 "041f 083e 0c3d 105c 145b 187a 1c79 2098 | 2497 28b6 2cb5 30d4 34d3 38f2 3cf1 4110 | 450f",
                 "083f 105e 187d 209c 28bb 30da 38f9 4118 | 4937 5156 5975 6194 69b3 71d2 79f1 8210 | 8a2f");
}

TEST_CASE("a Gouraud span whose channels are constant draws one colour")
{
    // Fields 12, 16 of 63 or 8 of 31, and 25: (12 x 32 + 8) x 32 + 25 = 0x3119, (12 x 64 + 16) x 32 + 25 = 0x6219.
    checkGouraud({100, 64, 200}, {0, 0, 0},
                 "3119 3119 3119 3119 3119 3119 3119 3119 | 3119 3119 3119 3119 3119 3119 3119 3119 | 3119",
                 "6219 6219 6219 6219 6219 6219 6219 6219 | 6219 6219 6219 6219 6219 6219 6219 6219 | 6219");
}

TEST_CASE("a Gouraud channel that reaches 256.0 wraps to field 0, and one below 0 comes in from the top field")
{
    // Red 240, 248, 256, ... is field 30, 31, 0, 1, ...; blue 8, 0, -8, ... is 1, 0, 31, 30, ...
    checkGouraud({240, 0, 8}, {8, 0, -8},
                 "7801 7c00 001f 041e 081d 0c1c 101b 141a | 1819 1c18 2017 2416 2815 2c14 3013 3412 | 3811",
                 "f001 f800 001f 081e 101d 181c 201b 281a | 3019 3818 4017 4816 5015 5814 6013 6812 | 7011");
    // Green 248, 252, 256, ... is field 62, 63, 0, 1, ... of 63 and 31, 31, 0, 0, 1, ... of 31.
    checkGouraud({0, 248, 0}, {0, 4, 0},
                 "03e0 03e0 0000 0000 0020 0020 0040 0040 | 0060 0060 0080 0080 00a0 00a0 00c0 00c0 | 00e0",
                 "07c0 07e0 0000 0020 0040 0060 0080 00a0 | 00c0 00e0 0100 0120 0140 0160 0180 01a0 | 01c0");
}

TEST_CASE("Gouraud channels and their steps are truncated to 8 fractional bits, toward zero")
{
    // Red 7.998 is 2047 (field 0); its step of 0.0039 x 256 = 0.998 is 0. Blue -0.003 is 0 and not -1 (field 31). Green
    // 8.0 is field 1 of 31 and 2 of 63; its step of -0.003 is 0 and not -1, which would reach the field below.
    checkGouraud({7.998f, 8, -0.003f}, {0.0039f, -0.003f, 0},
                 "0020 0020 0020 0020 0020 0020 0020 0020 | 0020 0020 0020 0020 0020 0020 0020 0020 | 0020",
                 "0040 0040 0040 0040 0040 0040 0040 0040 | 0040 0040 0040 0040 0040 0040 0040 0040 | 0040");
    // A step of 0.5 is 128: red 7.0, 7.5, 8.0, ... reaches field 1 at pixel 2 and field 2 at pixel 18.
    checkGouraud({7, 0, 0}, {0.5f, 0, 0},
                 "0000 0000 0400 0400 0400 0400 0400 0400 | 0400 0400 0400 0400 0400 0400 0400 0400 | 0400",
                 "0000 0000 0800 0800 0800 0800 0800 0800 | 0800 0800 0800 0800 0800 0800 0800 0800 | 0800");
}

TEST_CASE("a texture scaled by channels of 255 is the texture itself, but for the unused bit of 5-5-5")
{
    const Channels full = {255, 255, 255};
    const TexturedSpans spans = {.routines = colourScaledTexture, .bitsPerTexel = 16, .destination = 0x7777};
    // clang-format off
    buildColourScaleTables(rgb565);
    checkTexturedSpans(spans, withChannels(flat(), full, {}), {
        {square, both, "66dd 66dd 55ee 55ff 4400 4400 3311 3322 | 2233 2233 1144 1155 0066 0066 ff77 ff88 | ee99"},
        {any,    both, "66dd 66dd 55ee 55ff 5500 5500 4411 4422 | 3333 3333 2244 2255 1166 1166 0077 0088 | ff99"},
    });
    checkTexturedSpans(spans, withChannels(receding(), full, {}), {
        {square, both, "cc00 bb00 bb00 bb00 bb00 bb11 bb11 bb11 | aa11 aa22 aa22 aa33 9933 9944 9944 9955 | 8855"},
        {any,    both, "cc00 bb00 bb00 bb00 bb00 bb11 bb11 bb11 | aa11 aa22 aa22 aa33 9933 9944 9944 9955 | 8855"},
    });
    buildColourScaleTables(rgb555);
    checkTexturedSpans(spans, withChannels(flat(), full, {}), {
        {square, both, "66dd 66dd 55ee 55ff 4400 4400 3311 3322 | 2233 2233 1144 1155 0066 0066 7f77 7f88 | 6e99"},
        {any,    both, "66dd 66dd 55ee 55ff 5500 5500 4411 4422 | 3333 3333 2244 2255 1166 1166 0077 0088 | 7f99"},
    });
    checkTexturedSpans(spans, withChannels(receding(), full, {}), {
        {square, both, "4c00 3b00 3b00 3b00 3b00 3b11 3b11 3b11 | 2a11 2a22 2a22 2a33 1933 1944 1944 1955 | 0855"},
        {any,    both, "4c00 3b00 3b00 3b00 3b00 3b11 3b11 3b11 | 2a11 2a22 2a22 2a33 1933 1944 1944 1955 | 0855"},
    });
    // clang-format on
}

TEST_CASE("the channels of a scaled texture grow linearly from pixel to pixel, and wrap at 256")
{
    // A white texel, channels 0, 17, 34, ..., 255 and then 272, which wraps to 16. Of 31, rounded down: k x 31 / 15 is
    // 0 2 4 6 8 10 12 14 | 16 18 20 22 24 26 28 31, then 16 x 31 / 255 is 1. Of 63, k x 63 / 15 is
    // 0 4 8 12 16 21 25 29 | 33 37 42 46 50 54 58 63, then 16 x 63 / 255 is 3.
    for (const Addressing addressing : {any, square}) {
        MarkedTexture texture(16, addressing);
        texture.replace(0x66dd, 0xffff);
        SpanGradients span = withChannels(flat(), {0, 0, 0}, {17, 17, 17});
        span.texture = &texture.image();
        span.step8.texU = span.step8.texV = 0;
        const SpanRoutine routine = colourScaledTexture.choose(texture.image(), rgb565);
        buildColourScaleTables(rgb565);
        checkSpan(span, routine, 0x7777,
                  "0000 1082 2104 3186 4208 52aa 632c 73ae | 8430 94b2 a554 b5d6 c658 d6da e75c ffff | 0861");
        buildColourScaleTables(rgb555);
        checkSpan(span, routine, 0x7777,
                  "0000 0842 1084 18c6 2108 294a 318c 39ce | 4210 4a52 5294 5ad6 6318 6b5a 739c 7fff | 0421");
    }
}

TEST_CASE("a scaled texel takes its low byte, its bits 5 to 12 and its high byte to the tables of blue, green and red")
{
    // Texel 0x66dd: 0xdd, 0x66dd >> 5 = 0x336, of which 0x36, and 0x66. Channels 0x12, 0x34 and 0x56, with fractions
    // that do not count. Of each entry the low 16 bits are read, and the sum keeps 16: 0xff01 + 0x0020 + 0x0400 =
    // 0x10321.
    ColourScaleTables& tables = colourScaleTables;
    std::memset(static_cast<void*>(&tables), 0, sizeof tables);
    tables.redScale[0x12 * 256 + 0x66] = 0xdead0400;
    tables.greenScale[0x34 * 256 + 0x36] = 0xbeef0020;
    tables.blueScale[0x56 * 256 + 0xdd] = 0xcafeff01;
    for (const Addressing addressing : {any, square}) {
        MarkedTexture texture(16, addressing);
        SpanGradients span = withChannels(flat(), {18.5f, 52.25f, 86.75f}, {});
        span.texture = &texture.image();
        span.count = 1;
        u16 pixel = 0x7777;
        colourScaledTexture.choose(texture.image(), rgb565)(&span, &pixel);
        CHECK(pixel == 0x0321);
    }
    buildColourScaleTables(rgb565);
}
