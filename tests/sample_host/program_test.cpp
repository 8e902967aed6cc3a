// The program from its arguments on. Where the renderer must not be loaded yet, its file is one that does not exist:
// the sentence about that would come instead.
#include "sample_host/program.h"

#include "kardeno_soft/version.h"
#include "tests/sample_host/files.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <sstream>
#include <vector>

using namespace sample_host;

namespace {

struct Outcome {
    int exitCode;
    std::string said, complained;
};

Outcome run(std::vector<const char*> arguments, const std::string& renderer = "no such renderer")
{
    std::ostringstream said, complained;
    const int exitCode = runProgram(arguments, renderer, said, complained);
    return {exitCode, said.str(), complained.str()};
}

// One sentence on one line, with this in it.
void checkComplaint(const Outcome& outcome, const char* part)
{
    CAPTURE(outcome.complained);
    CHECK(outcome.exitCode == 1);
    CHECK(outcome.said.empty());
    CHECK(outcome.complained.find(part) != std::string::npos);
    CHECK(outcome.complained.find('\n') == outcome.complained.size() - 1);
}

} // namespace

TEST_CASE("-h and --help give the help, and nothing is loaded")
{
    for (const char* option : {"-h", "--help"}) {
        const Outcome outcome = run({"missing.obj", option});
        CHECK(outcome.exitCode == 0);
        CHECK(outcome.said.starts_with("usage: sample_host"));
        CHECK(outcome.said.find("In the window:\ndrag or arrow keys") != std::string::npos);
        CHECK(outcome.complained.empty());
    }
}

TEST_CASE("--version gives the library's version, and nothing is loaded")
{
    const Outcome outcome = run({"--version"});
    CHECK(outcome.exitCode == 0);
    CHECK(outcome.said == "sample_host " KARDENO_VERSION "\n");
    CHECK(outcome.complained.empty());
}

TEST_CASE("wrong arguments are answered with a sentence, and nothing is loaded")
{
    checkComplaint(run({"--nothing"}), "there is no option --nothing");
    checkComplaint(run({"--scene", "kitchen"}), "there is no scene 'kitchen'");
    checkComplaint(run({"--size", "640"}), "--size is a width, an x and a height, not '640'");
    checkComplaint(run({"--frames"}), "--frames needs a value");
    checkComplaint(run({"gallery", "missing.obj"}), "the gallery takes no model");
}

TEST_CASE("a missing model is told before the renderer is loaded")
{
    checkComplaint(run({"missing.obj"}), "the model 'missing.obj' cannot be read: it is not there");
    checkComplaint(run({"missing.obj", "pick", "3", "4"}), "missing.obj");
}

TEST_CASE("a missing renderer is told by the name that was given, after the model was read")
{
    const Files files;
    const std::string model = files.write("a.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    checkComplaint(run({model.c_str(), "--library", "other renderer"}), "other renderer");
    checkComplaint(run({"--room"}), "no such renderer");
}

TEST_CASE("a model is drawn into the folder that is named, and what was wrong with it is said")
{
    const char* renderer = std::getenv("KARDENO_LIBRARY");
    REQUIRE(renderer);
    const Files files;
    const std::string model = files.write("a.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 1 2 2\n");
    const std::string folder = files.name("drawn");
    const Outcome outcome = run({model.c_str(), "--size", "32x32", "--out", folder.c_str()}, renderer);
    CHECK(outcome.exitCode == 0);
    CHECK(outcome.complained.empty());
    CHECK(outcome.said.find("line 5: a face has no area and is left out") != std::string::npos);
    CHECK(std::filesystem::exists(files.name("drawn/a.png")));
}

TEST_CASE("a missing or broken scene file is told before the renderer is loaded")
{
    checkComplaint(run({"--scene", "missing.json"}), "the scene 'missing.json' cannot be read: it is not there");
    const Files files;
    const std::string scene = files.write("a.json", R"({"objects": [{"mesh": "none"}]})");
    checkComplaint(run({"pick", "1", "2", "--scene", scene.c_str()}), "a.json', objects[0].mesh: there is no mesh");
}

TEST_CASE("a missing model of any form is told by its name")
{
    checkComplaint(run({"missing.gltf"}), "the model 'missing.gltf' cannot be read: it is not there");
    checkComplaint(run({"missing.glb"}), "the model 'missing.glb' cannot be read: it is not there");
}
