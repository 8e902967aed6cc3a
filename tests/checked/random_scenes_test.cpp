// Random scenes, many of them with mistakes on purpose: whatever is said of them, they are drawn and picked as by the
// reference renderer where the plain library draws them, and nothing crashes.
#include "checked/registry.h"
#include "tests/checked/hearing.h"
#include "tests/reference/comparison.h"
#include "tests/robustness/hostile_scene.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// The faces of these scenes have colour blocks of their own, or none, which is a colour of 0. The library takes the
// blocks for its own.
void rememberFace(SceneFace& face)
{
    static u16 black = 0;
    if (!face.faceColour) face.faceColour = &black;
    checked::rememberFace(face);
}

void rememberFaces(SceneObject* first)
{
    for (SceneObject* object = first; object; object = object->nextSibling) {
        TestObject& own = static_cast<TestObject&>(*object);
        for (SceneFace* const face : own.faceList) rememberFace(*face);
        if (own.level) {
            for (SceneFace* const face : static_cast<TestObject&>(*own.level).faceList) rememberFace(*face);
        }
        rememberFaces(object->firstChild);
    }
}

#if defined(__SANITIZE_ADDRESS__)
constexpr u32 reduction = 5;
#else
constexpr u32 reduction = 1;
#endif

} // namespace

TEST_CASE("random scenes are drawn and picked as by the reference renderer, call by call")
{
    const Theme themes[] = {Theme::everything, Theme::trees,   Theme::seeThrough, Theme::slivers,
                            Theme::billboards, Theme::clipped, Theme::loosePlanes};
    for (const Theme theme : themes) {
        CAPTURE(static_cast<i32>(theme));
        forEachSeed(20000000 + 1000 * static_cast<u32>(theme), 60 / reduction, [&](u32 seed) {
            const Hearing nobody;
            RandomScene scene(seed, {theme, {}}, referenceRenderer());
            for (TestObject* const object : scene.objects) {
                for (SceneFace* const face : object->faceList) rememberFace(*face);
            }
            for (i32 frame = 0; frame < 2; ++frame) {
                if (frame > 0) scene.nextFrame();
                REQUIRE(compareFrames(scene) == "");
                REQUIRE(comparePicks(scene, 20.5f, 30) == "");
            }
        });
    }
}

TEST_CASE("hostile scenes write nothing outside their rectangle")
{
    forEachSeed(300 / reduction, [](u32 seed) {
        const Hearing nobody;
        ByteSource source(seed);
        TestHost host(seed % 2 ? 16 : 15);
        HostileScene hostile(host, source);
        RenderView& view = hostile.scene.view.record;
        for (SceneObject* root = view.firstObject; root; root = root->nextRoot) rememberFaces(root);
        for (i32 i = 0; i < 2; ++i) {
            ExactFrame frame(view);
            Kardeno_Render_Dll(&view, frame.pixels(), source.byte(), source.byte());
            CHECK(frame.onlyRectangleWritten());
            i32 faceIndex;
            f32 depth;
            Kardeno_Pick_Dll(&view, hostile.pointX(), hostile.pointY(), &faceIndex, &depth);
        }
    });
}
