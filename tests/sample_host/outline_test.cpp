#include "sample_host/models/outline.h"

#include <doctest/doctest.h>

using namespace sample_host;

namespace {

// In the plane Z = 0, seen from in front.
std::vector<Vector> flat(std::initializer_list<std::pair<double, double>> corners)
{
    std::vector<Vector> result;
    for (const auto& [x, y] : corners) result.push_back({x, y, 0});
    return result;
}

// The sum of the triangles' areas; -1 when one of them is seen from behind or has no area.
double areaOf(const std::vector<Vector>& corners)
{
    double sum = 0;
    for (const auto& [a, b, c] : splitOutline(corners).triangles) {
        const double twice = cross(corners[b] - corners[a], corners[c] - corners[a]).z;
        if (twice <= 0) return -1;
        sum += twice / 2;
    }
    return sum;
}

using Triangles = std::vector<std::array<std::size_t, 3>>;

} // namespace

TEST_CASE("a triangle stays as it is, from its first corner on")
{
    CHECK(splitOutline(flat({{0, 0}, {3, 0}, {2, 1}})).triangles == Triangles{{0, 1, 2}});
}

TEST_CASE("a quadrilateral is split along its shorter diagonal, and of equal ones along that from its second corner")
{
    CHECK(splitOutline(flat({{0, 0}, {3, 0}, {2, 1}, {0, 3}})).triangles == Triangles{{0, 1, 2}, {0, 2, 3}});
    CHECK(splitOutline(flat({{0, 0}, {1, 0}, {3, 3}, {0, 1}})).triangles == Triangles{{0, 1, 3}, {1, 2, 3}});
    CHECK(splitOutline(flat({{0, 0}, {1, 0}, {1, 1}, {0, 1}})).triangles == Triangles{{0, 1, 3}, {1, 2, 3}});
}

TEST_CASE("a quadrilateral that is bent inwards is split along the diagonal that lies inside")
{
    // The shorter diagonal, from (1, 0) to (-1, 0), lies outside, below the inner corner (0, 2).
    const std::vector<Vector> dart = flat({{0, 2}, {1, 0}, {0, 10}, {-1, 0}});
    CHECK(splitOutline(dart).triangles == Triangles{{0, 1, 2}, {0, 2, 3}});
    CHECK(areaOf(dart) == doctest::Approx(8)); // a triangle of 2 x 10 less one of 2 x 2, half of each
}

TEST_CASE("a corner in the middle of a side makes no triangle without an area")
{
    CHECK(areaOf(flat({{0, 0}, {1, 0}, {2, 0}, {2, 2}})) == doctest::Approx(2));
    CHECK(areaOf(flat({{0, 0}, {1, 0}, {2, 0}, {2, 2}, {0, 2}})) == doctest::Approx(4));
    CHECK(splitOutline(flat({{0, 0}, {1, 0}, {2, 0}, {2, 2}, {0, 2}})).fault == OutlineFault::none);
}

TEST_CASE("an outline that is bent inwards is covered exactly")
{
    // A comb with two teeth: a bar of 5 x 1, and on it two teeth of 1 x 2.
    const std::vector<Vector> comb =
        flat({{0, 0}, {5, 0}, {5, 3}, {4, 3}, {4, 1}, {2, 1}, {2, 3}, {1, 3}, {1, 1}, {0, 1}});
    CHECK(areaOf(comb) == doctest::Approx(9));
    CHECK(splitOutline(comb).fault == OutlineFault::none);
}

TEST_CASE("an outline that touches itself in a corner is split there")
{
    // Two squares of 1 x 1 that share the corner (1, 1).
    const std::vector<Vector> squares = flat({{0, 0}, {1, 0}, {1, 1}, {2, 1}, {2, 2}, {1, 2}, {1, 1}, {0, 1}});
    CHECK(areaOf(squares) == doctest::Approx(2));
    CHECK(splitOutline(squares).triangles.size() == 4);
    CHECK(splitOutline(squares).fault == OutlineFault::repeatsCorners);
}

TEST_CASE("an outline that is gone round twice, or stops at a corner, is covered once")
{
    const std::vector<Vector> twice = flat({{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}, {0, 1}});
    CHECK(areaOf(twice) == doctest::Approx(1));
    CHECK(splitOutline(twice).fault == OutlineFault::repeatsCorners);
    const std::vector<Vector> stops = flat({{0, 0}, {1, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}});
    CHECK(areaOf(stops) == doctest::Approx(1));
    CHECK(splitOutline(stops).triangles.size() == 2);
}

TEST_CASE("a way out and back again adds nothing")
{
    CHECK(areaOf(flat({{0, 0}, {1, 0}, {2, 0}, {1, 0}, {1, 1}, {0, 1}})) == doctest::Approx(1));
}

TEST_CASE("a hole, which is reached by a way there and back, stays open")
{
    // A square of 4 x 4 with a hole of 2 x 2 in its middle, gone round the other way.
    const std::vector<Vector> frame =
        flat({{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}, {1, 1}, {1, 3}, {3, 3}, {3, 1}, {1, 1}});
    CHECK(areaOf(frame) == doctest::Approx(12));
    CHECK(splitOutline(frame).fault == OutlineFault::none);
}

TEST_CASE("an outline without an area, or of fewer than three corners, gives no triangle")
{
    for (const auto& corners : {flat({{0, 0}, {1, 0}, {2, 0}}), flat({{0, 0}, {0, 0}, {0, 0}}),
                                flat({{0, 0}, {1, 0}, {0, 0}, {1, 0}}), flat({{0, 0}, {1, 1}, {1, 0}, {0, 1}})}) {
        CHECK(splitOutline(corners).triangles.empty());
        CHECK(splitOutline(corners).fault == OutlineFault::noArea);
    }
    CHECK(splitOutline(flat({{0, 0}, {1, 0}})).fault == OutlineFault::tooFewCorners);
}

TEST_CASE("an outline that crosses itself is told as such")
{
    // A pentagram: every corner's triangle has another corner in it or is seen from behind.
    const std::vector<Vector> star = flat({{0, 3}, {-2, -3}, {3, 1}, {-3, 1}, {2, -3}});
    CHECK(splitOutline(star).fault == OutlineFault::crossesItself);
}
