#include "tests/library/loaded_library.h"

#include <cstdio>
#include <cstdlib>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace kardeno::tests {

namespace {

#if defined(_WIN32)
void* load(const char* file)
{
    return LoadLibraryA(file);
}
void* addressIn(void* library, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}
void unload(void* library)
{
    FreeLibrary(static_cast<HMODULE>(library));
}
#else
void* load(const char* file)
{
    return dlopen(file, RTLD_NOW | RTLD_LOCAL);
}
void* addressIn(void* library, const char* name)
{
    return dlsym(library, name);
}
void unload(void* library)
{
    dlclose(library);
}
#endif

} // namespace

LoadedLibrary::LoadedLibrary()
{
    const char* const file = std::getenv("KARDENO_LIBRARY");
    handle = file ? load(file) : nullptr;
    if (handle) return;
    std::fprintf(stderr, "KARDENO_LIBRARY names no library that can be loaded: %s\n", file ? file : "(not set)");
    std::exit(1);
}

LoadedLibrary::~LoadedLibrary()
{
    unload(handle);
}

void* LoadedLibrary::find(const std::string& name) const
{
    return addressIn(handle, name.c_str());
}

} // namespace kardeno::tests
