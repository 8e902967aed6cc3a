#include "host/pixel_format.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

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
