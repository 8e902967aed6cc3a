// Where the channels of a pixel lie, what is derived from that, and which format a host's bitsPerPixel stands for.
//
//   bit      15 14 13 12 | 11 10  9  8 |  7  6  5  4 |  3  2  1  0
//   5-5-5     -  r  r  r |  r  r  g  g |  g  g  g  b |  b  b  b  b
//   5-6-5     r  r  r  r |  r  g  g  g |  g  g  g  b |  b  b  b  b
#include "host/pixel_format.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <cstring>
#include <initializer_list>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr const PixelLayout& in555 = pixelLayouts[rgb555];
constexpr const PixelLayout& in565 = pixelLayouts[rgb565];

HostContext contextOf(i32 bitsPerPixel)
{
    HostContext context;
    std::memset(static_cast<void*>(&context), 0, sizeof context);
    context.bitsPerPixel = bitsPerPixel;
    return context;
}

} // namespace

TEST_CASE("5-5-5 has red in bits 14 to 10, green in 9 to 5 and blue in 4 to 0")
{
    CHECK(in555.red.mask() == 0x7c00);
    CHECK(in555.green.mask() == 0x03e0);
    CHECK(in555.blue.mask() == 0x001f);
    CHECK((in555.red.mask() | in555.green.mask() | in555.blue.mask()) == 0x7fff); // bit 15 belongs to nobody
}

TEST_CASE("5-6-5 has red in bits 15 to 11, green in 10 to 5 and blue in 4 to 0")
{
    CHECK(in565.red.mask() == 0xf800);
    CHECK(in565.green.mask() == 0x07e0);
    CHECK(in565.blue.mask() == 0x001f);
    CHECK((in565.red.mask() | in565.green.mask() | in565.blue.mask()) == 0xffff);
}

TEST_CASE("five bits reach 31, the six of green in 5-6-5 reach 63")
{
    for (const ChannelField& five : {in555.red, in555.green, in555.blue, in565.red, in565.blue})
        CHECK(five.largest() == 31);
    CHECK(in565.green.largest() == 63);
}

TEST_CASE("the lowest bit of a channel is its unit, the carry the bit above its field")
{
    CHECK(in555.red.lowestBit() == 0x0400);
    CHECK(in555.green.lowestBit() == 0x0020);
    CHECK(in555.blue.lowestBit() == 0x0001);
    CHECK(in565.red.lowestBit() == 0x0800);
    CHECK(in565.green.lowestBit() == 0x0020);
    CHECK(in565.blue.lowestBit() == 0x0001);

    CHECK(in555.red.carry() == 0x8000); // the unused bit
    CHECK(in555.green.carry() == 0x0400);
    CHECK(in555.blue.carry() == 0x0020);
    CHECK(in565.red.carry() == 0x10000); // the seventeenth bit
    CHECK(in565.green.carry() == 0x0800);
    CHECK(in565.blue.carry() == 0x0020);
}

TEST_CASE("the blend masks are 0x7bdf and 0xf7df: all channels without the lowest bit of red and of green")
{
    // 0x7c00 - 0x0400 = 0x7800, 0x03e0 - 0x0020 = 0x03c0, 0x001f
    CHECK(in555.blendMask() == 0x7bdf);
    // 0xf800 - 0x0800 = 0xf000, 0x07e0 - 0x0020 = 0x07c0, 0x001f
    CHECK(in565.blendMask() == 0xf7df);
}

TEST_CASE("in the sum of two masked pixels each carry lands in a bit that the mask has cleared")
{
    for (const PixelLayout& layout : pixelLayouts) {
        for (const ChannelField& channel : {layout.red, layout.green, layout.blue})
            CHECK((layout.blendMask() & channel.carry()) == 0);
    }
}

TEST_CASE("a channel of eight bits is packed by its upper bits, in their place")
{
    // 200 / 8 = 25 = 0x19; 100 / 8 = 12.5 and 100 / 4 = 25; 50 / 8 = 6.25
    CHECK(in555.red.packed(200) == 25u << 10);
    CHECK(in555.green.packed(100) == 12u << 5);
    CHECK(in555.blue.packed(50) == 6);
    CHECK(in565.red.packed(200) == 25u << 11);
    CHECK(in565.green.packed(100) == 25u << 5);
    CHECK(in565.blue.packed(50) == 6);
}

TEST_CASE("packing rounds down: 7 of 255 is nothing in five bits, 3 of 255 nothing in six; 255 fills the field")
{
    for (const PixelLayout& layout : pixelLayouts) {
        for (const ChannelField& channel : {layout.red, layout.green, layout.blue}) {
            const u32 unit = channel.bits == 5 ? 8 : 4;
            CHECK(channel.packed(0) == 0);
            CHECK(channel.packed(unit - 1) == 0);
            CHECK(channel.packed(unit) == channel.lowestBit());
            CHECK(channel.packed(255) == channel.mask());
        }
    }
}

TEST_CASE("15 bits per pixel are 5-5-5 and 16 are 5-6-5, for tables and fillers alike")
{
    CHECK(tableFormat(contextOf(15)) == rgb555);
    CHECK(fillerFormat(contextOf(15)) == rgb555);
    CHECK(tableFormat(contextOf(16)) == rgb565);
    CHECK(fillerFormat(contextOf(16)) == rgb565);
}

TEST_CASE("Intended: two tests of bitsPerPixel: other depths than 15 and 16 are 5-5-5 for tables and ramps, 5-6-5 for "
          "fillers")
{
    for (const i32 bitsPerPixel : {24, 32, 0, -16}) {
        CAPTURE(bitsPerPixel);
        TestHost host(bitsPerPixel);
        TestScene scene(host, {.right = 4, .bottom = 4});
        TestFrame frame(4, 4, 0);
        CHECK(tableFormat(host.context()) == rgb555);
        CHECK(fillerFormat(host.context()) == rgb565);

        // Level 63 of a ramp of full colours: ((63 x 255 x 255 x 3) >> 14) >> 2 = 750 >> 2 = 187, in 5-5-5: 23 in each
        // channel, 23 x (1024 + 32 + 1) = 0x5ef7.
        TestMaterial& material = scene.bareMaterial();
        material.diffuseColour = material.tintColour = {255, 255, 255, 0, 0};
        REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
        REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
        CHECK(material.renderPrivate->shadeRamp[63] == 0x5ef70000);

        // White half blended over black in 5-6-5: 0xf7df >> 1; in 5-5-5 it would be 0x7bdf >> 1.
        TestMaterial& blended = scene.addMaterial(0, nullptr, 0, 50);
        blended.diffuseColour.packed = 0xffff;
        scene.addFace(scene.addRoot(), blended, TestScene::rectangle(0, 0, 4, 4));
        scene.draw(frame);
        CHECK(frame.at(1, 1) == 0x7bef);
    }
}
