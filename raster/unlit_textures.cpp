#include "raster/unlit_textures.h"

#include "raster/packed_spans.h"

namespace kardeno {

constinit const TexturedSpanRoutines plainTextureCopy = copied<Rounding, TexelItself, Opaque>;
constinit const TexturedSpanRoutines plainPalettisedCopy = copied<Truncating, FullyBright, Opaque>;
constinit const TexturedSpanRoutines plainColourKeyedCopy = copied<Rounding, TexelItself, ColourKeyed>;
constinit const TexturedSpanRoutines plainTextureHalfBlend = blended<Rounding, TexelItself, Opaque, HalfBlend>;
constinit const TexturedSpanRoutines plainTextureAdd = blended<Rounding, TexelItself, Opaque, SaturatingAdd>;
constinit const TexturedSpanRoutines plainWholeOutlineAdd = blended<Truncating, TexelItself, Opaque, SaturatingAdd>;

constinit const TexturedSpanRoutines textureCopy = packedCopied<Rounding, TexelItself, Opaque>;
constinit const TexturedSpanRoutines palettisedCopy = packedCopied<Truncating, FullyBright, Opaque>;
constinit const TexturedSpanRoutines colourKeyedCopy = packedCopied<Rounding, TexelItself, ColourKeyed>;
constinit const TexturedSpanRoutines textureHalfBlend = packedBlended<Rounding, TexelItself, Opaque, HalfBlend>;
constinit const TexturedSpanRoutines textureAdd = packedBlended<Rounding, TexelItself, Opaque, SaturatingAdd>;
constinit const TexturedSpanRoutines wholeOutlineAdd = packedBlended<Truncating, TexelItself, Opaque, SaturatingAdd>;

} // namespace kardeno
