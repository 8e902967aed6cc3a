// Lanes: several numbers side by side in one register of 128 bits. The types are the compilers' own vectors, for which
// the usual operators work lane by lane, so that SSE2, NEON and SIMD128 share one source. What an operator cannot say
// stands here, with the same results as the routines of support/arithmetic.h.
#pragma once

#include "support/arithmetic.h"
#include "support/lanes_simd128.h"
#include "support/lanes_sse2.h"

#include <bit>
#include <string.h>

namespace kardeno {

using f32x4 = f32 __attribute__((vector_size(16)));
using f64x4 = f64 __attribute__((vector_size(32))); // two registers
using f64x2 = f64 __attribute__((vector_size(16)));
using i32x4 = i32 __attribute__((vector_size(16)));
using u32x4 = u32 __attribute__((vector_size(16)));
using u16x8 = u16 __attribute__((vector_size(16)));

// The numbers of the eight lanes.
inline constexpr u16x8 laneNumbers = {0, 1, 2, 3, 4, 5, 6, 7};

constexpr u16x8 eightTimes(u16 value)
{
    return u16x8{value, value, value, value, value, value, value, value};
}

inline u16x8 loadedLanes(const u16* from)
{
    u16x8 lanes;
    memcpy(&lanes, from, sizeof lanes);
    return lanes;
}

inline void storeLanes(u16* to, u16x8 lanes)
{
    memcpy(to, &lanes, sizeof lanes);
}

// Four f32 in memory, which need no alignment beyond their own.
inline f32x4 loadedLanes(const f32* from)
{
    f32x4 lanes;
    memcpy(&lanes, from, sizeof lanes);
    return lanes;
}

inline void storeLanes(f32* to, f32x4 lanes)
{
    memcpy(to, &lanes, sizeof lanes);
}

// Returns eight times the number in one lane.
template <i32 lane>
u16x8 broadcastLane(u16x8 lanes)
{
    return __builtin_shufflevector(lanes, lanes, lane, lane, lane, lane, lane, lane, lane, lane);
}

template <i32 lane>
u32x4 broadcastLane(u32x4 lanes)
{
    return __builtin_shufflevector(lanes, lanes, lane, lane, lane, lane);
}

// Keeps an array in memory. Numbers that are taken out of their lanes one by one are read back from there, which is
// faster on x86 than to extract them from the register; without this empty statement the compiler would extract them
// all the same.
template <class Array>
void keepInMemory(Array& array)
{
    asm("" : "+m"(array));
}

// The numbers of eight lanes, to be taken out one by one.
class StoredLanes {
public:
    explicit StoredLanes(u16x8 lanes)
    {
        storeLanes(numbers, lanes);
        keepInMemory(numbers);
    }
    u32 operator[](u32 lane) const { return numbers[lane]; }

private:
    alignas(16) u16 numbers[8];
};

class WideStoredLanes {
public:
    WideStoredLanes(u32x4 low, u32x4 high)
    {
        memcpy(numbers, &low, sizeof low);
        memcpy(numbers + 4, &high, sizeof high);
        keepInMemory(numbers);
    }
    u32 operator[](u32 lane) const { return numbers[lane]; }

private:
    alignas(16) u32 numbers[8];
};

// Calls of(lane) for the eight lanes, in order.
template <class Of>
void forEachLane(Of of)
{
    of(0), of(1), of(2), of(3), of(4), of(5), of(6), of(7);
}

// The same, putting together what it returns.
template <class Of>
u16x8 lanesOf(Of of)
{
    return u16x8{of(0), of(1), of(2), of(3), of(4), of(5), of(6), of(7)};
}

// Returns `ifSet` where the bits of the mask are set, otherwise `ifClear`.
inline u16x8 selected(u16x8 mask, u16x8 ifSet, u16x8 ifClear)
{
    return (ifSet & mask) | (ifClear & ~mask);
}

inline i32x4 selected(i32x4 mask, i32x4 ifSet, i32x4 ifClear)
{
    return (ifSet & mask) | (ifClear & ~mask);
}

inline f32x4 selected(i32x4 mask, f32x4 ifSet, f32x4 ifClear)
{
    return std::bit_cast<f32x4>(selected(mask, std::bit_cast<i32x4>(ifSet), std::bit_cast<i32x4>(ifClear)));
}

// The upper two lanes, in the place of the lower two.
inline f32x4 upperLanes(f32x4 lanes)
{
    return __builtin_shufflevector(lanes, lanes, 2, 3, 2, 3);
}

// The lower two lanes of both.
inline i32x4 joined(i32x4 lower, i32x4 upper)
{
    return __builtin_shufflevector(lower, upper, 0, 1, 4, 5);
}

// Wrapping sums and differences of signed lanes. The language leaves the signed operators undefined where they
// overflow.
inline i32x4 wrappingSum(i32x4 a, i32x4 b)
{
    return std::bit_cast<i32x4>(std::bit_cast<u32x4>(a) + std::bit_cast<u32x4>(b));
}

inline i32x4 wrappingDifference(i32x4 a, i32x4 b)
{
    return std::bit_cast<i32x4>(std::bit_cast<u32x4>(a) - std::bit_cast<u32x4>(b));
}

// Returns the lower two lanes as doubles.
inline f64x2 widened(f32x4 values)
{
#if defined(KARDENO_LANE_INSTRUCTIONS)
    return widenedByInstruction<f64x2>(values);
#else
    return f64x2{static_cast<f64>(values[0]), static_cast<f64>(values[1])};
#endif
}

// Truncates each lane as truncated() does. The integers are in the lower two lanes.
#if defined(KARDENO_OPAQUE_TRUNCATION)
i32x4 truncatedLanes(f64x2 values);
i32x4 truncatedLanes(f32x4 values);
#else
inline i32x4 truncatedLanes(f64x2 values)
{
#if defined(KARDENO_LANE_INSTRUCTIONS)
    return truncatedLanesByInstruction<i32x4>(values);
#else
    return i32x4{truncated(values[0]), truncated(values[1]), 0, 0};
#endif
}

// The same for four singles.
inline i32x4 truncatedLanes(f32x4 values)
{
#if defined(KARDENO_LANE_INSTRUCTIONS)
    return truncatedSinglesByInstruction<i32x4>(values);
#else
    return i32x4{truncated(values[0]), truncated(values[1]), truncated(values[2]), truncated(values[3])};
#endif
}
#endif

// Rounds each lane as rounded() does: the low half of each sum. The integers are in the lower two lanes.
inline i32x4 roundedLanes(f64x2 values)
{
    const i32x4 shifted = std::bit_cast<i32x4>(values + 6755399441055744.0);
    return __builtin_shufflevector(shifted, shifted, 0, 2, 0, 2);
}

} // namespace kardeno
