#include "support/arithmetic.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <bit>
#include <limits>
#include <random>

using namespace kardeno;
using kardeno::tests::forEachSeed;

namespace {

struct Form {
    const char* name;
    i32 (*truncate)(f64);
};

// The form that defines the result, the instruction where the machine has it, and the one that everybody calls.
constexpr Form forms[] = {
    {"plain", truncatedPlain},
#if defined(KARDENO_TRUNCATION_INSTRUCTION)
    {"instruction", truncatedByInstruction},
#endif
    {"used", truncated},
};

struct Conversion {
    f64 value;
    i32 result;
};

template <size_t count>
void checkTruncation(const Conversion (&conversions)[count])
{
    for (const Form& form : forms) {
        for (const Conversion& conversion : conversions) {
            CAPTURE(form.name);
            CAPTURE(conversion.value);
            CHECK(form.truncate(conversion.value) == conversion.result);
        }
    }
}

constexpr f64 infinity = std::numeric_limits<f64>::infinity();
constexpr f64 notANumber = std::numeric_limits<f64>::quiet_NaN();

} // namespace

TEST_CASE("a constant truncates as any other value does")
{
    // The compiler sees these values and may work out the results beforehand.
    CHECK(truncated(2.75) == 2);
    CHECK(truncated(-2.75) == -2);
    CHECK(truncated(2147483648.0) == smallestI32);
    CHECK(truncated(1e300) == smallestI32);
    CHECK(truncated(infinity) == smallestI32);
    CHECK(truncated(notANumber) == smallestI32);
}

TEST_CASE("truncation goes toward zero on both sides of it")
{
    checkTruncation({{0.0, 0},
                     {-0.0, 0},
                     {0.999999999999, 0},
                     {-0.999999999999, 0},
                     {1.0, 1},
                     {1.5, 1},
                     {-1.5, -1},
                     {2.5, 2},
                     {-2.5, -2},
                     {255.996, 255},
                     {-32768.75, -32768},
                     {5e-324, 0}});
}

TEST_CASE("truncation keeps the fraction of the outermost values from spilling over")
{
    checkTruncation({{2147483646.999, 2147483646},
                     {2147483647.0, 2147483647},
                     {2147483647.9999995, 2147483647},
                     {-2147483647.5, -2147483647},
                     {-2147483648.0, smallestI32},
                     {-2147483648.9999995, smallestI32}});
}

TEST_CASE("truncation of what does not fit gives -2,147,483,648, on either side, for infinities and for NaN")
{
    checkTruncation({{2147483648.0, smallestI32},
                     {4294967296.0, smallestI32},
                     {4294967297.0, smallestI32}, // not its low 32 bits
                     {1e300, smallestI32},
                     {-2147483649.0, smallestI32},
                     {-4294967297.0, smallestI32},
                     {-1e300, smallestI32},
                     {infinity, smallestI32},
                     {-infinity, smallestI32},
                     {notANumber, smallestI32},
                     {-notANumber, smallestI32}});
}

TEST_CASE("an f32 is truncated by its own value")
{
    checkTruncation({{16777217.0f, 16777216},      // the literal itself is rounded to a multiple of 2
                     {2147483520.0f, 2147483520},  // the largest f32 that fits
                     {2147483648.0f, smallestI32}, // the next one
                     {-2147483648.0f, smallestI32}});
}

TEST_CASE("the plain form and the instruction agree on every kind of value")
{
    forEachSeed(20240229, 1, [](u32 seed) {
        std::mt19937_64 random(seed);
        i32 disagreements = 0;
        for (i32 i = 0; i < 200000; ++i) {
            // Any bits at all, then values whose exponent makes them come close to the bounds.
            const f64 any = std::bit_cast<f64>(random());
            const f64 close = (static_cast<f64>(random() >> 11) / 9007199254740992.0 - 0.5) * 4294967300.0 * 1.001;
            for (const f64 value : {any, close}) disagreements += truncatedPlain(value) != truncated(value);
        }
        CHECK(disagreements == 0);
    });
}

TEST_CASE("rounding goes to the nearest integer, ties to the even one")
{
    CHECK(rounded(0.5) == 0);
    CHECK(rounded(1.5) == 2);
    CHECK(rounded(2.5) == 2);
    CHECK(rounded(3.5) == 4);
    CHECK(rounded(-0.5) == 0);
    CHECK(rounded(-1.5) == -2);
    CHECK(rounded(-2.5) == -2);
    CHECK(rounded(0.49999999) == 0);
    CHECK(rounded(0.50000001) == 1);
    CHECK(rounded(-0.50000001) == -1);
    CHECK(rounded(65535.75) == 65536);
    CHECK(rounded(2147483646.5) == 2147483646);
    CHECK(rounded(-2147483648.0) == smallestI32);
}

TEST_CASE("rounding beyond 32 bits takes the low 32 bits of the shifted sum, whatever they are")
{
    CHECK(rounded(2147483648.0) == smallestI32);
    CHECK(rounded(2147483647.5) == smallestI32); // a tie, and 2,147,483,648 is the even one
    CHECK(rounded(4294967296.0) == 0);
    CHECK(rounded(4294967301.0) == 5);
    CHECK(rounded(-4294967301.0) == -5);
    CHECK(rounded(1099511627783.0) == 7); // 2^40 + 7

    // 2^52 + 6: the sum 2.5 x 2^52 + 6 lies beyond 2^53, its last bit counts 2, and the fraction ends in 3.
    CHECK(rounded(4503599627370502.0) == 3);
    // 2^60 + 2^8: the last bit counts 2^8, and the fraction ends in 1.
    CHECK(rounded(1152921504606847232.0) == 1);
    CHECK(rounded(infinity) == 0); // the fraction of an infinity is all zeros
}

TEST_CASE("sums, differences and products wrap around")
{
    constexpr i32 largest = 2147483647;
    CHECK(wrappingSum(2, -5) == -3);
    CHECK(wrappingSum(largest, 1) == smallestI32);
    CHECK(wrappingSum(smallestI32, -1) == largest);
    CHECK(wrappingSum(smallestI32, smallestI32) == 0);
    CHECK(wrappingDifference(2, 5) == -3);
    CHECK(wrappingDifference(smallestI32, 1) == largest);
    CHECK(wrappingDifference(0, smallestI32) == smallestI32);
    CHECK(wrappingProduct(-7, 6) == -42);
    CHECK(wrappingProduct(65536, 65536) == 0);
    CHECK(wrappingProduct(smallestI32, -1) == smallestI32);
    CHECK(wrappingProduct(46341, 46341) == -2147479015); // 2,147,488,281 - 2^32
}

TEST_CASE("left shifts wrap too, and the machine looks at five bits of the count")
{
    CHECK(wrappingShiftLeft(5, 16) == 327680);
    CHECK(wrappingShiftLeft(-1, 16) == -65536);
    CHECK(wrappingShiftLeft(1, 31) == smallestI32);
    CHECK(wrappingShiftLeft(3, 31) == smallestI32);
    CHECK(wrappingShiftLeft(65536, 16) == 0);
    CHECK(wrappingShiftLeft(40000, 16) == -1673527296); // 2,621,440,000 - 2^32
    CHECK(wrappingShiftLeft(1, 33) == 2);
}

TEST_CASE("storing rounds to f32 once, to nearest even, and keeps the smallest numbers")
{
    CHECK(stored(0.1) == 0.1f);
    CHECK(stored(16777217.0) == 16777216.0f); // halfway between 16,777,216 and 16,777,218
    CHECK(stored(16777219.0) == 16777220.0f);
    // 10^-40 lies below the normal numbers: 71,362.4 times 2^-149.
    CHECK(std::bit_cast<u32>(stored(1e-40)) == 71362);
}

// Whether a value of that type can be stored.
template <class Value>
concept Storable = requires(Value value)
{
    stored(value);
};

TEST_CASE("a formula of f32 operands alone cannot be stored, one with an f64 can")
{
    const f32 a = 1;
    const f32 b = 2;
    CHECK_FALSE(Storable<decltype(a * b + a)>);
    CHECK(Storable<decltype(static_cast<f64>(a) * b + a)>);
}

TEST_CASE("a product is rounded before it enters a sum, and a sum is no wider than it is declared")
{
    // (1 + 2^-30)^2 = 1 + 2^-29 + 2^-60, of which the product keeps the first two. One fused operation would find
    // 2^-60.
    volatile f64 factor = 1.0 + 1.0 / 1073741824.0;
    volatile f64 term = -(1.0 + 2.0 / 1073741824.0);
    CHECK(factor * factor + term == 0.0);

    // 2^53 + 1 is a tie that goes to 2^53; registers of 80 bits would keep the 1.
    volatile f64 large = 9007199254740992.0;
    volatile f64 one = 1.0;
    CHECK(large + one + one == large);

    volatile f32 largeSingle = 16777216.0f;
    volatile f32 oneSingle = 1.0f;
    CHECK(largeSingle + oneSingle + oneSingle == largeSingle);

    // Not flushed to zero: 2^-130.
    volatile f32 tiny = 1.1754944e-38f;
    volatile f32 sixteenth = 0.0625f;
    CHECK(std::bit_cast<u32>(static_cast<f32>(tiny * sixteenth)) == 0x00080000);
}
