// The host with the renderer linked in, as a page has it: one golden hash for each scene and pixel format, the same for
// every build.
//
//   KARDENO_UPDATE_GOLDEN=1 tests_sample_host -tc="the scenes of the host*"
//
// writes tests/sample_host/golden_frames.txt anew. Look at the scenes (./demo) before you commit it.
#include "sample_host/scenes/gallery.h"
#include "sample_host/scenes/scenes.h"
#include "tests/sample_host/linked_renderer.h"
#include "tests/support/golden_hashes.h"

#include <doctest/doctest.h>

#include <string>

using namespace sample_host;
using namespace kardeno::tests;

namespace {

const std::string hashFile = "tests/sample_host/golden_frames.txt"; // tests run in the folder of the sources

std::string hashOf(const FrameBuffer& frame)
{
    u32 hash = hashBasis;
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x)
            hash = hashWithPixel(hash, frame.pixels[std::size_t(y * frame.pitch + x)]);
    }
    return hexadecimal(hash);
}

GoldenHashes drawnHashes()
{
    const RendererTable& renderer = linkedRendererOfTheTests();
    GoldenHashes drawn;
    for (const PixelFormat format : {PixelFormat::rgb565, PixelFormat::rgb555}) {
        const std::string bits = format == PixelFormat::rgb565 ? " 16" : " 15";
        for (const SceneEntry& entry : ownScenes) {
            for (const int state : {0, 1}) {
                Engine engine(renderer, format);
                FrameBuffer frame(format, 160, 120);
                entry.build(engine, {TextureKind::trueColour, state})->draw(frame, 0.25);
                drawn[entry.name + std::string(state ? "_lit" : "_unlit") + bits] = hashOf(frame);
            }
        }
        for (const GalleryRow& row : galleryRows()) {
            Engine engine(renderer, format);
            FrameBuffer frame(format, 88, 66);
            buildGalleryScene(engine, row)->draw(frame, 0);
            drawn[row.name + bits] = hashOf(frame);
        }
    }
    return drawn;
}

} // namespace

TEST_CASE("the scenes of the host draw their golden frames through a renderer that is linked in")
{
    const GoldenHashes drawn = drawnHashes();
    if (updatesGoldenHashes()) writeGoldenHashes(hashFile, drawn);
    const GoldenHashes golden = readGoldenHashes(hashFile);
    CHECK(golden.size() == 52); // three scenes in two states, twenty rows; in two formats
    for (const auto& frame : drawn) {
        CAPTURE(frame.first);
        const auto expected = golden.find(frame.first);
        REQUIRE(expected != golden.end());
        CHECK(frame.second == expected->second);
    }
}
