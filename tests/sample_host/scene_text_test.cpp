#include "sample_host/reading/scene_file.h"

#include <doctest/doctest.h>

using namespace sample_host;

namespace {

// Files that lie in no folder: every model is one triangle, every image is white, and what is asked for is noted.
struct Given {
    std::vector<std::string> asked;

    NamedFiles files()
    {
        return {[this](const std::string& name) {
                    asked.push_back(name);
                    Model model;
                    for (const Vector& place : {Vector{0, 0, 0}, Vector{1, 0, 0}, Vector{0, 1, 0}})
                        model.mesh.addVertex(place, {0, 0, 1});
                    const Mesh::Corner corners[]{{0}, {1}, {2}};
                    model.mesh.addPolygon(0, corners);
                    model.materials.push_back({.name = "paint"});
                    model.remarks.push_back("a remark on " + name);
                    return ModelReading{std::move(model), ""};
                },
                [this](const std::string& name) {
                    asked.push_back(name);
                    return ImageReading{std::make_shared<const Image>(8, 8), ""};
                }};
    }
};

} // namespace

TEST_CASE("models and images of a scene's text come from whoever has them, by the names that stand there")
{
    Given given;
    const SceneReading reading = readSceneText("folder/a.b.json", R"(
        {"materials": {"wall": {"texture": {"file": "images/wall.png"}}},
         "meshes": {"first": {"model": "models/one.obj"}, "second": {"model": "two.glb"}},
         "objects": [{"mesh": "second"}]})",
                                               given.files());
    REQUIRE(reading.scene);
    CHECK(reading.problem.empty());
    CHECK(reading.scene->name == "a.b");
    CHECK(given.asked == std::vector<std::string>{"images/wall.png", "models/one.obj", "two.glb"});
    CHECK(reading.scene->remarks == std::vector<std::string>{"a remark on models/one.obj", "a remark on two.glb"});
    // Behind the wall's material come those of the models, and behind the empty mesh theirs.
    REQUIRE(reading.scene->materials.size() == 3);
    CHECK(reading.scene->materials[0].image->width == 8);
    CHECK(reading.scene->meshes[1].polygons[0].material == 1);
    CHECK(reading.scene->meshes[2].polygons[0].material == 2);
    CHECK(reading.scene->objects[0].mesh == 2);
}

TEST_CASE("the first of several faults is told, and no file is asked for after it")
{
    Given given;
    const SceneReading reading = readSceneText("a.json", R"(
        {"camera": {"zoom": 0, "far": "away"},
         "meshes": {"m": {"model": "one.obj"}, "n": [{"polygons": {"vertices": 1}}], "o": 5},
         "levels": {"l": {"mesh": "p"}},
         "objects": [{"thing": "none"}, {"fire": {}}, {"levels": ["l", "x"]}, 7, {"mesh": [], "swinging": {}}]})",
                                               given.files());
    CHECK(!reading.scene);
    CHECK(reading.problem == "'a.json', camera.zoom: expected is a number from 0.001 to 1e+06, not 0");
    CHECK(given.asked.empty());
}

TEST_CASE("what a file's owner says about a model or an image is told with its key")
{
    const NamedFiles none{[](const std::string& name) {
                              return ModelReading{std::nullopt, name + " is lost"};
                          },
                          [](const std::string& name) {
                              return ImageReading{nullptr, name + " is torn"};
                          }};
    CHECK(readSceneText("a.json", R"({"meshes": {"m": {"model": "x.obj"}}, "objects": []})", none).problem
          == "'a.json', meshes.m.model: x.obj is lost");
    CHECK(
        readSceneText("a.json", R"({"materials": {"m": {"texture": {"file": "x.png"}}}, "objects": []})", none).problem
        == "'a.json', materials.m.texture.file: x.png is torn");
}

TEST_CASE("text that is no JSON is told by its line and column, however it is broken")
{
    const auto problem = [](std::string_view text) { return readSceneText("a.json", text, {}).problem; };
    CHECK(
        problem("{\"objects\": [}").starts_with("the scene 'a.json' cannot be read: parse error at line 1, column 14"));
    CHECK(problem("{\n\n\"objects\" []}").find("parse error at line 3, column 11") != std::string::npos);
    CHECK(problem("{\"objects\": 1e999}").find("number overflow") != std::string::npos);
    CHECK(problem("{\"objects\": \"\xff\"}").find("ill-formed UTF-8") != std::string::npos);
    CHECK(problem("{\"objects\": []} x").find("parse error at line 1, column 17") != std::string::npos);
    CHECK(problem(std::string(100000, '[')).find("parse error at line 1") != std::string::npos);
    CHECK(problem("\xef\xbb\xbf{\"objects\": []}").empty());     // with a byte order mark
    CHECK(problem("{\"objects\": 1, \"objects\": []}").empty()); // the last one counts
}
