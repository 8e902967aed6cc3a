/* The 28 functions as a table, for hosts that load the library at run time: a record with a pointer to each, and a list
   of their names. A loader goes through the list:

       static int findAll(KardenoFunctions* found, void* library)
       {
       #define FIND(field, name) \
           if (!(*(void**)&found->field = dlsym(library, #name))) return 0;
           KARDENO_FUNCTIONS(FIND)
       #undef FIND
           return 1;
       }

   kardeno_soft.h says what the functions do. */
#pragma once

#include "host_records.h"

/* Calls `DO(field, name)` for every function: the field of the record below, and the name in the library. */
#define KARDENO_FUNCTIONS(DO)                                                                                          \
    DO(initRender, Kardeno_Init_Render_Dll)                                                                            \
    DO(releaseRender, Kardeno_Release_Render_Dll)                                                                      \
    DO(render, Kardeno_Render_Dll)                                                                                     \
    DO(pick, Kardeno_Pick_Dll)                                                                                         \
    DO(addMaterial, Kardeno_Add_Material_Dll)                                                                          \
    DO(releaseMaterial, Kardeno_Release_Material_Dll)                                                                  \
    DO(updateMaterial, Kardeno_Update_Material_Dll)                                                                    \
    DO(setMaterialRenderState, Kardeno_Set_Material_Render_State_Dll)                                                  \
    DO(getMaterialRenderState, Kardeno_Get_Material_Render_State_Dll)                                                  \
    DO(setMaterialFlags, Kardeno_Set_Material_Fct_Dll)                                                                 \
    DO(addFace, Kardeno_Add_Face_Dll)                                                                                  \
    DO(releaseFace, Kardeno_Release_Face_Dll)                                                                          \
    DO(addAnimation, Kardeno_Add_Animation_Dll)                                                                        \
    DO(releaseAnimation, Kardeno_Release_Animation_Dll)                                                                \
    DO(addCamera, Kardeno_Add_Camera_Dll)                                                                              \
    DO(releaseCamera, Kardeno_Release_Camera_Dll)                                                                      \
    DO(addLight, Kardeno_Add_Light_Dll)                                                                                \
    DO(releaseLight, Kardeno_Release_Light_Dll)                                                                        \
    DO(addLightMap, Kardeno_Add_Light_Map_Dll)                                                                         \
    DO(releaseLightMap, Kardeno_Release_Light_Map_Dll)                                                                 \
    DO(updateLightMap, Kardeno_Update_Light_Map_Dll)                                                                   \
    DO(addMap, Kardeno_Add_Map_Dll)                                                                                    \
    DO(releaseMap, Kardeno_Release_Map_Dll)                                                                            \
    DO(updateMap, Kardeno_Update_Map_Dll)                                                                              \
    DO(addObject, Kardeno_Add_Object_Dll)                                                                              \
    DO(releaseObject, Kardeno_Release_Object_Dll)                                                                      \
    DO(addSpotLight, Kardeno_Add_Spot_Light_Dll)                                                                       \
    DO(releaseSpotLight, Kardeno_Release_Spot_Light_Dll)

#include "c_names.h"

#pragma pack(push, 8)

#ifdef __cplusplus
namespace kardeno {
#endif

/* Host: each field, with the address of the function in the library. */
typedef struct Functions {
    i32(KARDENO_CALL* initRender)(HostContext* context);
    void(KARDENO_CALL* releaseRender)(const void* record);
    void(KARDENO_CALL* render)(RenderView* view, u16* frameBuffer, u32 argument, u8 flags);
    SceneObject*(KARDENO_CALL* pick)(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);
    i32(KARDENO_CALL* addMaterial)(SceneMaterial* material);
    void(KARDENO_CALL* releaseMaterial)(SceneMaterial* material);
    void(KARDENO_CALL* updateMaterial)(SceneMaterial* material);
    i32(KARDENO_CALL* setMaterialRenderState)(SceneMaterial* material, i32 state);
    i32(KARDENO_CALL* getMaterialRenderState)(const SceneMaterial* material);
    void(KARDENO_CALL* setMaterialFlags)(SceneMaterial* material);
    i32(KARDENO_CALL* addFace)(SceneFace* face);
    void(KARDENO_CALL* releaseFace)(SceneFace* face);
    i32(KARDENO_CALL* addAnimation)(const void* record);
    void(KARDENO_CALL* releaseAnimation)(const void* record);
    i32(KARDENO_CALL* addCamera)(const void* record);
    void(KARDENO_CALL* releaseCamera)(const void* record);
    i32(KARDENO_CALL* addLight)(const void* record);
    void(KARDENO_CALL* releaseLight)(const void* record);
    i32(KARDENO_CALL* addLightMap)(const void* record);
    void(KARDENO_CALL* releaseLightMap)(const void* record);
    void(KARDENO_CALL* updateLightMap)(const void* record);
    i32(KARDENO_CALL* addMap)(const void* record);
    void(KARDENO_CALL* releaseMap)(const void* record);
    void(KARDENO_CALL* updateMap)(const void* record);
    i32(KARDENO_CALL* addObject)(const void* record);
    void(KARDENO_CALL* releaseObject)(const void* record);
    i32(KARDENO_CALL* addSpotLight)(const void* record);
    void(KARDENO_CALL* releaseSpotLight)(const void* record);
} Functions;

#ifdef __cplusplus
} /* namespace kardeno */
#endif

#pragma pack(pop)

#include "c_names_end.h"
