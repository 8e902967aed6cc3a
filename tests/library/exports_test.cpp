// The library's functions, found by name in the file and called through their addresses.
#include "tests/library/loaded_library.h"
#include "tests/library/raw_scene.h"

#include <doctest/doctest.h>

#include <set>

using namespace kardeno;
using namespace kardeno::tests;

static const char* const emptyAdds[] = {"Add_Animation", "Add_Camera", "Add_Light",     "Add_Light_Map",
                                        "Add_Map",       "Add_Object", "Add_Spot_Light"};
static const char* const emptyOthers[] = {"Release_Animation", "Release_Camera", "Release_Light",  "Release_Light_Map",
                                          "Release_Map",       "Release_Object", "Release_Render", "Release_Spot_Light",
                                          "Update_Light_Map",  "Update_Map"};
static const char* const workers[] = {"Init_Render",
                                      "Render",
                                      "Pick",
                                      "Add_Material",
                                      "Release_Material",
                                      "Update_Material",
                                      "Set_Material_Render_State",
                                      "Get_Material_Render_State",
                                      "Set_Material_Fct",
                                      "Add_Face",
                                      "Release_Face"};

TEST_CASE("all 28 functions are found by their plain names")
{
    LoadedLibrary library;
    std::set<std::string> found;
    const auto look = [&](const char* name) {
        CAPTURE(name);
        const std::string whole = "Kardeno_" + std::string(name) + "_Dll";
        CHECK(library.find(whole) != nullptr);
        found.insert(whole);
    };
    for (const char* name : emptyAdds) look(name);
    for (const char* name : emptyOthers) look(name);
    for (const char* name : workers) look(name);
    CHECK(found.size() == 28);
}

TEST_CASE("other names are not found")
{
    LoadedLibrary library;
    for (const char* name : {"Kardeno_Init_Render", "_Kardeno_Init_Render_Dll", "kardeno_Init_Render_Dll",
                             "Kardeno_Init_Render_Dll@4", "hostContext", "RenderModeTable"})
        CHECK(library.find(name) == nullptr);
}

TEST_CASE("each of the seven empty adds gives 1, whatever it is given")
{
    LoadedLibrary library;
    std::vector<u8> record(64, 0x5a);
    void* const nowhere = reinterpret_cast<void*>(4);
    for (const char* name : emptyAdds) {
        CAPTURE(name);
        for (void* argument : {static_cast<void*>(nullptr), static_cast<void*>(record.data()), nowhere})
            CHECK(library.call(name, argument) == 1);
    }
    CHECK(record == std::vector<u8>(64, 0x5a));
}

TEST_CASE("the ten empty releases and updates do nothing, whatever they are given")
{
    LoadedLibrary library;
    std::vector<u8> record(64, 0x5a);
    void* const nowhere = reinterpret_cast<void*>(4);
    for (const char* name : emptyOthers) {
        CAPTURE(name);
        for (void* argument : {static_cast<void*>(nullptr), static_cast<void*>(record.data()), nowhere})
            library.call(name, argument);
    }
    CHECK(record == std::vector<u8>(64, 0x5a));
}

TEST_CASE("initialisation gives 1 for either pixel format, again and again, and asks the host for nothing")
{
    LoadedLibrary library;
    RawScene scene;
    for (const i32 bitsPerPixel : {15, 16, 15}) {
        scene.context.set(at(352, 392), bitsPerPixel);
        CHECK(library.call("Init_Render", scene.context.address()) == 1);
    }
    CHECK(RawScene::log.empty());
}
