// The tables of inner routines that fillers choose from. The choice is made once a polygon: no span asks what kind of
// map or of frame buffer it has.
#pragma once

#include "host/pixel_format.h"
#include "raster/span_gradients.h"

namespace kardeno {

// Of spans without a texture: a routine for each pixel format. Fillers that do not blend or pack have the same twice.
using PlainSpanRoutines = SpanRoutine[pixelFormatCount];

// Of spans with a texture: for a map of any size and for one of 256 x 256, in both pixel formats.
struct TexturedSpanRoutines {
    SpanRoutine anyMap[pixelFormatCount];
    SpanRoutine map256x256[pixelFormatCount];
    // What the spans' key is taken from. A reference: a table that forgets it does not compile.
    u32 (&keyOf)(const TextureMap& map);

    SpanRoutine choose(const TextureImage& image, PixelFormat format) const
    {
        return image.is256x256 ? map256x256[format] : anyMap[format];
    }
};

} // namespace kardeno
