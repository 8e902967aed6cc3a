// What a list keeps of a polygon: the layouts of the six formats, the way back to a screen polygon, and the chain in
// which the polygons of a list lie.
#include "geometry/list_storing.h"
#include "scenes/random_numbers.h"
#include "tests/support/seeds.h"
#include "tests/support/test_host.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;
using scenes::RandomNumbers;

namespace {

// Room for a list of polygons of any size.
class StoredList {
public:
    StoredList() : block(64 * listRecordBytes, 0xa5)
    {
        for (PolygonList* list : {&resolvedPolygons, &sortedPolygons, &lateSortedPolygons}) {
            list->records = list->held = reinterpret_cast<StoredPolygon*>(block.data());
            list->capacity = list->heldCapacity = 64;
        }
        resetSideCounts({0, 0, 320, 200});
    }

    TestHost host;

private:
    std::vector<u8> block;
};

// A polygon whose corners have numbers that tell which they are: 100 for x of corner 0, 201 for y of corner 1, and on.
ScreenPolygon markedPolygon(i32 corners)
{
    ScreenPolygon polygon = {};
    polygon.vertexCount = corners;
    for (i32 i = 0; i < corners; ++i) {
        const f32 number = static_cast<f32>(i);
        polygon.screenX[i] = 100 + number;
        polygon.scanY[i] = 200 + i;
        polygon.invDepth[i] = 300 + number;
        polygon.texU[i] = 400 + number;
        polygon.texV[i] = 500 + number;
        polygon.intensity[i] = 600 + number;
        polygon.colourR[i] = 700 + number;
        polygon.colourG[i] = 800 + number;
        polygon.colourB[i] = 900 + number;
    }
    return polygon;
}

// The words of corner 1 of a triangle that is stored in a format; the row as a number like the others.
template <class Format>
std::vector<f32> storedWords()
{
    const StoredList lists;
    StoredPolygon& stored = *resolvedPolygons.held;
    storePolygon<Format, ResolvedPolygons>(markedPolygon(3), stored);
    const CornerLayout layout = cornerLayout<Format>;
    const u8* const corner = cornersOf(stored) + layout.bytes;
    std::vector<f32> words(layout.bytes / 4u);
    std::memcpy(words.data(), corner, layout.bytes);
    words[layout.placeAt / 4u + 1] = static_cast<f32>(placeOf(corner, layout).y);
    CHECK(u32{stored.format} == Format::id);
    CHECK(stored.cornerCount == 3);
    CHECK(cornerLayouts[Format::id].bytes == layout.bytes);
    CHECK(cornerLayouts[Format::id].placeAt == layout.placeAt);
    return words;
}

// Calls check.operator()<Format>() for all formats.
template <class Check>
void forEveryFormat(Check check)
{
    List<PositionsOnly, Coloured, ColouredTextured, Lit, LitTextured, Textured>::forEach(check);
}

// The bits of a number of any kind: ordinary, huge, tiny, infinite, no number. No arithmetic leaves a signalling one.
u32 anyBits(RandomNumbers& random)
{
    const u32 bits = random.next();
    return (bits & 0x7f800000) == 0x7f800000 ? bits | 0x00400000 : bits;
}

f32 anyNumber(RandomNumbers& random)
{
    f32 number;
    const u32 bits = anyBits(random);
    std::memcpy(&number, &bits, sizeof number);
    return random.chance(50) ? number : static_cast<f32>(random.real(-1000, 1000));
}

} // namespace

TEST_CASE("each vertex format lays its corners out in its own way, four numbers up to x in those that have values")
{
    using Words = std::vector<f32>;
    CHECK(storedWords<PositionsOnly>() == Words{101, 201});
    CHECK(storedWords<Textured>() == Words{301, 401, 501, 101, 201});
    CHECK(storedWords<Lit>() == Words{301, 601, 0, 101, 201});
    CHECK(storedWords<LitTextured>() == Words{301, 401, 501, 101, 201, 601});
    CHECK(storedWords<Coloured>() == Words{701, 801, 901, 101, 201});
    CHECK(storedWords<ColouredTextured>() == Words{301, 401, 501, 101, 201, 701, 801, 901});
}

TEST_CASE("a stored polygon takes its header and its corners, in whole headers' alignment")
{
    constexpr u32 header = sizeof(StoredPolygon);
    constexpr u32 alignment = alignof(StoredPolygon);
    CHECK(storedBytes(3, 8) == header + 24);
    CHECK(storedBytes(4, 20) == header + 80);
    CHECK(storedBytes(16, 32) == header + 512);
    CHECK(storedBytes(3, 20) == (alignment == 4 ? header + 60 : header + 64));
}

TEST_CASE("what is stored of a polygon comes back, and everything else is 0")
{
    forEachSeed(50, [](u32 seed) {
        forEveryFormat([seed]<class Format>() {
            RandomNumbers random(seed);
            const StoredList lists;
            ScreenPolygon polygon;
            for (size_t i = 0; i < sizeof polygon; i += 4) {
                const u32 bits = anyBits(random);
                std::memcpy(reinterpret_cast<u8*>(&polygon) + i, &bits, 4);
            }
            polygon.vertexCount = random.integer(3, 16);
            polygon.scanY[1] = polygon.scanY[0] + 1;
            SceneMaterial material;
            polygon.material = &material;
            StoredPolygon& stored = *sortedPolygons.held;
            storePolygon<Format, SortedPolygons>(polygon, stored);

            ScreenPolygon expected = {};
            expected.vertexCount = polygon.vertexCount;
            expected.material = &material;
            expected.faceColour = polygon.faceColour;
            expected.spanHead = -1;
            expected.maxDepth = polygon.maxDepth;
            expected.invDepthStepX = polygon.invDepthStepX;
            expected.invDepthStepY = polygon.invDepthStepY;
            expected.invDepthOrigin = polygon.invDepthOrigin;
            const size_t bytes = static_cast<size_t>(polygon.vertexCount) * 4;
            std::memcpy(expected.screenX, polygon.screenX, bytes);
            std::memcpy(expected.scanY, polygon.scanY, bytes);
            if (isInPerspective<Format>) std::memcpy(expected.invDepth, polygon.invDepth, bytes);
            Format::Attributes::forEach([&]<class Attribute>() {
                std::memcpy(expected.*Attribute::values, polygon.*Attribute::values, bytes);
            });
            ScreenPolygon expanded;
            expand(stored, expanded);
            CHECK(std::memcmp(&expanded, &expected, sizeof expected) == 0);
        });
    });
}

TEST_CASE("polygons of all formats and sizes lie one after another and are found from either end of the list")
{
    forEachSeed(20, [](u32 seed) {
        RandomNumbers random(seed);
        const StoredList lists;
        PolygonList& list = resolvedPolygons;
        std::vector<const StoredPolygon*> places;
        while (places.size() < 60) {
            ScreenPolygon polygon = markedPolygon(random.integer(3, 16));
            polygon.faceColour = static_cast<u16>(places.size());
            const u32 chosen = random.next() % formatCount;
            places.push_back(list.end());
            u32 number = 0;
            forEveryFormat([&]<class Format>() {
                if (number++ == chosen) storePolygon<Format, ResolvedPolygons>(polygon, *list.end());
            });
        }
        CHECK(list.count == 60);
        CHECK(list.storedCount == 60);

        const StoredPolygon* polygon = list.held;
        for (size_t i = 0; i < places.size(); ++i) {
            CHECK(polygon == places[i]);
            CHECK(polygon->faceColour == i);
            CHECK(&polygonAt(list, positionIn(list, *polygon)) == polygon);
            polygon = following(polygon);
        }
        CHECK(polygon == list.end());

        u32 bytesBefore = list.lastBytes;
        for (size_t i = places.size(); i-- > 0;) {
            polygon = reinterpret_cast<const StoredPolygon*>(reinterpret_cast<const u8*>(polygon) - bytesBefore);
            CHECK(polygon == places[i]);
            bytesBefore = polygon->bytesBefore;
        }
        CHECK(bytesBefore == 0);
    });
}

TEST_CASE("a polygon with all its corners on one row is counted in the resolved list and not stored there")
{
    const StoredList lists;
    ScreenPolygon polygon = markedPolygon(4);
    storePolygon<Textured, ResolvedPolygons>(polygon, *resolvedPolygons.end());
    CHECK(resolvedPolygons.lastIsStored);
    const StoredPolygon* const end = resolvedPolygons.end();
    for (i32& y : polygon.scanY) y = 7;
    storePolygon<Textured, ResolvedPolygons>(polygon, *resolvedPolygons.end());
    CHECK(resolvedPolygons.count == 2);
    CHECK(resolvedPolygons.storedCount == 1);
    CHECK(resolvedPolygons.end() == end);
    CHECK_FALSE(resolvedPolygons.lastIsStored);
    CHECK_FALSE(resolvedPolygons.lastSideMakesEdge);

    polygon.scanY[3] = 8; // one corner elsewhere is enough
    storePolygon<Textured, ResolvedPolygons>(polygon, *resolvedPolygons.end());
    CHECK(resolvedPolygons.storedCount == 2);
    CHECK(resolvedPolygons.lastIsStored);
}

TEST_CASE("a polygon with all its corners on one row is stored in the sorted lists, where its depth counts")
{
    const StoredList lists;
    ScreenPolygon polygon = markedPolygon(4);
    for (i32& y : polygon.scanY) y = 7;
    polygon.maxDepth = 70000;
    const auto check = [&]<class TargetList>() {
        resetPolygonLists();
        storePolygon<Textured, TargetList>(polygon, *TargetList::list().end());
        CHECK(TargetList::list().count == 1);
        CHECK(TargetList::list().storedCount == 1);
        CHECK(TargetList::list().held->maxDepth == 70000);
    };
    check.operator()<SortedPolygons>();
    check.operator()<LateSortedPolygons>();
}

TEST_CASE("a header says what the list and the format make of a polygon")
{
    const StoredList lists;
    ScreenPolygon polygon = markedPolygon(5);
    SceneMaterial material;
    polygon.material = &material;
    polygon.faceColour = 0xf81e;
    polygon.occludes = 77; // the list decides
    const auto check = [&]<class TargetList>() {
        resetPolygonLists();
        StoredPolygon& stored = *TargetList::list().end();
        storePolygon<Lit, TargetList>(polygon, stored);
        CHECK(stored.material == &material);
        CHECK(stored.faceColour == 0xf81e);
        CHECK(stored.cornerCount == 5);
        CHECK(u32{stored.format} == lit);
        CHECK(stored.state == unseenState);
        CHECK(stored.bytes == storedBytes(5, 20));
        CHECK((stored.occludes == 1) == TargetList::occludes);
    };
    check.operator()<ResolvedPolygons>();
    check.operator()<SortedPolygons>();
    check.operator()<LateSortedPolygons>();
}

TEST_CASE("numbers of every kind are stored bit by bit")
{
    forEachSeed(20, [](u32 seed) {
        RandomNumbers random(seed);
        const StoredList lists;
        ScreenPolygon polygon = markedPolygon(3);
        for (i32 i = 0; i < 3; ++i) {
            polygon.screenX[i] = anyNumber(random);
            polygon.texU[i] = anyNumber(random);
        }
        storePolygon<Textured, ResolvedPolygons>(polygon, *resolvedPolygons.held);
        ScreenPolygon expanded;
        expand(*resolvedPolygons.held, expanded);
        CHECK(std::memcmp(expanded.screenX, polygon.screenX, 12) == 0);
        CHECK(std::memcmp(expanded.texU, polygon.texU, 12) == 0);
    });
}
