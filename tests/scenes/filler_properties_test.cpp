// Properties of the span fillers: what they draw is looked up again, pixel by pixel, at the texel and the light level
// that two plain fillers find there.
#include "host/render_modes.h"
#include "scenes/random_scene.h"
#include "tests/support/seeds.h"
#include "tests/support/test_frame.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::scenes;
using kardeno::tests::checkOverAllSeeds;
using kardeno::tests::forEachSeed;
using kardeno::tests::TestFrame;

namespace {

constexpr i32 mapSize = 256;
constexpr i32 frameWidth = 120, frameHeight = 90;

enum class Blend { replace, half, add };
enum class Key { none, colour, index, zero };

struct TexturedRow {
    i32 row;
    const char* name;
    bool palettised, lit, rounds;
    Key key;
    Blend blend;
};

// Rows that draw a polygon's spans with texture coordinates alone or with a light level. `rounds`: on a 256 x 256 map
// the coordinates are rounded at the ends of blocks, while all others truncate them.
constexpr TexturedRow texturedRows[] = {
    {3, "texture copy", false, false, true, Key::none, Blend::replace},
    {4, "colour-keyed copy", false, false, true, Key::colour, Blend::replace},
    {6, "texture half blend", false, false, true, Key::none, Blend::half},
    {7, "texture add", false, false, true, Key::none, Blend::add},
    {10, "palettised copy", true, false, false, Key::none, Blend::replace},
    {12, "lit texture", true, true, true, Key::none, Blend::replace},
    {13, "colour-keyed lit texture", true, true, true, Key::index, Blend::replace},
    {15, "lit texture half blend", true, true, true, Key::none, Blend::half},
    {16, "colour-keyed lit half blend", true, true, false, Key::zero, Blend::half},
    {17, "lit texture add", true, true, false, Key::none, Blend::add},
};

u16 blended(Blend blend, i32 bitsPerPixel, u16 below, u16 colour)
{
    const bool is555 = bitsPerPixel == 15;
    const u32 mask = is555 ? 0x7bdf : 0xf7df;
    u32 sum = (colour & mask) + (below & mask);
    switch (blend) {
    case Blend::replace: return colour;
    case Blend::half: return static_cast<u16>(sum >> 1);
    case Blend::add: break;
    }
    if (sum & 0x20) sum |= 0x1f;
    if (sum & (is555 ? 0x400 : 0x800)) sum |= is555 ? 0x3e0 : 0x7e0;
    if (sum & (is555 ? 0x8000 : 0x10000)) sum |= is555 ? 0x7c00 : 0xf800;
    return static_cast<u16>(sum);
}

u16* trueColourTexels(Texture& texture)
{
    return reinterpret_cast<u16*>(&texture.image() + 1);
}

u8* palettisedTexels(Texture& texture)
{
    return reinterpret_cast<u8*>(&texture.image() + 1);
}

// One polygon that can be drawn with any row over the same random background.
class Swatch {
public:
    explicit Swatch(u32 seed)
        : random(seed), scene({.bitsPerPixel = seed % 2 ? 15 : 16, .right = frameWidth, .bottom = frameHeight}),
          places(scene.addTexture(16, mapSize, mapSize, noise)),
          trueColour(scene.addTexture(16, mapSize, mapSize, noise)),
          palettised(scene.addTexture(8, mapSize, mapSize, noise)), background(frameWidth, frameHeight)
    {
        for (u32 i = 0; i < mapSize * mapSize; ++i) {
            trueColourTexels(places)[i] = static_cast<u16>(i); // v x 256 + u
            trueColourTexels(trueColour)[i] = static_cast<u16>(random.next());
        }
        for (i32 i = 0; i < 2000; ++i) {
            const u32 place = random.next() % (mapSize * mapSize);
            trueColourTexels(trueColour)[place] = trueColour.map.transparentColour;
            palettisedTexels(palettised)[place] = i % 2 ? palettised.map.transparentIndex : 0;
        }
        for (i32 y = 0; y < frameHeight; ++y) {
            for (i32 x = 0; x < frameWidth; ++x) background.at(x, y) = static_cast<u16>(random.next());
        }
        addPolygon();
    }

    Material& materialOf(i32 row, Texture& sixteenBits)
    {
        return scene.addMaterial(surfaceOfRow(row, 1, sixteenBits, palettised));
    }

    // `map256x256`: with the addressing that is only for 256 x 256 maps, or with the one for all.
    TestFrame draw(Material& material, bool map256x256, bool overBackground = true)
    {
        for (Texture* texture : {&places, &trueColour, &palettised}) texture->image().is256x256 = map256x256;
        face->material = &material;
        TestFrame frame(frameWidth, frameHeight, 0xffff);
        if (overBackground) {
            for (i32 y = 0; y < frameHeight; ++y) {
                for (i32 x = 0; x < frameWidth; ++x) frame.at(x, y) = background.at(x, y);
            }
        }
        scene.draw(frame.pixels(), frame.pitch(), false);
        return frame;
    }

    RandomNumbers random;
    Scene scene;
    Texture& places; // a texel of this map says where it lies; none that the polygon shows is 0xffff
    Texture& trueColour;
    Texture& palettised;
    TestFrame background;

private:
    Face* face = nullptr;

    // Texture coordinates stay off the edges of the map, where the two ways of addressing wrap differently, and the
    // light level stays off both ends of its range, which a column outside the outline would leave.
    void addPolygon()
    {
        std::vector<Corner> corners;
        const f64 slopeX = random.real(-0.7, 0.7), slopeY = random.real(-0.7, 0.7);
        const f64 left = random.real(0.05, 0.4), right = random.real(0.5, 0.95);
        constexpr f64 outlineX[4] = {-1, -1, 1, 1}, outlineY[4] = {1, -1, -1, 1};
        for (i32 i = 0; i < 4; ++i) {
            const f64 x = outlineX[i] * random.real(1, 6), y = outlineY[i] * random.real(1, 5);
            VertexShade shade = {255, 128, 64, 0};
            shade.intensity = static_cast<f32>(random.real(20, 235));
            const i32 vertex = scene.addVertex({x, y, 8 + slopeX * x + slopeY * y}, shade);
            const f64 u = left + (right - left) * (x + 6) / 12, v = 0.1 + 0.8 * (y + 5) / 10;
            corners.push_back({vertex, static_cast<f32>(u), static_cast<f32>(v)});
        }
        face = &scene.addFace(scene.addObject(), scene.addMaterial({}), corners);
    }
};

// What a row should draw at a pixel, given the texel there.
struct Expectation {
    const TexturedRow& row;
    Swatch& swatch;
    const Material& material;

    u16 at(u16 below, u32 place, i32 level) const
    {
        const u16 texel = trueColourTexels(swatch.trueColour)[place];
        const u8 index = palettisedTexels(swatch.palettised)[place];
        if (row.key == Key::colour && texel == swatch.trueColour.map.transparentColour) return below;
        if (row.key == Key::index && index == swatch.palettised.map.transparentIndex) return below;
        if (row.key == Key::zero && index == 0) return below;
        u16 colour = texel;
        if (row.palettised) {
            const i32 entry = (row.lit ? level : 63) * 256 + index;
            colour = static_cast<u16>(material.renderPrivate->shadeRamp[entry] >> 16);
        }
        return blended(row.blend, swatch.scene.settings.bitsPerPixel, below, colour);
    }

    // The same with the texel itself or one of its eight neighbours.
    bool isNear(u16 pixel, u16 below, u32 place, i32 level) const
    {
        for (i32 dv = -1; dv <= 1; ++dv) {
            for (i32 du = -1; du <= 1; ++du) {
                const u32 neighbour = (place + static_cast<u32>(dv * mapSize + du)) % (mapSize * mapSize);
                if (at(below, neighbour, level) == pixel) return true;
            }
        }
        return false;
    }
};

} // namespace

TEST_CASE(
    "every textured filler looks the same texel up, and where its 256 x 256 way rounds, at most the texel beside it")
{
    i32 pixelsSeen = 0, roundedPixels = 0, roundedAway = 0;
    forEachSeed(60, [&](u32 seed) {
        Swatch swatch(seed);
        const TestFrame places = swatch.draw(swatch.materialOf(3, swatch.places), false, false);
        Material& levelMaterial = swatch.materialOf(12, swatch.trueColour);
        for (u32 i = 0; i < 64 * 256; ++i) levelMaterial.renderPrivate->shadeRamp[i] = i / 256 << 16;
        const TestFrame levels = swatch.draw(levelMaterial, false, false);

        for (const TexturedRow& row : texturedRows) {
            CAPTURE(row.name);
            Material& material = swatch.materialOf(row.row, swatch.trueColour);
            if (row.palettised) {
                for (u32 i = 0; i < 64 * 256; ++i) material.renderPrivate->shadeRamp[i] = swatch.random.next() << 16;
            }
            const TestFrame general = swatch.draw(material, false), square = swatch.draw(material, true);
            const Expectation expected = {row, swatch, material};
            i32 wrongInGeneral = 0, wrongInSquare = 0;
            for (i32 y = 0; y < frameHeight; ++y) {
                for (i32 x = 0; x < frameWidth; ++x) {
                    const u16 below = swatch.background.at(x, y);
                    const u32 place = places.at(x, y);
                    if (place == 0xffff) { // not covered
                        wrongInGeneral += general.at(x, y) != below;
                        wrongInSquare += square.at(x, y) != below;
                        continue;
                    }
                    const i32 level = levels.at(x, y);
                    const u16 exactly = expected.at(below, place, level);
                    wrongInGeneral += general.at(x, y) != exactly;
                    if (row.rounds) {
                        wrongInSquare += !expected.isNear(square.at(x, y), below, place, level);
                        roundedAway += square.at(x, y) != exactly;
                        ++roundedPixels;
                    } else {
                        wrongInSquare += square.at(x, y) != exactly;
                    }
                    ++pixelsSeen;
                }
            }
            CHECK(wrongInGeneral == 0);
            CHECK(wrongInSquare == 0);
            CHECK(general.fencesStand());
            CHECK(square.fencesStand());
        }
    });
    checkOverAllSeeds(pixelsSeen > 0);
    checkOverAllSeeds(roundedAway * 10 < roundedPixels); // a 256th of a texel seldom matters
}

TEST_CASE("the fillers of the whole outline and of scaled texels draw the same with either way of addressing")
{
    forEachSeed(60, [](u32 seed) {
        Swatch swatch(seed);
        const TestFrame untouched = swatch.background;
        for (const i32 row : {8, 19}) {
            CAPTURE(row);
            Material& material = swatch.materialOf(row, swatch.trueColour);
            const u32 general = swatch.draw(material, false).hash();
            CHECK(general == swatch.draw(material, true).hash());
            CHECK(general != untouched.hash());
        }
    });
}

TEST_CASE("render states 1 and 2 draw the same")
{
    forEachSeed(60, [](u32 seed) {
        u32 hashes[2];
        for (const i32 state : {1, 2}) {
            const auto scene = makeTangledScene(seed, {.bitsPerPixel = seed % 2 ? 15 : 16, .litState = state});
            TestFrame frame(scene->width(), scene->height());
            scene->draw(frame.pixels(), frame.pitch());
            hashes[state - 1] = frame.hash();
        }
        CHECK(hashes[0] == hashes[1]);
    });
}
