// The library's functions, found by name in the file.
#include "tests/library/loaded_library.h"

#include <doctest/doctest.h>

#include <set>

using namespace kardeno;
using namespace kardeno::tests;

static const char* const functions[] = {"Add_Animation",
                                        "Add_Camera",
                                        "Add_Face",
                                        "Add_Light",
                                        "Add_Light_Map",
                                        "Add_Map",
                                        "Add_Material",
                                        "Add_Object",
                                        "Add_Spot_Light",
                                        "Get_Material_Render_State",
                                        "Init_Render",
                                        "Pick",
                                        "Release_Animation",
                                        "Release_Camera",
                                        "Release_Face",
                                        "Release_Light",
                                        "Release_Light_Map",
                                        "Release_Map",
                                        "Release_Material",
                                        "Release_Object",
                                        "Release_Render",
                                        "Release_Spot_Light",
                                        "Render",
                                        "Set_Material_Fct",
                                        "Set_Material_Render_State",
                                        "Update_Light_Map",
                                        "Update_Map",
                                        "Update_Material"};

TEST_CASE("all 28 functions are found by their plain names")
{
    LoadedLibrary library;
    std::set<std::string> found;
    for (const char* name : functions) {
        CAPTURE(name);
        const std::string whole = "Kardeno_" + std::string(name) + "_Dll";
        CHECK(library.find(whole) != nullptr);
        found.insert(whole);
    }
    CHECK(found.size() == 28);
}

TEST_CASE("other names are not found")
{
    LoadedLibrary library;
    for (const char* name : {"Kardeno_Init_Render", "_Kardeno_Init_Render_Dll", "kardeno_Init_Render_Dll",
                             "Kardeno_Init_Render_Dll@4", "hostContext", "RenderModeTable"})
        CHECK(library.find(name) == nullptr);
}
