// Powers of two, of which the tests of roundings build their values.
#pragma once

#include "kardeno_soft/types.h"

namespace kardeno::tests {

// 2^k.
constexpr f32 two(i32 k)
{
    f32 result = 1;
    for (; k > 0; --k) result *= 2;
    for (; k < 0; ++k) result /= 2;
    return result;
}

} // namespace kardeno::tests
