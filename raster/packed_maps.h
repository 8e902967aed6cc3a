// The packed forms of texel addressing: the indices of eight texels from u and v at the first one and their steps.
// raster/texture_maps.h defines what the indices are.
#pragma once

#include "raster/texture_maps.h"
#include "support/lanes.h"

namespace kardeno {

// indices() takes u and v in the first two lanes, in 8.8 fixed point.
template <class Map>
struct PackedMap;

// Each coordinate wraps by itself at 16 bits, which is what a lane holds.
template <class Conversion>
struct PackedMap<Map256x256<Conversion>> {
    explicit PackedMap(const TextureImage&) {}

    StoredLanes indices(i32x4 at, i32x4 step) const
    {
        const u16x8 u = along<0>(at, step);
        const u16x8 v = along<2>(at, step);
        return StoredLanes((v & 0xff00) | (u >> 8));
    }

private:
    // The low halves of the eight sums at + n x step of one coordinate, whose own low half is the given 16-bit lane.
    template <i32 lane>
    static u16x8 along(i32x4 at, i32x4 step)
    {
        return broadcastLane<lane>(std::bit_cast<u16x8>(at))
               + broadcastLane<lane>(std::bit_cast<u16x8>(step)) * laneNumbers;
    }
};

// The index wraps as a whole, and a column beyond the row carries into it. That needs all 32 bits.
template <>
struct PackedMap<AnyMap> {
    explicit PackedMap(const TextureImage& image) : map(image) {}

    WideStoredLanes indices(i32x4 at, i32x4 step) const
    {
        const Along<0> u(at, step);
        const Along<1> v(at, step);
        return WideStoredLanes(indexOf(u.low, v.low), indexOf(u.high, v.high));
    }

private:
    AnyMap map;

    // The eight sums at + n x step of one coordinate, which is the given lane. They are formed by additions: SSE2 has
    // no multiplication of 32-bit lanes.
    template <i32 lane>
    struct Along {
        u32x4 low, high;
        Along(i32x4 at, i32x4 step)
        {
            const u32x4 steps = broadcastLane<lane>(std::bit_cast<u32x4>(step));
            const u32x4 twice = steps + steps;
            low = broadcastLane<lane>(std::bit_cast<u32x4>(at));
            low += (steps & u32x4{0, ~0u, 0, ~0u}) + (twice & u32x4{0, 0, ~0u, ~0u});
            high = low + twice + twice;
        }
    };

    u32x4 indexOf(u32x4 u, u32x4 v) const
    {
        const u32x4 column = std::bit_cast<u32x4>(std::bit_cast<i32x4>(u) >> 8);
        const u32x4 row = std::bit_cast<u32x4>(std::bit_cast<i32x4>(v) >> 8);
        return ((row << (map.rowShift & 31)) + column) & map.indexMask;
    }
};

} // namespace kardeno
