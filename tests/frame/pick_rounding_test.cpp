// The order in which a pick's depth is computed, shown by faces whose planes (nearly) run through the eye: the
// numerator or the denominator of the depth cancels, and what its roundings leave behind is the result.
//
// u stands for 2^-53. The f64 numbers next to 0.8 and 0.6 are 0.8 + 0.4 u and 0.6 - 0.2 u. The spacing of f64 is u/2
// from 1/4 on, u from 1/2, 2 u from 1, 4 u from 2, 16 u from 8.
#include "tests/frame/pick_scene.h"
#include "tests/support/powers_of_two.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A face with the given first three corners in camera space. The host brings projections of its own, a square from -10
// to 10 around the picked points, so that the corners may lie anywhere. The viewing ray through (x, y) is (x, -y, 1).
class PickedPlane {
public:
    PickedPlane(const CameraVertex& p0, const CameraVertex& p1, const CameraVertex& p2) : pick({.farZ = two(60)})
    {
        TestHost& host = pick.host;
        TestObject& object = pick.scene.addRoot();
        TestFace& face = pick.addRectangle(object, 1, 1, 2, 2, 2);
        const CameraVertex corners[] = {p0, p1, p2};
        for (size_t i = 0; i < 3; ++i) host.cameraVertices[static_cast<size_t>(face.indices[i])] = corners[i];
        object.onPrepare = [&host, &face] {
            const f32 columns[] = {-10, -10, 10, 10}, rows[] = {-10, 10, 10, -10};
            for (size_t i = 0; i < 4; ++i) {
                const size_t vertex = static_cast<size_t>(face.indices[i]);
                host.screenVertices[vertex] = {columns[i], rows[i], 1};
                host.stamps[vertex] = host.context().projectionStamp;
            }
        };
    }

    f32 depthAt(f32 x, f32 y)
    {
        const Hit hit = pick.pick(x, y);
        CHECK(hit.object != nullptr);
        return hit.depth;
    }

private:
    PickScene pick;
};

} // namespace

TEST_CASE("a pick's plane is summed x, y, z at the first corner, and its sides are divided by their lengths")
{
    // Sides (3, 0, -4) and (2^-52, 1, 0), divided by 5 and 1: the normal is (0.8, -0.8 x 2^-52, 0.6), rounded as above.
    // At the first corner:
    //
    //   x:  3 x 0.8  = 2.4 + 1.2 u, a tie between 2.4 - 0.8 u and 2.4 + 3.2 u, goes to the even one: P = 2.4 + 3.2 u
    //   y:  0.8 x 2^-52 x 1.25 = 2^-52 = 2 u
    //   z:  -4 x 0.6 = -Q = -(2.4 - 0.8 u)
    //
    // P + 2 u is a tie and goes back to the even P; P - Q = 4 u = 2^-51. Summed z, y, x, Q - 2 u is a tie between the
    // odd Q and the even Q - 4 u: 8 u. With y last: 6 u. At the second or third corner of the face: 2 u. The ray (0.5,
    // 0, 1) makes 0.4 + 0.6 = 1. Sides that are not divided: 12 + 5 x 2^-52 rounds to 12 + 2^-49, and 2^-49 / 5 is the
    // depth. Sides that are multiplied by the reciprocals of their lengths: 3 x 0.2 rounds to 0.6 + 0.8 u, 4 times that
    // is P, and P - P = 0.
    PickedPlane plane({3, -1.25f, -4}, {0, -1.25f, 0}, {two(-52), -0.25f, 0});
    CHECK(plane.depthAt(0.5f, 0) == two(-51));
}

TEST_CASE("a pick's ray and normal are multiplied and summed x, y, z")
{
    // Sides (3, 0, -4) and (2^-14, 2^40, 0), divided by 5 and 2^40: the normal is (0.8, -0.8 x 2^-54, 0.6), rounded as
    // above. At the first corner, (-1.25, 0, 0), it makes -1. With the ray (-0.75, 1.25, 1):
    //
    //   x:  -0.75 x 0.8 = -(0.6 + 0.3 u), a tie, to the even one: -(0.6 + 0.8 u)
    //   y:  -0.8 x 2^-54 x 1.25 = -2^-54 = -u/2
    //   z:  0.6 - 0.2 u
    //
    // x + y is a tie and goes back to the even x; plus z: -u. Depth -1 / -u = 2^53. Summed z, y, x, z + y is a tie
    // between the odd z and the even 0.6 - 1.2 u: -2 u and 2^52. With y last: -1.5 u.
    PickedPlane plane({-1.25f, 0, 0}, {-4.25f, 0, 4}, {-4.25f + two(-14), two(40), 4});
    CHECK(plane.depthAt(-0.75f, -1.25f) == two(53));
}

TEST_CASE("a pick divides each side by its length, not the normal by its own or by both lengths")
{
    // Sides (3, 4, 0) and (0, 3, 4) from the eye, both of length 5. The normal is (0.8 x 0.8, -(0.8 x 0.6), 0.6 x 0.6):
    //
    //   (0.8 + 0.4 u) squared    = 0.64 + 0.64 u; 0.64 / u ends in .88, so .52: up to 0.64 + 1.12 u
    //   0.8 x 0.6, rounded each  = 0.48 + 0.08 u; 0.48 / (u/2) ends in .32, so .48: down to 0.48 - 0.16 u
    //   (0.6 - 0.2 u) squared    = 0.36 - 0.24 u; 0.36 / (u/2) ends in .24, so .76 below: up to 0.36 - 0.12 u
    //
    // At the first corner 3 x (0.64 + 1.12 u) - 4 x (0.48 - 0.16 u) = 3.36 u + 0.64 u = 4 u, both products being exact.
    // The ray (1, 0, 1) makes 1 + u, a tie that goes to 1: depth 4 u = 2^-51. The undivided normal is (16, -12, 9), and
    // 3 x 16 - 4 x 12 = 0, divided by 5 x 5 too: 1.92 - 1.92 = 0.
    PickedPlane plane({3, 4, 0}, {0, 0, 0}, {0, 3, 4});
    CHECK(plane.depthAt(1, 0) == two(-51));
}

TEST_CASE("the length of a pick's side is summed x, y, z")
{
    // Side (3, 3, 3 x 2^27): 9 + 9 + 9 x 2^54, where the spacing is 32. 18 counts as 32, 9 alone as nothing. The root
    // is 3 x 2^27 + 16 / (3 x 2^27), of which two thirds of a last bit remain: 3 x 2^27 + 2^-24. The unit side is (q /
    // 2^27, q / 2^27, q) with q = 1 - 4/3 u, rounded to 1 - u; in every other order q is 1. With the other side (3, 4,
    // 0) / 5 the normal begins with -a = -(0.8 q) and b = 0.6 q:
    //
    //   q = 1 - u:  a = 0.8 + 0.4 u - 0.8 u, rounded to 0.8 - 0.6 u;  b = 0.6 - 0.2 u - 0.6 u, rounded to 0.6 - 1.2 u
    //               15 a = 12 - 9 u goes to 12 - 16 u;  20 b = 12 - 24 u is a tie and goes to the even 12 - 32 u
    //   q = 1:      15 a = 12 + 6 u goes to 12;         20 b = 12 - 4 u goes to 12
    //
    // At the first corner, (15, 20, 0), that is -16 u = -2^-49, or 0. The ray (1.25, 0, 1) makes -1 but for one part in
    // 10^9, which no f32 shows.
    constexpr f32 deep = 3 * two(27);
    PickedPlane plane({15, 20, 0}, {12, 17, -deep}, {15, 21, -deep});
    CHECK(plane.depthAt(1.25f, 0) == two(-49));
}

TEST_CASE("corners of a face that was cut are projected through the rounded 1 / Z")
{
    // 1/3 rounds to 0.33333334327; 100 times that lies nearer to 33.333336 than to its neighbour 33.333332, which 100 /
    // 3 rounds to. The left side of the face and its bottom lie there. Its last corner is before the near plane.
    PickScene pick({.nearZ = 1, .scaleX = 100, .scaleY = 100});
    TestObject& object = pick.scene.addRoot();
    TestFace& face = pick.addRectangle(object, 40, 10, 90, 30, 3);
    const CameraVertex corners[] = {{1, -0.25f, 3}, {1, -1, 3}, {3, -1, 3}, {0.75f, 0, 0.5f}};
    for (size_t i = 0; i < 4; ++i) pick.host.cameraVertices[static_cast<size_t>(face.indices[i])] = corners[i];
    pick.host.outcodes[static_cast<size_t>(face.indices[3])] &= ~u32{outcodeNear};

    CHECK(pick.pick(33.333336f, 20).object == &object);
    CHECK(pick.pick(33.333332f, 20).object == nullptr);
    CHECK(pick.pick(60, 33.333336f).object == &object);
    CHECK(pick.pick(60, 33.33334f).object == nullptr);
}
