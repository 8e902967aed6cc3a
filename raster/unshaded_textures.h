// The fillers of unlit textured rows: the texture at its own colours, perspective-correct.
#pragma once

#include "raster/textured_spans.h"

namespace kardeno {

inline constexpr SpanRoutines textureCopy = copied<Rounding, TexelItself, Opaque>;
inline constexpr SpanRoutines palettisedCopy = copied<Truncating, FullyBright, Opaque>;
inline constexpr SpanRoutines colourKeyedCopy = copied<Rounding, TexelItself, KeyedOut>;
inline constexpr SpanRoutines textureHalfBlend = blended<Rounding, TexelItself, Opaque, HalfBlend>;
inline constexpr SpanRoutines textureAdd = blended<Rounding, TexelItself, Opaque, SaturatingAdd>;
inline constexpr SpanRoutines wholeOutlineAdd = blended<Truncating, TexelItself, Opaque, SaturatingAdd>;

// Adds the texture over the polygon's whole outline, visible or not: it never looks at the span list. Rows whose right
// column is not beyond the left one draw nothing, so that only one winding shows. Cut to the drawn rectangle.
void fillWholeOutlineAdd(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

} // namespace kardeno
