// The renderer as the engine sees it: a table of its 28 functions. Two ways fill the table, and the engine does not
// know which one did: renderer_file.h loads the library's file at run time, renderer_linked.h takes the functions of a
// library that is linked with the program. The public header is here only for the records and the functions' types.
#pragma once

#include "kardeno_soft/kardeno_soft.h"

namespace sample_host {

// The library's records and numbers go by their own names in the host.
using namespace kardeno;

struct RendererTable {
    decltype(&Kardeno_Init_Render_Dll) initRender;
    decltype(&Kardeno_Release_Render_Dll) releaseRender;
    decltype(&Kardeno_Render_Dll) render;
    decltype(&Kardeno_Pick_Dll) pick;

    decltype(&Kardeno_Add_Material_Dll) addMaterial;
    decltype(&Kardeno_Release_Material_Dll) releaseMaterial;
    decltype(&Kardeno_Update_Material_Dll) updateMaterial;
    decltype(&Kardeno_Set_Material_Render_State_Dll) setMaterialRenderState;
    decltype(&Kardeno_Get_Material_Render_State_Dll) getMaterialRenderState;
    decltype(&Kardeno_Set_Material_Fct_Dll) setMaterialFlags;
    decltype(&Kardeno_Add_Face_Dll) addFace;
    decltype(&Kardeno_Release_Face_Dll) releaseFace;

    decltype(&Kardeno_Add_Animation_Dll) addAnimation;
    decltype(&Kardeno_Release_Animation_Dll) releaseAnimation;
    decltype(&Kardeno_Add_Camera_Dll) addCamera;
    decltype(&Kardeno_Release_Camera_Dll) releaseCamera;
    decltype(&Kardeno_Add_Light_Dll) addLight;
    decltype(&Kardeno_Release_Light_Dll) releaseLight;
    decltype(&Kardeno_Add_Light_Map_Dll) addLightMap;
    decltype(&Kardeno_Release_Light_Map_Dll) releaseLightMap;
    decltype(&Kardeno_Update_Light_Map_Dll) updateLightMap;
    decltype(&Kardeno_Add_Map_Dll) addMap;
    decltype(&Kardeno_Release_Map_Dll) releaseMap;
    decltype(&Kardeno_Update_Map_Dll) updateMap;
    decltype(&Kardeno_Add_Object_Dll) addObject;
    decltype(&Kardeno_Release_Object_Dll) releaseObject;
    decltype(&Kardeno_Add_Spot_Light_Dll) addSpotLight;
    decltype(&Kardeno_Release_Spot_Light_Dll) releaseSpotLight;
};

} // namespace sample_host
