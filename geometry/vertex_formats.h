// The six vertex formats. A format is the list of attributes that a polygon carries from emission through the clippers
// to its filler, beside its position. An attribute knows its array in ScreenPolygon and its value before and after
// projection.
//
// The two values are two routines on purpose: the products are formed in another order and round differently.
//   beforeProjection  the value that the camera-space clippers interpolate; afterwards project() divides it by depth
//   afterProjection   the value of a vertex whose projection came from the vertex cache
#pragma once

#include "geometry/screen_polygon.h"
#include "support/arithmetic.h"
#include "support/list.h"

namespace kardeno {

// What an attribute's value is made from.
struct CornerSource {
    const TexCoord* texCoord;  // null for formats without texture coordinates
    const TextureImage* image; // likewise
    const VertexShade* shade;
};

// Texture coordinates carry eight fractional bits and a bias of 0.3 texels.
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

// Untextured lit rows: the shade is interpolated with perspective.
struct ShadeOverDepth {
    static constexpr bool dividedByDepth = true;
    static constexpr auto values = &ScreenPolygon::intensity;
    static f64 beforeProjection(const CornerSource& corner) { return corner.shade->intensity * shadeScale; }
    static f64 afterProjection(const CornerSource& corner, f32 invDepth)
    {
        return static_cast<f64>(corner.shade->intensity) * invDepth * shadeScale;
    }
};

// Textured lit rows: the shade is linear on the screen, and is therefore clipped affinely too.
struct ShadeOnScreen {
    static constexpr bool dividedByDepth = false;
    static constexpr auto values = &ScreenPolygon::intensity;
    static f64 beforeProjection(const CornerSource& corner) { return corner.shade->intensity * shadeScale; }
    static f64 afterProjection(const CornerSource& corner, f32) { return beforeProjection(corner); }
};

// A colour channel, unscaled and linear on the screen.
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

struct PositionsOnly {
    using Attributes = List<>;
};
struct Coloured {
    using Attributes = List<Red, Green, Blue>;
};
struct ColouredTextured {
    using Attributes = List<TexU, TexV, Red, Green, Blue>;
};
struct Lit {
    using Attributes = List<ShadeOverDepth>;
};
struct LitTextured {
    using Attributes = List<TexU, TexV, ShadeOnScreen>;
};
struct Textured {
    using Attributes = List<TexU, TexV>;
};

template <class Format>
inline constexpr bool carriesTexture = Format::Attributes::template contains<TexU>();

} // namespace kardeno
