// Which of an object's levels of detail is drawn.
#pragma once

#include <algorithm>
#include <span>

namespace sample_host {

// Level i reaches as far as limits[i], which ascend; the level behind the last limit has no end.
inline std::size_t levelAt(double distance, std::span<const double> limits)
{
    return std::size_t(std::ranges::lower_bound(limits, distance) - limits.begin());
}

} // namespace sample_host
