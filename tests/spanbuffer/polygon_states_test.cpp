// Where the states of a frame's polygons lie: behind the polygons of the longer list, in the list's own block.
#include "geometry/list_storing.h"
#include "spanbuffer/polygon_states.h"
#include "tests/support/test_host.h"
#include "tests/support/test_view.h"

#include <doctest/doctest.h>

#include <vector>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// The list with polygons of 16 corners in the format that takes most room, in a block that grew by 512 records as often
// as it had to. The block begins on an odd word, as far from where states may begin as a block can.
template <class TargetList>
class FullList {
public:
    explicit FullList(i32 polygons)
        : capacity((polygons + 511) / 512 * 512), bytes(static_cast<size_t>(capacity) * listRecordBytes + 64)
    {
        const uintptr_t begin = (reinterpret_cast<uintptr_t>(bytes.data()) + 31) / 32 * 32 + sizeof(void*);
        PolygonList& list = TargetList::list();
        list.records = list.held = capacity ? reinterpret_cast<StoredPolygon*>(begin) : nullptr;
        list.capacity = list.heldCapacity = capacity;
        ScreenPolygon polygon = {};
        polygon.vertexCount = maxCorners;
        polygon.scanY[1] = 5;
        polygon.screenX[15] = 77;
        for (i32 i = 0; i < polygons; ++i) {
            polygon.faceColour = static_cast<u16>(i);
            storePolygon<ColouredTextured, TargetList>(polygon, *list.end());
        }
    }

    bool holdsStates() const
    {
        const PolygonList& list = TargetList::list();
        const uintptr_t begin = reinterpret_cast<uintptr_t>(polygonStates);
        const uintptr_t blockEnd =
            reinterpret_cast<uintptr_t>(list.held) + static_cast<u32>(capacity) * listRecordBytes;
        return capacity > 0 && begin >= reinterpret_cast<uintptr_t>(list.end()) && begin + endOfStates() <= blockEnd;
    }

    // Whether all polygons are what they were.
    bool isWhole() const
    {
        const PolygonList& list = TargetList::list();
        i32 i = 0;
        for (const StoredPolygon* polygon = list.held; polygon != list.end(); polygon = following(polygon), ++i) {
            const u8* const last = cornersOf(*polygon) + 15 * cornerLayout<ColouredTextured>.bytes;
            if (polygon->faceColour != static_cast<u16>(i) || placeOf(last, cornerLayout<ColouredTextured>).x != 77)
                return false;
        }
        return i == list.storedCount;
    }

private:
    i32 capacity;
    std::vector<u8> bytes;
};

void writeAllStates()
{
    for (StateOffset offset = firstPolygonState; offset != endOfStates(); offset += sizeof(PolygonState))
        stateAt(offset) = PolygonState{.activeCount = 0x55555555};
}

} // namespace

TEST_CASE("a frame without polygons has the states of the two ends of the stack, and needs no block for them")
{
    const TestHost host;
    layOutStates();
    CHECK(endOfStates() == 2 * sizeof(PolygonState));
    CHECK(stateAt(StackTopPolygon).below == BackgroundPolygon);
    CHECK(stateAt(BackgroundPolygon).above == StackTopPolygon);
}

TEST_CASE("the states lie behind the polygons of the longer list, and have room there")
{
    struct Case {
        i32 resolved, sorted;
    };
    for (const Case& c : {Case{1, 0},
                          {0, 1},
                          {1, 1},
                          {2, 1},
                          {1, 2},
                          {511, 512},
                          {512, 511},
                          {512, 0},
                          {0, 512},
                          {512, 512},
                          {1024, 1024},
                          {1024, 512},
                          {513, 1024}}) {
        CAPTURE(c.resolved);
        CAPTURE(c.sorted);
        const TestHost host;
        const FullList<ResolvedPolygons> resolved(c.resolved);
        const FullList<SortedPolygons> sorted(c.sorted);
        layOutStates();

        CHECK(endOfStates() == static_cast<u32>(2 + c.resolved + c.sorted) * sizeof(PolygonState));
        CHECK(reinterpret_cast<uintptr_t>(polygonStates) % sizeof(PolygonState) == 0);
        const bool inResolved = c.resolved >= c.sorted;
        CHECK(resolved.holdsStates() == inResolved);
        CHECK(sorted.holdsStates() == !inResolved);
        writeAllStates();
        CHECK(resolved.isWhole());
        CHECK(sorted.isWhole());
        CHECK(stateAt(BackgroundPolygon).above == StackTopPolygon);
    }
}

TEST_CASE("the polygons of the late list, which is not resolved, have no states")
{
    const TestHost host;
    const FullList<LateSortedPolygons> late(512);
    layOutStates();
    CHECK(endOfStates() == 2 * sizeof(PolygonState));
    CHECK_FALSE(late.holdsStates());
}

TEST_CASE("a polygon's state begins with its depth plane, outside and without spans")
{
    const TestHost host;
    const FullList<ResolvedPolygons> resolved(1);
    layOutStates();
    writeAllStates();
    for (const bool occludes : {true, false}) {
        StoredPolygon& polygon = *resolvedPolygons.held;
        polygon.invDepthStepX = 1;
        polygon.invDepthStepY = 2;
        polygon.invDepthOrigin = 3;
        polygon.occludes = occludes;
        setState(firstPolygonState, polygon);
        const PolygonState& state = stateAt(firstPolygonState);
        CHECK(state.invDepthStepX == 1);
        CHECK(state.invDepthStepY == 2);
        CHECK(state.invDepthOrigin == 3);
        CHECK(state.activeCount == 0);
        CHECK(state.spanCount == 0);
        CHECK(state.occludes == (occludes ? 1 : 0));
    }
}
