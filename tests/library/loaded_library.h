// The library as a host gets it: loaded from its file, its functions found by their names.
#pragma once

#include "tests/library/call_on_stack.h"

#include <string>

namespace kardeno::tests {

class LoadedLibrary {
public:
    // Loads the file that the environment variable KARDENO_LIBRARY names; ends the program when it cannot.
    LoadedLibrary();
    ~LoadedLibrary();
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    // The address of a function of the library; null when there is none of this name.
    void* find(const std::string& name) const;

    // Calls a function of the library by its name, the "Kardeno_" and "_Dll" around it left out.
    template <class Result = u32, class... Arguments>
    Result call(const std::string& name, Arguments... arguments) const
    {
        return callWithOffset<Result>(stackOffset, find("Kardeno_" + name + "_Dll"), arguments...);
    }

    u32 stackOffset = 0; // how far below a multiple of 16 the stack stands at every call

private:
    void* handle;
};

} // namespace kardeno::tests
