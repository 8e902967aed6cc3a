// Texel addressing: how 8.8 coordinates become an index into an image's texels.
#pragma once

#include "kardeno_soft/host_records.h"
#include "raster/perspective_subdivision.h"

namespace kardeno {

// Any width and height that are powers of two. The combined index wraps, not each coordinate: past the right edge comes
// the next row.
struct AnyMap {
    using Coordinates = SubdividedTexture<Truncating>;

    u32 rowShift;
    u32 indexMask;
    explicit AnyMap(const TextureImage& image) : rowShift(image.rowShift), indexMask(image.indexMask) {}
    u32 indexOf(i32 u, i32 v) const
    {
        return static_cast<u32>(wrappingSum(wrappingShiftLeft(v >> 8, rowShift), u >> 8)) & indexMask;
    }
};

// A 256 x 256 map: each coordinate wraps by itself.
template <class Conversion>
struct Map256x256 {
    using Coordinates = SubdividedTexture<Conversion>;

    explicit Map256x256(const TextureImage&) {}
    u32 indexOf(i32 u, i32 v) const { return static_cast<u32>(v & 0xff00) | (static_cast<u32>(u >> 8) & 0xff); }
};

// Texels of either width, behind the image's record.
template <class Texel>
const Texel* texelsOf(const TextureImage& image)
{
    return reinterpret_cast<const Texel*>(&image + 1);
}

} // namespace kardeno
