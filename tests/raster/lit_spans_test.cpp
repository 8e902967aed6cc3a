#include "raster/shaded_fills.h"
#include "tests/raster/filler_setup.h"

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

TEST_CASE("a lit texture draws each texel at the level of the shade")
{
    // Pixels are 0xLLII: the level, then the palette index.
    const TexturedSpans spans = {.routines = litTexture, .bitsPerTexel = 8, .destination = 0x7777};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, both,  "0a6d 0a6d 0b5e 0b5f 0c40 0c40 0d31 0d32 | 0e23 0e23 0f14 0f15 1006 1006 11f7 11f8 | 12e9"},
        {any,    both,  "0a6d 0a6d 0b5e 0b5f 0c50 0c50 0d41 0d42 | 0e33 0e33 0f24 0f25 1016 1016 1107 1108 | 12f9"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, both,  "32c0 31b0 31b0 31b0 31b1 30b1 30b1 30b1 | 30b2 2fa2 2fa2 2fa3 2f93 2e94 2e94 2e95 | 2e85"},
        {any,    both,  "32c0 31b0 31b0 31b0 31b0 30b1 30b1 30b1 | 30a1 2fa2 2fa2 2fa3 2f93 2e94 2e94 2e95 | 2e85"},
    });
    // clang-format on
}

TEST_CASE("a colour-keyed lit texture leaves the key's palette index undrawn and moves coordinates and shade on")
{
    TexturedSpans spans = {.routines = colourKeyedLitTexture, .bitsPerTexel = 8, .destination = 0x7777};
    spans.key = 0x5e;
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, both,  "0a6d 0a6d 7777 0b5f 0c40 0c40 0d31 0d32 | 0e23 0e23 0f14 0f15 1006 1006 11f7 11f8 | 12e9"},
        {any,    both,  "0a6d 0a6d 7777 0b5f 0c50 0c50 0d41 0d42 | 0e33 0e33 0f24 0f25 1016 1016 1107 1108 | 12f9"},
    });
    spans.key = 0xb1;
    checkTexturedSpans(spans, receding(), {
        {square, both,  "32c0 31b0 31b0 31b0 7777 7777 7777 7777 | 30b2 2fa2 2fa2 2fa3 2f93 2e94 2e94 2e95 | 2e85"},
        {any,    both,  "32c0 31b0 31b0 31b0 31b0 7777 7777 7777 | 30a1 2fa2 2fa2 2fa3 2f93 2e94 2e94 2e95 | 2e85"},
    });
    // clang-format on
}

TEST_CASE("a lit half blend draws the mean of lit texel and pixel")
{
    // Over 0x2108, whose half is 0x1084. 0x0a6d loses bit 5 in both formats and bit 11 in 5-6-5 too:
    // 0x0a4d / 2 + 0x1084 = 0x15aa in 5-5-5, 0x024d / 2 + 0x1084 = 0x11aa in 5-6-5.
    const TexturedSpans spans = {.routines = litTextureHalfBlend, .bitsPerTexel = 8, .destination = 0x2108};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, in555, "15aa 15aa 1633 1633 14a4 14a4 150c 150d | 1585 1585 160e 160e 1887 1887 196f 1970 | 19e8"},
        {square, in565, "11aa 11aa 1233 1233 12a4 12a4 130c 130d | 1385 1385 140e 140e 1887 1887 196f 1970 | 19e8"},
        {any,    in555, "15aa 15aa 1633 1633 14ac 14ac 1524 1525 | 158d 158d 1606 1606 188f 188f 1907 1908 | 19f0"},
        {any,    in565, "11aa 11aa 1233 1233 12ac 12ac 1324 1325 | 138d 138d 1406 1406 188f 188f 1907 1908 | 19f0"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, in555, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28cd 2645 2645 2645 264d 25ce 25ce 25ce | 25c6"},
        {square, in565, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28cd 2445 2445 2445 244d 23ce 23ce 23ce | 23c6"},
        {any,    in555, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4 2645 2645 2645 264d 25ce 25ce 25ce | 25c6"},
        {any,    in565, "29e4 294c 294c 294c 294c 28cc 28cc 28cc | 28c4 2445 2445 2445 244d 23ce 23ce 23ce | 23c6"},
    });
    // clang-format on
}

TEST_CASE("a colour-keyed lit half blend leaves palette index 0 undrawn, whatever the key, and truncates on any map")
{
    // One palette index of each span is replaced by 0; the key of the record is an index that is drawn.
    TexturedSpans spans = {.routines = colourKeyedLitHalfBlend, .bitsPerTexel = 8, .destination = 0x2108};
    spans.key = 0x6d;
    spans.texelThatIsZero = 0x5e;
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, in555, "15aa 15aa 2108 1633 14a4 14a4 150c 150d | 1585 1585 160e 160e 1887 1887 196f 1970 | 19e8"},
        {square, in565, "11aa 11aa 2108 1233 12a4 12a4 130c 130d | 1385 1385 140e 140e 1887 1887 196f 1970 | 19e8"},
        {any,    in555, "15aa 15aa 2108 1633 14ac 14ac 1524 1525 | 158d 158d 1606 1606 188f 188f 1907 1908 | 19f0"},
        {any,    in565, "11aa 11aa 2108 1233 12ac 12ac 1324 1325 | 138d 138d 1406 1406 188f 188f 1907 1908 | 19f0"},
    });
    spans.key = 0xb0;
    spans.texelThatIsZero = 0xb1;
    checkTexturedSpans(spans, receding(), {
        {square, in555, "29e4 294c 294c 294c 294c 2108 2108 2108 | 28c4 2645 2645 2645 264d 25ce 25ce 25ce | 25c6"},
        {square, in565, "29e4 294c 294c 294c 294c 2108 2108 2108 | 28c4 2445 2445 2445 244d 23ce 23ce 23ce | 23c6"},
        {any,    in555, "29e4 294c 294c 294c 294c 2108 2108 2108 | 28c4 2645 2645 2645 264d 25ce 25ce 25ce | 25c6"},
        {any,    in565, "29e4 294c 294c 294c 294c 2108 2108 2108 | 28c4 2445 2445 2445 244d 23ce 23ce 23ce | 23c6"},
    });
    // clang-format on
}

TEST_CASE("a lit add draws the saturated sum of lit texel and pixel, and truncates on any map")
{
    // Over 0x4a52, which counts as 0x4252 in 5-6-5. 0x0a6d counts as 0x0a4d in 5-5-5: the sum 0x549f has the carry
    // 0x400 and becomes 0x57ff. In 5-6-5 it counts as 0x024d: 0x449f has no carry.
    const TexturedSpans spans = {.routines = litTextureAdd, .bitsPerTexel = 8, .destination = 0x4a52};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, in555, "57ff 57ff 57ff 57ff 5292 5292 537f 537f | 57f5 57f5 57ff 57ff 5a58 5a58 5fff 5fff | 5ffb"},
        {square, in565, "449f 449f 45bf 45bf 4692 4692 477f 477f | 4ff5 4ff5 4fff 4fff 5258 5258 543f 543f | 551b"},
        {any,    in555, "57ff 57ff 57ff 57ff 52bf 52bf 5393 5394 | 57ff 57ff 57f6 57f7 5a7f 5a7f 5b59 5b5a | 5fff"},
        {any,    in565, "449f 449f 45bf 45bf 46bf 46bf 4793 4794 | 4fff 4fff 4ff6 4ff7 527f 527f 5359 535a | 553f"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, in555, "7ff2 7bff 7bff 7bff 7bff 7aff 7aff 7aff | 7ad3 77f4 77f4 77f5 77ff 77ff 77ff 77ff | 77f7"},
        {square, in565, "7512 73ff 73ff 73ff 73ff 72ff 72ff 72ff | 72d3 6ff4 6ff4 6ff5 6fff 6fff 6fff 6fff | 6ff7"},
        {any,    in555, "7ff2 7bff 7bff 7bff 7bff 7aff 7aff 7aff | 7ad3 77f4 77f4 77f5 77ff 77ff 77ff 77ff | 77f7"},
        {any,    in565, "7512 73ff 73ff 73ff 73ff 72ff 72ff 72ff | 72d3 6ff4 6ff4 6ff5 6fff 6fff 6fff 6fff | 6ff7"},
    });
    // clang-format on
}
