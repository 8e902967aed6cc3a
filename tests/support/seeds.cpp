#include "tests/support/seeds.h"

#include <cstdlib>

namespace kardeno::tests {

namespace {

const char* wantedSeed()
{
    return std::getenv("KARDENO_SEED");
}

} // namespace

Seeds seedsToRun(u32 first, u32 count)
{
    const char* const factor = std::getenv("KARDENO_SEED_FACTOR");
    if (!wantedSeed())
        return {first, first + count * (factor ? static_cast<u32>(std::strtoul(factor, nullptr, 10)) : 1)};
    const u32 wanted = static_cast<u32>(std::strtoul(wantedSeed(), nullptr, 10));
    return {wanted, wanted + 1};
}

bool replaysOneSeed()
{
    return wantedSeed() != nullptr;
}

} // namespace kardeno::tests
