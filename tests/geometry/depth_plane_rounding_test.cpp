// The plane of inverse depth where its last bit depends on the order of sums and products: every case gives another
// value when a sum is formed in another order, a reciprocal becomes a quotient, or something is rounded to f32 on the
// way.
#include "tests/geometry/one_face.h"
#include "tests/support/powers_of_two.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A face of which only the first corner and the normal count. The centre of the screen is 0, scales are 1.
class FacePlane : public OneFace {
public:
    FacePlane(const CameraVertex& normal, const CameraVertex& firstCorner)
    {
        corner(firstCorner);
        face.normalX = normal.x;
        face.normalY = normal.y;
        face.normalZ = normal.z;
    }

    ScreenPolygon set()
    {
        ScreenPolygon polygon;
        std::memset(static_cast<void*>(&polygon), 0, sizeof polygon);
        setDepthPlane(host.context(), view.record, face, polygon);
        return polygon;
    }
};

} // namespace

TEST_CASE("d of the depth plane is summed z, y, x")
{
    // The products are -2^53, 3 and 2^53. 2^53 + 3 is halfway between 2^53 + 2 and 2^53 + 4 and goes to the even one,
    // 2^53 + 4, which leaves d = 4. Begun with x, -2^53 + 3 is exact and leaves d = 3; so does 0 + 3.
    FacePlane plane({two(26), 1, two(26)}, {-two(27), 3, two(27)});
    plane.view.projection.invScaleX = two(-26);
    plane.view.projection.invScaleY = 1;
    const ScreenPolygon polygon = plane.set();
    CHECK(polygon.invDepthStepX == 0.25f);  // 2^-26 x 1/4 x 2^26
    CHECK(polygon.invDepthStepY == -0.25f); // -(1 x 1/4 x 1)
}

TEST_CASE("d of the depth plane stays in double precision")
{
    // d = 2^24 + 1, which is no f32. 2 x (2^24 - 1) / (2^24 + 1) = 2 - 4 / (2^24 + 1) rounds to 2 - 2^-22; divided by
    // 2^24 it would be 2 - 2^-23.
    FacePlane plane({two(24) - 1, 1, 1}, {0, 1, two(24)});
    plane.view.projection.invScaleX = 2;
    CHECK(plane.set().invDepthStepX == 2 - two(-22));
}

TEST_CASE("a depth step is inverse scale times reciprocal first, then times the normal: where that is exact")
{
    // The f64 reciprocal of 3 is (1 - 2^-54) / 3. 15 times that, 5 - 5 x 2^-54, rounds to 5; 5 x 3355451 = 2^24 + 39 is
    // halfway between two f32 and goes to the even one, 2^24 + 40. The reciprocal times 3355451 first lies below the
    // tie, and would give 2^24 + 38.
    FacePlane plane({3355451, 3355451, 3}, {0, 0, 1});
    plane.view.projection.invScaleX = plane.view.projection.invScaleY = 15;
    const ScreenPolygon polygon = plane.set();
    CHECK(polygon.invDepthStepX == 16777256.0f);
    CHECK(polygon.invDepthStepY == -16777256.0f);
}

TEST_CASE("a depth step is inverse scale times reciprocal first, then times the normal: where that is rounded")
{
    // The f64 reciprocal of 49 is (1 - e) / 49 with e = 23 x 2^-58. 147 times that, 3 - 69 x 2^-58, is nearer to
    // 3 - 2^-51 than to 3. Times 5592409 it lies below 3 x 5592409 = 2^24 + 11, the middle of two f32, and goes down to
    // 2^24 + 10. Every other order, and a division by 49, gives the middle itself and goes up to the even 2^24 + 12.
    FacePlane plane({5592409, 5592409, 49}, {0, 0, 1});
    plane.view.projection.invScaleX = plane.view.projection.invScaleY = 147;
    const ScreenPolygon polygon = plane.set();
    CHECK(polygon.invDepthStepX == 16777226.0f);
    CHECK(polygon.invDepthStepY == -16777226.0f);
}

TEST_CASE("the origin's sum takes in the y term and nz first, then the x term")
{
    // 2^53 + 1 is halfway between 2^53 and 2^53 + 2 and goes to 2^53: 2^53 - 2^53 = 0. With both large terms first, or
    // with nz - 2^53, which is exact, the 1 would stay.
    FacePlane plane({1, 1, 1}, {0, 0, 1}); // d = 1
    plane.view.projection.centreXOverScaleX = plane.view.projection.centreYOverScaleY = two(53);
    CHECK(plane.set().invDepthOrigin == 0);
}

TEST_CASE("the origin is its sum times the reciprocal of d, not a quotient")
{
    // The sum is 98 - 49 x 2^-24 and d is 49: the quotient, 2 - 2^-24, is halfway between two f32 and would go to the
    // even one, 2. The reciprocal of 49 is a little small (see above): the product lies below, and goes to 2 - 2^-23.
    FacePlane plane({0, 1, 98}, {0, 0, 0.5f});
    plane.view.projection.centreYOverScaleY = -49 * two(-24);
    CHECK(plane.set().invDepthOrigin == 2 - two(-23));
}
