// The fast routines against the plain ones: whole frames must be the same without the fillers of runs, and with nothing
// but inner routines that draw pixel by pixel.
#include "scenes/composed_scene.h"
#include "scenes/random_scene.h"
#include "tests/support/plain_fillers.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::scenes;
using kardeno::tests::drawsAlike;
using kardeno::tests::forEachSeed;
using kardeno::tests::TestFrame;

namespace {

bool isDrawnAlike(Scene& scene)
{
    TestFrame first(scene.width(), scene.height());
    scene.draw(first.pixels(), first.pitch()); // initialises the renderer with this scene
    return drawsAlike(scene.width(), scene.height(),
                      [&](TestFrame& frame) { scene.draw(frame.pixels(), frame.pitch()); });
}

} // namespace

TEST_CASE("the composed scenes are the same frames by the fast routines and by the plain ones")
{
    for (const ComposedScene& composed : composedScenes) {
        CAPTURE(composed.name);
        for (const i32 bitsPerPixel : {15, 16}) CHECK(isDrawnAlike(*composed.make(bitsPerPixel)));
    }
}

TEST_CASE("random scenes of all rows are the same frames by the fast routines and by the plain ones")
{
    forEachSeed(60, [](u32 seed) {
        const i32 bitsPerPixel = seed % 2 ? 15 : 16;
        const i32 litState = seed % 4 < 2 ? 1 : 2;
        CHECK(isDrawnAlike(*makeTangledScene(seed, {.bitsPerPixel = bitsPerPixel, .litState = litState})));
        CHECK(isDrawnAlike(
            *makeLayeredScene(seed, {.bitsPerPixel = bitsPerPixel, .polygons = 20, .litState = litState})));
    });
}
