// The fillers that interpolate values along their spans. A filler is made of a vertex format, from which it follows
// what is interpolated, and of a table of inner routines, which draw one span each.
#pragma once

#include "geometry/screen_polygon.h"
#include "host/host_context.h"
#include "raster/run_fills.h"

namespace kardeno {

// Draws all visible spans of a textured polygon with the routine that the table has for its map and the pixel format.
// The routine is compiled for the vertex formats that carry texture coordinates.
template <class Format>
void fillTexturedSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, const TexturedSpanRoutines& routines,
                       PixelFormat pixelFormat);

// Draws a textured polygon as a whole, cut to the drawn rectangle, whether it is visible or not; its span list is not
// looked at. Rows whose right end is not beyond the left one draw nothing, so only one winding is seen.
template <class Format>
void fillTexturedOutline(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch,
                         const TexturedSpanRoutines& routines, PixelFormat pixelFormat);

// Draws all visible spans of a polygon without a texture. The routine is compiled for the vertex formats that carry
// only a shade or only colours.
template <class Format>
void fillPlainSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, SpanRoutine routine);

// The fillers in the shape that the render-mode table takes: fill<Format> draws a polygon of that vertex format, and
// fillRun<Format> all polygons up to the next material. ShortRuns, if there are any for the filler, draw the same
// pixels as the inner routines for maps of 256 x 256.

template <const TexturedSpanRoutines& routines, class ShortRuns = NoShortRuns>
struct TexturedSpans {
    template <class Format>
    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
    {
        fillTexturedSpans<Format>(*polygon, frameBuffer, pitch, routines, fillerFormat(*hostContext));
    }
    template <class Format>
    static void fillRun(PolygonRun& run, const FillTarget& target)
    {
        fillTexturedRun<Format, ShortRuns>(run, target, routines);
    }
};

template <const TexturedSpanRoutines& routines>
struct TexturedOutline {
    template <class Format>
    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
    {
        fillTexturedOutline<Format>(*polygon, frameBuffer, pitch, routines, fillerFormat(*hostContext));
    }
    template <class>
    static constexpr RunFiller fillRun = nullptr;
};

template <const PlainSpanRoutines& routines, class ShortRuns = NoShortRuns>
struct PlainSpans {
    template <class Format>
    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
    {
        fillPlainSpans<Format>(*polygon, frameBuffer, pitch, routines[fillerFormat(*hostContext)]);
    }
    template <class Format>
    static void fillRun(PolygonRun& run, const FillTarget& target)
    {
        fillPlainRun<Format, ShortRuns>(run, target, routines);
    }
};

} // namespace kardeno
