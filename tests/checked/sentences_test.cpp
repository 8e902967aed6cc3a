// How sentences are put together, where they go and how often.
#include "tests/checked/good_scene.h"
#include "tests/support/not_here.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A pointer as it is written in a sentence.
std::string written(const void* address)
{
    std::ostringstream text;
    text << "0x" << std::hex << reinterpret_cast<uintptr_t>(address);
    return text.str();
}

} // namespace

TEST_CASE("a sentence says where, what and what to do, with the place in the tree")
{
    GoodScene good;
    TestObject& second = good.scene.addRoot("second");
    good.scene.addObject("first child", &second);
    TestObject& child = good.scene.addObject("second child", &second);
    good.addFace(child, good.material);
    TestFace& face = good.addFace(child, good.material, 4);
    face.vertexIndices = nullptr;

    const Hearing hearing;
    good.scene.draw(good.frame);
    REQUIRE(hearing.sentences().size() == 1);
    CHECK(hearing.sentences()[0]
          == "kardeno_soft_checked: error in Kardeno_Render_Dll: object 1.1 at " + written(&child) + ", face 1 at "
                 + written(&face)
                 + ": vertexIndices of the face is 0. Let it point at an index for each corner. [missing-indices]");
}

TEST_CASE("a sentence names what selectLevel chose, the material and the values")
{
    GoodScene good;
    TestObject& level = good.scene.addObject("level", nullptr);
    TestMaterial& other = good.scene.addMaterial();
    TestFace& face = good.addFace(level, other);
    level.materials = nullptr;
    good.object.level = &level;
    face.normalX = face.normalY = face.normalZ = 0;

    Hearing hearing;
    good.scene.draw(good.frame);
    REQUIRE(hearing.sentences().size() == 1);
    CHECK(hearing.sentences()[0]
          == "kardeno_soft_checked: warning in Kardeno_Render_Dll: object 0 at " + written(&good.object)
                 + ", drawn as the one at " + written(&level) + ", face 0 at " + written(&face)
                 + ": the normal of the face is 0 or not a finite number (0, 0, 0). Fill normalX, normalY and normalZ "
                   "in prepareVertices. [normal-zero]");

    hearing.forget();
    other.transparency = 30;
    Kardeno_Set_Material_Render_State_Dll(&other, 0);
    const std::string sentence = hearing.sentences().at(0);
    CHECK(sentence.find("in Kardeno_Set_Material_Render_State_Dll: material ") != std::string::npos);
    CHECK(sentence.find(" at " + written(&other) + ": no row has") != std::string::npos);
}

TEST_CASE("each thing is told of once, and a second thing by itself")
{
    GoodScene good;
    good.face.vertexIndices = nullptr;
    const Hearing hearing;
    for (i32 i = 0; i < 3; ++i) good.scene.draw(good.frame);
    CHECK(hearing.names() == Names{"missing-indices"});
    good.addFace(good.object, good.material).vertexIndices = nullptr;
    good.scene.draw(good.frame);
    CHECK(hearing.names() == Names{"missing-indices", "missing-indices"});
    good.face.faceTest = nullptr;
    good.scene.draw(good.frame);
    CHECK(hearing.names() == Names{"missing-indices", "missing-indices", "missing-face-test"});
}

TEST_CASE("after ten things of a mistake one more line says that there are others")
{
    GoodScene good;
    good.face.vertexIndices = nullptr;
    for (i32 i = 0; i < 14; ++i) good.addFace(good.object, good.material).vertexIndices = nullptr;
    const Hearing hearing;
    good.scene.draw(good.frame);
    good.scene.draw(good.frame);
    CHECK(hearing.sentences().size() == 11);
    CHECK(hearing.sentences().back() == "kardeno_soft_checked: more of [missing-indices] are not told");
}

TEST_CASE("how many things of a mistake are told of can be chosen")
{
    GoodScene good;
    good.face.vertexIndices = nullptr;
    for (i32 i = 0; i < 14; ++i) good.addFace(good.object, good.material).vertexIndices = nullptr;
    const Hearing hearing;
    setVariable("KARDENO_CHECKED_MOST", "2");
    good.scene.draw(good.frame);
    setVariable("KARDENO_CHECKED_MOST", "10");
    CHECK(hearing.sentences().size() == 3);
}

TEST_CASE("without being asked for, hints are not told, and with the level of errors no warnings")
{
    GoodScene good;
    const Hearing hearing;
    const auto drawAll = [&] {
        good.view().camera = nullptr;
        good.scene.draw(good.frame); // a hint
        good.view().camera = &good.scene.camera;
        good.face.normalZ = 0;
        good.scene.draw(good.frame); // a warning
        good.face.vertexIndices = nullptr;
        good.scene.draw(good.frame); // an error
    };
    setVariable("KARDENO_CHECKED_LEVEL", "errors");
    drawAll();
    CHECK(hearing.names() == Names{"missing-indices"});

    good.face.vertexIndices = good.face.indices.data();
    checked::forgetSentences();
    setVariable("KARDENO_CHECKED_LEVEL", "warnings");
    drawAll();
    CHECK(hearing.names() == Names{"missing-indices", "normal-zero", "missing-indices"});
}

#if defined(__wasm__)
TEST_CASE("sentences in a file: not here")
{
    notHere("sentences in a file", "WebAssembly has no file system");
}
#else
namespace {

const std::string fileName = "build/checked_sentences.txt";

std::vector<std::string> linesOfFile()
{
    std::ifstream file(fileName);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

} // namespace

TEST_CASE("sentences go to the end of a file")
{
    GoodScene good;
    {
        const Hearing nobody;
    }
    std::remove(fileName.c_str());
    checked::forgetSentences();
    setVariable("KARDENO_CHECKED_FILE", fileName);
    good.face.vertexIndices = nullptr;
    good.scene.draw(good.frame);
    good.face.faceTest = nullptr;
    good.scene.draw(good.frame);
    setVariable("KARDENO_CHECKED_FILE", "");
    const std::vector<std::string> lines = linesOfFile();
    REQUIRE(lines.size() == 2);
    CHECK(lines[0].find("[missing-indices]") != std::string::npos);
    CHECK(lines[1].find("[missing-face-test]") != std::string::npos);
    std::remove(fileName.c_str());
}
#endif
