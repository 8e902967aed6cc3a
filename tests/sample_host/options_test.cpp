#include "sample_host/options.h"

#include <doctest/doctest.h>

#include <stdexcept>

using namespace sample_host;

namespace {

Options read(std::vector<const char*> arguments)
{
    return readOptions(arguments);
}

} // namespace

TEST_CASE("without arguments one frame of 640 x 480 in 5-6-5 is drawn into pictures")
{
    const Options options = read({});
    CHECK(options.modelFile.empty());
    CHECK(options.sceneName.empty());
    CHECK(options.frames == 1);
    CHECK(options.width == 640);
    CHECK(options.height == 480);
    CHECK(options.format == PixelFormat::rgb565);
    CHECK(options.command == Command::draw);
    CHECK(options.mode.textures == TextureKind::trueColour);
    CHECK(options.mode.renderState == 1);
    CHECK(options.outFolder == "pictures");
}

TEST_CASE("every option is read, in any order")
{
    const Options options = read({"--size", "320x200", "--format", "555", "a.obj", "--texture", "palette", "--frames",
                                  "12", "--library", "b.so", "--out", "c", "--state", "1"});
    CHECK(options.modelFile == "a.obj");
    CHECK(options.libraryFile == "b.so");
    CHECK(options.outFolder == "c");
    CHECK(options.frames == 12);
    CHECK(options.width == 320);
    CHECK(options.height == 200);
    CHECK(options.format == PixelFormat::rgb555);
    CHECK(options.mode.textures == TextureKind::palettised);
    CHECK(options.mode.renderState == 1);
}

TEST_CASE("a pick is a command with a pixel, of a model or a scene")
{
    const Options ofModel = read({"a.obj", "pick", "12", "34"});
    CHECK(ofModel.command == Command::pick);
    CHECK(ofModel.modelFile == "a.obj");
    CHECK(ofModel.pickX == 12);
    CHECK(ofModel.pickY == 34);

    const Options ofScene = read({"--scene", "robots", "pick", "0", "0", "--format", "555"});
    CHECK(ofScene.command == Command::pick);
    CHECK(ofScene.sceneName == "robots");
    CHECK(ofScene.format == PixelFormat::rgb555);

    CHECK(read({"--room", "pick", "1", "2"}).sceneName == "room");
}

TEST_CASE("a pixel to pick lies inside the picture, whatever comes first")
{
    CHECK_NOTHROW(read({"pick", "639", "479"}));
    CHECK_THROWS_AS(read({"pick", "640", "0"}), std::runtime_error);
    CHECK_THROWS_AS(read({"pick", "0", "480"}), std::runtime_error);
    CHECK_NOTHROW(read({"pick", "900", "500", "--size", "1000x600"}));
    CHECK_THROWS_AS(read({"pick", "300", "20", "--size", "300x200"}), std::runtime_error);
}

TEST_CASE("the gallery and the help are commands of their own")
{
    CHECK(read({"gallery", "--out", "docs/pictures"}).command == Command::gallery);
    CHECK(read({"a.obj", "--help"}).command == Command::help);
}

TEST_CASE("-h and --help ask for help, whatever else is wrong")
{
    CHECK(read({"-h"}).command == Command::help);
    CHECK(read({"--size", "nonsense", "-h"}).command == Command::help);
    CHECK(read({"--nothing", "--help"}).command == Command::help);
}

TEST_CASE("--version asks for the version, unless help is asked for")
{
    CHECK(read({"--version"}).command == Command::version);
    CHECK(read({"--nothing", "--version"}).command == Command::version);
    CHECK(read({"--version", "-h"}).command == Command::help);
}

TEST_CASE("a command stands before or behind what it is about, and drawing needs none")
{
    CHECK(read({"draw", "a.obj"}).command == Command::draw);
    CHECK(read({"draw", "a.obj", "--frames", "2"}).frames == 2);
    const Options first = read({"pick", "12", "34", "a.obj", "--size=320x200"});
    CHECK(first.command == Command::pick);
    CHECK(first.modelFile == "a.obj");
    CHECK(first.pickX == 12);
    CHECK(first.pickY == 34);
    CHECK(first.width == 320);
    CHECK(read({"a.obj", "draw"}).modelFile == "a.obj");
    CHECK(read({"/tmp/a.obj"}).modelFile == "/tmp/a.obj");
}

TEST_CASE("a scene is one of our own, or a file, which has an ending or a folder in its name")
{
    CHECK(read({"--scene", "a.json"}).sceneFile == "a.json");
    CHECK(read({"--scene", "scenes/a"}).sceneFile == "scenes/a");
    CHECK(read({"--scene", "a.json"}).sceneName.empty());
    CHECK_THROWS_AS(read({"--scene", "a.json", "--room"}), std::runtime_error);
    CHECK_THROWS_AS(read({"--scene", "a.json", "a.obj"}), std::runtime_error);
    CHECK_THROWS_AS(read({"gallery", "--scene", "a.json"}), std::runtime_error);
}

TEST_CASE("stats counts a frame of a model or a scene, as text or as JSON")
{
    CHECK(read({"stats"}).command == Command::stats);
    CHECK(!read({"stats", "a.obj"}).asJson);
    CHECK(read({"stats", "a.obj", "--json"}).asJson);
    CHECK(read({"stats", "--json", "a.obj"}).modelFile == "a.obj");
    CHECK_THROWS_AS(read({"--json"}), std::runtime_error);
    CHECK_THROWS_AS(read({"stats", "--frames", "3"}), std::runtime_error);
}

TEST_CASE("a window shows a model or a scene")
{
    CHECK(read({"window"}).command == Command::window);
    CHECK(read({"window", "a.glb"}).modelFile == "a.glb");
    CHECK(read({"--scene", "robots", "window", "--size", "800x600"}).width == 800);
    CHECK_THROWS_AS(read({"window", "--frames", "3"}), std::runtime_error);
}

TEST_CASE("of an option that is given twice the last value counts")
{
    CHECK(read({"--frames", "2", "--frames", "3"}).frames == 3);
}

TEST_CASE("a mistyped word is answered with what it may have meant")
{
    const auto complains = [](std::vector<const char*> arguments, const char* part) {
        CHECK_THROWS_WITH_AS(read(arguments), doctest::Contains(part), std::runtime_error);
    };
    complains({"galery"}, "there is no command 'galery'; did you mean 'gallery'?");
    complains({"pcik", "1", "2"}, "did you mean 'pick'?");
    complains({"dwar"}, "did you mean 'draw'?");
    complains({"--frame", "2"}, "there is no option --frame; did you mean '--frames'?");
    complains({"--fromat=565"}, "there is no option --fromat; did you mean '--format'?");
    complains({"gallery", "--versoin"}, "did you mean '--version'?");
    complains({"--scene", "robot"}, "there is no scene 'robot'; did you mean 'robots'?");
    complains({"pick", "1", "-1"}, "pick takes a number from 0 to 4095, not '-1'");
    CHECK_THROWS_WITH_AS(read({"--scene", "kitchen"}), doctest::Contains("kitchen' (--help"), std::runtime_error);
    CHECK_THROWS_WITH_AS(read({"--nothing"}), doctest::Contains("--nothing (--help"), std::runtime_error);
}

TEST_CASE("what cannot be used is refused with a sentence")
{
    const std::vector<std::vector<const char*>> wrong{
        {"--frames"},
        {"--frames", "0"},
        {"--frames", "12x"},
        {"--frames", "99999999999"},
        {"--size", "640"},
        {"--size", "640x"},
        {"--size", "8x480"},
        {"--size", "640x4097"},
        {"--format", "888"},
        {"--texture", "nice"},
        {"--state", "3"},
        {"--nothing"},
        {"one.obj", "two.obj"},
        {"--room", "one.obj"},
        {"--scene"},
        {"--scene", "kitchen"},
        {"--scene", "room", "one.obj"},
        {"pick"},
        {"pick", "1"},
        {"pick", "1", "-1"},
        {"pick", "one", "2"},
        {"gallery", "--room"},
        {"gallery", "a.obj"},
        {"gallery", "pick"},
        {"pick", "1", "2", "gallery"},
        {"pick", "1", "2", "--frames", "3"},
    };
    for (const auto& arguments : wrong) CHECK_THROWS_AS(read(arguments), std::runtime_error);
}
