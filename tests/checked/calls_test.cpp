// Calls that come too early, at the wrong moment, or without what they need.
#include "host/host_context.h"
#include "tests/checked/good_scene.h"
#include "tests/support/not_here.h"

#include <doctest/doctest.h>

#if !defined(__wasm__)
#include <atomic>
#include <thread>
#endif

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("nothing is said of a scene with nothing wrong in it")
{
    GoodScene good;
    CHECK(good.draw() == Names{});
    CHECK(good.isDrawn());
    CHECK(good.pick() == Names{});
}

TEST_CASE("every function says that the library was not initialised, and does nothing")
{
    hostContext = nullptr;
    SceneMaterial material = {};
    SceneFace face = {};
    RenderView view = {};
    i32 index = 7;
    f32 depth = 7;
    const Names once = {"before-init"};
    CHECK(heardIn([&] { CHECK(Kardeno_Add_Material_Dll(&material) == 0); }) == once);
    CHECK(heardIn([&] { CHECK(Kardeno_Set_Material_Render_State_Dll(&material, 0) == 0); }) == once);
    CHECK(heardIn([&] { CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 0); }) == once);
    CHECK(heardIn([&] { Kardeno_Set_Material_Fct_Dll(&material); }) == once);
    CHECK(heardIn([&] { Kardeno_Update_Material_Dll(&material); }) == once);
    CHECK(heardIn([&] { Kardeno_Release_Material_Dll(&material); }) == once);
    CHECK(heardIn([&] { CHECK(Kardeno_Add_Face_Dll(&face) == 0); }) == once);
    CHECK(heardIn([&] { Kardeno_Release_Face_Dll(&face); }) == once);
    CHECK(heardIn([&] { Kardeno_Render_Dll(&view, nullptr, 0, 0); }) == once);
    CHECK(heardIn([&] { CHECK(Kardeno_Pick_Dll(&view, 0, 0, &index, &depth) == nullptr); }) == once);
    CHECK(heardIn([&] { CHECK(Kardeno_Add_Map_Dll(nullptr) == 1); }) == once);
    CHECK(heardIn([&] { Kardeno_Release_Object_Dll(nullptr); }) == once);
}

TEST_CASE("records that are not kept may be anything, a null pointer included")
{
    const GoodScene good;
    CHECK(heardIn([] {
              CHECK(Kardeno_Add_Animation_Dll(nullptr) == 1);
              CHECK(Kardeno_Add_Camera_Dll(nullptr) == 1);
              Kardeno_Update_Light_Map_Dll(nullptr);
              Kardeno_Release_Render_Dll(nullptr);
          })
          == Names{});
}

TEST_CASE("a call without its record is told of and does nothing")
{
    GoodScene good;
    const Names once = {"missing-record"};
    CHECK(heardIn([] { CHECK(Kardeno_Init_Render_Dll(nullptr) == 0); }) == once);
    CHECK(heardIn([] { CHECK(Kardeno_Add_Material_Dll(nullptr) == 0); }) == once);
    CHECK(heardIn([] { Kardeno_Release_Material_Dll(nullptr); }) == once);
    CHECK(heardIn([] { Kardeno_Update_Material_Dll(nullptr); }) == once);
    CHECK(heardIn([] { CHECK(Kardeno_Set_Material_Render_State_Dll(nullptr, 0) == 0); }) == once);
    CHECK(heardIn([] { CHECK(Kardeno_Get_Material_Render_State_Dll(nullptr) == 0); }) == once);
    CHECK(heardIn([] { Kardeno_Set_Material_Fct_Dll(nullptr); }) == once);
    CHECK(heardIn([] { CHECK(Kardeno_Add_Face_Dll(nullptr) == 0); }) == once);
    CHECK(heardIn([] { Kardeno_Release_Face_Dll(nullptr); }) == once);
    CHECK(heardIn([&] { Kardeno_Render_Dll(nullptr, good.frame.pixels(), 0, 0); }) == once);
    i32 index;
    f32 depth;
    CHECK(heardIn([&] { CHECK(Kardeno_Pick_Dll(nullptr, 0, 0, &index, &depth) == nullptr); }) == once);
}

TEST_CASE("a pick without places for its answers is told of and does nothing")
{
    GoodScene good;
    i32 index;
    f32 depth;
    const Names once = {"missing-result"};
    CHECK(heardIn([&] { CHECK(Kardeno_Pick_Dll(&good.view(), 0, 0, nullptr, &depth) == nullptr); }) == once);
    CHECK(heardIn([&] { CHECK(Kardeno_Pick_Dll(&good.view(), 0, 0, &index, nullptr) == nullptr); }) == once);
}

TEST_CASE("a pick at what is no number is told of")
{
    GoodScene good;
    i32 index;
    f32 depth;
    const f32 notANumber = std::numeric_limits<f32>::quiet_NaN();
    CHECK(heardIn([&] { Kardeno_Pick_Dll(&good.view(), notANumber, 0, &index, &depth); }) == Names{"pick-point"});
}

TEST_CASE("a call from inside a callback is told of and does nothing")
{
    GoodScene good;
    SceneMaterial* const material = &good.material;
    good.object.onPrepare = [material] { CHECK(Kardeno_Set_Material_Render_State_Dll(material, 3) == 0); };
    CHECK(good.draw() == Names{"inside-callback"});
    CHECK(good.isDrawn());
    good.object.onPrepare = nullptr;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a frame inside a frame is told of, and the outer one is drawn")
{
    GoodScene good;
    good.scene.onCamera = [&](RenderView* view) { Kardeno_Render_Dll(view, good.frame.pixels(), 0, 0); };
    CHECK(good.draw() == Names{"inside-callback"});
    CHECK(good.isDrawn());
}

#if defined(__wasm__)
TEST_CASE("a second thread: not here")
{
    notHere("calls from a second thread", "WebAssembly has one thread");
}
#else
TEST_CASE("a call of a second thread while one is running is told of and does nothing")
{
    GoodScene good;
    good.object.onPrepare = [&] {
        std::thread second([&] { CHECK(Kardeno_Set_Material_Render_State_Dll(&good.material, 3) == 0); });
        second.join();
    };
    CHECK(good.draw() == Names{"second-thread"});
    CHECK(good.isDrawn());
}

TEST_CASE("calls of several threads one after the other are as good as those of one")
{
    GoodScene good;
    CHECK(heardIn([&] {
              std::thread second([&] { Kardeno_Set_Material_Fct_Dll(&good.material); });
              second.join();
          })
          == Names{});
}
#endif

TEST_CASE("a context without one of its services is told of and not taken")
{
    GoodScene good;
    HostContext& context = good.context();
    const auto alloc = context.alloc;
    context.alloc = nullptr;
    CHECK(heardIn([&] { CHECK(Kardeno_Init_Render_Dll(&context) == 0); }) == Names{"missing-service"});
    CHECK(good.draw() == Names{"missing-service"});
    SceneMaterial other = {};
    CHECK(heardIn([&] { CHECK(Kardeno_Add_Material_Dll(&other) == 0); }) == Names{"missing-service"});
    context.alloc = alloc;

    const auto realloc = context.realloc;
    context.realloc = nullptr;
    CHECK(heardIn([&] { CHECK(Kardeno_Init_Render_Dll(&context) == 0); }) == Names{"missing-service"});
    context.realloc = realloc;

    const auto free = context.free;
    context.free = nullptr;
    CHECK(heardIn([&] { CHECK(Kardeno_Init_Render_Dll(&context) == 0); }) == Names{"missing-service"});
    context.free = free;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a number of bits that no frame buffer has is told of at initialisation")
{
    GoodScene good;
    for (const i32 bits : {24, 32, 8, 0}) {
        good.context().bitsPerPixel = bits;
        CHECK(heardIn([&] { Kardeno_Init_Render_Dll(&good.context()); }) == Names{"bits-per-pixel"});
    }
    good.context().bitsPerPixel = 15;
    CHECK(heardIn([&] { Kardeno_Init_Render_Dll(&good.context()); }) == Names{});
}

TEST_CASE("a frame in another format than the library was initialised for is told of")
{
    GoodScene good;
    good.context().bitsPerPixel = 15;
    CHECK(good.draw() == Names{"bits-per-pixel-changed"});
}
