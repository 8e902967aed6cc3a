// Which of an object's levels of detail is drawn.
#pragma once

#include <algorithm>
#include <span>

namespace sample_host {

// Level i is drawn up to the distance limits[i]; the limits ascend. Beyond the last limit the last level is drawn, of
// which there is one more than there are limits.
inline std::size_t levelAt(double distance, std::span<const double> limits)
{
    return std::size_t(std::lower_bound(limits.begin(), limits.end(), distance) - limits.begin());
}

} // namespace sample_host
