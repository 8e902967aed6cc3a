// What the ten emission routines that are no billboards put into a record, on both of their paths.
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

#include <bit>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Screen x = 8 X / Z + 16, screen y = 16 - 4 Y / Z.
const TestView::Settings scaled = {.centreX = 16, .centreY = 16, .scaleX = 8, .scaleY = 4};

void leaveAlone(const RenderView*, ScreenPolygon*) {}

// Three corners at depths 2, 4 and 8. On the camera path the first is said to lie before the near plane, and the near
// clipper is one that leaves the outline as it is: the attributes arrive as the routine made them.
struct Emitted {
    OneFace one{scaled};
    ScreenPolygon* record = nullptr;

    template <class Format, class TargetList>
    void emit(bool throughCameraSpace)
    {
        one.corner({2, 4, 2}, throughCameraSpace ? outcodeAll & ~u32{outcodeNear} : u32{outcodeAll}, {0.5f, 0.25f},
                   {1, 2, 3, 100});
        one.corner({4, 2, 4}, outcodeAll, {0, 1}, {4, 5, 6, 60});
        one.corner({16, -4, 8}, outcodeAll, {1, 0}, {7, 8, 9, 40});
        one.mode.clip = clippers<Format>;
        one.mode.clip.nearPlane = leaveAlone;
        record = one.emittedWithOwnClippers<Format, TargetList>();
    }
};

// Calls check(record) for both lists and both paths.
template <class Format, class Check>
void onEveryWay(Check check)
{
    for (const bool throughCameraSpace : {false, true}) {
        CAPTURE(throughCameraSpace);
        {
            Emitted resolved;
            resolved.emit<Format, ResolvedPolygons>(throughCameraSpace);
            REQUIRE(resolved.record != nullptr);
            CHECK(resolved.record->occludes == 1);
            check(*resolved.record);
        }
        {
            Emitted sorted;
            sorted.emit<Format, SortedPolygons>(throughCameraSpace);
            REQUIRE(sorted.record != nullptr);
            CHECK(sorted.record->occludes == 0);
            CHECK(sorted.record->maxDepth == 8);
            check(*sorted.record);
        }
    }
}

void checkPosition(const ScreenPolygon& record)
{
    CHECK(record.vertexCount == 3);
    CHECK(valuesOf(record, record.invDepth) == Values{0.5f, 0.25f, 0.125f});
    CHECK(valuesOf(record, record.screenX) == Values{24, 24, 32}); // 8 x 2 / 2 + 16 and so on
    CHECK(valuesOf(record, record.screenY) == Values{8, 14, 18});  // 16 - 4 x 4 / 2 and so on
    CHECK(valuesOf(record, record.viewZ) == Values{2, 4, 8});
    CHECK(record.scanY[0] == 8);
    CHECK(record.scanY[2] == 18);
}

// (u x 64 + 0.3) x 256 / Z and (v x 32 + 0.3) x 256 / Z: 32.3 x 128, 0.3 x 64, 64.3 x 32; 8.3 x 128, 32.3 x 64, 0.3 x
// 32.
void checkTexture(const ScreenPolygon& record)
{
    CHECK(valuesOf(record, record.texU) == Values{4134.4f, 19.2f, 2057.6f});
    CHECK(valuesOf(record, record.texV) == Values{1062.4f, 2067.2f, 9.6f});
}

void checkColours(const ScreenPolygon& record)
{
    CHECK(valuesOf(record, record.colourR) == Values{1, 4, 7});
    CHECK(valuesOf(record, record.colourG) == Values{2, 5, 8});
    CHECK(valuesOf(record, record.colourB) == Values{3, 6, 9});
}

u32 bitsOf(f32 value)
{
    return std::bit_cast<u32>(value);
}

} // namespace

TEST_CASE("positions only: projected corners and their depths")
{
    onEveryWay<PositionsOnly>(checkPosition);
}

TEST_CASE("coloured: the three channels as they are")
{
    onEveryWay<Coloured>([](const ScreenPolygon& record) {
        checkPosition(record);
        checkColours(record);
    });
}

TEST_CASE("coloured and textured: texture coordinates over depth, channels as they are")
{
    onEveryWay<ColouredTextured>([](const ScreenPolygon& record) {
        checkPosition(record);
        checkTexture(record);
        checkColours(record);
    });
}

TEST_CASE("lit: 64 times the intensity, over depth")
{
    onEveryWay<Lit>([](const ScreenPolygon& record) {
        checkPosition(record);
        CHECK(valuesOf(record, record.intensity) == Values{3200, 960, 320});
    });
}

TEST_CASE("lit and textured: texture coordinates over depth, 64 times the intensity not divided")
{
    onEveryWay<LitTextured>([](const ScreenPolygon& record) {
        checkPosition(record);
        checkTexture(record);
        CHECK(valuesOf(record, record.intensity) == Values{6400, 3840, 2560});
    });
}

TEST_CASE("textured: texture coordinates over depth")
{
    onEveryWay<Textured>([](const ScreenPolygon& record) {
        checkPosition(record);
        checkTexture(record);
    });
}

TEST_CASE("untextured formats read neither texture coordinates nor a texture map")
{
    OneFace one;
    one.triangle();
    one.face.texCoords = nullptr;
    one.material.textureMap = nullptr;
    CHECK(one.emitted<PositionsOnly, ResolvedPolygons>() != nullptr);
    CHECK(one.emitted<Lit, SortedPolygons>() != nullptr);
    CHECK(one.emitted<Coloured, ResolvedPolygons>() != nullptr);
}

TEST_CASE("1/Z is rounded first, and screen x and y are formed from the rounded value")
{
    for (const bool throughCameraSpace : {false, true}) {
        CAPTURE(throughCameraSpace);
        OneFace one;
        const u32 outcode = throughCameraSpace ? outcodeAll & ~u32{outcodeFar} : u32{outcodeAll};
        one.corner({5, -5, 3}, outcode);
        one.corner({0, -5, 1});
        one.corner({0, 0, 1});
        one.mode.clip.farPlane = leaveAlone;
        const ScreenPolygon* record = one.emittedWithOwnClippers<PositionsOnly, ResolvedPolygons>();
        REQUIRE(record != nullptr);
        CHECK(bitsOf(record->invDepth[0]) == 0x3eaaaaab); // 11,184,811 x 2^-25
        // Five times that is 13,981,013.75 x 2^-23, which rounds up. 5/3 itself would be stored as ...d5555.
        CHECK(bitsOf(record->screenX[0]) == 0x3fd55556);
        CHECK(bitsOf(record->screenY[0]) == 0x3fd55556);
    }
}

TEST_CASE("a cached corner's texture coordinate is rounded once, one that went through camera space twice")
{
    // u 0 at depth 3: 0.3 texels. Once: 0.3 x 256 / 3 is 13,421,773.2 x 2^-19. Twice: 76.8 is stored as
    // 10,066,330 x 2^-17, which is a little more, and a third of that is 13,421,773.7 x 2^-19.
    for (const bool throughCameraSpace : {false, true}) {
        CAPTURE(throughCameraSpace);
        OneFace one;
        const u32 outcode = throughCameraSpace ? outcodeAll & ~u32{outcodeNear} : u32{outcodeAll};
        for (i32 i = 0; i < 3; ++i) one.corner({1, -1, 3}, outcode | (i ? u32{outcodeNear} : 0));
        one.mode.clip.nearPlane = leaveAlone;
        const ScreenPolygon* record = one.emittedWithOwnClippers<Textured, ResolvedPolygons>();
        REQUIRE(record != nullptr);
        CHECK(bitsOf(record->texU[0]) == (throughCameraSpace ? 0x41ccccce : 0x41cccccd));
        CHECK(bitsOf(record->texV[0]) == (throughCameraSpace ? 0x41ccccce : 0x41cccccd));
    }
}

TEST_CASE("corners of one face that share a vertex have texture coordinates of their own, and share its light")
{
    OneFace one;
    one.screenCorner(10, 10, {0, 0});
    one.screenCorner(10, 20, {0.5f, 0.5f});
    one.screenCorner(20, 20, {1, 1});
    const i32 shared[] = {1, 1, 2};
    one.host.shades[1].intensity = 10;
    one.face.vertexIndices = shared;
    const ScreenPolygon* record = one.emitted<LitTextured, ResolvedPolygons>();
    REQUIRE(record != nullptr);
    CHECK(valuesOf(*record, record->texU) == Values{76.8f, 8268.8f, 16460.8f});
    CHECK(valuesOf(*record, record->intensity) == Values{640, 640, 0});
}
