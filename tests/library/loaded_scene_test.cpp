// A small scene drawn and picked through the loaded library, on stacks of every alignment that a host may have.
#include "tests/library/loaded_library.h"
#include "tests/library/raw_scene.h"
#include "tests/support/not_here.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u16 o = 0;
constexpr u16 wall = 0x1234;
// Level 16 of a white ramp: ((16 x 255 x 255 x 3) >> 14) >> 2 = 190 >> 2 = 47 in each channel.
constexpr u16 lit = 0x2965;
// Half blends of 0xf000, the lowest bits of red and green masked out: (0xf000 + 0x1214) / 2 and (0xf000 + 0x2145) / 2.
constexpr u16 overWall = 0x810a;
constexpr u16 overLit = 0x88a2;

const std::vector<u16> emptyRow = {o, o, o, o, o, o, o, o, o, o, o, o, o, o, o, o};
const std::vector<u16> upperRow = {o, o, wall, wall, wall, wall, lit, lit, lit, lit, o, o, o, o, o, o};
const std::vector<u16> lowerRow = {o, o, wall, wall, overWall, overWall, overLit, overLit, lit, lit, o, o, o, o, o, o};

// How far below a multiple of 16 the stack stands at the calls.
#if defined(KARDENO_STACKS_OF_ANY_ALIGNMENT)
constexpr u32 stackOffsets[] = {0, 4, 8, 12};
#else
constexpr u32 stackOffsets[] = {0};
#endif

void addAll(const LoadedLibrary& library, RawScene& scene)
{
    CHECK(library.call("Init_Render", scene.context.address()) == 1);
    for (size_t i = 0; i < scene.materials.size(); ++i) {
        void* const material = scene.materials[i].address();
        const i32 state = scene.states[i];
        CHECK(library.call("Add_Material", material) == 1);
        CHECK(scene.materials[i].get<void*>(at(112, 128)) != nullptr);
        CHECK(library.call("Set_Material_Render_State", material, state) == 1);
        CHECK(library.call("Get_Material_Render_State", material) == static_cast<u32>(state));
        library.call("Set_Material_Fct", material);
        library.call("Update_Material", material);
        CHECK(library.call("Add_Face", scene.faces[i].address()) == 1);
        CHECK(scene.faces[i].get<void*>(at(60, 80)) != nullptr);
    }
}

void drawAndCheck(const LoadedLibrary& library, RawScene& scene)
{
    RawScene::log.clear();
    library.call("Render", scene.view.address(), scene.frameBuffer(), u32{7}, u32{1});
    CHECK(scene.row(0) == emptyRow);
    CHECK(scene.row(1) == upperRow);
    CHECK(scene.row(2) == lowerRow);
    CHECK(scene.row(3) == emptyRow);
}

void pickAndCheck(const LoadedLibrary& library, RawScene& scene)
{
    i32 faceIndex = -1;
    f32 depth = -1;
    const auto pick = [&](f32 x, f32 y) {
        return library.call<void*>("Pick", scene.view.address(), x, y, &faceIndex, &depth);
    };
    RawScene::log.clear();
    CHECK(pick(8.5f, 1.5f) == scene.object.address());
    CHECK(faceIndex == 1);
    CHECK(depth == 1);
    CHECK(RawScene::log == "cutsbpfff");
    CHECK(pick(12.5f, 1.5f) == nullptr);
    CHECK(faceIndex == 0);
    CHECK(depth == 100);
}

void releaseAll(const LoadedLibrary& library, RawScene& scene)
{
    RawScene::log.clear();
    for (size_t i = 0; i < scene.materials.size(); ++i) {
        library.call("Release_Face", scene.faces[i].address());
        library.call("Release_Material", scene.materials[i].address());
    }
    library.call("Release_Render", scene.context.address());
}

} // namespace

TEST_CASE("a scene of plain bytes is added, drawn, picked and released through the loaded library")
{
    RawScene scene;
    LoadedLibrary library;
    addAll(library, scene);
    CHECK(RawScene::log == "AAAAAAA"); // three private records, a ramp and three face colours
    drawAndCheck(library, scene);
    // The tree, then two lists with the sort arrays after the first, edges and spans.
    CHECK(RawScene::log == "cutsblpfRRRRffRRR");
    drawAndCheck(library, scene);
    CHECK(RawScene::log == "cutsblpfff");
    pickAndCheck(library, scene);
    releaseAll(library, scene);
    CHECK(RawScene::log == "FFFFFFF");
}

TEST_CASE("without the clear flag the loaded library leaves the background alone")
{
    RawScene scene;
    LoadedLibrary library;
    addAll(library, scene);
    library.call("Render", scene.view.address(), scene.frameBuffer(), u32{0}, u32{0});
    CHECK(scene.row(0) == std::vector<u16>(16, RawScene::untouched));
    CHECK(scene.row(1)[2] == wall);
    CHECK(scene.row(1)[1] == RawScene::untouched);
}

TEST_CASE("only the low byte of the flags is looked at")
{
    RawScene scene;
    LoadedLibrary library;
    addAll(library, scene);
    library.call("Render", scene.view.address(), scene.frameBuffer(), u32{0}, u32{0xffffff00});
    CHECK(scene.row(0) == std::vector<u16>(16, RawScene::untouched));
}

TEST_CASE("a library that was unloaded and loaded again starts with empty pools")
{
    RawScene scene;
    for (i32 time = 0; time < 2; ++time) {
        LoadedLibrary library;
        RawScene::log.clear();
        RawScene::firstReallocs = 0;
        addAll(library, scene);
        drawAndCheck(library, scene);
        CHECK(RawScene::firstReallocs == 7); // two lists, three sort arrays, edges, spans
        releaseAll(library, scene);
    }
}

#if defined(KARDENO_STACKS_OF_ANY_ALIGNMENT)
TEST_CASE("the stack stands where the tests put it")
{
    for (const u32 offset : {0u, 4u, 8u, 12u}) {
        void* const function = reinterpret_cast<void*>(stackPointerAtCall);
        CHECK(callWithOffset(offset, function) % 16 == (16 - offset) % 16);
        CHECK(callWithOffset(offset, function, 1, 2, 3) % 16 == (16 - offset) % 16);
    }
}
#else
TEST_CASE("stacks that are aligned to 4 bytes only: not here")
{
    notHere("calls on a stack of any alignment", "only 32-bit x86 hosts may call with less than 16 bytes");
}
#endif

TEST_CASE("every function works on every stack that a host may have, host callbacks included")
{
    for (const u32 offset : stackOffsets) {
        CAPTURE(offset);
        RawScene scene;
        LoadedLibrary library;
        library.stackOffset = offset;
        addAll(library, scene);
        drawAndCheck(library, scene);
        CHECK(RawScene::log == "cutsblpfRRRRffRRR");
        drawAndCheck(library, scene);
        pickAndCheck(library, scene);
        for (const char* name :
             {"Add_Animation", "Add_Camera", "Add_Light", "Add_Light_Map", "Add_Map", "Add_Object", "Add_Spot_Light"})
            CHECK(library.call(name, scene.object.address()) == 1);
        for (const char* name :
             {"Release_Animation", "Release_Camera", "Release_Light", "Release_Light_Map", "Release_Map",
              "Release_Object", "Release_Spot_Light", "Update_Light_Map", "Update_Map"})
            library.call(name, scene.object.address());
        releaseAll(library, scene);
    }
}

TEST_CASE("faces that are clipped, textured and lit are drawn on all such stacks")
{
    struct Case {
        Content content;
        u16 pixel;
    };
    for (const Case& c : {
             Case{Content::unlitTexture, 0x0841},
             // Level 16 of white: ((16 x 255) >> 8) x 255 >> 6 = 59 in each channel.
             Case{Content::litTexture, 0x39c7},
             // The lit wall's colour, half blended over 0.
             Case{Content::litGlass, 0x2145 / 2},
         }) {
        for (const u32 offset : stackOffsets) {
            CAPTURE(static_cast<i32>(c.content));
            CAPTURE(offset);
            RawScene scene(c.content);
            LoadedLibrary library;
            library.stackOffset = offset;
            addAll(library, scene);
            library.call("Render", scene.view.address(), scene.frameBuffer(), u32{0}, u32{1});
            CHECK(scene.pixels == std::vector<u16>(RawScene::width * RawScene::height, c.pixel));

            i32 faceIndex = -1;
            f32 depth = -1;
            CHECK(library.call<void*>("Pick", scene.view.address(), 8.5f, 1.5f, &faceIndex, &depth)
                  == scene.object.address());
            releaseAll(library, scene);
        }
    }
}
