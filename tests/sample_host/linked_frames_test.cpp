// The host with the renderer linked in, as a page has it: one golden hash for each scene and pixel format, the same for
// every build.
//
//   KARDENO_UPDATE_GOLDEN=1 tests_sample_host -tc="the scenes of the host*"
//
// writes tests/sample_host/golden_frames.txt anew. Look at the scenes (./demo) before you commit it.
#include "sample_host/scenes/gallery.h"
#include "sample_host/scenes/scenes.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

using namespace sample_host;

namespace {

const std::string hashFile = "tests/sample_host/golden_frames.txt"; // tests run in the folder of the sources

using Hashes = std::map<std::string, std::string>;

// FNV-1a over the bytes of the pixels that are seen, low byte first.
std::string hashOf(const FrameBuffer& frame)
{
    u32 value = 2166136261u;
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            const u32 pixel = frame.pixels[std::size_t(y * frame.pitch + x)];
            for (const u32 byte : {pixel & 0xff, pixel >> 8}) value = (value ^ byte) * 16777619u;
        }
    }
    char text[16];
    std::snprintf(text, sizeof text, "%08x", unsigned(value));
    return text;
}

Hashes drawnHashes()
{
    const RendererTable& renderer = linkedRendererOfTheTests();
    Hashes drawn;
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

// Lines of: scene, bits per pixel, hash.
Hashes goldenHashes()
{
    Hashes hashes;
    std::ifstream in(hashFile);
    std::string scene, bits, hash;
    while (in >> scene >> bits >> hash) hashes[scene + " " + bits] = hash;
    return hashes;
}

} // namespace

TEST_CASE("the scenes of the host draw their golden frames through a renderer that is linked in")
{
    const Hashes drawn = drawnHashes();
    const char* const update = std::getenv("KARDENO_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        std::ofstream out(hashFile, std::ios::binary);
        for (const auto& [name, hash] : drawn) out << name << ' ' << hash << '\n';
    }
    const Hashes golden = goldenHashes();
    CHECK(golden.size() == 52); // three scenes in two states, twenty rows; in two formats
    for (const auto& frame : drawn) {
        CAPTURE(frame.first);
        const auto expected = golden.find(frame.first);
        REQUIRE(expected != golden.end());
        CHECK(frame.second == expected->second);
    }
}
