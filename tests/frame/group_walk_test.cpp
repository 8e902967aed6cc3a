// Groups: an object that is culled and drawn at once with all its parts.
#include "geometry/polygon_lists.h"
#include "tests/frame/logged_scene.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

//   group ── part ── sub          beside them, as selectLevel of the group answers:   G ── P ── S
//        ├── other ── below                                                             ├── O ── B
//        └── last                                                                       └── L
//
// part, sub and last are parts; other and what is below it are not.
struct Group : LoggedScene {
    TestObject& group = scene.addRoot("group");
    TestObject& part = scene.addObject("part", &group);
    TestObject& sub = scene.addObject("sub", &part);
    TestObject& other = scene.addObject("other", &group);
    TestObject& below = scene.addObject("below", &other);
    TestObject& last = scene.addObject("last", &group);

    TestObject& G = scene.addObject("G", nullptr);
    TestObject& P = scene.addObject("P", &G);
    TestObject& S = scene.addObject("S", &P);
    TestObject& O = scene.addObject("O", &G);
    TestObject& B = scene.addObject("B", &O);
    TestObject& L = scene.addObject("L", &G);

    Group()
    {
        group.isGroup = 1;
        group.level = &G;
        for (TestObject* object : {&part, &sub, &last}) object->partOfGroup = 1;
    }

    // A face on every object, its test logged under the object's name.
    void addFaces()
    {
        for (TestObject* object : {&group, &part, &sub, &other, &below, &last, &G, &P, &S, &O, &B, &L})
            scene.addFace(*object, scene.addMaterial(), TestScene::rectangle(2, 2, 6, 6)).name = object->name;
    }
};

Log joined(std::initializer_list<Log> logs)
{
    Log result;
    for (const Log& log : logs) result.insert(result.end(), log.begin(), log.end());
    return result;
}

const Log placing = {"camera",     "update group",  "transform group", "update part",    "transform part",
                     "update sub", "transform sub", "update last",     "transform last", "selectLevel group"};
const Log preparing = {"prepareVertices G/group", "prepareVertices P/part", "prepareVertices S/sub",
                       "prepareVertices L/last"};
const Log faces = {"test G", "test P", "test S", "test L"};
const Log others = {"update other",          "transform other",  "selectLevel other",     "testBounds other",
                    "prepareVertices other", "test other",       "update below",          "transform below",
                    "selectLevel below",     "testBounds below", "prepareVertices below", "test below"};

i32 countOf(const Log& log, const std::string& entry)
{
    return static_cast<i32>(std::count(log.begin(), log.end(), entry));
}

} // namespace

TEST_CASE("a group places itself and all parts, prepares itself and all parts, and only then are faces met")
{
    Group scene;
    scene.addFaces();
    // Its children are met a second time: the parts are passed over, the others handled on their own.
    CHECK(scene.draw() == joined({placing, {"testBounds G/group"}, preparing, faces, others}));
}

TEST_CASE("the faces of a group and its parts are emitted in the order in which they are met")
{
    Group scene;
    scene.addFaces();
    scene.draw();
    std::vector<const SceneMaterial*> emitted, expected;
    for (const StoredPolygon* polygon = resolvedPolygons.held; polygon != resolvedPolygons.end();
         polygon = following(polygon))
        emitted.push_back(polygon->material);
    for (const TestObject* object : {&scene.G, &scene.P, &scene.S, &scene.L, &scene.other, &scene.below})
        expected.push_back(object->faces[0]->material);
    CHECK(emitted == expected);
}

TEST_CASE("every object of a group gets a projection stamp of its own")
{
    Group scene;
    std::vector<u32> stamps;
    for (TestObject* object : {&scene.G, &scene.P, &scene.S, &scene.L, &scene.other, &scene.below})
        object->onPrepare = [&] { stamps.push_back(scene.host.context().projectionStamp); };
    scene.host.context().projectionStamp = 10;
    scene.draw();
    CHECK(stamps == std::vector<u32>{11, 12, 13, 14, 15, 16});
    CHECK(scene.host.context().projectionStamp == 16);
}

TEST_CASE("group and parts are lit by the materials of their counterparts, each before it is prepared")
{
    Group scene;
    for (TestObject* object : {&scene.G, &scene.S, &scene.part})
        scene.scene.addFace(*object, scene.scene.addMaterial(1), TestScene::rectangle(2, 2, 6, 6));
    const Log log = scene.draw();
    const auto begin = std::find(log.begin(), log.end(), "testBounds G/group") + 1;
    CHECK(Log(begin, begin + 6)
          == Log{"light G/group", "prepareVertices G/group", "prepareVertices P/part", "light S/sub",
                 "prepareVertices S/sub", "prepareVertices L/last"});
}

TEST_CASE("a group out of sight whose second part is in sight is drawn whole, and its visible becomes 1")
{
    Group scene;
    scene.addFaces();
    scene.group.boundsVisible = scene.part.boundsVisible = scene.sub.boundsVisible = 0;
    scene.last.boundsVisible = 5;
    const Log search = {"testBounds G/group", "testBounds P/part", "testBounds S/sub", "testBounds L/last"};
    CHECK(scene.draw() == joined({placing, search, preparing, faces, others}));
    CHECK(scene.group.visible == 1);
    CHECK(scene.part.visible == 0); // the host's answers stay
    CHECK(scene.last.visible == 5);
}

TEST_CASE("the search for a part in sight stops at the first")
{
    Group scene;
    scene.group.boundsVisible = 0;
    Log log = scene.draw();
    CHECK(countOf(log, "testBounds P/part") == 1);
    CHECK(countOf(log, "testBounds S/sub") == 0);
    CHECK(countOf(log, "testBounds L/last") == 0);
    CHECK(scene.group.visible == 1);

    scene.part.boundsVisible = 0; // its own part is found before its sibling is asked
    log = scene.draw();
    CHECK(countOf(log, "testBounds S/sub") == 1);
    CHECK(countOf(log, "testBounds L/last") == 0);
    CHECK(countOf(log, "prepareVertices P/part") == 1);
}

TEST_CASE("a group out of sight with all its parts is not drawn, its visible is 0, and its other children are")
{
    Group scene;
    scene.addFaces();
    for (TestObject* object : {&scene.group, &scene.part, &scene.sub, &scene.last}) object->boundsVisible = 0;
    const Log search = {"testBounds G/group", "testBounds P/part", "testBounds S/sub", "testBounds L/last"};
    CHECK(scene.draw() == joined({placing, search, others}));
    CHECK(scene.group.visible == 0);
    CHECK(resolvedPolygons.count == 2);
}

TEST_CASE("a group without parts that is out of sight stays out of sight")
{
    Group scene;
    for (TestObject* object : {&scene.part, &scene.sub, &scene.last}) object->partOfGroup = 0;
    scene.group.boundsVisible = 0;
    const Log log = scene.draw();
    CHECK(scene.group.visible == 0);
    CHECK(countOf(log, "prepareVertices G/group") == 0);
    CHECK(countOf(log, "prepareVertices part") == 1); // as plain objects
}

TEST_CASE("a group in sight keeps the value that the host gave, and its parts are not asked for their bounds")
{
    Group scene;
    scene.group.boundsVisible = 9;
    const Log log = scene.draw();
    CHECK(scene.group.visible == 9);
    for (const char* entry : {"testBounds P/part", "testBounds S/sub", "testBounds L/last"})
        CHECK(countOf(log, entry) == 0);
}

TEST_CASE("all parts of a group in sight are drawn, whatever their own visible says")
{
    Group scene;
    scene.addFaces();
    scene.part.visible = scene.last.visible = 0;
    const Log log = scene.draw();
    CHECK(countOf(log, "test P") == 1);
    CHECK(countOf(log, "test L") == 1);
    CHECK(scene.part.visible == 0);
}

TEST_CASE("a selectLevel that answers with the group itself makes the counterpart the drawn object")
{
    Group scene;
    TestObject& parent = scene.scene.addRoot("parent");
    TestObject& level = scene.scene.addObject("level", nullptr);
    scene.scene.view.record.firstObject = &parent;
    parent.level = &level;
    parent.firstChild = &scene.group;
    level.firstChild = &scene.G;

    for (SceneObject* answer : {static_cast<SceneObject*>(&scene.group), static_cast<SceneObject*>(nullptr)}) {
        scene.group.level = answer;
        const Log log = scene.draw();
        CHECK(countOf(log, "testBounds G/group") == 1);
        CHECK(countOf(log, "prepareVertices G/group") == 1);
        CHECK(countOf(log, "prepareVertices P/part") == 1);
        CHECK(countOf(log, "prepareVertices S/sub") == 1);
    }
}

TEST_CASE("a selectLevel that answers with another object makes that one the drawn object, counterpart or not")
{
    Group scene;
    TestObject& parent = scene.scene.addRoot("parent");
    TestObject& level = scene.scene.addObject("level", nullptr);
    scene.scene.view.record.firstObject = &parent;
    parent.level = &level;
    parent.firstChild = &scene.group;
    scene.scene.addObject("beside", &level);
    CHECK(countOf(scene.draw(), "testBounds G/group") == 1);
}

TEST_CASE("a root group that selects itself is drawn as itself, with its own parts")
{
    Group scene;
    scene.group.level = &scene.group;
    scene.addFaces();
    const Log log = scene.draw();
    for (const char* entry :
         {"testBounds group", "prepareVertices group", "prepareVertices part", "prepareVertices sub",
          "prepareVertices last", "test group", "test part", "test sub", "test last"})
        CHECK(countOf(log, entry) == 1);
}

TEST_CASE("where the drawn side of a group runs out its parts stand in for themselves")
{
    Group scene;
    scene.addFaces();
    scene.P.firstChild = nullptr;
    scene.O.nextSibling = nullptr;
    scene.group.boundsVisible = scene.part.boundsVisible = scene.sub.boundsVisible = 0;
    const Log search = {"testBounds G/group", "testBounds P/part", "testBounds sub", "testBounds last"};
    const Log prepared = {"prepareVertices G/group", "prepareVertices P/part", "prepareVertices sub",
                          "prepareVertices last"};
    CHECK(scene.draw() == joined({placing, search, prepared, {"test G", "test P", "test sub", "test last"}, others}));
}

TEST_CASE("once the drawn side has run out, what stands beside the next part is that part again")
{
    Group scene;
    // Beside part stands P, which has no sibling: beside other stands other itself, and beside last what follows it.
    scene.P.nextSibling = nullptr;
    const Log log = scene.draw();
    CHECK(countOf(log, "prepareVertices P/part") == 1);
    CHECK(countOf(log, "prepareVertices last") == 1);
    CHECK(countOf(log, "prepareVertices L/last") == 0);
}

TEST_CASE("what is no part is passed over with all that is below it, parts there too")
{
    Group scene;
    scene.below.partOfGroup = 1;
    const Log log = scene.draw();
    for (const std::string& entry : log) CHECK(entry.find("below") == std::string::npos);
    CHECK(countOf(log, "prepareVertices L/last") == 1); // siblings behind it are visited
}

TEST_CASE("a group inside a group is no part of it, even when it is marked as one")
{
    Group scene;
    scene.addFaces();
    scene.last.isGroup = 1;
    scene.last.level = &scene.last;
    const Log log = scene.draw();
    const Log inner = {"update last",     "transform last",       "selectLevel last",
                       "testBounds last", "prepareVertices last", "test last"};
    REQUIRE(log.size() > inner.size());
    CHECK(Log(log.end() - static_cast<std::ptrdiff_t>(inner.size()), log.end()) == inner);
    for (const std::string& entry : inner) CHECK(countOf(log, entry) == 1);
}

TEST_CASE("a part that is a group has parts of its own, drawn with the inner group only")
{
    Group scene;
    scene.part.isGroup = -1; // any value but 0
    scene.part.level = &scene.part;
    const Log log = scene.draw();
    CHECK(countOf(log, "update part") == 1);
    CHECK(countOf(log, "update sub") == 1);
    CHECK(countOf(log, "prepareVertices S/sub") == 0);
    CHECK(countOf(log, "prepareVertices sub") == 1);
    CHECK(std::find(log.begin(), log.end(), "prepareVertices L/last")
          < std::find(log.begin(), log.end(), "update part"));
}

TEST_CASE("parts are never asked for a level")
{
    Group scene;
    const Log log = scene.draw();
    for (const char* entry : {"selectLevel part", "selectLevel sub", "selectLevel last"})
        CHECK(countOf(log, entry) == 0);
}
