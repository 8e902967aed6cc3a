// The library's functions, found by name in the file.
#include "kardeno_soft/kardeno_soft.h"
#include "tests/library/loaded_library.h"

#include <doctest/doctest.h>

#include <set>

using namespace kardeno;
using namespace kardeno::tests;

#define NAME_OF(field, name) #name,
static const char* const functions[] = {KARDENO_FUNCTIONS(NAME_OF)};
#undef NAME_OF

TEST_CASE("all 28 functions are found by their plain names, which the header lists")
{
    LoadedLibrary library;
    std::set<std::string> found;
    for (const char* name : functions) {
        CAPTURE(name);
        CHECK(library.find(name) != nullptr);
        found.insert(name);
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
