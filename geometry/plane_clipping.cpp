#include "geometry/plane_clipping.h"

#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

namespace {

// The arrays of a polygon that a clipper of this plane and format reads and writes. It leaves all others alone.
template <class Plane, class Format>
struct ClippedArrays {
    template <class Visit>
    static void forEachInterpolated(Visit visit)
    {
        Plane::Carried::forEach(visit);
        Format::Attributes::forEach(visit);
    }

    template <class Visit>
    static void forEach(Visit visit)
    {
        visit.template operator()<typename Plane::Tested>();
        forEachInterpolated(visit);
    }

    static void copyVertex(ScreenPolygon& to, i32 toVertex, const ScreenPolygon& from, i32 fromVertex)
    {
        to.outcode[toVertex] = from.outcode[fromVertex];
        forEach([&]<class Values>() { (to.*Values::values)[toVertex] = (from.*Values::values)[fromVertex]; });
    }
};

} // namespace

template <class Plane, class Format>
void clip(const RenderView* view, ScreenPolygon* polygon)
{
    using Arrays = ClippedArrays<Plane, Format>;

    const i32 count = polygon->vertexCount;
    assert(count >= 0 && count <= maxCorners);
    ScreenPolygon input; // only the arrays named by Arrays are set and read
    for (i32 i = 0; i < count; ++i) Arrays::copyVertex(input, i, *polygon, i);

    const f32 bound = Plane::bound(*view);
    i32 made = 0;

    // The new vertex is computed from the outside vertex toward the inside one, whichever way the side runs. Two faces
    // that share the side are therefore cut at bit-identical points.
    const auto appendCut = [&](i32 outside, i32 inside) {
        const f32* tested = input.*Plane::Tested::values;
        const f32 distance = stored(static_cast<f64>(bound) - tested[outside]);
        const f32 inverse = stored(1.0 / (static_cast<f64>(tested[inside]) - tested[outside]));
        Arrays::forEachInterpolated([&]<class Values>() {
            const f64 from = (input.*Values::values)[outside];
            const f64 to = (input.*Values::values)[inside];
            (polygon->*Values::values)[made] = stored((to - from) * distance * inverse + from);
        });
        (polygon->*Plane::Tested::values)[made] = bound;
        polygon->outcode[made] = Plane::newOutcode(*view, *polygon, made, input.outcode[outside]);
        ++made;
    };

    for (i32 a = 0; a < count; ++a) {
        const i32 b = a + 1 < count ? a + 1 : 0;
        const bool aInside = input.outcode[a] & Plane::outcodeBit;
        const bool bInside = input.outcode[b] & Plane::outcodeBit;

        const i32 needed = (aInside != bInside ? 1 : 0) + (bInside ? 1 : 0);
        if (made + needed > maxCorners) {
            made = 0;
            break;
        }
        if (aInside != bInside) appendCut(bInside ? a : b, bInside ? b : a);
        if (bInside) Arrays::copyVertex(*polygon, made++, input, b);
    }
    assert(made <= maxCorners);
    polygon->vertexCount = made;
}

template <class Format>
constinit const ClipperFamily Clippers<Format>::family = {
    .nearPlane = clip<NearPlane, Format>,
    .farPlane = clip<FarPlane, Format>,
    .rightPlane = clip<RightPlane, Format>,
    .leftPlane = clip<LeftPlane, Format>,
    .bottomPlane = clip<BottomPlane, Format>,
    .topPlane = clip<TopPlane, Format>,
};

template struct Clippers<PositionsOnly>;
template struct Clippers<Coloured>;
template struct Clippers<ColouredTextured>;
template struct Clippers<Lit>;
template struct Clippers<LitTextured>;
template struct Clippers<Textured>;

} // namespace kardeno
