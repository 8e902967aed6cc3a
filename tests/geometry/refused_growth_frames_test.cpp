// What a host sees on the screen of a growth that it refused a part of. The calls of a frame's emission are: 1 list, 2
// to 4 sort arrays for the first 512 faces; 5 list, 6 to 8 sort arrays for the next.
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr i32 faceCount = 600;
constexpr i32 columns = 40;
constexpr u16 colour = 0x1234;

using Numbers = std::vector<i32>;

// 600 faces of one pixel each, row after row, all in one material of the resolved list.
struct Dots {
    TestHost host;
    TestScene scene{host, {.right = columns, .bottom = faceCount / columns}};
    TestFrame frame{columns, faceCount / columns, 0};

    explicit Dots(bool movesBlocks)
    {
        host.moveBlocks(movesBlocks);
        TestMaterial& material = scene.addMaterial();
        material.diffuseColour.packed = colour;
        TestObject& object = scene.addRoot();
        for (i32 i = 0; i < faceCount; ++i) {
            const f32 x = static_cast<f32>(i % columns);
            const f32 y = static_cast<f32>(i / columns);
            scene.addFace(object, material, TestScene::rectangle(x, y, x + 1, y + 1));
        }
    }

    // The numbers of the faces that a frame does not show: from the first of them to the last.
    struct Missing {
        i32 count, first, last;
        bool operator==(const Missing&) const = default;
    };
    Missing missing()
    {
        frame.clear(0);
        scene.draw(frame);
        CHECK(frame.fencesStand());
        Missing result = {0, -1, -1};
        for (i32 i = 0; i < faceCount; ++i) {
            if (frame.at(i % columns, i / columns) == colour) continue;
            if (result.count++ == 0) result.first = i;
            result.last = i;
        }
        return result;
    }
};

using Missing = Dots::Missing;
constexpr Missing none = {0, -1, -1};
constexpr Missing all = {faceCount, 0, faceCount - 1};

// See-through faces of the sorted list: the first is red and far, the second blue and near, both over pixel (0, 0); the
// others fill the list up and lie elsewhere.
struct TwoOverlapping {
    TestHost host;
    TestScene scene{host, {.right = 8, .bottom = 8}};
    TestFrame frame{8, 8, 0};
    std::vector<TestFace*> faces;

    explicit TwoOverlapping(bool movesBlocks)
    {
        host.moveBlocks(movesBlocks);
        TestMaterial& material = scene.addMaterial(3, nullptr, 0, 50); // FallbackBlend: half blends the face's colour
        TestObject& object = scene.addRoot();
        for (i32 i = 0; i < faceCount; ++i) {
            const f32 place = i < 2 ? 0.0f : 4.0f;
            const f32 depth = i == 1 ? 1.0f : 10.0f;
            const u16 faceColour = i == 0 ? 0xf800 : 0x001f;
            faces.push_back(&scene.addFace(
                object, material, TestScene::rectangle(place, place, place + 1, place + 1, depth), faceColour));
        }
    }

    u16 pixel()
    {
        frame.clear(0);
        scene.draw(frame);
        CHECK(frame.fencesStand());
        return frame.at(0, 0);
    }
};

// Half blends in 5-6-5 keep 0xf7df of both: red over black 0xf000 / 2 = 0x7800, blue over that (0x001f + 0x7000) / 2;
// the other way round 0x001f / 2 = 0x000f, then (0xf000 + 0x000f) / 2.
constexpr u16 farToNear = 0x380f;
constexpr u16 lastToFirst = 0x7807;
constexpr u16 nothing = 0;

} // namespace

TEST_CASE("the list refused at its first growth costs one face, in that frame alone")
{
    for (const bool moves : {true, false}) {
        Dots dots(moves);
        dots.host.refuse(1);
        CHECK(dots.missing() == Missing{1, 0, 0});
        CHECK(dots.missing() == none);
    }
}

TEST_CASE("a sort array refused at the first growth costs all faces of that list, for ever")
{
    for (const bool moves : {true, false}) {
        for (const i32 refused : {2, 3, 4}) {
            CAPTURE(moves);
            CAPTURE(refused);
            Dots dots(moves);
            dots.host.refuse(refused);
            CHECK(dots.missing() == all);
            CHECK(dots.missing() == all);
        }
    }
}

TEST_CASE("the list refused at a later growth costs one face, in that frame alone")
{
    for (const bool moves : {true, false}) {
        Dots dots(moves);
        dots.host.refuse(5);
        CHECK(dots.missing() == Missing{1, 512, 512});
        CHECK(dots.missing() == none);
    }
}

TEST_CASE("a sort array refused at a later growth, the list moved: earlier faces are drawn, then none in later frames")
{
    for (const i32 refused : {6, 7, 8}) {
        CAPTURE(refused);
        Dots dots(true);
        dots.host.refuse(refused);
        CHECK(dots.missing() == Missing{faceCount - 512, 512, faceCount - 1});
        CHECK(dots.missing() == all);
        CHECK(dots.missing() == all);
    }
}

TEST_CASE("a sort array refused at a later growth, the list in place: one face is missing, in that frame alone")
{
    for (const i32 refused : {6, 7, 8}) {
        CAPTURE(refused);
        Dots dots(false);
        dots.host.refuse(refused);
        CHECK(dots.missing() == Missing{1, 512, 512});
        CHECK(dots.missing() == none);
    }
}

TEST_CASE("list and sort array refused at a later growth: 512 faces in every frame")
{
    for (const bool moves : {true, false}) {
        for (const Numbers& refused : {Numbers{5, 6}, Numbers{5, 7}, Numbers{5, 8}, Numbers{5, 6, 7, 8}}) {
            CAPTURE(moves);
            CAPTURE(refused.size());
            Dots dots(moves);
            dots.host.refuseCalls(refused);
            CHECK(dots.missing() == Missing{faceCount - 512, 512, faceCount - 1});
            CHECK(dots.missing() == Missing{faceCount - 512, 512, faceCount - 1});
        }
    }
}

TEST_CASE("see-through faces are drawn far to near, and after a refused list too")
{
    for (const bool moves : {true, false}) {
        TwoOverlapping faces(moves);
        faces.host.refuse(5);
        CHECK(faces.pixel() == farToNear);
        CHECK(faces.pixel() == farToNear);
    }
}

TEST_CASE("a sorted list whose sort arrays were given back is drawn from its last record to its first")
{
    for (const i32 refused : {6, 7, 8}) {
        CAPTURE(refused);
        {
            TwoOverlapping inPlace(false);
            inPlace.host.refuse(refused);
            CHECK(inPlace.pixel() == lastToFirst);
            CHECK(inPlace.pixel() == lastToFirst);
        }
        {
            TwoOverlapping moved(true);
            moved.host.refuse(refused);
            CHECK(moved.pixel() == lastToFirst);
            CHECK(moved.pixel() == nothing);
        }
        {
            TwoOverlapping bothRefused(true);
            bothRefused.host.refuseCalls({5, refused});
            CHECK(bothRefused.pixel() == lastToFirst);
            CHECK(bothRefused.pixel() == lastToFirst);
        }
    }
}

TEST_CASE("sort arrays that were all refused still sort what they have room for; a longer list is drawn last to first")
{
    {
        // 599 faces in the first frame, 600 in the second, 500 in the third; room for 512.
        TwoOverlapping inPlace(false);
        inPlace.host.refuseCalls({6, 7, 8});
        CHECK(inPlace.pixel() == lastToFirst);
        CHECK(inPlace.pixel() == lastToFirst);
        for (size_t i = 500; i < faceCount; ++i) inPlace.faces[i]->shown = false;
        CHECK(inPlace.pixel() == farToNear);
    }
    {
        // The old block is used to its end: 512 faces.
        TwoOverlapping bothRefused(true);
        bothRefused.host.refuseCalls({5, 6, 7, 8});
        CHECK(bothRefused.pixel() == farToNear);
        CHECK(bothRefused.pixel() == farToNear);
    }
}
