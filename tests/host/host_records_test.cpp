// What a host and the renderer agree on beside the places of the fields, which the records' own assertions hold.
#include "kardeno_soft/host_records.h"

#include <doctest/doctest.h>

using namespace kardeno;

TEST_CASE("the outcode bits are near 1, far 2, left 4, right 8, top 16 and bottom 32")
{
    CHECK(outcodeNear == 1);
    CHECK(outcodeFar == 2);
    CHECK(outcodeLeft == 4);
    CHECK(outcodeRight == 8);
    CHECK(outcodeTop == 16);
    CHECK(outcodeBottom == 32);
    CHECK(outcodeAll == 63);
}
