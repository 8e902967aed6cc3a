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
    CHECK_FALSE(options.room);
    CHECK(options.frames == 1);
    CHECK(options.width == 640);
    CHECK(options.height == 480);
    CHECK(options.format == PixelFormat::rgb565);
    CHECK(options.mode.textures == TextureKind::trueColour);
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

TEST_CASE("what cannot be used is refused with a sentence")
{
    const std::vector<std::vector<const char*>> wrong{
        {"--frames"},           {"--frames", "0"},     {"--frames", "12x"}, {"--frames", "99999999999"},
        {"--size", "640"},      {"--size", "640x"},    {"--size", "8x480"}, {"--size", "640x4097"},
        {"--format", "888"},    {"--texture", "nice"}, {"--state", "3"},    {"--nothing"},
        {"one.obj", "two.obj"}, {"--room", "one.obj"},
    };
    for (const auto& arguments : wrong) CHECK_THROWS_AS(read(arguments), std::runtime_error);
}
