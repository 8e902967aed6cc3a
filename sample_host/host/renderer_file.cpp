#include "sample_host/host/renderer_file.h"

#include <stdexcept>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace sample_host {

namespace {

// The few calls in which systems differ.
#if defined(_WIN32)
void* loadLibrary(const char* file)
{
    return LoadLibraryA(file);
}

void* addressOf(void* library, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

void unloadLibrary(void* library)
{
    FreeLibrary(static_cast<HMODULE>(library));
}

std::string whyNot()
{
    return "system error " + std::to_string(GetLastError());
}
#else
void* loadLibrary(const char* file)
{
    return dlopen(file, RTLD_NOW | RTLD_LOCAL);
}

void* addressOf(void* library, const char* name)
{
    return dlsym(library, name);
}

void unloadLibrary(void* library)
{
    dlclose(library);
}

std::string whyNot()
{
    const char* text = dlerror();
    return text ? text : "no reason given";
}
#endif

} // namespace

RendererFile::RendererFile(const std::string& file) : file_(file), handle_(loadLibrary(file.c_str()))
{
    if (!handle_) throw std::runtime_error("the renderer '" + file + "' cannot be loaded (" + whyNot() + ")");
    try {
        findAll();
    } catch (...) {
        unloadLibrary(handle_);
        throw;
    }
}

RendererFile::~RendererFile()
{
    unloadLibrary(handle_);
}

// Looks one function up by its plain name.
template <class Function>
void RendererFile::find(Function& function, const char* name)
{
    void* address = addressOf(handle_, name);
    if (!address) throw std::runtime_error("'" + file_ + "' is not the renderer: it has no function " + name);
    function = reinterpret_cast<Function>(address);
}

void RendererFile::findAll()
{
#define FIND(field, name) find(table_.field, #name);
    KARDENO_FUNCTIONS(FIND)
#undef FIND
}

} // namespace sample_host
