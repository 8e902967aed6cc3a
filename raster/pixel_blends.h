// How a colour meets the pixel that is already there. A policy's over() gives the new pixel.
#pragma once

#include "interface/host_context.h"

namespace kardeno {

struct Rgb555 {
    static constexpr PixelFormat format = rgb555;
    // Clears the lowest bit of every channel but blue, and the unused top bit: carries land in cleared bits.
    static constexpr u32 blendMask = 0x7bdf;
};

struct Rgb565 {
    static constexpr PixelFormat format = rgb565;
    static constexpr u32 blendMask = 0xf7df;
};

struct Replace {
    static u16 over(u16, u16 source) { return source; }
};

// The mean of the two pixels.
template <class Format>
struct HalfBlend {
    static u16 over(u16 destination, u16 source)
    {
        return static_cast<u16>(((source & Format::blendMask) + (destination & Format::blendMask)) >> 1);
    }
};

// The sum of the two pixels, a channel that overflows being filled with ones.
// Intended: the carry that saturates blue stays behind in the lowest green bit, and that of green in the lowest red bit;
// in 5-5-5 the carry of red stays in bit 15. Hosts compare frames; do not mask them.
template <class Format>
struct SaturatingAdd;

template <>
struct SaturatingAdd<Rgb555> {
    static u16 over(u16 destination, u16 source)
    {
        u32 sum = (source & Rgb555::blendMask) + (destination & Rgb555::blendMask); // fits in 16 bits
        if (sum & 0x20) sum |= 0x1f;
        if (sum & 0x400) sum |= 0x3e0;
        if (sum & 0x8000) sum |= 0x7c00;
        return static_cast<u16>(sum);
    }
};

template <>
struct SaturatingAdd<Rgb565> {
    static u16 over(u16 destination, u16 source)
    {
        u32 sum = (source & Rgb565::blendMask) + (destination & Rgb565::blendMask); // 17 bits
        if (sum & 0x20) sum |= 0x1f;
        if (sum & 0x800) sum |= 0x7e0;
        if (sum & 0x10000) sum |= 0xf800;
        return static_cast<u16>(sum);
    }
};

} // namespace kardeno
