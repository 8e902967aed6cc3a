// How a colour is combined with the pixel that is already there. over() of each policy returns the new pixel.
#pragma once

#include "host/pixel_format.h"

namespace kardeno {

struct Replace {
    static u16 over(u16, u16 source) { return source; }
};

// The mean of the two pixels, whose lowest bits of red and green are cleared first.
template <PixelFormat format>
struct HalfBlend {
    static constexpr u32 mask = pixelLayouts[format].blendMask();

    static u16 over(u16 destination, u16 source)
    {
        return static_cast<u16>(((source & mask) + (destination & mask)) >> 1);
    }
};

// The saturating sum of the two pixels, whose lowest bits of red and green are cleared first. A channel that overflows
// is set to its largest value. Intended: the carry that saturates blue stays behind in the lowest green bit, and that
// of green in the lowest red bit; in 5-5-5 the carry of red stays in bit 15. Hosts compare frames; do not mask them.
template <PixelFormat format>
struct SaturatingAdd {
    static constexpr PixelLayout layout = pixelLayouts[format];

    static u16 over(u16 destination, u16 source)
    {
        u32 sum = (source & layout.blendMask()) + (destination & layout.blendMask()); // at most 17 bits
        if (sum & layout.blue.carry()) sum |= layout.blue.mask();
        if (sum & layout.green.carry()) sum |= layout.green.mask();
        if (sum & layout.red.carry()) sum |= layout.red.mask();
        return static_cast<u16>(sum);
    }
};

} // namespace kardeno
