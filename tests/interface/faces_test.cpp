#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_host.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

SceneFace emptyFace()
{
    SceneFace face;
    std::memset(&face, 0, sizeof face);
    return face;
}

u16 nextColour()
{
    return static_cast<u16>(std::rand() % 63536);
}

} // namespace

TEST_CASE("adding a face allocates one block of two bytes for its colour")
{
    TestHost host;
    SceneFace face = emptyFace();
    CHECK(Kardeno_Add_Face_Dll(&face) == 1);

    REQUIRE(host.calls.size() == 1);
    CHECK(host.calls[0].kind == ServiceCall::alloc);
    CHECK(host.calls[0].count == 1);
    CHECK(host.calls[0].bytes == 2);
    CHECK(face.faceColour == host.calls[0].result);
}

TEST_CASE("Intended: 63,536, never seeded: a fresh process gives its faces the generator's first values in order")
{
    TestHost host;
    SceneFace faces[40];
    std::srand(1); // what a process starts with
    for (SceneFace& face : faces) {
        face = emptyFace();
        Kardeno_Add_Face_Dll(&face);
    }

    std::srand(1);
    for (const SceneFace& face : faces) CHECK(*face.faceColour == nextColour());
}

TEST_CASE("the generator is never seeded by the renderer: its sequence goes on across frames of calls")
{
    std::srand(77);
    TestHost host;
    SceneFace first = emptyFace();
    SceneFace second = emptyFace();
    Kardeno_Add_Face_Dll(&first);
    Kardeno_Init_Render_Dll(&host.context());
    Kardeno_Release_Face_Dll(&first);
    Kardeno_Add_Face_Dll(&second);
    const i32 third = std::rand();

    std::srand(77);
    std::rand();
    CHECK(*second.faceColour == nextColour());
    CHECK(third == std::rand());
}

TEST_CASE("a refused colour block leaves 0 in the face, gives 0 and draws no value")
{
    TestHost host;
    SceneFace face = emptyFace();
    u16 earlier = 0;
    face.faceColour = &earlier;
    std::srand(5);
    host.refuse(1);
    CHECK(Kardeno_Add_Face_Dll(&face) == 0);
    CHECK(face.faceColour == nullptr);

    CHECK(Kardeno_Add_Face_Dll(&face) == 1);
    std::srand(5);
    CHECK(*face.faceColour == nextColour());
}

TEST_CASE("releasing a face frees its block and does not clear the pointer")
{
    TestHost host;
    SceneFace face = emptyFace();
    Kardeno_Add_Face_Dll(&face);
    const u16* const block = face.faceColour;
    host.calls.clear();

    Kardeno_Release_Face_Dll(&face);
    REQUIRE(host.calls.size() == 1);
    CHECK(host.calls[0].kind == ServiceCall::free);
    CHECK(host.calls[0].block == block);
    CHECK(face.faceColour == block);
    CHECK(host.liveBlocks() == 0);
}

TEST_CASE("releasing a face whose colour is 0 does nothing")
{
    TestHost host;
    SceneFace face = emptyFace();
    Kardeno_Release_Face_Dll(&face);
    CHECK(host.calls.empty());
    CHECK(face.faceColour == nullptr);
}

TEST_CASE("adding a face twice allocates a second block and loses the first")
{
    TestHost host;
    SceneFace face = emptyFace();
    Kardeno_Add_Face_Dll(&face);
    const u16* const first = face.faceColour;
    CHECK(Kardeno_Add_Face_Dll(&face) == 1);

    CHECK(face.faceColour != first);
    CHECK(host.calls.size() == 2); // two allocations, nothing freed
    CHECK(host.liveBlocks() == 2);
    Kardeno_Release_Face_Dll(&face);
    CHECK(host.liveBlocks() == 1);
}
