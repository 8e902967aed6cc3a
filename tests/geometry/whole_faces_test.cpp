// The short way of a face that no plane cuts, against the long one: both must leave the same bytes in the list.
#include "geometry/emission.h"
#include "scenes/random_numbers.h"
#include "tests/geometry/one_face.h"
#include "tests/support/seeds.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;
using scenes::RandomNumbers;

namespace {

// Numbers of a scene, and now and then one that no scene has.
f32 coordinate(RandomNumbers& random, bool extreme)
{
    constexpr f32 infinite = std::numeric_limits<f32>::infinity();
    constexpr f32 unusual[] = {0,
                               -0.0f,
                               1e-38f,
                               -1e-38f,
                               3e38f,
                               -3e38f,
                               2147483648.0f,
                               -2147483648.0f,
                               1e10f,
                               -1e10f,
                               infinite,
                               -infinite,
                               std::numeric_limits<f32>::quiet_NaN()};
    return extreme ? random.oneOf(unusual) : static_cast<f32>(random.real(-200, 200));
}

void giveCorners(OneFace& one, RandomNumbers& random)
{
    const i32 percent = random.oneOf({0, 0, 5, 50});
    const auto number = [&] { return coordinate(random, random.chance(percent)); };
    const bool oneRow = random.chance(20);
    const f32 row = number();
    for (i32 count = random.chance(40) ? 3 : random.integer(3, 16); count > 0; --count) {
        const f32 x = number(), y = oneRow ? row : number();
        const f32 z = random.chance(80) ? static_cast<f32>(oneRow ? 4 : random.real(1, 50)) : number();
        const TexCoord texCoord = {number(), number()};
        const VertexShade shade = {number(), number(), number(), number()};
        one.corner({x, y, z}, outcodeAll, texCoord, shade);
    }
    one.face.normalX = number();
    one.face.normalY = number();
    one.face.normalZ = number();
    if (random.chance(30)) one.face.faceColour = nullptr;
}

// What a way leaves behind: the bytes of the polygon, the list's own numbers, and the counts of sides.
struct Left {
    std::vector<u8> polygon;
    i32 count, storedCount;
    bool lastIsStored, lastSideMakesEdge;
    i32 edges;
    std::vector<u32> starting;
    bool operator==(const Left&) const = default;
};

// Which of the values that are no number a formula gives is up to the machine: all become the same one.
void unifyNaNs(u8* bytes, size_t size)
{
    for (size_t at = 0; at + sizeof(f32) <= size; at += sizeof(f32)) {
        f32 value;
        std::memcpy(&value, bytes + at, sizeof value);
        if (value == value) continue;
        constexpr u32 one = 0x7fc00000;
        std::memcpy(bytes + at, &one, sizeof one);
    }
}

template <class TargetList, class Way>
Left leftBy(std::vector<u8>& block, Way way)
{
    PolygonList& list = TargetList::list();
    resetPolygonLists();
    resetSideCounts({0, 0, 320, 200});
    std::fill(block.begin(), block.end(), u8{0xa5});
    list.records = list.held = reinterpret_cast<StoredPolygon*>(block.data());
    list.capacity = list.heldCapacity = 1;
    way(*list.held);
    // No one reads the depth plane of a list that is not resolved, and only one of the ways sets it.
    if (!TargetList::resolved) std::memset(&list.held->invDepthStepX, 0, 3 * sizeof(f32));
    unifyNaNs(block.data(), list.usedBytes);
    return {std::vector<u8>(block.begin(), block.begin() + list.usedBytes),
            list.count,
            list.storedCount,
            list.lastIsStored,
            list.lastSideMakesEdge,
            sideCounts.edges,
            {sideCounts.starting, sideCounts.starting + 200}};
}

template <class Format, class TargetList>
void compareWays(u32 seed)
{
    RandomNumbers random(seed);
    OneFace one;
    giveCorners(one, random);
    std::vector<u8> block(listRecordBytes);
    HostContext& context = one.host.context();
    ++context.projectionStamp;
    const Left shortWay = leftBy<TargetList>(block, [&](StoredPolygon& polygon) {
        if (one.face.vertexCount == 3)
            storeWholeFace<Format, TargetList, 3>(context, one.view.record, one.face, polygon);
        else
            storeWholeFace<Format, TargetList, 0>(context, one.view.record, one.face, polygon);
    });
    std::vector<ScreenVertex> cache = one.host.screenVertices;

    ++context.projectionStamp;
    const Left longWay = leftBy<TargetList>(block, [&](StoredPolygon& polygon) {
        ScreenPolygon made;
        std::memset(static_cast<void*>(&made), unsetByte, sizeof made);
        REQUIRE(makePolygon<Format, TargetList>(context, one.view.record, one.face, made));
        storePolygon<Format, TargetList>(made, polygon);
    });
    CHECK((shortWay == longWay));
    std::vector<ScreenVertex>& vertices = one.host.screenVertices;
    const size_t bytes = cache.size() * sizeof(ScreenVertex);
    unifyNaNs(reinterpret_cast<u8*>(cache.data()), bytes);
    unifyNaNs(reinterpret_cast<u8*>(vertices.data()), bytes);
    CHECK(std::memcmp(cache.data(), vertices.data(), bytes) == 0);
}

} // namespace

TEST_CASE("the short way of a face inside all planes stores the same bytes as the long one, in all formats and lists")
{
    forEachSeed(400, [](u32 seed) {
        List<PositionsOnly, Coloured, ColouredTextured, Lit, LitTextured, Textured>::forEach([seed]<class Format>() {
            CAPTURE(static_cast<u32>(Format::id));
            compareWays<Format, ResolvedPolygons>(seed);
            compareWays<Format, SortedPolygons>(seed);
            compareWays<Format, LateSortedPolygons>(seed);
        });
    });
}

TEST_CASE("a face is emitted the short way when every corner is inside every plane, and no clipper is called")
{
    for (const i32 corners : {3, 4, 16}) {
        CAPTURE(corners);
        OneFace one;
        for (i32 i = 0; i < corners; ++i) one.screenCorner(static_cast<f32>(10 + i), static_cast<f32>(20 + i % 3));
        one.mode.clip = {}; // a call of any clipper would crash
        REQUIRE(one.isTaken<ResolvedPolygons>(emit<Textured, ResolvedPolygons>));
        CHECK(resolvedPolygons.held->cornerCount == corners);
        CHECK(placeOf(cornersOf(*resolvedPolygons.held), cornerLayout<Textured>).x == 10);
    }
}
