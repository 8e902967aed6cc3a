#include "geometry/stored_polygon.h"

#include <assert.h>
#include <string.h>

namespace kardeno {

namespace {

// Reads a corner back in the order in which storeCorner() writes one.
template <class Format>
void expandCorner(const u8* corner, ScreenPolygon& polygon, i32 i)
{
    const CornerLayout layout = cornerLayout<Format>;
    const CornerPlace& place = placeOf(corner, layout);
    polygon.screenX[i] = place.x;
    polygon.scanY[i] = place.y;

    const f32* leading = reinterpret_cast<const f32*>(corner);
    const f32* trailing = reinterpret_cast<const f32*>(&place + 1);
    if constexpr (isInPerspective<Format>) polygon.invDepth[i] = *leading++;
    Format::Attributes::forEach([&]<class Attribute>() {
        const bool trails = carriesTexture<Format> && !Attribute::dividedByDepth;
        (polygon.*Attribute::values)[i] = trails ? *trailing++ : *leading++;
    });
}

using CornerExpander = void (*)(const u8* corner, ScreenPolygon& polygon, i32 i);
constexpr CornerExpander cornerExpanders[formatCount] = {
    expandCorner<PositionsOnly>, expandCorner<Coloured>,    expandCorner<ColouredTextured>,
    expandCorner<Lit>,           expandCorner<LitTextured>, expandCorner<Textured>,
};

} // namespace

void expand(const StoredPolygon& stored, ScreenPolygon& polygon)
{
    memset(&polygon, 0, sizeof(polygon));
    polygon.vertexCount = stored.cornerCount;
    polygon.material = stored.material;
    polygon.faceColour = stored.faceColour;
    polygon.maxDepth = stored.maxDepth;
    polygon.invDepthStepX = stored.invDepthStepX;
    polygon.invDepthStepY = stored.invDepthStepY;
    polygon.invDepthOrigin = stored.invDepthOrigin;
    polygon.occludes = stored.occludes;
    polygon.spanHead = -1;

    const u8* corner = cornersOf(stored);
    for (i32 i = 0; i < polygon.vertexCount; ++i, corner += cornerLayouts[stored.format].bytes)
        cornerExpanders[stored.format](corner, polygon, i);
}

} // namespace kardeno
