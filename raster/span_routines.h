// The tables of inner routines from which fillers choose. The choice is made once per polygon, so that no span has to
// ask what kind of texture map or frame buffer it has.
#pragma once

#include "host/pixel_format.h"
#include "raster/span_gradients.h"

namespace kardeno {

// The routines for spans without a texture, one for each pixel format. A filler that neither blends nor packs has the
// same routine twice.
using PlainSpanRoutines = SpanRoutine[pixelFormatCount];

// The routines for textured spans: for a map of any size and for one of 256 x 256, in both pixel formats.
struct TexturedSpanRoutines {
    SpanRoutine anyMap[pixelFormatCount];
    SpanRoutine map256x256[pixelFormatCount];
    // Returns the key of the spans from the material's map. It is a reference so that a table without it does not
    // compile.
    u32 (&keyOf)(const TextureMap& map);

    SpanRoutine choose(const TextureImage& image, PixelFormat format) const
    {
        return image.is256x256 ? map256x256[format] : anyMap[format];
    }
};

} // namespace kardeno
