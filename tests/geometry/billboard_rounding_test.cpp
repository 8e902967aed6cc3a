// Mean and half side of a billboard are formed in f64; only the square's corners are rounded to f32.
#include "geometry/billboards.h"
#include "tests/support/test_view.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

Corners squareOf(std::initializer_list<Corner> outline)
{
    const TestView view;
    ScreenPolygon polygon = screenPolygon(outline, view);
    squareCorners(view.record, polygon);
    return corners(polygon);
}

} // namespace

TEST_CASE("the sum and the mean of a billboard's corners are not rounded to f32")
{
    // Columns 2^24, 2^24, 1 and 1: sum 2^25 + 2, mean 2^23 + 1/2, both one bit too long for an f32, which would be 2^25
    // and 2^23. The half side is 2^23 - 1/2, and the square reaches from 1 to 2^24, not from 0. The same for rows.
    CHECK(squareOf({{16777216, 5}, {16777216, 5}, {1, 5}, {1, 5}})
          == Corners{{1, 5 - 8388607.5f}, {1, 5 + 8388607.5f}, {16777216, 5 + 8388607.5f}, {16777216, 5 - 8388607.5f}});
    CHECK(squareOf({{5, 1}, {5, 16777216}, {5, 16777216}, {5, 1}})
          == Corners{{5 - 8388607.5f, 1}, {5 - 8388607.5f, 16777216}, {5 + 8388607.5f, 16777216}, {5 + 8388607.5f, 1}});
}

TEST_CASE("the half side of a billboard is not rounded to f32")
{
    // Columns 2^23, -2^23, 3 and 0: mean 3/4, half side 2^23 + 3/4, of which an f32 would make 2^23 + 1. The rows' mean
    // is 1/2: the bottom, 2^23 + 5/4, rounds to 2^23 + 1. With a half side of 2^23 + 1 it would be 2^23 + 3/2, a tie
    // that goes to 2^23 + 2. Left 3/4 - 2^23 - 3/4; right 2^23 + 3/2, the tie; top 1/2 - 2^23 - 3/4 = -(2^23 + 1/4).
    CHECK(squareOf({{8388608, 0}, {-8388608, 0}, {3, 1}, {0, 1}})
          == Corners{{-8388608, -8388608}, {-8388608, 8388609}, {8388610, 8388609}, {8388610, -8388608}});
    // The same with columns and rows exchanged: the half side comes from the rows.
    CHECK(squareOf({{0, 8388608}, {0, -8388608}, {1, 3}, {1, 0}})
          == Corners{{-8388608, -8388608}, {-8388608, 8388610}, {8388609, 8388610}, {8388609, -8388608}});
}
