// Texel addressing: how texture coordinates in 8.8 fixed point become the index of a texel.
#pragma once

#include "kardeno_soft/host_records.h"
#include "raster/perspective_subdivision.h"

namespace kardeno {

// A map whose width and height are any powers of two. The index wraps as a whole, not each coordinate by itself: past
// the right side of a row of texels comes the next row.
struct AnyMap {
    using Conversion = Truncating;
    using Coordinates = SubdividedTexture<Conversion>;

    u32 rowShift;
    u32 indexMask;
    explicit AnyMap(const TextureImage& image) : rowShift(image.rowShift), indexMask(image.indexMask) {}
    u32 indexOf(i32 u, i32 v) const
    {
        return static_cast<u32>(wrappingSum(wrappingShiftLeft(v >> 8, rowShift), u >> 8)) & indexMask;
    }
};

// A map of 256 x 256 texels. Each coordinate wraps by itself.
template <class Conversion_>
struct Map256x256 {
    using Conversion = Conversion_;
    using Coordinates = SubdividedTexture<Conversion>;

    explicit Map256x256(const TextureImage&) {}
    u32 indexOf(i32 u, i32 v) const { return static_cast<u32>(v & 0xff00) | (static_cast<u32>(u >> 8) & 0xff); }
};

// The texels of an image, which follow its record.
template <class Texel>
const Texel* texelsOf(const TextureImage& image)
{
    return reinterpret_cast<const Texel*>(&image + 1);
}

} // namespace kardeno
