// The packed forms of the blends: over() of each combines eight colours with the eight pixels that are already there.
// raster/pixel_blends.h defines what the pixels are.
#pragma once

#include "raster/pixel_blends.h"
#include "support/lanes.h"

namespace kardeno {

template <class Blend>
struct PackedBlend;

template <>
struct PackedBlend<Replace> {
    static u16x8 over(u16x8, u16x8 source) { return source; }
};

// The mean is formed without the sum's seventeenth bit: the bits that both have, and half of those that one has.
template <PixelFormat format>
struct PackedBlend<HalfBlend<format>> {
    static constexpr u16x8 mask = eightTimes(static_cast<u16>(HalfBlend<format>::mask));

    static u16x8 over(u16x8 destination, u16x8 source)
    {
        const u16x8 a = source & mask;
        const u16x8 b = destination & mask;
        return (a & b) + ((a ^ b) >> 1);
    }
};

// The carry of red leaves the lanes in 5-6-5: there the sum has wrapped and is less than what was added.
template <PixelFormat format>
struct PackedBlend<SaturatingAdd<format>> {
    static constexpr PixelLayout layout = pixelLayouts[format];
    static constexpr u16x8 mask = eightTimes(static_cast<u16>(layout.blendMask()));

    static u16x8 over(u16x8 destination, u16x8 source)
    {
        const u16x8 a = source & mask;
        const u16x8 sum = a + (destination & mask);
        const u16x8 red = layout.red.carry() > 0xffff ? wrapped(sum, a, layout.red) : carried(sum, layout.red);
        return sum | carried(sum, layout.blue) | carried(sum, layout.green) | red;
    }

private:
    // The channel's field where the sum has its carry, otherwise 0.
    static u16x8 carried(u16x8 sum, const ChannelField& channel)
    {
        const u16x8 carry = eightTimes(static_cast<u16>(channel.carry()));
        return std::bit_cast<u16x8>((sum & carry) == carry) & eightTimes(static_cast<u16>(channel.mask()));
    }

    static u16x8 wrapped(u16x8 sum, u16x8 a, const ChannelField& channel)
    {
        return std::bit_cast<u16x8>(sum < a) & eightTimes(static_cast<u16>(channel.mask()));
    }
};

} // namespace kardeno
