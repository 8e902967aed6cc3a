#include "sample_host/host/level_of_detail.h"

#include <doctest/doctest.h>

#include <array>

using namespace sample_host;

TEST_CASE("each level reaches as far as its limit, and the last one has no end")
{
    constexpr std::array limits{5.0, 9.0};
    CHECK(levelAt(0.1, limits) == 0);
    CHECK(levelAt(5, limits) == 0);
    CHECK(levelAt(5.001, limits) == 1);
    CHECK(levelAt(9, limits) == 1);
    CHECK(levelAt(9.001, limits) == 2);
    CHECK(levelAt(1e9, limits) == 2);
}

TEST_CASE("what is behind the eye has the nearest level, and without limits there is one level")
{
    constexpr std::array limits{5.0};
    CHECK(levelAt(-3, limits) == 0);
    CHECK(levelAt(7, {}) == 0);
}
