// Two faces that share a side are cut at bit-identical points: by every clipper alone, and on the way through a frame.
#include "geometry/emission.h"
#include "geometry/polygon_lists.h"
#include "scenes/random_scene.h"
#include "tests/support/seeds.h"
#include "tests/support/test_view.h"

#include <array>
#include <cstring>

using namespace kardeno;
using namespace kardeno::scenes;
using kardeno::tests::checkOverAllSeeds;
using kardeno::tests::forEachSeed;
using kardeno::tests::TestView;

namespace {

// Visits every array that a clipper of the plane and the format reads and writes.
template <class Plane, class Format, class Visit>
void forEachClippedArray(Visit visit)
{
    visit.template operator()<typename Plane::Tested>();
    Plane::Carried::forEach(visit);
    Format::Attributes::forEach(visit);
}

// All that a clipper may carry of a vertex, bit for bit.
using VertexBits = std::array<u32, 13>;

template <class Plane, class Format>
VertexBits bitsOf(const ScreenPolygon& polygon, i32 vertex)
{
    VertexBits bits = {polygon.outcode[vertex]};
    u32 count = 1;
    forEachClippedArray<Plane, Format>(
        [&]<class Values>() { std::memcpy(&bits[count++], &(polygon.*Values::values)[vertex], sizeof(u32)); });
    return bits;
}

struct RandomVertex {
    u32 outcode;
    f32 values[12]; // in the order of ScreenPolygon's arrays
};

constexpr f32 (ScreenPolygon::*everyArray[12])[maxCorners] = {
    &ScreenPolygon::screenX,   &ScreenPolygon::screenY, &ScreenPolygon::invDepth, &ScreenPolygon::viewX,
    &ScreenPolygon::viewY,     &ScreenPolygon::viewZ,   &ScreenPolygon::texU,     &ScreenPolygon::texV,
    &ScreenPolygon::intensity, &ScreenPolygon::colourR, &ScreenPolygon::colourG,  &ScreenPolygon::colourB};

// A vertex on the wanted side of the plane: the tested coordinate lies there, everything else anywhere.
template <class Plane>
RandomVertex randomVertex(RandomNumbers& random, const RenderView& view, bool inside)
{
    RandomVertex vertex;
    for (f32& value : vertex.values) value = static_cast<f32>(random.real(-700, 700));
    constexpr bool innerSideIsAbove =
        Plane::outcodeBit == outcodeNear || Plane::outcodeBit == outcodeLeft || Plane::outcodeBit == outcodeTop;
    const f64 away = random.real(0.001, 500) * (inside == innerSideIsAbove ? 1 : -1);
    for (i32 i = 0; i < 12; ++i) {
        if (everyArray[i] == Plane::Tested::values) vertex.values[i] = static_cast<f32>(Plane::bound(view) + away);
    }
    vertex.outcode = random.next() & outcodeAll & ~u32{Plane::outcodeBit};
    if (inside) vertex.outcode |= Plane::outcodeBit;
    return vertex;
}

void setVertex(ScreenPolygon& polygon, i32 i, const RandomVertex& vertex)
{
    polygon.outcode[i] = vertex.outcode;
    for (i32 array = 0; array < 12; ++array) (polygon.*everyArray[array])[i] = vertex.values[array];
}

// A polygon whose first side runs from a to b; the others are its own.
template <class Plane>
ScreenPolygon polygonOn(RandomNumbers& random, const RenderView& view, const RandomVertex& a, const RandomVertex& b)
{
    ScreenPolygon polygon;
    std::memset(&polygon, 0, sizeof polygon);
    polygon.vertexCount = random.integer(3, 8);
    setVertex(polygon, 0, a);
    setVertex(polygon, 1, b);
    for (i32 i = 2; i < polygon.vertexCount; ++i) {
        const bool inside = random.oneIn(2);
        setVertex(polygon, i, randomVertex<Plane>(random, view, inside));
    }
    return polygon;
}

// The new vertex on the first side comes first in what a clipper leaves.
template <class Plane, class Format>
void checkSharedSide(RandomNumbers& random, const RenderView& view)
{
    const RandomVertex outside = randomVertex<Plane>(random, view, false);
    const RandomVertex inside = randomVertex<Plane>(random, view, true);
    ScreenPolygon one = polygonOn<Plane>(random, view, outside, inside);
    ScreenPolygon other = polygonOn<Plane>(random, view, inside, outside);
    clip<Plane, Format>(&view, &one);
    clip<Plane, Format>(&view, &other);
    CHECK(one.vertexCount >= 2);
    CHECK(other.vertexCount >= 2);
    CHECK((bitsOf<Plane, Format>(one, 0) == bitsOf<Plane, Format>(other, 0)));
    CHECK((one.*Plane::Tested::values)[0] == Plane::bound(view));
}

template <class Format>
void checkAllPlanes(RandomNumbers& random, const RenderView& view)
{
    checkSharedSide<NearPlane, Format>(random, view);
    checkSharedSide<FarPlane, Format>(random, view);
    checkSharedSide<RightPlane, Format>(random, view);
    checkSharedSide<LeftPlane, Format>(random, view);
    checkSharedSide<BottomPlane, Format>(random, view);
    checkSharedSide<TopPlane, Format>(random, view);
}

// The makers of the formats' screen polygons, which have all coordinates in full.
using Maker = bool (*)(HostContext&, const RenderView&, const SceneFace&, ScreenPolygon&);
constexpr Maker makers[formatCount] = {
    makePolygon<PositionsOnly, ResolvedPolygons>,    makePolygon<Coloured, ResolvedPolygons>,
    makePolygon<ColouredTextured, ResolvedPolygons>, makePolygon<Lit, ResolvedPolygons>,
    makePolygon<LitTextured, ResolvedPolygons>,      makePolygon<Textured, ResolvedPolygons>,
};

} // namespace

TEST_CASE("every clipper cuts a side that two polygons share at the same point, bit for bit")
{
    const TestView view(
        {.left = 7.5f, .top = 3.25f, .right = 317.75f, .bottom = 199.5f, .nearZ = 1.7f, .farZ = 333.3f});
    forEachSeed(300, [&](u32 seed) {
        RandomNumbers random(seed);
        checkAllPlanes<PositionsOnly>(random, view.record);
        checkAllPlanes<Coloured>(random, view.record);
        checkAllPlanes<ColouredTextured>(random, view.record);
        checkAllPlanes<Lit>(random, view.record);
        checkAllPlanes<LitTextured>(random, view.record);
        checkAllPlanes<Textured>(random, view.record);
    });
}

TEST_CASE("two triangles that share a side still share it after a frame has cut it at any planes")
{
    // The side runs through a point that is seen, and ends anywhere. The third corners lie where no plane cuts.
    i32 cutSides = 0;
    forEachSeed(400, [&](u32 seed) {
        RandomNumbers random(seed);
        Scene scene({.right = 160, .bottom = 120, .nearZ = 10, .farZ = 300, .zoom = 1});
        Texture& trueColour = scene.addTexture(16, 64, 64, noise);
        Texture& palettised = scene.addTexture(8, 64, 64, noise);
        constexpr i32 opaqueRowOfFormat[6] = {2, 18, 19, 11, 12, 3};
        Material& material = scene.addMaterial(surfaceOfRow(opaqueRowOfFormat[seed % 6], 1, trueColour, palettised));
        const auto vertex = [&](const Vector& place) {
            const VertexShade shade = {static_cast<f32>(place.x), static_cast<f32>(place.y), 9, 100};
            return scene.addVertex(place, shade);
        };

        const f64 z = random.real(20, 290);
        const Vector seen = {random.real(-0.9, 0.9) * z, random.real(-0.7, 0.7) * z, z};
        const Vector along = {random.real(-1, 1), random.real(-1, 1), random.real(-1, 1)};
        const i32 a = vertex(seen + random.real(1, 400) * along);
        const i32 b = vertex(seen + random.real(-400, -1) * along);
        const std::vector<Corner> one = {{a, 0.1f, 0.9f}, {b, 0.8f, 0.2f}, {vertex({-3, 2, 20})}};
        const std::vector<Corner> other = {{b, 0.8f, 0.2f}, {a, 0.1f, 0.9f}, {vertex({5, -4, 30})}};
        if (!scene.isOffTheEye(one) || !scene.isOffTheEye(other)) return;
        Object& object = scene.addObject();
        scene.addFace(object, material, one);
        scene.addFace(object, material, other);
        std::vector<u16> pixels(160 * 120);
        scene.draw(pixels.data(), 160);

        // Both ends of what is seen of the side are corners of both outlines.
        REQUIRE(resolvedPolygons.count == 2);
        ScreenPolygon outlines[2];
        for (size_t i = 0; i < 2; ++i)
            REQUIRE(makers[resolvedPolygons.held->format](*hostContext, scene.view, scene.faces[i], outlines[i]));
        i32 shared = 0;
        for (i32 i = 0; i < outlines[0].vertexCount; ++i) {
            for (i32 j = 0; j < outlines[1].vertexCount; ++j) {
                shared += outlines[0].screenX[i] == outlines[1].screenX[j]
                          && outlines[0].screenY[i] == outlines[1].screenY[j]
                          && outlines[0].invDepth[i] == outlines[1].invDepth[j];
            }
        }
        CHECK(shared == 2);
        cutSides += outlines[0].vertexCount > 3;
    });
    checkOverAllSeeds(cutSides > 200);
}
