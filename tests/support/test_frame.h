// A frame buffer with fences: guard pixels around it tell when something outside the drawn rectangle was written.
#pragma once

#include "kardeno_soft/host_records.h"

#include <vector>

namespace kardeno::tests {

class TestFrame {
public:
    static constexpr u16 untouched = 0xa55a;

    TestFrame(i32 frameWidth, i32 frameHeight, u16 fill = untouched)
        : width(frameWidth), height(frameHeight), rowLength(frameWidth + 2 * margin),
          storage(static_cast<size_t>(rowLength * (frameHeight + 2 * margin)), untouched)
    {
        clear(fill);
    }

    u16* pixels() { return &storage[static_cast<size_t>(margin * rowLength + margin)]; }
    i32 pitch() const { return rowLength; } // give it to the view
    u16& at(i32 x, i32 y) { return storage[static_cast<size_t>((y + margin) * rowLength + x + margin)]; }
    u16 at(i32 x, i32 y) const { return storage[static_cast<size_t>((y + margin) * rowLength + x + margin)]; }

    void clear(u16 fill)
    {
        for (i32 y = 0; y < height; ++y) {
            for (i32 x = 0; x < width; ++x) at(x, y) = fill;
        }
    }

    // Whether every pixel around the frame is as it was.
    bool fencesStand() const
    {
        for (i32 y = -margin; y < height + margin; ++y) {
            for (i32 x = -margin; x < width + margin; ++x) {
                const bool inside = x >= 0 && x < width && y >= 0 && y < height;
                if (!inside && at(x, y) != untouched) return false;
            }
        }
        return true;
    }

    // Columns from x up to xEnd of a row.
    std::vector<u16> row(i32 y, i32 x, i32 xEnd) const
    {
        std::vector<u16> result;
        for (; x < xEnd; ++x) result.push_back(at(x, y));
        return result;
    }

    // FNV-1a over all pixels, low byte first: the same on every build.
    u32 hash() const
    {
        u32 value = 2166136261u;
        for (i32 y = 0; y < height; ++y) {
            for (i32 x = 0; x < width; ++x) {
                for (const u32 byte : {at(x, y) & 0xffu, static_cast<u32>(at(x, y) >> 8)}) {
                    value = (value ^ byte) * 16777619u;
                }
            }
        }
        return value;
    }

    const i32 width;
    const i32 height;

private:
    static constexpr i32 margin = 8;
    const i32 rowLength;
    std::vector<u16> storage;
};

} // namespace kardeno::tests
