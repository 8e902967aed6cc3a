#include "raster/unlit_textures.h"

#include "raster/textured_spans.h"

namespace kardeno {

constinit const TexturedSpanRoutines textureCopy = copied<Rounding, TexelItself, Opaque>;
constinit const TexturedSpanRoutines palettisedCopy = copied<Truncating, FullyBright, Opaque>;
constinit const TexturedSpanRoutines colourKeyedCopy = copied<Rounding, TexelItself, ColourKeyed>;
constinit const TexturedSpanRoutines textureHalfBlend = blended<Rounding, TexelItself, Opaque, HalfBlend>;
constinit const TexturedSpanRoutines textureAdd = blended<Rounding, TexelItself, Opaque, SaturatingAdd>;
constinit const TexturedSpanRoutines wholeOutlineAdd = blended<Truncating, TexelItself, Opaque, SaturatingAdd>;

} // namespace kardeno
