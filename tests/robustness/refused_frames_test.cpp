#include "tests/robustness/memory_model.h"

#include "geometry/polygon_lists.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <functional>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A scene and how its frames grow: `before` faces are drawn in a frame of their own before anything is refused.
struct Growth {
    i32 columns;
    i32 height;
    i32 before;
    std::vector<GridFace> faces;
};

// 1,030 faces in each list: two refills past the first 512.
constexpr i32 manyInAList = 1030;

Growth allLists(i32 before, bool lateFirst)
{
    const i32 cells = manyInAList + manyInAList / 2 + manyInAList;
    const i32 columns = 48;
    return {columns, (cells + columns - 1) / columns, before,
            facesOfAllLists(columns, manyInAList, manyInAList / 2, manyInAList, lateFirst)};
}

// 600 faces of 14 sides that cross rows: 8,400 edges, and 4,200 runs of them beside as many of the background.
Growth manySides(i32 before)
{
    return {60, 70, before, raggedFaces(60, 600, 7)};
}

// Which calls are refused, in words too, and by what kind of host.
struct Refusal {
    std::string what;
    std::function<void(TestHost&)> begin;
    bool blocksMove;
};

// Draws with some calls refused, and on with memory again, and follows every frame. False when nothing was refused.
bool followRefusal(const Growth& growth, const Refusal& refusal)
{
    TestHost host;
    host.moveBlocks(refusal.blocksMove);
    GridScene grid(host, growth.columns * GridScene::cellWidth, growth.height, growth.faces);
    MemoryModel model;
    const i32 all = static_cast<i32>(growth.faces.size());

    const auto followFrame = [&](const char* name, i32 count) {
        const std::string what =
            refusal.what + " refused, blocks " + (refusal.blocksMove ? "move" : "stay") + ": " + name;
        CAPTURE(what);
        host.calls.clear();
        grid.draw(count);
        model.follow(grid, count, host.calls);
        CHECK(model.complaint == "");
        std::vector<u16> drawn;
        for (i32 y = 0; y < grid.frame.height; ++y) {
            for (i32 x = 0; x < grid.frame.width; ++x) drawn.push_back(grid.frame.at(x, y));
        }
        CHECK((drawn == model.picture));
        CHECK(grid.frame.fencesStand());
    };

    if (growth.before > 0) followFrame("the frame before", growth.before);
    refusal.begin(host);
    followFrame("the frame of the refusal", all);
    const bool reached = std::any_of(host.calls.begin(), host.calls.end(), [](const ServiceCall& call) {
        return call.kind == ServiceCall::realloc && !call.result;
    });
    CHECK(model.undisturbed == !reached);
    followFrame("the frame after", all);
    host.refuseNothing();
    followFrame("a frame with memory again", all);
    followFrame("one more", all);
    return reached;
}

// The n-th call alone, and the n-th with all that follow, for every n that there is.
void followEveryRefusal(const Growth& growth)
{
    for (const bool blocksMove : {true, false}) {
        for (const bool onward : {false, true}) {
            i32 n = 1;
            const auto begin = [&](TestHost& host) { onward ? host.refuseFrom(n) : host.refuse(n); };
            const auto what = [&] { return "call " + std::to_string(n) + (onward ? " and all later ones" : " alone"); };
            while (followRefusal(growth, {what(), begin, blocksMove})) ++n;
            CHECK(n > 5); // there was something to refuse
        }
    }
}

} // namespace

TEST_CASE("a scene past 1,024 faces in each list and past 4,096 edges grows everything in steps, in the order of need")
{
    TestHost host;
    const Growth growth = allLists(0, false);
    GridScene grid(host, growth.columns * GridScene::cellWidth, growth.height, growth.faces);
    host.calls.clear();

    grid.draw(static_cast<i32>(growth.faces.size()));

    // Emission meets a resolved face, two sorted ones and a late one, again and again, until the sorted ones
    // come to an end. The list that first reaches a multiple of 512 takes the sort arrays along: resolved at 0; the
    // sorted list, twice as fast, at 512 and 1,024. 2,060 faces of two edges make 4,120.
    std::vector<u32> sizes;
    for (const ServiceCall& call : host.calls) {
        CHECK(call.kind == ServiceCall::realloc);
        sizes.push_back(call.bytes);
    }
    constexpr u32 record = listRecordBytes, edge = edgePoolRecordBytes, span = spanPoolRecordBytes;
    const std::vector<u32> expected = {
        512 * record,  512 * 4,     512 * 4,  512 * 4,  // the first resolved face
        512 * record,                                   // the first sorted face
        512 * record,                                   // the first late face
        1024 * record, 1024 * 4,    1024 * 4, 1024 * 4, // sorted face 512
        1024 * record,                                  // resolved face 512
        1536 * record, 1536 * 4,    1536 * 4, 1536 * 4, // sorted face 1,024
        1024 * record,                                  // late face 512
        1536 * record,                                  // resolved face 1,024
        1536 * record,                                  // late face 1,024
        4096 * edge,   8192 * edge,                     // edges
        4096 * span,                                    // spans: 2,060 of faces, and less than 2,000 of the background
    };
    CHECK(sizes == expected);
}

TEST_CASE("whichever growth of an empty library is refused, the frame and those after it are what the rules leave")
{
    followEveryRefusal(allLists(0, false));
}

TEST_CASE("the same when the late list is the first to grow, and takes the sort arrays with it")
{
    followEveryRefusal(allLists(0, true));
}

TEST_CASE("whichever growth of lists in use is refused, the frame and those after it are what the rules leave")
{
    followEveryRefusal(allLists(1200, false));
}

TEST_CASE("whichever growth of the edge and span pools is refused, past 4,096 and past 8,192 too")
{
    followEveryRefusal(manySides(0));
    followEveryRefusal(manySides(280));
}

TEST_CASE("whichever of the three sort arrays are refused together, those given back are never sorted with again")
{
    // The resolved list, at its face 512, takes the sort arrays along in calls 7 to 9; before that came itself, its
    // first three, the sorted list and itself again. The sorted list stays short enough for the arrays that there were.
    const Growth growth = {48, 13, 0, facesOfAllLists(48, 600, 10, 0, false)};
    for (const bool blocksMove : {true, false}) {
        for (i32 set = 1; set < 8; ++set) {
            std::vector<i32> refused;
            std::string what = "calls";
            for (i32 array = 0; array < 3; ++array) {
                if (!(set & 1 << array)) continue;
                refused.push_back(7 + array);
                what += " " + std::to_string(7 + array);
            }
            CHECK(followRefusal(growth, {what, [&](TestHost& host) { host.refuseCalls(refused); }, blocksMove}));
        }
    }
}
