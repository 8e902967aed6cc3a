#include "checked/view_checks.h"

#include "checked/numbers.h"
#include "host/drawn_rectangle.h"

namespace kardeno::checked {

namespace {

constinit i32 formatAtInitialisation = 0;

bool isEmpty(const RenderView& view)
{
    const DrawnRectangle drawn = truncatedRectangle(view);
    return drawn.left >= drawn.right || drawn.top >= drawn.bottom;
}

// The elements of the frame buffer from the first to the one behind the last that a frame may write.
struct Extent {
    f64 first, end;
};

Extent extentOf(const DrawnRectangle& drawn, f64 pitch)
{
    const f64 top = drawn.top * pitch, bottom = (drawn.bottom - 1) * pitch;
    return {(top < bottom ? top : bottom) + drawn.left, (top < bottom ? bottom : top) + drawn.right};
}

bool contains(f64 pixels, const Extent& extent)
{
    return extent.first >= 0 && extent.end <= pixels;
}

void lookAtPitch(const RenderView& view, const Place& place)
{
    const DrawnRectangle drawn = truncatedRectangle(view);
    const i32 width = drawn.right - drawn.left;
    const f64 pitch = magnitude(view.pitch);
    if (pitch < width) tell(Mistake::pitchTooShort, place, "pitch %d, width %d", view.pitch, width);
    if (pitch == 2.0 * width && drawn.left == 0) tell(Mistake::pitchTwice, place, "pitch %d", view.pitch);
}

void lookAtProjection(const ViewProjection& projection, const Place& place)
{
    const f64 scaleX = projection.scaleX, scaleY = projection.scaleY;
    const f64 centreX = projection.centreX, centreY = projection.centreY;
    if (!isFinite(scaleX) || !isFinite(scaleY) || scaleX == 0 || scaleY == 0 || !isFinite(centreX)
        || !isFinite(centreY)) {
        tell(Mistake::projectionScale, place, "scale %g, %g, centre %g, %g", scaleX, scaleY, centreX, centreY);
        return;
    }
    constexpr f64 slack = 0.001;
    const auto fits = [](f64 given, f64 wanted) {
        return areClose(given, wanted, slack * (magnitude(wanted) + slack));
    };
    if (!fits(projection.invScaleX, 1 / scaleX))
        tell(Mistake::projectionDerived, place, "invScaleX is %g instead of %g", static_cast<f64>(projection.invScaleX),
             1 / scaleX);
    else if (!fits(projection.invScaleY, 1 / scaleY))
        tell(Mistake::projectionDerived, place, "invScaleY is %g instead of %g", static_cast<f64>(projection.invScaleY),
             1 / scaleY);
    else if (!fits(projection.centreXOverScaleX, centreX / scaleX))
        tell(Mistake::projectionDerived, place, "centreXOverScaleX is %g instead of %g",
             static_cast<f64>(projection.centreXOverScaleX), centreX / scaleX);
    else if (!fits(projection.centreYOverScaleY, centreY / scaleY))
        tell(Mistake::projectionDerived, place, "centreYOverScaleY is %g instead of %g",
             static_cast<f64>(projection.centreYOverScaleY), centreY / scaleY);
}

} // namespace

CheckedSizes sizesOf(const HostContext& context)
{
    const CheckedSizes& sizes = *KARDENO_CHECKED_SIZES(const_cast<HostContext*>(&context));
    const bool isMarked = sizes.mark == checkedSizesMark && sizes.markAgain == ~sizes.mark;
    return isMarked ? sizes : CheckedSizes{};
}

bool isUsable(const HostContext& context, const Place& place)
{
    const char* const missing = !context.alloc     ? "alloc"
                                : !context.realloc ? "realloc"
                                : !context.free    ? "free"
                                                   : nullptr;
    if (missing) tell(Mistake::missingService, place, "%s", missing);
    return !missing;
}

void lookAtFormat(const HostContext& context, const Place& place)
{
    formatAtInitialisation = context.bitsPerPixel;
    if (context.bitsPerPixel != bitsPerPixel555 && context.bitsPerPixel != bitsPerPixel565)
        tell(Mistake::bitsPerPixel, place, "%d", context.bitsPerPixel);
}

bool mayBePrepared(const RenderView& view, const Place& place)
{
    if (view.camera->functions && view.camera->functions->prepare) return true;
    tell(Mistake::missingCameraFunction, place);
    return false;
}

bool hasProjection(const RenderView& view, const Place& place)
{
    if (!view.projection) tell(Mistake::missingProjection, place);
    return view.projection;
}

bool mayBeWalked(const RenderView& view, const Place& place)
{
    if (!hasProjection(view, place)) return false;
    const f64 left = view.left, top = view.top, right = view.projection->right, bottom = view.projection->bottom;
    if (!isDrawable(view) || !fitsTables(truncatedRectangle(view))) {
        tell(Mistake::rectangleLimits, place, "left %g, top %g, right %g, bottom %g", left, top, right, bottom);
        return true;
    }
    const f64 nearZ = view.nearZ, farZ = view.farZ;
    if (!(nearZ > 0) || !(farZ > nearZ)) tell(Mistake::depthRange, place, "nearZ %g, farZ %g", nearZ, farZ);
    lookAtProjection(*view.projection, place);
    if (isEmpty(view)) {
        tell(Mistake::emptyRectangle, place, "left %g, top %g, right %g, bottom %g", left, top, right, bottom);
        return true;
    }
    lookAtPitch(view, place);
    if (!isNinetyDegrees(view)) tell(Mistake::projectionAngleUnused, place);
    return true;
}

bool liesInFrame(const RenderView& view, const HostContext& context, const Place& place)
{
    if (context.bitsPerPixel != formatAtInitialisation)
        tell(Mistake::bitsPerPixelChanged, place, "%d instead of %d", context.bitsPerPixel, formatAtInitialisation);
    const f64 pixels = sizesOf(context).framePixels;
    if (pixels == 0 || !isDrawable(view) || isEmpty(view)) return true;
    const DrawnRectangle drawn = truncatedRectangle(view);
    if (contains(pixels, extentOf(drawn, view.pitch))) return true;
    const bool wouldFit =
        view.pitch / 2 >= drawn.right - drawn.left && contains(pixels, extentOf(drawn, view.pitch / 2));
    tell(wouldFit ? Mistake::pitchInBytes : Mistake::rectangleOutsideFrame, place,
         "pitch %d, columns %d to %d, rows %d to %d, %.0f pixels", view.pitch, drawn.left, drawn.right, drawn.top,
         drawn.bottom, pixels);
    return false;
}

bool isNinetyDegrees(const RenderView& view)
{
    const ViewProjection& projection = *view.projection;
    const auto fits = [](f64 begin, f64 end, f64 centre, f64 scale) {
        const f64 slack = 1 + 0.01 * magnitude(end - begin);
        return areClose(centre - scale, begin, slack) && areClose(centre + scale, end, slack);
    };
    return fits(view.left, projection.right, projection.centreX, projection.scaleX)
           && fits(view.top, projection.bottom, projection.centreY, projection.scaleY);
}

} // namespace kardeno::checked
