#include "raster/unlit_textures.h"
#include "tests/raster/filler_setup.h"

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

TEST_CASE("a texture copy draws the texels as they are")
{
    const TexturedSpans spans = {.routines = textureCopy, .bitsPerTexel = 16, .destination = 0x7777};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, both,  "66dd 66dd 55ee 55ff 4400 4400 3311 3322 | 2233 2233 1144 1155 0066 0066 ff77 ff88 | ee99"},
        {any,    both,  "66dd 66dd 55ee 55ff 5500 5500 4411 4422 | 3333 3333 2244 2255 1166 1166 0077 0088 | ff99"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, both,  "cc00 bb00 bb00 bb00 bb11 bb11 bb11 bb11 | bb22 aa22 aa22 aa33 9933 9944 9944 9955 | 8855"},
        {any,    both,  "cc00 bb00 bb00 bb00 bb00 bb11 bb11 bb11 | aa11 aa22 aa22 aa33 9933 9944 9944 9955 | 8855"},
    });
    // clang-format on
}

TEST_CASE("a palettised copy draws every texel at the ramp's level 63, whatever the shade")
{
    // The shade that the set-ups bring is not looked at.
    const TexturedSpans spans = {.routines = palettisedCopy, .bitsPerTexel = 8, .destination = 0x7777};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, both,  "3f6d 3f6d 3f5e 3f5f 3f40 3f40 3f31 3f32 | 3f23 3f23 3f14 3f15 3f06 3f06 3ff7 3ff8 | 3fe9"},
        {any,    both,  "3f6d 3f6d 3f5e 3f5f 3f50 3f50 3f41 3f42 | 3f33 3f33 3f24 3f25 3f16 3f16 3f07 3f08 | 3ff9"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, both,  "3fc0 3fb0 3fb0 3fb0 3fb0 3fb1 3fb1 3fb1 | 3fa1 3fa2 3fa2 3fa3 3f93 3f94 3f94 3f95 | 3f85"},
        {any,    both,  "3fc0 3fb0 3fb0 3fb0 3fb0 3fb1 3fb1 3fb1 | 3fa1 3fa2 3fa2 3fa3 3f93 3f94 3f94 3f95 | 3f85"},
    });
    // clang-format on
}

TEST_CASE("a colour-keyed copy leaves texels of the key's colour undrawn and moves on all the same")
{
    // The key is a whole 16-bit texel: column 14 of row 5 in the first set-up, column 1 of row 11 in the second.
    TexturedSpans spans = {.routines = colourKeyedCopy, .bitsPerTexel = 16, .destination = 0x7777};
    spans.key = 0x55ee;
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, both,  "66dd 66dd 7777 55ff 4400 4400 3311 3322 | 2233 2233 1144 1155 0066 0066 ff77 ff88 | ee99"},
        {any,    both,  "66dd 66dd 7777 55ff 5500 5500 4411 4422 | 3333 3333 2244 2255 1166 1166 0077 0088 | ff99"},
    });
    spans.key = 0xbb11;
    checkTexturedSpans(spans, receding(), {
        {square, both,  "cc00 bb00 bb00 bb00 7777 7777 7777 7777 | bb22 aa22 aa22 aa33 9933 9944 9944 9955 | 8855"},
        {any,    both,  "cc00 bb00 bb00 bb00 bb00 7777 7777 7777 | aa11 aa22 aa22 aa33 9933 9944 9944 9955 | 8855"},
    });
    // clang-format on
}

TEST_CASE("a texture half blend draws the mean of texel and pixel")
{
    // Over 0x2108, whose half is 0x1084. The texel loses bits 15, 10 and 5 in 5-5-5, bits 11 and 5 in 5-6-5, and is
    // halved: 0x66dd gives 0x62dd / 2 + 0x1084 = 0x41f2 in 5-5-5 and 0x66dd / 2 + 0x1084 = 0x43f2 in 5-6-5.
    const TexturedSpans spans = {.routines = textureHalfBlend, .bitsPerTexel = 16, .destination = 0x2108};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, in555, "41f2 41f2 396b 3973 3084 3084 2a0c 2a05 | 218d 218d 1926 192e 10a7 10a7 4e2f 4e48 | 45d0"},
        {square, in565, "43f2 43f2 3b6b 3b73 3284 3284 2a0c 2a05 | 218d 218d 1926 192e 10a7 10a7 8c2f 8c48 | 83d0"},
        {any,    in555, "41f2 41f2 396b 3973 3904 3904 308c 3085 | 2a0d 2a0d 21a6 21ae 1927 1927 10af 10c8 | 4e50"},
        {any,    in565, "43f2 43f2 3b6b 3b73 3b04 3b04 328c 3285 | 2a0d 2a0d 21a6 21ae 1927 1927 10af 10c8 | 8c50"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, in555, "3484 2e04 2e04 2e04 2e0c 2e0c 2e0c 2e0c | 2e05 2585 2585 258d 1d0d 1d26 1d26 1d2e | 14ae"},
        {square, in565, "7284 6a04 6a04 6a04 6a0c 6a0c 6a0c 6a0c | 6a05 6185 6185 618d 590d 5926 5926 592e | 50ae"},
        {any,    in555, "3484 2e04 2e04 2e04 2e04 2e0c 2e0c 2e0c | 258c 2585 2585 258d 1d0d 1d26 1d26 1d2e | 14ae"},
        {any,    in565, "7284 6a04 6a04 6a04 6a04 6a0c 6a0c 6a0c | 618c 6185 6185 618d 590d 5926 5926 592e | 50ae"},
    });
    // clang-format on
}

TEST_CASE("a texture add draws the saturated sum of texel and pixel")
{
    // Over 0x4a52, which counts as 0x4252 in 5-6-5. The texel 0x66dd counts as 0x62dd in 5-5-5: the sum 0xad2f has the
    // carries 0x20, 0x400 and 0x8000 and becomes 0xffff. In 5-6-5 it counts whole: 0xa92f has the carries 0x20 and
    // 0x800 and becomes 0xafff. 0x1144 has no carry in either: 0x5b96 and 0x5396.
    const TexturedSpans spans = {.routines = textureAdd, .bitsPerTexel = 16, .destination = 0x4a52};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, in555, "ffff ffff ffff ffff fe52 fe52 7fff 7ff4 | 6fff 6fff 5b96 5bbf 4a98 4a98 ffff fffa | ffff"},
        {square, in565, "afff afff 9fff 9fff 8652 8652 757f 7554 | 647f 647f 5396 53bf 4298 4298 ffff fffa | ffff"},
        {any,    in555, "ffff ffff ffff ffff ff52 ff52 fe7f fe54 | 7fff 7fff 6ff6 6fff 5b98 5b98 4abf 4ada | ffff"},
        {any,    in565, "afff afff 9fff 9fff 9752 9752 867f 8654 | 757f 757f 6496 64bf 5398 5398 42bf 42da | ffff"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, in555, "fe52 fff2 fff2 fff2 ffff ffff ffff ffff | fff4 77f4 77f4 77ff 637f 6396 6396 63bf | 52bf"},
        {square, in565, "fe52 f552 f552 f552 f57f f57f f57f f57f | f554 e454 e454 e47f d37f d396 d396 d3bf | c2bf"},
        {any,    in555, "fe52 fff2 fff2 fff2 fff2 ffff ffff ffff | 77ff 77f4 77f4 77ff 637f 6396 6396 63bf | 52bf"},
        {any,    in565, "fe52 f552 f552 f552 f552 f57f f57f f57f | e47f e454 e454 e47f d37f d396 d396 d3bf | c2bf"},
    });
    // clang-format on
}

TEST_CASE("a whole-outline add is a texture add that truncates on any map")
{
    const TexturedSpans spans = {.routines = wholeOutlineAdd, .bitsPerTexel = 16, .destination = 0x4a52};
    // clang-format off
    checkTexturedSpans(spans, flat(), {
        {square, in555, "ffff ffff ffff ffff fe52 fe52 7fff 7ff4 | 6fff 6fff 5b96 5bbf 4a98 4a98 ffff fffa | ffff"},
        {square, in565, "afff afff 9fff 9fff 8652 8652 757f 7554 | 647f 647f 5396 53bf 4298 4298 ffff fffa | ffff"},
        {any,    in555, "ffff ffff ffff ffff ff52 ff52 fe7f fe54 | 7fff 7fff 6ff6 6fff 5b98 5b98 4abf 4ada | ffff"},
        {any,    in565, "afff afff 9fff 9fff 9752 9752 867f 8654 | 757f 757f 6496 64bf 5398 5398 42bf 42da | ffff"},
    });
    checkTexturedSpans(spans, receding(), {
        {square, in555, "fe52 fff2 fff2 fff2 fff2 ffff ffff ffff | 77ff 77f4 77f4 77ff 637f 6396 6396 63bf | 52bf"},
        {square, in565, "fe52 f552 f552 f552 f552 f57f f57f f57f | e47f e454 e454 e47f d37f d396 d396 d3bf | c2bf"},
        {any,    in555, "fe52 fff2 fff2 fff2 fff2 ffff ffff ffff | 77ff 77f4 77f4 77ff 637f 6396 6396 63bf | 52bf"},
        {any,    in565, "fe52 f552 f552 f552 f552 f57f f57f f57f | e47f e454 e454 e47f d37f d396 d396 d3bf | c2bf"},
    });
    // clang-format on
}
