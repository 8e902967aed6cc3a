// A frame buffer with fences: guard pixels around it tell when something outside the drawn rectangle was written.
#pragma once

#include "kardeno_soft/host_records.h"

#include <vector>

namespace kardeno::tests {

class TestFrame {
public:
    static constexpr u16 untouched = 0xa55a;

    TestFrame(i32 frameWidth, i32 frameHeight, u16 fill = untouched);

    u16* pixels() { return &storage[static_cast<size_t>(margin * rowLength + margin)]; }
    i32 pitch() const { return rowLength; } // give it to the view
    u16& at(i32 x, i32 y) { return storage[static_cast<size_t>((y + margin) * rowLength + x + margin)]; }
    u16 at(i32 x, i32 y) const { return storage[static_cast<size_t>((y + margin) * rowLength + x + margin)]; }

    void clear(u16 fill);

    // Whether every pixel around the frame is as it was.
    bool fencesStand() const;

    // Columns from x up to xEnd of a row.
    std::vector<u16> row(i32 y, i32 x, i32 xEnd) const;

    // FNV-1a over all pixels, low byte first: the same on every build.
    u32 hash() const;

    const i32 width;
    const i32 height;

private:
    static constexpr i32 margin = 8;
    const i32 rowLength;
    std::vector<u16> storage;
};

} // namespace kardeno::tests
