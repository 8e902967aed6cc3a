// Golden frames: one hash for each composed scene and pixel format, the same for every build. When a frame differs, its
// picture is written beside the test program.
//
//   KARDENO_UPDATE_GOLDEN=1 tests_scenes -tc="every composed scene*"
//
// writes tests/scenes/golden_frames.txt and the pictures in tests/scenes/golden/ anew. Look at them before you commit
// them.
#include "scenes/composed_scene.h"
#include "tests/support/golden_hashes.h"
#include "tests/support/test_frame.h"

#include <doctest/doctest.h>

#include <string>

#if __has_include(<stb/stb_image_write.h>)
#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>
#define CAN_WRITE_PICTURES 1
#endif

using namespace kardeno;
using namespace kardeno::scenes;
using namespace kardeno::tests;

namespace {

const std::string hashFile = "tests/scenes/golden_frames.txt"; // tests run in the folder of the sources
const std::string pictureFolder = "tests/scenes/golden/";

// The folder of the test program, with its separator.
std::string buildFolder()
{
    const std::string program = doctest::getContextOptions()->binary_name.c_str();
    const size_t end = program.find_last_of("/\\");
    return end == std::string::npos ? std::string() : program.substr(0, end + 1);
}

u8 widened(u32 channel, u32 bits)
{
    return static_cast<u8>(channel * 255 / ((1u << bits) - 1));
}

// Writes the frame as a PNG file; false when that is not possible.
[[maybe_unused]] bool writePicture(const std::string& file, const TestFrame& frame, i32 bitsPerPixel)
{
    std::vector<u8> bytes;
    const u32 greenBits = bitsPerPixel == 15 ? 5 : 6;
    for (i32 y = 0; y < frame.height; ++y) {
        for (i32 x = 0; x < frame.width; ++x) {
            const u32 pixel = frame.at(x, y);
            bytes.push_back(widened(pixel >> (5 + greenBits) & 31, 5));
            bytes.push_back(widened(pixel >> 5 & ((1u << greenBits) - 1), greenBits));
            bytes.push_back(widened(pixel & 31, 5));
        }
    }
#if defined(CAN_WRITE_PICTURES)
    return stbi_write_png(file.c_str(), frame.width, frame.height, 3, bytes.data(), 3 * frame.width) != 0;
#else
    return false;
#endif
}

} // namespace

TEST_CASE("every composed scene draws its golden frame in both pixel formats")
{
    const bool updates = updatesGoldenHashes();
    const GoldenHashes golden = readGoldenHashes(hashFile);
    GoldenHashes drawn;

    for (const ComposedScene& composed : composedScenes) {
        for (const i32 bitsPerPixel : {15, 16}) {
            const std::unique_ptr<Scene> scene = composed.make(bitsPerPixel);
            TestFrame frame(scene->width(), scene->height(), bitsPerPixel == 15 ? 0x294a : 0x5294);
            scene->draw(frame.pixels(), frame.pitch());

            const std::string name = std::string(composed.name) + " " + std::to_string(bitsPerPixel);
            const std::string picture = std::string(composed.name) + "_" + std::to_string(bitsPerPixel) + ".png";
            drawn[name] = hexadecimal(frame.hash());
            CHECK_MESSAGE(frame.fencesStand(), "pixels outside the frame of ", name, " were written");
            if (updates) {
                CHECK_MESSAGE(writePicture(pictureFolder + picture, frame, bitsPerPixel), "no picture of ", name);
                continue;
            }
            const auto expected = golden.find(name);
            REQUIRE_MESSAGE(expected != golden.end(), "no golden hash of ", name);
            if (expected->second != drawn[name]) {
                const std::string file = buildFolder() + picture;
                writePicture(file, frame, bitsPerPixel);
                FAIL_CHECK("the frame of ", name, " differs: ", drawn[name], " instead of ", expected->second, "; see ",
                           file, " and ", pictureFolder);
            }
        }
    }
    if (updates) writeGoldenHashes(hashFile, drawn);
}
