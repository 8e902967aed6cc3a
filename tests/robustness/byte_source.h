// Where a hostile scene takes its decisions from: a seeded generator that never ends, or bytes that somebody else made.
// The same bytes make the same scene on every machine.
#pragma once

#include "kardeno_soft/types.h"

#include <bit>
#include <cstddef>

namespace kardeno::tests {

class ByteSource {
public:
    explicit ByteSource(u32 seed) : state(seed * 2654435761u + 1) {}
    // After the last byte come zeros.
    ByteSource(const u8* firstByte, size_t count) : bytes(firstByte), left(count) {}

    u8 byte()
    {
        if (bytes) {
            if (left == 0) return 0;
            --left;
            return *bytes++;
        }
        // xorshift
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return static_cast<u8>(state >> 11);
    }

    u32 word()
    {
        u32 value = 0;
        for (u32 i = 0; i < 4; ++i) value = value << 8 | byte();
        return value;
    }

    // 0 to count - 1, for a count of 1 to 256.
    i32 below(i32 count) { return byte() % count; }
    i32 between(i32 first, i32 last) { return first + below(last - first + 1); }
    // Once in so many times; never when the bytes have run out.
    bool onceIn(i32 times) { return below(times) == times - 1; }

    // A fraction of 0 to 1 in steps of 1/256.
    f32 fraction() { return static_cast<f32>(byte()) / 256; }

    // A number that nobody would expect.
    f32 anyNumber()
    {
        static constexpr u32 bits[] = {
            0x7fc00000, 0xffc00000, 0x7f800001, // NaN: quiet, negative, signalling
            0x7f800000, 0xff800000,             // infinities
            0x7f7fffff, 0xff7fffff,             // the largest numbers
            0x00000001, 0x80000001, 0x007fffff, // denormal
            0x00800000, 0x00000000, 0x80000000, // the smallest normal, zeros
            0x4f000000, 0xcf000000, 0x4effffff, // 2^31, -2^31, just below 2^31
            0x47000000, 0xc7000000, 0x46fffffe, // 32,768, -32,768, just below
            0x3f800000, 0xbf800000, 0x45800000, // 1, -1, 4,096
        };
        constexpr i32 count = static_cast<i32>(sizeof bits / sizeof bits[0]);
        const i32 choice = below(count + 10);
        return std::bit_cast<f32>(choice < count ? bits[choice] : word());
    }

    // The number given, or once in so many times anything.
    f32 mostly(f32 usual, i32 times) { return onceIn(times) ? anyNumber() : usual; }

    // A percentage or the like, or once in a while any integer.
    i32 anyInteger() { return onceIn(4) ? static_cast<i32>(word()) : below(160) - 20; }

private:
    const u8* bytes = nullptr;
    size_t left = 0;
    u32 state = 1;
};

} // namespace kardeno::tests
