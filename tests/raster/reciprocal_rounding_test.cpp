// Where the fillers multiply by a reciprocal: the product differs from the quotient in the last bit, and pixels show
// it.
//
// The f64 reciprocal of 49 is (1 - e) / 49 with e = 23 x 2^-58, a little small.
#include "raster/edge_walking.h"
#include "raster/perspective_subdivision.h"

#include <doctest/doctest.h>

#include <cstring>
#include <initializer_list>

using namespace kardeno;

TEST_CASE("the step of an outline is the difference times the reciprocal of the rows, not a quotient")
{
    // Over 49 rows from 5 - 2^24 to 49 x 2^25 - 2^24 - 1024: the difference is 49 x 2^25 - 1029 = 49 x (2^25 - 21). The
    // quotient is halfway between two f32 and would go to the even one, 2^25 - 20. The product falls short of it by
    // (2^25 - 21) x e, nearly 2.9 / 2^30, and so comes to lie one f64 below (their spacing is 1 / 2^28 there): 2^25 -
    // 22.
    constexpr f32 from = 5 - 16777216.0f;
    constexpr f32 to = 1644167168.0f - 16777216.0f - 1024.0f;
    ScreenPolygon polygon;
    std::memset(static_cast<void*>(&polygon), 0, sizeof polygon);
    polygon.vertexCount = 3;
    for (i32 i = 0; i < 3; ++i) {
        polygon.screenX[i] = polygon.texU[i] = i == 0 ? from : to;
        polygon.scanY[i] = i == 0 ? 0 : 49;
    }

    walkEdges<List<SpanTexU>>(polygon);

    // Row 1: 5 - 2^24 + 2^25 - 22 = 2^24 - 17.
    for (const OutlineSide& side : {OutlineTable[1].left, OutlineTable[1].right}) {
        CHECK(side.x == 16777199);
        CHECK(side.values.texU == 16777199.0f);
    }
}

TEST_CASE("a value over depth is multiplied by the reciprocal of the inverse depth, not divided by it")
{
    // 49 over 49/64 is 64. 64 times the reciprocal of 49 is 64 x (1 - e) / 49; 49 times that, 64 - 64 x e, is nearer to
    // the f64 below 64 than to 64: it truncates to 63, at the first pixel and at the one where the next block begins.
    SpanGradients span;
    std::memset(static_cast<void*>(&span), 0, sizeof span);
    span.start.invDepth = 49.0f / 64;
    span.start.texU = span.start.texV = span.start.intensity = 49;

    span.count = 9;
    SubdividedTexture<Truncating> texture(span);
    SubdividedShade shade(span);
    for (i32 pixel = 0; pixel < 9; ++pixel) {
        CAPTURE(pixel);
        if (pixel == 8) {
            texture.nextBlock(1);
            shade.nextBlock(1);
        }
        CHECK(texture.at[0] == 63);
        CHECK(texture.at[1] == 63);
        CHECK(shade.at[0] == 63);
        texture.nextPixel();
        shade.nextPixel();
    }
}
