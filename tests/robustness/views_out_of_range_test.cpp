#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <limits>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// One face over all of a small view, and what a frame of the view does.
struct Outcome {
    bool treeWalked;
    bool anyPixelWritten;
    bool fencesStand;
};

Outcome outcomeOf(const TestView::Settings& settings)
{
    TestHost host;
    TestScene scene(host, {.right = 8, .bottom = 4});
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot("face"), material, TestScene::rectangle(0, 0, 8, 4));
    scene.view.record.left = settings.left;
    scene.view.record.top = settings.top;
    scene.view.projection.right = settings.right;
    scene.view.projection.bottom = settings.bottom;

    TestFrame frame(8, 4);
    scene.draw(frame, 1);
    bool written = false;
    for (i32 y = 0; y < 4; ++y) {
        for (const u16 pixel : frame.row(y, 0, 8)) written |= pixel != TestFrame::untouched;
    }
    return {std::count(scene.log.begin(), scene.log.end(), "update face") > 0, written, frame.fencesStand()};
}

constexpr f32 infinity = std::numeric_limits<f32>::infinity();
constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();
constexpr f32 largest = std::numeric_limits<f32>::max();

} // namespace

TEST_CASE("a view with a side that is not finite or beyond the tables is refused: the tree is not walked")
{
    const TestView::Settings refused[] = {
        {.left = notANumber, .right = 8, .bottom = 4},
        {.left = infinity, .right = 8, .bottom = 4},
        {.left = -infinity, .right = 8, .bottom = 4},
        {.left = -32769, .right = 8, .bottom = 4},
        {.left = -largest, .right = 8, .bottom = 4},
        {.top = notANumber, .right = 8, .bottom = 4},
        {.top = infinity, .right = 8, .bottom = 4},
        {.top = -0.25f, .right = 8, .bottom = 4},
        {.right = notANumber, .bottom = 4},
        {.right = infinity, .bottom = 4},
        {.right = -infinity, .bottom = 4},
        {.right = 32767.5f, .bottom = 4},
        {.right = largest, .bottom = 4},
        {.right = 8, .bottom = notANumber},
        {.right = 8, .bottom = infinity},
        {.right = 8, .bottom = -infinity},
        {.right = 8, .bottom = 4096.5f},
        {.right = 8, .bottom = largest},
    };
    for (const TestView::Settings& settings : refused) {
        CAPTURE(settings.left);
        CAPTURE(settings.top);
        CAPTURE(settings.right);
        CAPTURE(settings.bottom);
        const Outcome outcome = outcomeOf(settings);
        CHECK(!outcome.treeWalked);
        CHECK(!outcome.anyPixelWritten);
        CHECK(outcome.fencesStand);
    }
}

TEST_CASE("a view that begins where no integer can say draws nothing, and nothing before its tables")
{
    // 2^31 and beyond would truncate to the smallest integer, far to the left of or above everything.
    for (const f32 start : {2147483648.0f, 1e30f, largest}) {
        CAPTURE(start);
        for (const TestView::Settings& settings : {TestView::Settings{.left = start, .right = 8, .bottom = 4},
                                                   TestView::Settings{.top = start, .right = 8, .bottom = 4}}) {
            const Outcome outcome = outcomeOf(settings);
            CHECK(outcome.treeWalked);
            CHECK(!outcome.anyPixelWritten);
            CHECK(outcome.fencesStand);
        }
    }
}

TEST_CASE("an empty rectangle is walked and draws nothing")
{
    const TestView::Settings empty[] = {
        {.right = 0, .bottom = 4},
        {.right = 8, .bottom = 0},
        {.left = 9, .right = 8, .bottom = 4},
        {.top = 5, .right = 8, .bottom = 4},
        {.left = 40000, .right = 8, .bottom = 4},
        {.top = 5000, .right = 8, .bottom = 4},
        {.right = -largest, .bottom = 4},
        {.right = 8, .bottom = -largest},
    };
    for (const TestView::Settings& settings : empty) {
        const Outcome outcome = outcomeOf(settings);
        CHECK(outcome.treeWalked);
        CHECK(!outcome.anyPixelWritten);
        CHECK(outcome.fencesStand);
    }
}

TEST_CASE("with a pitch of 0 all rows fall on one; with a negative one they run upward")
{
    TestHost host;
    TestScene scene(host, {.right = 4, .bottom = 3});
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(1, 1, 3, 3));
    std::vector<u16> pixels(32, 7);

    scene.view.record.pitch = 0;
    Kardeno_Render_Dll(&scene.view.record, &pixels[8], 0, 0);
    std::vector<u16> expected(32, 7);
    expected[9] = expected[10] = 0x1234;
    CHECK((pixels == expected));

    // Row 0 from element 20 on, row 1 from 14 and row 2 from 8.
    pixels.assign(32, 7);
    scene.view.record.pitch = -6;
    Kardeno_Render_Dll(&scene.view.record, &pixels[20], 0, 0);
    expected.assign(32, 7);
    expected[15] = expected[16] = expected[9] = expected[10] = 0x1234;
    CHECK((pixels == expected));
}
