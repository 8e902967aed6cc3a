// The six vertex formats. A format lists the attributes that a polygon carries besides its position, from emission
// through the clippers to its filler. An attribute knows its array in ScreenPolygon and computes its value at a corner
// in two ways:
//   beforeProjection  the value that the camera-space clippers interpolate; emission divides it by depth afterwards if
//                     dividedByDepth says so
//   afterProjection   the final value at a corner whose projection came from the vertex cache
// These are two routines because they form their products in different orders, which round differently.
#pragma once

#include "geometry/screen_polygon.h"
#include "support/arithmetic.h"
#include "support/list.h"

namespace kardeno {

// What the attributes of a corner are made from.
struct CornerSource {
    const TexCoord* texCoord;  // null for formats without texture coordinates
    const TextureImage* image; // likewise
    const VertexShade* shade;
};

// Texture coordinates are in 1/256 texel, with a bias of 0.3 texels. Intensities are scaled by 64, so that
// the value, shifted right by 8 bits, is the level in the shade ramp.
inline constexpr f64 texelBias = 0.3;
inline constexpr f64 texelScale = 256.0;
inline constexpr f64 shadeScale = 64.0;

template <f32 TexCoord::*coordinate, f32 TextureImage::*texels, f32 (ScreenPolygon::*array)[maxCorners]>
struct TextureAxis {
    static constexpr bool dividedByDepth = true;
    static constexpr auto values = array;
    static f64 beforeProjection(const CornerSource& corner)
    {
        return (static_cast<f64>(corner.texCoord->*coordinate) * corner.image->*texels + texelBias) * texelScale;
    }
    static f64 afterProjection(const CornerSource& corner, f32 invDepth)
    {
        return (static_cast<f64>(corner.texCoord->*coordinate) * corner.image->*texels + texelBias) * invDepth
               * texelScale;
    }
};
struct TexU : TextureAxis<&TexCoord::u, &TextureImage::width, &ScreenPolygon::texU> {};
struct TexV : TextureAxis<&TexCoord::v, &TextureImage::height, &ScreenPolygon::texV> {};

// The shade of lit polygons without a texture is interpolated with perspective correction.
struct ShadeOverDepth {
    static constexpr bool dividedByDepth = true;
    static constexpr auto values = &ScreenPolygon::intensity;
    static f64 beforeProjection(const CornerSource& corner) { return corner.shade->intensity * shadeScale; }
    static f64 afterProjection(const CornerSource& corner, f32 invDepth)
    {
        return static_cast<f64>(corner.shade->intensity) * invDepth * shadeScale;
    }
};

// The shade of lit, textured polygons is interpolated linearly on the screen, and so it is never divided by depth.
struct ShadeOnScreen {
    static constexpr bool dividedByDepth = false;
    static constexpr auto values = &ScreenPolygon::intensity;
    static f64 beforeProjection(const CornerSource& corner) { return corner.shade->intensity * shadeScale; }
    static f64 afterProjection(const CornerSource& corner, f32) { return beforeProjection(corner); }
};

// A colour channel is neither scaled nor divided by depth: it is interpolated linearly on the screen.
template <f32 VertexShade::*channel, f32 (ScreenPolygon::*array)[maxCorners]>
struct Channel {
    static constexpr bool dividedByDepth = false;
    static constexpr auto values = array;
    static f64 beforeProjection(const CornerSource& corner) { return corner.shade->*channel; }
    static f64 afterProjection(const CornerSource& corner, f32) { return corner.shade->*channel; }
};
struct Red : Channel<&VertexShade::red, &ScreenPolygon::colourR> {};
struct Green : Channel<&VertexShade::green, &ScreenPolygon::colourG> {};
struct Blue : Channel<&VertexShade::blue, &ScreenPolygon::colourB> {};

// A number for each format, in the order of their tables.
enum FormatId : u8 { positionsOnly, coloured, colouredTextured, lit, litTextured, textured, formatCount };

struct PositionsOnly {
    static constexpr FormatId id = positionsOnly;
    using Attributes = List<>;
};

struct Coloured {
    static constexpr FormatId id = coloured;
    using Attributes = List<Red, Green, Blue>;
};

struct ColouredTextured {
    static constexpr FormatId id = colouredTextured;
    using Attributes = List<TexU, TexV, Red, Green, Blue>;
};

struct Lit {
    static constexpr FormatId id = lit;
    using Attributes = List<ShadeOverDepth>;
};

struct LitTextured {
    static constexpr FormatId id = litTextured;
    using Attributes = List<TexU, TexV, ShadeOnScreen>;
};

struct Textured {
    static constexpr FormatId id = textured;
    using Attributes = List<TexU, TexV>;
};

template <class Format>
inline constexpr bool carriesTexture = Format::Attributes::template contains<TexU>();

// Whether some attribute is divided by depth. The inverse depth is then interpolated too, to recover the attribute.
template <class Format>
inline constexpr bool
    isInPerspective = carriesTexture<Format> || Format::Attributes::template contains<ShadeOverDepth>();

} // namespace kardeno
