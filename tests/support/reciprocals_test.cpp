#include "support/reciprocals.h"

#include <doctest/doctest.h>

using namespace kardeno;

TEST_CASE("the reciprocals in the table are the quotients that a division gives")
{
    CHECK(reciprocal(1) == 1.0);
    CHECK(reciprocal(4) == 0.25);
    CHECK(reciprocal(4096) == 0.000244140625);
    for (u32 n = 1; n < reciprocalCount; ++n) {
        volatile f64 divisor = n; // the compiler must not work the quotient out
        CHECK(reciprocal(n) == 1.0 / divisor);
        CHECK(tableReciprocal(static_cast<i32>(n)) == reciprocal(n));
    }
}

TEST_CASE("the table has 0 for 0, and numbers behind its end are divided by")
{
    CHECK(reciprocal(0) == 0.0);
    CHECK(reciprocal(8192) == 0.0001220703125);
    CHECK(reciprocal(2147483648u) == 4.656612873077393e-10); // 2 to the power of -31
}
