// The order of the host's callbacks for plain objects, parts met alone, and the objects that stand beside them.
#include "geometry/polygon_lists.h"
#include "tests/frame/logged_scene.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

struct Walk : LoggedScene {
    // A face whose test is logged as "test <name>".
    TestFace& addFace(TestObject& object, const std::string& name, SceneMaterial& material)
    {
        TestFace& face = scene.addFace(object, material, TestScene::rectangle(2, 2, 6, 6));
        face.name = name;
        return face;
    }
    TestFace& addFace(TestObject& object, const std::string& name)
    {
        return addFace(object, name, scene.addMaterial());
    }
};

} // namespace

TEST_CASE("a plain object is updated, placed, selected, tested and prepared, and then its faces are met in order")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    for (const char* name : {"a0", "a1", "a2"}) walk.addFace(a, name);
    CHECK(walk.draw()
          == Log{"camera", "update a", "transform a", "selectLevel a", "testBounds a", "prepareVertices a", "test a0",
                 "test a1", "test a2"});
    CHECK(resolvedPolygons.count == 3);
}

TEST_CASE("a face whose test fails is not emitted")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    walk.addFace(a, "a0");
    walk.addFace(a, "a1").shown = false;
    TestFace& last = walk.addFace(a, "a2");
    walk.draw();
    REQUIRE(resolvedPolygons.count == 2);
    CHECK(following(resolvedPolygons.held)->material == last.material);
}

TEST_CASE("bounds, light and vertices are asked of the level's own functions, on behalf of the object")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& level = walk.scene.addObject("level", nullptr);
    a.level = &level;
    walk.addFace(a, "a0");
    walk.addFace(level, "level0", walk.scene.addMaterial(1));

    // A function of the object's own that must not be called.
    a.functions.testBounds = nullptr;
    a.functions.light = nullptr;
    a.functions.prepareVertices = nullptr;
    level.functions.update = nullptr;
    level.functions.transform = nullptr;
    level.functions.selectLevel = nullptr;
    CHECK(walk.draw()
          == Log{"camera", "update a", "transform a", "selectLevel a", "testBounds level/a", "light level/a",
                 "prepareVertices level/a", "test level0"});
}

TEST_CASE("a selectLevel that answers 0 means the object itself")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    a.level = nullptr;
    walk.addFace(a, "a0");
    CHECK(walk.draw()
          == Log{"camera", "update a", "transform a", "selectLevel a", "testBounds a", "prepareVertices a", "test a0"});
}

TEST_CASE("an object out of sight is neither lit nor prepared nor drawn, but its children are walked")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& b = walk.scene.addObject("b", &a);
    walk.addFace(a, "a0", walk.scene.addMaterial(1));
    walk.addFace(b, "b0");
    a.boundsVisible = 0;
    CHECK(walk.draw()
          == Log{"camera", "update a", "transform a", "selectLevel a", "testBounds a", "update b", "transform b",
                 "selectLevel b", "testBounds b", "prepareVertices b", "test b0"});
    CHECK(a.visible == 0);
}

TEST_CASE("any nonzero visible means in sight, and a plain object's is not written")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    walk.addFace(a, "a0");
    a.boundsVisible = -8;
    CHECK(walk.draw().back() == "test a0");
    CHECK(a.visible == -8);
}

TEST_CASE("an object comes before its children, its children before its siblings, a root before the next root")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& b = walk.scene.addObject("b", &a);
    walk.scene.addObject("c", &b);
    walk.scene.addObject("d", &a);
    walk.scene.addRoot("e");
    Log updates;
    for (const std::string& entry : walk.draw()) {
        if (entry.starts_with("update")) updates.push_back(entry);
    }
    CHECK(updates == Log{"update a", "update b", "update c", "update d", "update e"});
}

TEST_CASE("a root's next sibling is not followed, and a child's next root is not either")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& child = walk.scene.addObject("child", &a);
    a.nextSibling = &walk.scene.addObject("sibling of a root", nullptr);
    child.nextRoot = &walk.scene.addObject("root of a child", nullptr);
    for (const std::string& entry : walk.draw()) {
        CHECK(entry.find("sibling") == std::string::npos);
        CHECK(entry.find("root of") == std::string::npos);
    }
}

TEST_CASE("an object is lit when one of its materials is in state 1 or 2, and in no other state")
{
    for (const i32 state : {0, 1, 2, 3, -1}) {
        CAPTURE(state);
        Walk walk;
        TestObject& a = walk.scene.addRoot("a");
        walk.addFace(a, "", walk.scene.addMaterial(state));
        const Log log = walk.draw();
        const bool lit = std::find(log.begin(), log.end(), "light a") != log.end();
        CHECK(lit == (state == 1 || state == 2));
    }
}

TEST_CASE("an object whose materials are all in state 0 is never lit; one lit material lights it once")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    for (i32 i = 0; i < 3; ++i) walk.addFace(a, "", walk.scene.addMaterial(0));
    Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "light a") == 0);
    for (i32 i = 0; i < 3; ++i) walk.addFace(a, "", walk.scene.addMaterial(2));
    log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "light a") == 1);
}

TEST_CASE("whether an object is lit is read from the drawn object's list of materials, not from its faces")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    walk.addFace(a, "", walk.scene.addMaterial(1));
    a.materials = nullptr;
    Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "light a") == 0);

    MaterialNode node = {&walk.scene.addMaterial(2), nullptr};
    TestObject& b = walk.scene.addRoot("b");
    b.materials = &node;
    log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "light b") == 1);
}

TEST_CASE("the state of a material is that of its row, whichever material chose the row last")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    // Both fall to the flat row: transparency 8 has no row of its own in states 0 and 1.
    TestMaterial& first = walk.scene.addMaterial(0, nullptr, 0, 8);
    walk.addFace(a, "", first);
    Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "light a") == 0);
    walk.scene.addMaterial(1, nullptr, 0, 8);
    log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "light a") == 1);
}

TEST_CASE("the projection stamp advances by one before each object in sight is lit and prepared")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& hidden = walk.scene.addObject("hidden", &a);
    TestObject& b = walk.scene.addObject("b", &a);
    hidden.boundsVisible = 0;
    walk.addFace(a, "", walk.scene.addMaterial(1));
    std::vector<u32> stamps;
    a.onLight = [&] { stamps.push_back(walk.host.context().projectionStamp); };
    a.onPrepare = [&] { stamps.push_back(walk.host.context().projectionStamp); };
    b.onPrepare = [&] { stamps.push_back(walk.host.context().projectionStamp); };
    walk.host.context().projectionStamp = 40;
    walk.draw();
    CHECK(stamps == std::vector<u32>{41, 41, 42});
    CHECK(walk.host.context().projectionStamp == 42);
}

TEST_CASE("the projection stamp wraps past its largest value")
{
    Walk walk;
    walk.scene.addRoot("a");
    walk.host.context().projectionStamp = 0xffffffff;
    walk.draw();
    CHECK(walk.host.context().projectionStamp == 0);
}

TEST_CASE("a part met outside any group is neither updated nor drawn, but its children are walked")
{
    Walk walk;
    TestObject& part = walk.scene.addRoot("part");
    TestObject& child = walk.scene.addObject("child", &part);
    part.partOfGroup = 1;
    walk.addFace(part, "part0");
    walk.addFace(child, "child0");
    CHECK(walk.draw()
          == Log{"camera", "update child", "transform child", "selectLevel child", "testBounds child",
                 "prepareVertices child", "test child0"});
}

// What stands beside an object shows in groups, whose selectLevel may answer with the group itself: then the
// counterpart is drawn.

TEST_CASE("beside the first child of a plain object stands the first child of its level")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& group = walk.scene.addObject("group", &a);
    TestObject& level = walk.scene.addObject("level", nullptr);
    walk.scene.addObject("beside", &level);
    a.level = &level;
    group.isGroup = 1;
    group.level = &group;
    const Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "testBounds beside/group") == 1);
    CHECK(std::count(log.begin(), log.end(), "prepareVertices beside/group") == 1);
}

TEST_CASE("beside the sibling of a plain object stands the next sibling of its level")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& b = walk.scene.addObject("b", &a);
    TestObject& group = walk.scene.addObject("group", &a);
    TestObject& other = walk.scene.addObject("other", nullptr);
    TestObject& level = walk.scene.addObject("level", &other);
    walk.scene.addObject("beside", &other);
    b.level = &level;
    group.isGroup = 1;
    group.level = &group;
    const Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "testBounds beside/group") == 1);
}

TEST_CASE("where the drawn side has no more children the objects stand in for themselves")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& group = walk.scene.addObject("group", &a);
    a.level = &walk.scene.addObject("level without children", nullptr);
    group.isGroup = 1;
    group.level = &group;
    const Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "testBounds group") == 1);
}

TEST_CASE("beside the sibling and the children of a group stand they themselves")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& first = walk.scene.addObject("first", &a);
    TestObject& inner = walk.scene.addObject("inner", &first);
    TestObject& second = walk.scene.addObject("second", &a);
    TestObject& level = walk.scene.addObject("level", nullptr);
    TestObject& besideFirst = walk.scene.addObject("beside first", &level);
    walk.scene.addObject("beside inner", &besideFirst);
    walk.scene.addObject("beside second", &level);
    a.level = &level;
    for (TestObject* group : {&first, &inner, &second}) {
        group->isGroup = 1;
        group->level = group;
    }
    const Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "testBounds beside first/first") == 1);
    CHECK(std::count(log.begin(), log.end(), "testBounds inner") == 1);
    CHECK(std::count(log.begin(), log.end(), "testBounds second") == 1);
}

TEST_CASE("beside the sibling and the children of a part that is passed over stand they themselves")
{
    Walk walk;
    TestObject& a = walk.scene.addRoot("a");
    TestObject& part = walk.scene.addObject("part", &a);
    TestObject& inner = walk.scene.addObject("inner", &part);
    TestObject& second = walk.scene.addObject("second", &a);
    TestObject& level = walk.scene.addObject("level", nullptr);
    TestObject& besidePart = walk.scene.addObject("beside part", &level);
    walk.scene.addObject("beside inner", &besidePart);
    walk.scene.addObject("beside second", &level);
    part.partOfGroup = 1;
    a.level = &level;
    for (TestObject* group : {&inner, &second}) {
        group->isGroup = 1;
        group->level = group;
    }
    const Log log = walk.draw();
    CHECK(std::count(log.begin(), log.end(), "testBounds inner") == 1);
    CHECK(std::count(log.begin(), log.end(), "testBounds second") == 1);
}
