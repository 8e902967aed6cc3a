// Which face and which object a pick reports, and how it walks the objects.
#include "geometry/polygon_lists.h"
#include "tests/frame/pick_scene.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

using Log = std::vector<std::string>;

TEST_CASE("a pick reports the object, the face's index and its depth")
{
    PickScene scene;
    TestObject& a = scene.scene.addRoot();
    TestObject& b = scene.scene.addRoot();
    scene.addRectangle(a, 10, 10, 30, 30, 8);
    scene.addRectangle(b, 50, 10, 70, 30, 8);
    scene.addRectangle(b, 80, 10, 90, 30, 16);
    CHECK(scene.pick(20, 20) == Hit{&a, 0, 8});
    CHECK(scene.pick(60, 20) == Hit{&b, 0, 8});
    CHECK(scene.pick(85, 20) == Hit{&b, 1, 16});
}

TEST_CASE("a pick that hits nothing gives 0, face 0 and the far distance")
{
    PickScene scene;
    scene.addRectangle(scene.scene.addRoot(), 10, 10, 30, 30, 8);
    CHECK(scene.pick(31, 20) == Hit{nullptr, 0, 1000});
    CHECK(scene.pick(20, 31) == Hit{nullptr, 0, 1000});
}

TEST_CASE("without a camera the result is 0, nothing is called and the outputs are unchanged")
{
    PickScene scene;
    scene.addRectangle(scene.scene.addRoot(), 10, 10, 30, 30, 8);
    scene.scene.view.record.camera = nullptr;
    CHECK(scene.pick(20, 20) == Hit{nullptr, 12345, -12345});
    CHECK(scene.scene.log.empty());
}

TEST_CASE("the camera's function is called first, and the far distance is that which it leaves")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot("object");
    scene.addRectangle(object, 10, 10, 30, 30, 8);
    scene.scene.onCamera = [](RenderView* view) { view->farZ = 5; };
    CHECK(scene.pick(20, 20) == Hit{nullptr, 0, 5});
    CHECK(scene.scene.log[0] == "camera");
    CHECK(scene.scene.log[1] == "update object");
}

TEST_CASE("the nearest face wins, in whichever order faces are met")
{
    PickScene scene;
    TestObject& a = scene.scene.addRoot();
    TestObject& b = scene.scene.addRoot();
    scene.addRectangle(a, 10, 10, 30, 30, 9);
    scene.addRectangle(a, 10, 10, 30, 30, 7);
    scene.addRectangle(a, 10, 10, 30, 30, 8);
    scene.addRectangle(b, 10, 10, 20, 30, 6);
    scene.addRectangle(b, 10, 10, 30, 30, 10);
    CHECK(scene.pick(25, 20) == Hit{&a, 1, 7});
    CHECK(scene.pick(15, 20) == Hit{&b, 0, 6});
}

TEST_CASE("a point on the shared side of two faces is inside both: the nearer wins, and of equals the first met")
{
    PickScene scene;
    TestObject& a = scene.scene.addRoot();
    TestObject& b = scene.scene.addRoot();
    TestObject& c = scene.scene.addRoot();
    scene.addRectangle(a, 10, 10, 50, 30, 8);
    scene.addRectangle(b, 50, 10, 90, 30, 8);
    CHECK(scene.pick(50, 20) == Hit{&a, 0, 8});
    scene.addRectangle(c, 50, 10, 90, 30, 4);
    CHECK(scene.pick(50, 20) == Hit{&c, 0, 4});
}

TEST_CASE("depths are compared after rounding: a face nearer by less than that does not replace the first")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    scene.addRectangle(object, 0, 0, 100, 100, 10);
    // The same square, its right side nearer by one step of the depth's last bit. At column 1 the depth is 10 less a
    // hundredth of that step, which rounds to 10.
    const f32 nearer = 10 - 1.0f / 1048576;
    TestFace& leaning = scene.addRectangle(object, 0, 0, 100, 100, 10);
    for (const size_t corner : {2, 3})
        scene.host.cameraVertices[static_cast<size_t>(leaning.indices[corner])].z = nearer;
    CHECK(scene.pick(1, 50) == Hit{&object, 0, 10});
    CHECK(scene.pick(99, 50) == Hit{&object, 1, nearer});
}

TEST_CASE("a face exactly at the far distance is never hit, one just before it is")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    scene.addRectangle(object, 10, 10, 30, 30, 1000);
    CHECK(scene.pick(20, 20) == scene.nothing());
    scene.addRectangle(object, 10, 10, 30, 30, 999.5f);
    CHECK(scene.pick(20, 20) == Hit{&object, 1, 999.5f});
}

TEST_CASE("a hit farther than the far distance is never reported, though its outcodes say that it is inside")
{
    PickScene scene;
    TestFace& face = scene.addRectangle(scene.scene.addRoot(), 10, 10, 30, 30, 1500);
    for (const i32 vertex : face.indices) scene.host.outcodes[static_cast<size_t>(vertex)] = outcodeAll;
    CHECK(scene.pick(20, 20) == scene.nothing());
}

TEST_CASE("a face whose own test fails is never hit, but counts in the index")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    scene.addRectangle(object, 10, 10, 30, 30, 5).shown = false;
    scene.addRectangle(object, 10, 10, 30, 30, 8);
    CHECK(scene.pick(20, 20) == Hit{&object, 1, 8});
}

TEST_CASE("an object out of sight is never hit, its children are")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    TestObject& child = scene.scene.addObject("", &object);
    object.boundsVisible = 0;
    scene.addRectangle(object, 10, 10, 30, 30, 5);
    scene.addRectangle(child, 10, 10, 30, 30, 8);
    CHECK(scene.pick(20, 20) == Hit{&child, 0, 8});
}

TEST_CASE("a hit belongs to the object of the tree; its index is that of the level's face")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    TestObject& level = scene.scene.addObject("", nullptr);
    object.level = &level;
    scene.addRectangle(object, 10, 10, 30, 30, 2);
    scene.addRectangle(level, 50, 10, 60, 30, 8);
    scene.addRectangle(level, 10, 10, 30, 30, 8);
    CHECK(scene.pick(20, 20) == Hit{&object, 1, 8});
}

TEST_CASE("a part of a group is itself the owner of its faces, the group of its own, and on equal depth the group")
{
    PickScene scene;
    TestObject& group = scene.scene.addRoot();
    TestObject& part = scene.scene.addObject("", &group);
    TestObject& sub = scene.scene.addObject("", &part);
    TestObject& level = scene.scene.addObject("", nullptr);
    TestObject& besidePart = scene.scene.addObject("", &level);
    group.isGroup = 1;
    group.level = &level;
    part.partOfGroup = sub.partOfGroup = 1;
    scene.addRectangle(level, 10, 10, 30, 30, 8);
    scene.addRectangle(besidePart, 40, 10, 45, 30, 8);
    scene.addRectangle(besidePart, 20, 10, 60, 30, 8);
    scene.addRectangle(sub, 50, 10, 90, 30, 8);
    CHECK(scene.pick(15, 20) == Hit{&group, 0, 8});
    CHECK(scene.pick(25, 20) == Hit{&group, 0, 8});
    CHECK(scene.pick(35, 20) == Hit{&part, 1, 8});
    CHECK(scene.pick(55, 20) == Hit{&part, 1, 8});
    CHECK(scene.pick(75, 20) == Hit{&sub, 0, 8});
}

TEST_CASE("a pick calls what a frame calls, in the same order and with the same stamps, but never light")
{
    PickScene scene;
    TestObject& group = scene.scene.addRoot("group");
    TestObject& part = scene.scene.addObject("part", &group);
    TestObject& other = scene.scene.addObject("other", &group);
    TestObject& level = scene.scene.addObject("level", nullptr);
    TestObject& besidePart = scene.scene.addObject("beside part", &level);
    TestObject& plain = scene.scene.addRoot("plain");
    TestObject& child = scene.scene.addObject("child", &plain);
    TestObject& hidden = scene.scene.addRoot("hidden");
    group.isGroup = 1;
    group.boundsVisible = 0;
    group.level = &level;
    part.partOfGroup = 1;
    hidden.boundsVisible = 0;
    for (TestObject* object : {&level, &besidePart, &other, &plain, &child, &hidden}) {
        scene.scene.addFace(*object, scene.scene.addMaterial(1), TestScene::rectangle(2, 2, 6, 6, 8)).name =
            object->name;
    }
    std::vector<u32> stamps;
    for (TestObject* object : {&level, &besidePart, &other, &plain, &child})
        object->onPrepare = [&] { stamps.push_back(scene.host.context().projectionStamp); };

    scene.host.context().projectionStamp = 100;
    CHECK(scene.pick(4, 4).object == &group);
    const Log picked = scene.scene.log;
    CHECK(group.visible == 1);
    CHECK(picked
          == Log{"camera",
                 "update group",
                 "transform group",
                 "update part",
                 "transform part",
                 "selectLevel group",
                 "testBounds level/group",
                 "testBounds beside part/part",
                 "prepareVertices level/group",
                 "prepareVertices beside part/part",
                 "test level",
                 "test beside part",
                 "update other",
                 "transform other",
                 "selectLevel other",
                 "testBounds other",
                 "prepareVertices other",
                 "test other",
                 "update plain",
                 "transform plain",
                 "selectLevel plain",
                 "testBounds plain",
                 "prepareVertices plain",
                 "test plain",
                 "update child",
                 "transform child",
                 "selectLevel child",
                 "testBounds child",
                 "prepareVertices child",
                 "test child",
                 "update hidden",
                 "transform hidden",
                 "selectLevel hidden",
                 "testBounds hidden"});
    CHECK(stamps == std::vector<u32>{101, 102, 103, 104, 105});

    // The frame's log without its light calls is the same.
    TestFrame frame(320, 200);
    scene.scene.log.clear();
    stamps.clear();
    scene.scene.draw(frame);
    Log drawn = scene.scene.log;
    CHECK(std::count_if(drawn.begin(), drawn.end(), [](const std::string& s) { return s.starts_with("light"); }) == 5);
    drawn.erase(std::remove_if(drawn.begin(), drawn.end(), [](const std::string& s) { return s.starts_with("light"); }),
                drawn.end());
    CHECK(drawn == picked);
    CHECK(stamps == std::vector<u32>{106, 107, 108, 109, 110});
}

TEST_CASE("a pick asks for no memory and leaves the frame's lists alone")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    scene.scene.addFace(object, scene.scene.addMaterial(), TestScene::rectangle(10, 10, 30, 30, 8));
    TestFrame frame(320, 200);
    scene.scene.draw(frame);
    scene.host.calls.clear();
    const auto bytesOfList = [] {
        return std::vector<u8>(reinterpret_cast<const u8*>(resolvedPolygons.held),
                               reinterpret_cast<const u8*>(resolvedPolygons.end()));
    };
    const std::vector<u8> before = bytesOfList();
    scene.addRectangle(object, 10, 10, 30, 30, 8);
    CHECK(scene.pick(20, 20).object == &object);
    CHECK(scene.host.calls.empty());
    CHECK(resolvedPolygons.count == 1);
    CHECK(bytesOfList() == before);
}
