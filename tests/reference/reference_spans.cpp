#include "tests/reference/reference_spans.h"

#include "tests/reference/reference_arithmetic.h"

namespace kardeno::reference {

namespace {

Values valuesOf(const Corner& corner)
{
    return {corner.invDepth, corner.texU, corner.texV, corner.intensity, corner.red, corner.green, corner.blue};
}

f32 stepped(f32 from, f32 to, i32 rows)
{
    return single((static_cast<f64>(to) - static_cast<f64>(from)) * (1.0 / rows));
}

void followSide(const Corner& a, const Corner& b, i32 firstRow, i32 endRow, std::map<i32, Boundary>& boundaries)
{
    const i32 rows = wrappedDifference(b.scanY, a.scanY);
    if (rows == 0) return;
    f32 x = a.screenX;
    const f32 xStep = stepped(a.screenX, b.screenX, rows);
    Values values = valuesOf(a);
    Values steps;
    for (size_t v = 0; v < valueCount; ++v) steps[v] = stepped(values[v], valuesOf(b)[v], rows);

    i32 row = a.scanY;
    if (row < highestRowFollowed && row < b.scanY) {
        const f64 rowsAbove = static_cast<f64>(highestRowFollowed) - row;
        x = single(x + xStep * rowsAbove);
        for (size_t v = 0; v < valueCount; ++v) values[v] = single(values[v] + steps[v] * rowsAbove);
        row = highestRowFollowed;
    }
    for (; row < b.scanY && row < endRow; ++row) {
        if (row >= firstRow) boundaries[row] = {truncated(x), values};
        x = single(static_cast<f64>(x) + xStep);
        for (size_t v = 0; v < valueCount; ++v) values[v] = single(static_cast<f64>(values[v]) + steps[v]);
    }
}

} // namespace

Outline::Outline(const Polygon& polygon, i32 firstRow, i32 endRow)
{
    const std::vector<Corner>& corners = polygon.corners;
    const size_t count = corners.size();
    size_t topCorner = 0, bottomCorner = 0;
    for (size_t i = 1; i < count; ++i) {
        if (corners[i].scanY < corners[topCorner].scanY) topCorner = i;
        if (corners[i].scanY > corners[bottomCorner].scanY) bottomCorner = i;
    }
    top = corners[topCorner].scanY;
    bottom = corners[bottomCorner].scanY;
    for (size_t i = topCorner; i != bottomCorner; i = (i + 1) % count)
        followSide(corners[i], corners[(i + 1) % count], firstRow, endRow, left);
    for (size_t i = topCorner; i != bottomCorner; i = (i + count - 1) % count)
        followSide(corners[i], corners[(i + count - 1) % count], firstRow, endRow, right);
}

RowWalk::RowWalk(const Boundary& left, const Boundary& right) : values(left.values), column(left.x)
{
    const i32 width = wrappedDifference(right.x, left.x);
    const f32 inverse = width == 0 ? 0.0f : single(1.0 / width);
    for (size_t v = 0; v < valueCount; ++v) {
        const f64 difference = static_cast<f64>(right.values[v]) - static_cast<f64>(left.values[v]);
        gradients[v] = single(difference * inverse);
        blockGradients[v] = single(gradients[v] * 8.0);
    }
    shade = truncated(left.values[intensityValue]);
    const f64 difference =
        static_cast<f64>(right.values[intensityValue]) - static_cast<f64>(left.values[intensityValue]);
    shadeStep = truncated(difference * inverse);
}

void RowWalk::moveTo(i32 newColumn)
{
    const i32 columns = wrappedDifference(newColumn, column);
    if (columns == 0) return;
    for (size_t v = 0; v < valueCount; ++v)
        values[v] = single(values[v] + static_cast<f64>(gradients[v]) * static_cast<f64>(columns));
    shade = wrappedSum(shade, wrappedProduct(shadeStep, columns));
    column = newColumn;
}

std::vector<i32> perspective(const RowWalk& walk, Value value, i32 count, i32 (*toInteger)(f64))
{
    std::vector<i32> result;
    f32 invDepth = walk.values[invDepthValue];
    f32 current = walk.values[value];
    const auto advance = [&] {
        invDepth = single(static_cast<f64>(invDepth) + walk.blockGradients[invDepthValue]);
        current = single(static_cast<f64>(current) + walk.blockGradients[value]);
    };
    const auto exact = [&] { return toInteger(current * (1.0 / static_cast<f64>(invDepth))); };
    const auto draw = [&](i32 from, i32 step, i32 pixels) {
        for (i32 i = 0; i < pixels; ++i, from = wrappedSum(from, step)) result.push_back(from);
    };

    i32 start = exact();
    advance();
    i32 end = exact();
    i32 step = wrappedDifference(end, start) >> 3;
    if (count > 8) advance();
    while (count >= 8) {
        draw(start, step, 8);
        count -= 8;
        start = end;
        end = exact();
        step = wrappedDifference(end, start) >> 3;
        if (count > 8) advance();
    }
    draw(start, step, count);
    return result;
}

} // namespace kardeno::reference
