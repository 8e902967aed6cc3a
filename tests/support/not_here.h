// What a build cannot test says so by name: the line is shown beside the build's results.
#pragma once

#include <cstdio>

namespace kardeno::tests {

inline void notHere(const char* what, const char* why)
{
    std::printf("[not here] %s: %s\n", what, why);
}

} // namespace kardeno::tests
