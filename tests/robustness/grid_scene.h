// A scene whose picture can be told without drawing: small faces in cells of three columns, each of its own list, none
// touching another's cell. Faces can be as many as the pools and lists are to be filled with.
#pragma once

#include "tests/support/test_scene.h"

namespace kardeno::tests {

enum class GridList { resolved, sorted, late };

// A face one or two columns wide at the left of its cell. It has `rows` sides down and as many up when it is ragged,
// and else one each; the top and the bottom are level.
struct GridFace {
    GridList list;
    i32 x, y, width, rows;
    i32 depth;
    bool ragged = false;

    i32 sidesDown() const { return ragged ? rows : 1; }
};

struct GridScene {
    static constexpr i32 cellWidth = 3;

    // What the faces paint. The late ones add to what is there: a plain sum, because no channel overflows and red and
    // green, of which the blend drops the lowest bit, are even.
    static constexpr u16 resolvedColour = 0x1234;
    static constexpr u16 nearColour = 0x2345; // sorted faces of depth 2
    static constexpr u16 farColour = 0x3456;  // sorted faces of depth 4
    static constexpr u16 lateColour = 0x1082;
    static constexpr u16 emptyColour = 0x2101; // of the frame before it is drawn

    GridScene(TestHost& host, i32 frameWidth, i32 frameHeight, std::vector<GridFace> gridFaces);

    // Draws the first `count` faces, the uncovered pixels cleared.
    void draw(i32 count);

    const std::vector<GridFace> faces;
    TestScene scene;
    TestFrame frame;

private:
    TestTexture nearTexture, farTexture, lateTexture;
    TestObject* object;
};

// A run of pixels of one face, or of none (-1).
struct GridRun {
    i32 face;
    i32 x, xEnd, y;
};

// The visible runs of some of the faces (those that are taken), in the order in which they close: row by row, and from
// left to right.
std::vector<GridRun> visibleRuns(const std::vector<GridFace>& faces, const std::vector<i32>& taken, i32 width,
                                 i32 height);

// Faces of all three lists, in turns until each list has what it is to have. Each has a cell of its own but for the
// sorted ones, which lie two by two: a far one of one column, and then a near one of two.
std::vector<GridFace> facesOfAllLists(i32 columns, i32 resolved, i32 sortedPairs, i32 late, bool lateFirst);
// Resolved faces of 2 x `rows` edges each.
std::vector<GridFace> raggedFaces(i32 columns, i32 count, i32 rows);

} // namespace kardeno::tests
