// A scene in good order that uses every row of the render-mode table: what it looks like after something else was drawn
// tells whether anything stayed behind.
#pragma once

#include "tests/support/test_scene.h"

namespace kardeno::tests {

class CleanScene {
public:
    explicit CleanScene(TestHost& host);

    // What a frame and a pick give.
    struct Result {
        u32 picture; // the frame's hash
        i32 pickedFace;
        f32 pickedDepth;

        bool operator==(const Result&) const = default;
    };
    Result draw();
    bool fencesStand() const { return frame.fencesStand(); }

private:
    TestScene scene;
    TestFrame frame;
    TestMaterial* litPlain; // whose ramps the materials of all rows share
    TestMaterial* litTextured;

    void addFacesOfRow(TestObject& object, u32 row);
};

// The result in a library that has drawn nothing else. It makes a host of its own: there must be no other.
CleanScene::Result undisturbedResult(i32 bitsPerPixel);

} // namespace kardeno::tests
