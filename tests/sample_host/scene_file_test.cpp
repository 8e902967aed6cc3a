#include "sample_host/models/scene_from_file.h"
#include "sample_host/scenes/scenes.h"
#include "tests/sample_host/files.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

#include <stdexcept>

using namespace sample_host;

namespace {

std::vector<u16> pixelsOf(Scene& scene, double phase)
{
    FrameBuffer frame(PixelFormat::rgb565, 160, 120);
    scene.draw(frame, phase);
    return frame.pixels;
}

} // namespace

TEST_CASE("the scene files draw the same pixels as the scenes made by code")
{
    for (const SceneEntry& entry : ownScenes) {
        CAPTURE(entry.name);
        const SceneFile file = readSceneFile("sample_host/scenes/" + std::string(entry.name) + ".json");
        CHECK(file.name == entry.name);
        for (const int state : {0, 1}) {
            const MaterialMode mode{TextureKind::trueColour, state};
            Engine engine(linkedRendererOfTheTests(), PixelFormat::rgb565);
            std::vector<std::vector<u16>> byCode;
            {
                const std::unique_ptr<Scene> scene = entry.build(engine, mode);
                for (const double phase : {0.0, 0.25, 0.7}) byCode.push_back(pixelsOf(*scene, phase));
            }
            const std::unique_ptr<Scene> scene = buildSceneFile(engine, file, mode);
            std::vector<std::vector<u16>> byFile;
            for (const double phase : {0.0, 0.25, 0.7}) byFile.push_back(pixelsOf(*scene, phase));
            CHECK((byFile == byCode));
            CHECK((byFile[0] != byFile[1])); // it moves
        }
    }
}

TEST_CASE("a scene file takes in models, which lie beside it, with their materials and what is wrong with them")
{
    const Files files;
    files.write("a.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 1 2 2\n");
    const SceneFile file = readSceneFile(
        files.write("a.json", R"({"materials": {"red": {"diffuse": [255, 0, 0]}}, "meshes": {"a": {"model": "a.obj"}},
                      "objects": [{"name": "first", "mesh": "a", "place": [1, 2, 3], "size": 2}]})"));
    REQUIRE(file.materials.size() == 2);
    REQUIRE(file.meshes.size() == 2);
    CHECK(file.meshes[1].polygons[0].material == 1);
    REQUIRE(file.remarks.size() == 1);
    CHECK(file.remarks[0].find("a.obj', line 5: ") != std::string::npos);
    const Placement place = file.objects[0].movement(0.5);
    CHECK(place.origin.y == 2);
    CHECK(place.axisX.x == 2);
}

TEST_CASE("a thing is said once and stands in many places, ahead of the others by its lead")
{
    const Files files;
    const SceneFile file = readSceneFile(files.write(
        "a.json",
        R"({"things": {"arm": {"name": "upper", "place": [0, 1, 0], "swinging": {"axis": [0, 0, 1], "width": 0.25},
                               "children": [{"name": "lower"}]}},
            "objects": [{"thing": "arm", "name": "left", "place": [5, 0, 0], "lead": 0.25}, {"thing": "arm"}]})"));
    REQUIRE(file.objects.size() == 2);
    CHECK(file.objects[0].name == "left, upper");
    CHECK(file.objects[0].children[0].name == "left, lower");
    CHECK(file.objects[1].name == "upper");
    // A quarter of a beat ahead, the swing has reached its whole width, a quarter of a turn: X points where Y did.
    const Placement place = file.objects[0].movement(0);
    CHECK(place.origin.x == 5);
    CHECK(place.origin.y == 1);
    CHECK(place.axisX.y == doctest::Approx(1));
    CHECK(file.objects[1].movement(0).axisX.x == doctest::Approx(1));
}

TEST_CASE("what is wrong in a scene file is told by the file, the key and what is expected there")
{
    const Files files;
    const auto refused = [&](const std::string& content, const char* why) {
        const std::string name = files.write("a.json", content);
        std::string sentence;
        try {
            readSceneFile(name);
        } catch (const std::runtime_error& error) {
            sentence = error.what();
        }
        CAPTURE(sentence);
        CHECK(sentence.find("a.json'") != std::string::npos);
        CHECK(sentence.find(why) != std::string::npos);
        CHECK(sentence.find('\n') == std::string::npos);
    };
    refused("", "parse error at line 1");
    refused("{\n\"camera\": {},\n}", "parse error at line 3, column 1");
    refused("[]", "expected is an object with keys in braces, not []");
    refused("{}", "the key 'objects' is missing");
    refused(R"({"objects": 3})", "objects: expected is a list in brackets, not 3");
    refused(R"({"object": []})", "there is no key 'object' here; did you mean 'objects'?");
    refused(R"({"camera": {"zoom": "big"}, "objects": []})",
            "camera.zoom: expected is a number from 0.001 to 1e+06, not \"big\"");
    refused(R"({"camera": {"near": 5, "far": 2}, "objects": []})", "camera: far lies before near");
    refused(R"({"camera": {"target": [0, 1]}, "objects": []})", "camera.target: expected is a list of three numbers");
    refused(R"({"light": {"lamps": [{"place": [0, 0, 0]}, {}]}, "objects": []})",
            "light.lamps[1]: the key 'place' is missing");
    refused(R"({"materials": {"red": {"diffuse": [256, 0, 0]}}, "objects": []})",
            "materials.red.diffuse[0]: expected is a whole number from 0 to 255, not 256");
    refused(R"({"materials": {"wall": {"texture": {"own": "brick"}}}, "objects": []})",
            "materials.wall.texture.own: there is no texture 'brick'; did you mean 'bricks'?");
    refused(R"({"materials": {"wall": {"texture": {"file": "no.png"}}}, "objects": []})", "/no.png' cannot be opened");
    refused(R"({"materials": {"wall": {"shading": "added"}}, "objects": []})", "needs a texture");
    refused(R"({"materials": {"red": {}}, "meshes": {"m": [{"box": {"material": "rad", "half size": [1, 1, 1]}}]},
                "objects": []})",
            "meshes.m[0].box.material: there is no material 'rad'; did you mean 'red'?");
    refused(R"({"meshes": {"m": [{"cube": {}}]}, "objects": []})", "meshes.m[0]: there is no key 'cube' here");
    refused(R"({"meshes": {"m": {"model": "none.obj"}}, "objects": []})", "meshes.m.model: the model '");
    refused(R"({"objects": [{"mesh": "m"}]})", "objects[0].mesh: there is no mesh 'm'");
    refused(R"({"objects": [{"group": 1}]})", "objects[0].group: expected is true or false, not 1");
    refused(R"({"levels": {"near": {}}, "objects": [{"levels": ["near"], "limits": [1]}]})",
            "objects[0]: levels has 1 and limits has 1; expected is one limit less than levels");
    refused(R"({"levels": {"near": {"children": [{}]}}, "objects": [{"levels": ["near"]}]})",
            "objects[0].levels: the level 'near' is another tree");
    refused(R"({"objects": [{"turning": {"axis": [0, 1, 0], "turns": 1}, "swinging": {}}]})",
            "objects[0]: a thing turns or swings");
    refused(R"({"objects": [{"thing": "robot"}]})", "objects[0].thing: there is no thing 'robot'; there are none");
}
