// The reciprocal in the slope of an edge.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("the reciprocal of an edge's rows is not rounded to f32")
{
    // 3072 columns over 3 rows, 3 x 2^26 in 16.16 fixed point. The f64 reciprocal of 3 is (1 - 2^-54) / 3, the product
    // 2^26 - 2^-28 is halfway to the f64 below and goes to the even 2^26. The f32 next to a third, (1 + 2^-25) / 3,
    // would make it 2^26 + 2.
    SpanScene scene({.right = 8192});
    scene.add({{0, 0}, {3072, 3}, {4000, 3}});
    REQUIRE(scene.buildEdgeTable());
    CHECK(EdgePool.edges[0].xStep == 67108864);
}
