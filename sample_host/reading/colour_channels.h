// Colours of files that say them in numbers from 0 to 1.
#pragma once

#include "sample_host/host/material.h"

namespace sample_host {

// A number from 0 to 1 as a channel of a colour. One that is none counts as 0.
inline u8 channel(double value)
{
    return value > 0 ? u8(255 * (value < 1 ? value : 1) + 0.5) : u8(0);
}

// Three numbers from 0 to 1 as a colour.
inline Colour colourOf(const float* values)
{
    return {channel(double(values[0])), channel(double(values[1])), channel(double(values[2]))};
}

} // namespace sample_host
