// A stored polygon is what a list keeps of a screen polygon until the frame is drawn: a header and the corners that are
// left after clipping, each with only what the vertex format carries. A stored triangle takes some 90 bytes where the
// screen polygon has 1,024, and all that is read of it lies on neighbouring cache lines.
//
// The header is followed by the corners, which have one of these layouts:
//
//   PositionsOnly        x, y
//   Textured             invDepth, texU, texV, x, y
//   Lit                  invDepth, intensity, -, x, y
//   LitTextured          invDepth, texU, texV, x, y, intensity
//   Coloured             red, green, blue, x, y
//   ColouredTextured     invDepth, texU, texV, x, y, red, green, blue
//
// The four numbers from the first value to x fill one vector. All are f32 but y, which is the truncated i32.
#pragma once

#include "geometry/vertex_formats.h"

namespace kardeno {

// The state of polygons that never show: those of the list that is not resolved, and all before the frame is resolved.
inline constexpr u32 unseenState = 0;

struct StoredPolygon {
    SceneMaterial* material; // borrowed from the host
    u16 bytes;               // from this header to the next one in the list
    u16 bytesBefore;         // from the previous header in the list to this one
    u16 faceColour;
    u8 cornerCount;
    u8 format : 7; // a FormatId
    u8 occludes : 1;
    u32 state; // where the scanline resolver keeps its notes about the polygon
    f32 invDepthStepX;
    f32 invDepthStepY;
    f32 invDepthOrigin;
    i32 maxDepth; // set in sorted lists only
};
KARDENO_SIZE(StoredPolygon, 32, 40);

// Where a corner lies on the screen, as the edge table reads it: the column and the truncated row.
struct CornerPlace {
    f32 x;
    i32 y;
};

// How the corners of a format are laid out.
struct CornerLayout {
    u8 bytes;   // of a corner
    u8 placeAt; // offset of the CornerPlace in it
};

template <class Format>
inline constexpr bool hasValues = Format::Attributes::size > 0;

// The first three f32 of a corner. In a format without perspective they are the colours.
template <class Format>
inline constexpr u32 leadingValues = hasValues<Format> ? 3 : 0;

// The f32 that follow y.
template <class Format>
inline constexpr u32 trailingValues = carriesTexture<Format> ? u32{Format::Attributes::size} - 2 : 0;

template <class Format>
inline constexpr CornerLayout cornerLayout = {
    .bytes = static_cast<u8>((leadingValues<Format> + trailingValues<Format>)*sizeof(f32) + sizeof(CornerPlace)),
    .placeAt = static_cast<u8>(leadingValues<Format> * sizeof(f32)),
};

inline constexpr CornerLayout cornerLayouts[formatCount] = {
    cornerLayout<PositionsOnly>, cornerLayout<Coloured>,    cornerLayout<ColouredTextured>,
    cornerLayout<Lit>,           cornerLayout<LitTextured>, cornerLayout<Textured>,
};

inline u8* cornersOf(StoredPolygon& polygon)
{
    return reinterpret_cast<u8*>(&polygon + 1);
}

inline const u8* cornersOf(const StoredPolygon& polygon)
{
    return reinterpret_cast<const u8*>(&polygon + 1);
}

inline const CornerPlace& placeOf(const u8* corner, CornerLayout layout)
{
    return *reinterpret_cast<const CornerPlace*>(corner + layout.placeAt);
}

inline constexpr u32 storedBytes(u32 cornerCount, u32 cornerBytes)
{
    const u32 bytes = u32{sizeof(StoredPolygon)} + cornerCount * cornerBytes;
    return (bytes + (alignof(StoredPolygon) - 1)) & ~u32{alignof(StoredPolygon) - 1};
}

inline const StoredPolygon* following(const StoredPolygon* polygon)
{
    return reinterpret_cast<const StoredPolygon*>(reinterpret_cast<const u8*>(polygon) + polygon->bytes);
}
inline StoredPolygon* following(StoredPolygon* polygon)
{
    return reinterpret_cast<StoredPolygon*>(reinterpret_cast<u8*>(polygon) + polygon->bytes);
}

// Writes a corner's place and attributes in the layout of its format. value.template operator()<Attribute>() returns
// the f32 of an attribute.
template <class Format, class Value>
inline void storeCorner(u8* corner, CornerPlace place, f32 invDepth, Value value)
{
    *reinterpret_cast<CornerPlace*>(corner + cornerLayout<Format>.placeAt) = place;
    if constexpr (!hasValues<Format>) return;
    f32* leading = reinterpret_cast<f32*>(corner);
    if constexpr (isInPerspective<Format>) *leading++ = invDepth;
    f32* trailing = reinterpret_cast<f32*>(corner + cornerLayout<Format>.placeAt + sizeof(CornerPlace));
    Format::Attributes::forEach([&]<class Attribute>() {
        const f32 stored = value.template operator()<Attribute>();
        if (carriesTexture<Format> && !Attribute::dividedByDepth)
            *trailing++ = stored;
        else
            *leading++ = stored;
    });
    if constexpr (leadingValues<Format> != 0 && isInPerspective<Format> && !carriesTexture<Format>) *leading = 0.0f;
}

// Sets those fields of a screen polygon that fillers read, and 0 in all others: attributes that the polygon was stored
// without become 0, and it has no spans.
void expand(const StoredPolygon& stored, ScreenPolygon& polygon);

} // namespace kardeno
