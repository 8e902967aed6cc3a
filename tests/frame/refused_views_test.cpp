// Views whose rectangle the tables cannot hold: nothing but the camera's function sees such a frame.
#include "geometry/polygon_lists.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <limits>

using namespace kardeno;
using namespace kardeno::tests;

constexpr f32 infinity = std::numeric_limits<f32>::infinity();
constexpr f32 largest = std::numeric_limits<f32>::max();
static const f32 noNumber = std::numeric_limits<f32>::quiet_NaN();

namespace {

enum class Side { left, top, right, bottom };

struct Bound {
    Side side;
    f32 value;
};

// A frame was drawn with a good view before; then the bound is set.
struct Refusal {
    TestHost host;
    TestScene scene{host, {.right = 16, .bottom = 8}};
    TestFrame frame{16, 8};

    Refusal()
    {
        TestMaterial& material = scene.addMaterial();
        material.diffuseColour.packed = 0x1111;
        scene.addFace(scene.addRoot("object"), material, TestScene::rectangle(2, 3, 7, 5));
        scene.draw(frame);
        scene.log.clear();
        frame.clear(0x7777);
    }

    void set(const Bound& bound)
    {
        switch (bound.side) {
        case Side::left: scene.view.record.left = bound.value; break;
        case Side::top: scene.view.record.top = bound.value; break;
        case Side::right: scene.view.projection.right = bound.value; break;
        case Side::bottom: scene.view.projection.bottom = bound.value; break;
        }
    }

    bool refused()
    {
        bool same = frame.fencesStand();
        for (i32 y = 0; y < 8; ++y) same = same && frame.row(y, 0, 16) == std::vector<u16>(16, 0x7777);
        return same && scene.log == std::vector<std::string>{"camera"} && resolvedPolygons.count == 1;
    }
};

const Bound refusedBounds[] = {
    {Side::left, noNumber},   {Side::left, infinity},    {Side::left, -infinity},   {Side::left, -32768.004f},
    {Side::left, -largest},   {Side::top, noNumber},     {Side::top, infinity},     {Side::top, -infinity},
    {Side::top, -0.001f},     {Side::top, -largest},     {Side::right, noNumber},   {Side::right, infinity},
    {Side::right, -infinity}, {Side::right, 32767.002f}, {Side::right, largest},    {Side::bottom, noNumber},
    {Side::bottom, infinity}, {Side::bottom, -infinity}, {Side::bottom, 4096.001f}, {Side::bottom, largest},
};

} // namespace

TEST_CASE("a view with a side that is no number, infinite or out of range is refused before the lists are emptied")
{
    for (const Bound& bound : refusedBounds) {
        CAPTURE(static_cast<i32>(bound.side));
        CAPTURE(bound.value);
        Refusal refusal;
        refusal.set(bound);
        refusal.scene.draw(refusal.frame, 1);
        CHECK(refusal.refused());
    }
}

TEST_CASE("a view is judged after the camera's function has run: it can spoil it")
{
    for (const Bound& bound : refusedBounds) {
        CAPTURE(static_cast<i32>(bound.side));
        CAPTURE(bound.value);
        Refusal refusal;
        refusal.scene.onCamera = [&](RenderView*) { refusal.set(bound); };
        refusal.scene.draw(refusal.frame, 1);
        CHECK(refusal.refused());
    }
}

TEST_CASE("a view is judged after the camera's function has run: it can mend it")
{
    Refusal frame;
    frame.set({Side::top, -1});
    frame.scene.onCamera = [&](RenderView*) { frame.set({Side::top, 0}); };
    frame.scene.draw(frame.frame);
    CHECK(frame.frame.at(2, 3) == 0x1111);
}

TEST_CASE("the largest rectangle is drawn")
{
    TestHost host;
    TestScene scene(host, {.left = -32768, .top = 0, .right = 32767, .bottom = 4096});
    TestFrame frame(16, 8);
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1111;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(2, 3, 7, 5));
    scene.draw(frame);
    CHECK(frame.row(3, 1, 8)
          == std::vector<u16>{TestFrame::untouched, 0x1111, 0x1111, 0x1111, 0x1111, 0x1111, TestFrame::untouched});
    CHECK(frame.fencesStand());
}

TEST_CASE("a top of minus zero is a top of zero")
{
    Refusal frame;
    frame.set({Side::top, -0.0f});
    frame.scene.draw(frame.frame);
    CHECK(frame.frame.at(2, 3) == 0x1111);
}

TEST_CASE("a rectangle that ends before it begins is walked, and nothing is drawn")
{
    // From 2^31 on no integer says where the rectangle begins.
    for (const Bound& bound : {Bound{Side::right, 0},
                               {Side::right, -5},
                               {Side::right, -largest},
                               {Side::bottom, 0},
                               {Side::bottom, -5},
                               {Side::bottom, -largest},
                               {Side::left, 17},
                               {Side::left, 100000},
                               {Side::left, 2147483648.0f},
                               {Side::left, 1e30f},
                               {Side::left, largest},
                               {Side::top, 9},
                               {Side::top, 5000},
                               {Side::top, 2147483648.0f},
                               {Side::top, 1e30f},
                               {Side::top, largest}}) {
        CAPTURE(static_cast<i32>(bound.side));
        CAPTURE(bound.value);
        Refusal frame;
        frame.set(bound);
        frame.scene.draw(frame.frame, 1);
        CHECK(frame.scene.log.size() > 1);
        for (i32 y = 0; y < 8; ++y) CHECK(frame.frame.row(y, 0, 16) == std::vector<u16>(16, 0x7777));
        CHECK(frame.frame.fencesStand());
    }
}

TEST_CASE("a pick is not refused for its view")
{
    for (const Bound& bound : refusedBounds) {
        CAPTURE(static_cast<i32>(bound.side));
        CAPTURE(bound.value);
        Refusal pick;
        pick.set(bound);
        i32 faceIndex;
        f32 depth;
        CHECK(Kardeno_Pick_Dll(&pick.scene.view.record, 4, 4, &faceIndex, &depth)
              == pick.scene.view.record.firstObject);
        CHECK(depth == 1);
    }
}
