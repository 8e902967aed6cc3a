#include "tests/support/test_frame.h"

#include "tests/support/golden_hashes.h"

namespace kardeno::tests {

TestFrame::TestFrame(i32 frameWidth, i32 frameHeight, u16 fill)
    : width(frameWidth), height(frameHeight), rowLength(frameWidth + 2 * margin),
      storage(static_cast<size_t>(rowLength * (frameHeight + 2 * margin)), untouched)
{
    clear(fill);
}

void TestFrame::clear(u16 fill)
{
    for (i32 y = 0; y < height; ++y) {
        for (i32 x = 0; x < width; ++x) at(x, y) = fill;
    }
}

bool TestFrame::fencesStand() const
{
    for (i32 y = -margin; y < height + margin; ++y) {
        for (i32 x = -margin; x < width + margin; ++x) {
            const bool inside = x >= 0 && x < width && y >= 0 && y < height;
            if (!inside && at(x, y) != untouched) return false;
        }
    }
    return true;
}

std::vector<u16> TestFrame::row(i32 y, i32 x, i32 xEnd) const
{
    std::vector<u16> result;
    for (; x < xEnd; ++x) result.push_back(at(x, y));
    return result;
}

u32 TestFrame::hash() const
{
    u32 value = hashBasis;
    for (i32 y = 0; y < height; ++y) {
        for (i32 x = 0; x < width; ++x) value = hashWithPixel(value, at(x, y));
    }
    return value;
}

} // namespace kardeno::tests
