// Objects without what is asked of them, and trees that are none.
#include "tests/checked/good_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("each function that an object lacks is told of, and the others are called")
{
    GoodScene good;
    ObjectFunctions& functions = good.object.functions;
    const ObjectFunctions right = functions;
    const Names once = {"missing-function"};
    functions.update = nullptr;
    CHECK(good.draw() == once);
    CHECK(good.isDrawn());
    functions = right;
    functions.transform = nullptr;
    CHECK(good.draw() == once);
    functions = right;
    functions.selectLevel = nullptr;
    CHECK(good.draw() == once);
    CHECK(good.isDrawn());
    functions = right;
    functions.prepareVertices = nullptr;
    CHECK(good.draw() == once);
    CHECK(good.isDrawn());
    functions = right;
    functions.testBounds = nullptr;
    CHECK(good.draw() == Names{"missing-function", "nothing-visible"});
    CHECK_FALSE(good.isDrawn());
    functions = right;
    functions.light = nullptr;
    CHECK(good.draw() == Names{}); // no material is lit
    CHECK(Kardeno_Set_Material_Render_State_Dll(&good.material, 1) == 1);
    CHECK(good.draw() == once);
}

TEST_CASE("an object without a class or without functions is not drawn")
{
    GoodScene good;
    good.object.ownClass.functions = nullptr;
    CHECK(good.draw() == Names{"missing-class", "nothing-visible"});
    good.object.objectClass = nullptr;
    CHECK(good.draw() == Names{"missing-class", "nothing-visible"});
    CHECK_FALSE(good.isDrawn());
}

TEST_CASE("an object without a group flag is taken for no group")
{
    GoodScene good;
    good.object.groupFlag = nullptr;
    CHECK(good.draw() == Names{"missing-group-flag"});
    CHECK(good.isDrawn());
}

TEST_CASE("a tree that has no end is told of, and the call ends")
{
    GoodScene good;
    TestObject& second = good.scene.addRoot("second");
    TestObject& child = good.scene.addObject("child", &second);
    TestObject& sibling = good.scene.addObject("sibling", &second);
    CHECK(good.draw() == Names{});
    const Names once = {"tree-ring"};
    second.nextRoot = &good.object;
    CHECK(good.draw() == once);
    second.nextRoot = &second;
    CHECK(good.draw() == once);
    second.nextRoot = nullptr;
    sibling.nextSibling = &child;
    CHECK(good.draw() == once);
    sibling.nextSibling = nullptr;
    child.firstChild = &second;
    CHECK(good.draw() == once);
    CHECK(good.pick() == once);
    child.firstChild = &child;
    CHECK(good.draw() == once);
    child.firstChild = nullptr;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a part that no group encloses is told of")
{
    GoodScene good;
    TestObject& plain = good.scene.addRoot("plain");
    TestObject& part = good.scene.addObject("part", &plain);
    part.partOfGroup = 1;
    CHECK(good.draw() == Names{"part-outside-group"});
    plain.isGroup = 1;
    CHECK(good.draw() == Names{});
    TestObject& plainChild = good.scene.addObject("plain child", &plain);
    TestObject& below = good.scene.addObject("below", &plainChild);
    below.partOfGroup = 1;
    CHECK(good.draw() == Names{"part-outside-group"});
    plainChild.partOfGroup = 1;
    CHECK(good.draw() == Names{});
}

TEST_CASE("parts of a group that share a vertex are told of")
{
    GoodScene good;
    TestObject& part = good.scene.addObject("part", &good.object);
    part.partOfGroup = 1;
    good.object.isGroup = 1;
    TestFace& face = good.addFace(part, good.material, 10);
    CHECK(good.draw() == Names{});
    face.indices = good.face.indices;
    CHECK(good.draw() == Names{"shared-vertex"});
    good.object.isGroup = 0;
    part.partOfGroup = 0;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a view of which nothing is visible is hinted at")
{
    GoodScene good;
    good.object.boundsVisible = 0;
    CHECK(good.draw() == Names{"nothing-visible"});
    good.view().firstObject = nullptr;
    CHECK(good.draw() == Names{});
}

TEST_CASE("an object with faces and no list of them is told of")
{
    GoodScene good;
    good.object.faces = nullptr;
    CHECK(good.draw() == Names{"missing-faces"});
    CHECK(good.pick() == Names{"missing-faces"});
    good.object.faceCount = 0;
    CHECK(good.draw() == Names{});
}

TEST_CASE("each vertex array that faces need is told of when it is missing")
{
    GoodScene good;
    HostContext& context = good.context();
    const HostContext right = context;
    const Names once = {"missing-array"};
    context.cameraVertices = nullptr;
    CHECK(good.draw() == once);
    CHECK(good.pick() == once);
    context.cameraVertices = right.cameraVertices;
    context.screenVertices = nullptr;
    CHECK(good.draw() == once);
    context.screenVertices = right.screenVertices;
    context.vertexOutcodes = nullptr;
    CHECK(good.draw() == once);
    context.vertexOutcodes = right.vertexOutcodes;
    context.vertexStamps = nullptr;
    CHECK(good.draw() == once);
    context.vertexStamps = right.vertexStamps;
    context.vertexShades = nullptr;
    CHECK(good.draw() == Names{});
    CHECK(Kardeno_Set_Material_Render_State_Dll(&good.material, 1) == 1);
    CHECK(good.draw() == once);
}

TEST_CASE("a list of materials with a hole in it or without an end is told of")
{
    GoodScene good;
    MaterialNode& node = good.object.nodes.front();
    node.material = nullptr;
    CHECK(good.draw() == Names{"missing-material"});
    node.material = &good.material;
    node.next = &node;
    CHECK(good.draw() == Names{"material-list-ring"});
    CHECK(good.isDrawn());
}

TEST_CASE("a lit face of an object in whose list no lit material stands is told of")
{
    GoodScene good;
    TestMaterial& lit = good.scene.addMaterial(1);
    good.face.material = &lit;
    CHECK(good.draw() == Names{"missing-light"});
    good.object.materials = nullptr;
    CHECK(good.draw() == Names{"missing-light"});
    good.object.nodes.front().material = &lit;
    good.object.materials = &good.object.nodes.front();
    CHECK(good.draw() == Names{});
}

TEST_CASE("the object that selectLevel answers with is looked at like any other")
{
    GoodScene good;
    TestObject& level = good.scene.addObject("level", nullptr);
    level.functions.prepareVertices = nullptr;
    good.object.level = &level;
    CHECK(good.draw() == Names{"missing-function"});
}
