// Scenes that are right: not a sentence is said of them, and they look as through the plain library.
#include "scenes/composed_scene.h"
#include "scenes/random_scene.h"
#include "tests/checked/hearing.h"
#include "tests/support/golden_hashes.h"
#include "tests/support/seeds.h"
#include "tests/support/test_frame.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::scenes;
using namespace kardeno::tests;

namespace {

// What may be said of all scenes: the hints that are no more than that.
void leaveOutHints(Names& names)
{
    std::erase_if(names, [](const std::string& name) {
        for (u32 i = 0; i < static_cast<u32>(checked::Mistake::count); ++i) {
            const checked::MistakeWords& words = checked::wordsOf(static_cast<checked::Mistake>(i));
            if (name == words.name) return words.level == checked::Level::hint;
        }
        return false;
    });
}

} // namespace

TEST_CASE("the composed scenes are drawn to the pixel, and only the one that shows a fallback on purpose is spoken of")
{
    const GoldenHashes golden = readGoldenHashes("tests/scenes/golden_frames.txt");
    for (const ComposedScene& composed : composedScenes) {
        for (const i32 bitsPerPixel : {15, 16}) {
            const std::string name = std::string(composed.name) + " " + std::to_string(bitsPerPixel);
            CAPTURE(name);
            Names names = heardIn([&] {
                const std::unique_ptr<Scene> scene = composed.make(bitsPerPixel);
                TestFrame frame(scene->width(), scene->height(), bitsPerPixel == 15 ? 0x294a : 0x5294);
                scene->draw(frame.pixels(), frame.pitch());
                CHECK(hexadecimal(frame.hash()) == golden.at(name));
                i32 faceIndex;
                f32 depth;
                scene->pick(100, 100, &faceIndex, &depth);
            });
            leaveOutHints(names);
            const bool showsFallback = std::string(composed.name) == "flat_fallbacks";
            CHECK(names == (showsFallback ? Names{"lit-pixels"} : Names{}));
        }
    }
}

TEST_CASE("of tangled scenes and of scenes in layers nothing is said but that billboards have four corners")
{
    forEachSeed(1, 60, [](u32 seed) {
        Names names = heardIn([&] {
            for (const RowChoice rows : {RowChoice::all, RowChoice::plainAndGlass}) {
                const RandomSceneSettings settings = {.rows = rows};
                const std::unique_ptr<Scene> scene =
                    seed % 2 ? makeTangledScene(seed, settings) : makeLayeredScene(seed, settings);
                TestFrame frame(scene->width(), scene->height());
                scene->draw(frame.pixels(), frame.pitch());
            }
        });
        leaveOutHints(names);
        std::erase(names, "billboard-corners");
        CHECK(names == Names{});
    });
}
