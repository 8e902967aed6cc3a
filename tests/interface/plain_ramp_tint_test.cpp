// The plain ramp where diffuse times tint has low bits that count.
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("level, diffuse, tint and 3 are multiplied without losing a bit before the one shift by 14")
{
    // 127 x 129 = 16,383 = 63.996 x 256. Level 63: 63 x 16,383 x 3 = 3,096,387, which is 188.99 x 2^14: 188, plus the
    // ambient 4, divided by 4 is 48. Shifting by 8 first would make 63 x 63 x 3 >> 6 = 186, and 190 >> 2 = 47.
    TestHost host(16);
    TestScene scene(host);
    TestMaterial& material = scene.bareMaterial();
    const auto grey = [](u8 value) { return MaterialColour{value, value, value, 0, 0}; };
    material.ambientColour = grey(4);
    material.diffuseColour = grey(127);
    material.tintColour = grey(129);
    REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
    REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);

    // 48 is 6 in five bits and 12 in six; 47 would be 5 and 11.
    const u32 pixel = material.renderPrivate->shadeRamp[63] >> 16;
    CHECK(pixel == (6u << 11 | 12u << 5 | 6u));
}
