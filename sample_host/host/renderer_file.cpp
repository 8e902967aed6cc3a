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
    find(table_.initRender, "Kardeno_Init_Render_Dll");
    find(table_.releaseRender, "Kardeno_Release_Render_Dll");
    find(table_.render, "Kardeno_Render_Dll");
    find(table_.pick, "Kardeno_Pick_Dll");

    find(table_.addMaterial, "Kardeno_Add_Material_Dll");
    find(table_.releaseMaterial, "Kardeno_Release_Material_Dll");
    find(table_.updateMaterial, "Kardeno_Update_Material_Dll");
    find(table_.setMaterialRenderState, "Kardeno_Set_Material_Render_State_Dll");
    find(table_.getMaterialRenderState, "Kardeno_Get_Material_Render_State_Dll");
    find(table_.setMaterialFlags, "Kardeno_Set_Material_Fct_Dll");
    find(table_.addFace, "Kardeno_Add_Face_Dll");
    find(table_.releaseFace, "Kardeno_Release_Face_Dll");

    find(table_.addAnimation, "Kardeno_Add_Animation_Dll");
    find(table_.releaseAnimation, "Kardeno_Release_Animation_Dll");
    find(table_.addCamera, "Kardeno_Add_Camera_Dll");
    find(table_.releaseCamera, "Kardeno_Release_Camera_Dll");
    find(table_.addLight, "Kardeno_Add_Light_Dll");
    find(table_.releaseLight, "Kardeno_Release_Light_Dll");
    find(table_.addLightMap, "Kardeno_Add_Light_Map_Dll");
    find(table_.releaseLightMap, "Kardeno_Release_Light_Map_Dll");
    find(table_.updateLightMap, "Kardeno_Update_Light_Map_Dll");
    find(table_.addMap, "Kardeno_Add_Map_Dll");
    find(table_.releaseMap, "Kardeno_Release_Map_Dll");
    find(table_.updateMap, "Kardeno_Update_Map_Dll");
    find(table_.addObject, "Kardeno_Add_Object_Dll");
    find(table_.releaseObject, "Kardeno_Release_Object_Dll");
    find(table_.addSpotLight, "Kardeno_Add_Spot_Light_Dll");
    find(table_.releaseSpotLight, "Kardeno_Release_Spot_Light_Dll");
}

} // namespace sample_host
