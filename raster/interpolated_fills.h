// The fillers of polygons that interpolate something along their spans. A filler is a vertex format and a table of
// inner routines; what it interpolates follows from the format.
#pragma once

#include "geometry/screen_polygon.h"
#include "host/host_context.h"
#include "raster/span_routines.h"

namespace kardeno {

// Draws all visible spans of a polygon with the routine that the table has for its map and the pixel format. Compiled
// for the vertex formats that carry texture coordinates.
template <class Format>
void fillTexturedSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, const TexturedSpanRoutines& routines,
                       PixelFormat pixelFormat);

// Draws the polygon's whole outline, visible or not: it never looks at the span list. Rows whose right column is not
// beyond the left one draw nothing, so that only one winding shows. Cut to the drawn rectangle.
template <class Format>
void fillTexturedOutline(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch,
                         const TexturedSpanRoutines& routines, PixelFormat pixelFormat);

// Draws all visible spans of a polygon without a texture. Compiled for the vertex formats that carry a shade or colours
// alone.
template <class Format>
void fillPlainSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, SpanRoutine routine);

// The fillers as the render-mode table takes them: fill<Format> draws polygons of that vertex format.

template <const TexturedSpanRoutines& routines>
struct TexturedSpans {
    template <class Format>
    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
    {
        fillTexturedSpans<Format>(*polygon, frameBuffer, pitch, routines, fillerFormat(*hostContext));
    }
};

template <const TexturedSpanRoutines& routines>
struct TexturedOutline {
    template <class Format>
    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
    {
        fillTexturedOutline<Format>(*polygon, frameBuffer, pitch, routines, fillerFormat(*hostContext));
    }
};

template <const PlainSpanRoutines& routines>
struct PlainSpans {
    template <class Format>
    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
    {
        fillPlainSpans<Format>(*polygon, frameBuffer, pitch, routines[fillerFormat(*hostContext)]);
    }
};

} // namespace kardeno
