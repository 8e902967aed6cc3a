#include "raster/texture_maps.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr i32 texels(i32 count)
{
    return count * 256;
}

u32 indexInAnyMap(i32 width, i32 height, i32 u, i32 v)
{
    TestTexture texture(16, width, height);
    return AnyMap(texture.image()).indexOf(u, v);
}

u32 indexInSquareMap(i32 u, i32 v)
{
    TestTexture texture(16, 256, 256, true);
    const u32 index = Map256x256<Rounding>(texture.image()).indexOf(u, v);
    CHECK(Map256x256<Truncating>(texture.image()).indexOf(u, v) == index);
    return index;
}

} // namespace

TEST_CASE("a texel's index is its row times the width plus its column, without fractions")
{
    CHECK(indexInAnyMap(64, 32, texels(5) + 255, texels(3) + 255) == 3 * 64 + 5);
    CHECK(indexInAnyMap(16, 128, texels(15), texels(127)) == 127 * 16 + 15);
    CHECK(indexInAnyMap(1, 8, texels(0), texels(7)) == 7);
    CHECK(indexInSquareMap(texels(5) + 255, texels(3) + 255) == 3 * 256 + 5);
    CHECK(indexInSquareMap(texels(255), texels(255)) == 65535);
}

TEST_CASE("on any map 64 texels wide column 64 of a row is the first texel of the next row")
{
    CHECK(indexInAnyMap(64, 32, texels(64), texels(3)) == 4 * 64);
    CHECK(indexInAnyMap(64, 32, texels(63) + 255, texels(3)) == 3 * 64 + 63);
}

TEST_CASE("on any map the whole index wraps over the map")
{
    CHECK(indexInAnyMap(64, 32, texels(64), texels(31)) == 0);
    CHECK(indexInAnyMap(64, 32, texels(2), texels(32)) == 2);
    CHECK(indexInAnyMap(64, 32, texels(2), texels(32 * 1000 + 1)) == 64 + 2);
}

TEST_CASE("on any map coordinates below 0 come in from the row before and from the last row")
{
    // Shifts are arithmetic: -1/256 texel lies in column -1, the last of the row before.
    CHECK(indexInAnyMap(64, 32, -1, texels(3)) == 2 * 64 + 63);
    CHECK(indexInAnyMap(64, 32, 0, -1) == 31 * 64);
    CHECK(indexInAnyMap(64, 32, -1, 0) == 31 * 64 + 63);
    CHECK(indexInAnyMap(64, 32, texels(-2), texels(-3)) == 28 * 64 + 62);
}

TEST_CASE("a 256 x 256 map that is addressed as a square wraps each coordinate by itself")
{
    CHECK(indexInSquareMap(texels(256), texels(7)) == 7 * 256);
    CHECK(indexInSquareMap(texels(3), texels(256)) == 3);
    CHECK(indexInSquareMap(texels(256 + 9), texels(512 + 8)) == 8 * 256 + 9);
    CHECK(indexInSquareMap(-1, texels(7)) == 7 * 256 + 255);
    CHECK(indexInSquareMap(texels(3), -1) == 255 * 256 + 3);
}

TEST_CASE("a 256 x 256 map that is addressed as any map reads column 256 of a row in column 0 of the next one")
{
    CHECK(indexInAnyMap(256, 256, texels(256), texels(7)) == 8 * 256);
    CHECK(indexInAnyMap(256, 256, texels(256), texels(255)) == 0);
}

TEST_CASE("the mask of the image, and not its width and height, bounds the index")
{
    TestTexture texture(16, 64, 32);
    texture.image().indexMask = 127;
    texture.image().width = texture.image().height = 1;
    CHECK(AnyMap(texture.image()).indexOf(texels(5), texels(3)) == 64 + 5); // 3 x 64 + 5 = 197, AND 127
}

TEST_CASE("texels follow the image's record, in 16 bits or in 8")
{
    TestTexture wide(16, 4, 2);
    wide.setTexel(3, 1, 0xabcd);
    CHECK(texelsOf<u16>(wide.image())[7] == 0xabcd);
    TestTexture narrow(8, 4, 2);
    narrow.setTexel(3, 1, 0xef);
    CHECK(texelsOf<u8>(narrow.image())[7] == 0xef);
}
