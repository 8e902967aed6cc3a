#include "host/drawn_rectangle.h"

#include "support/arithmetic.h"

namespace kardeno {

namespace {

constexpr f32 firstColumn = -32768.0f;
constexpr f32 lastColumn = 32767.0f;
constexpr f32 largestFinite = 3.402823466e+38f;

// The comparisons are written so that a NaN is not within anything.
bool isWithin(f32 value, f32 least, f32 most)
{
    return value >= least && value <= most;
}

} // namespace

bool isDrawable(const RenderView& view)
{
    return isWithin(view.left, firstColumn, largestFinite) && isWithin(view.top, 0.0f, largestFinite)
           && isWithin(view.projection->right, -largestFinite, lastColumn)
           && isWithin(view.projection->bottom, -largestFinite, f32{scanlineCount});
}

DrawnRectangle truncatedRectangle(const RenderView& view)
{
    return {
        .left = truncated(view.left),
        .top = truncated(view.top),
        .right = truncated(view.projection->right),
        .bottom = truncated(view.projection->bottom),
    };
}

// A left or top that does not fit in an integer was truncated to the smallest one, which is refused here.
bool fitsTables(const DrawnRectangle& rectangle)
{
    return rectangle.left >= i32{-32768} && rectangle.top >= 0 && rectangle.right <= 32767
           && rectangle.bottom <= scanlineCount;
}

} // namespace kardeno
