// What the reference renderer's interpolating fillers share: the outline of a polygon row by row, the values at a
// column of a row, and values that are corrected for perspective every 8 pixels.
#pragma once

#include "tests/reference/reference_polygon.h"

#include <array>
#include <map>

namespace kardeno::reference {

// The interpolated values of a corner or a column.
enum Value : size_t {
    invDepthValue,
    texUValue,
    texVValue,
    intensityValue,
    redValue,
    greenValue,
    blueValue,
    valueCount
};
using Values = std::array<f32, valueCount>;

struct Boundary {
    i32 x = 0;
    Values values = {};
};

// A side that begins above this row is brought down to it in one step. Only corners that a host's outcodes misplace, at
// infinity mostly, are so far off.
constexpr i32 highestRowFollowed = -4096;

// Where a polygon begins and ends on each of its rows. "Left" is the chain of rising corner numbers.
struct Outline {
    i32 top = 0, bottom = 0; // the bottom row is not part of it
    std::map<i32, Boundary> left, right;

    Outline(const Polygon& polygon, i32 firstRow, i32 endRow);
};

// The values at a column of a row, and how they change along it.
class RowWalk {
public:
    RowWalk(const Boundary& left, const Boundary& right);
    void moveTo(i32 newColumn);

    Values values;
    Values gradients;
    Values blockGradients; // for 8 pixels
    i32 shade;             // the textured rows' intensity, an integer of its own
    i32 shadeStep;

private:
    i32 column;
};

// The integers that `count` pixels from the walk's column on get for a value divided by the inverse depth.
std::vector<i32> perspective(const RowWalk& walk, Value value, i32 count, i32 (*toInteger)(f64));

} // namespace kardeno::reference
