#include "sample_host/host/renderer_linked.h"

namespace sample_host {

RendererTable linkedRenderer()
{
    return {
        .initRender = Kardeno_Init_Render_Dll,
        .releaseRender = Kardeno_Release_Render_Dll,
        .render = Kardeno_Render_Dll,
        .pick = Kardeno_Pick_Dll,

        .addMaterial = Kardeno_Add_Material_Dll,
        .releaseMaterial = Kardeno_Release_Material_Dll,
        .updateMaterial = Kardeno_Update_Material_Dll,
        .setMaterialRenderState = Kardeno_Set_Material_Render_State_Dll,
        .getMaterialRenderState = Kardeno_Get_Material_Render_State_Dll,
        .setMaterialFlags = Kardeno_Set_Material_Fct_Dll,
        .addFace = Kardeno_Add_Face_Dll,
        .releaseFace = Kardeno_Release_Face_Dll,

        .addAnimation = Kardeno_Add_Animation_Dll,
        .releaseAnimation = Kardeno_Release_Animation_Dll,
        .addCamera = Kardeno_Add_Camera_Dll,
        .releaseCamera = Kardeno_Release_Camera_Dll,
        .addLight = Kardeno_Add_Light_Dll,
        .releaseLight = Kardeno_Release_Light_Dll,
        .addLightMap = Kardeno_Add_Light_Map_Dll,
        .releaseLightMap = Kardeno_Release_Light_Map_Dll,
        .updateLightMap = Kardeno_Update_Light_Map_Dll,
        .addMap = Kardeno_Add_Map_Dll,
        .releaseMap = Kardeno_Release_Map_Dll,
        .updateMap = Kardeno_Update_Map_Dll,
        .addObject = Kardeno_Add_Object_Dll,
        .releaseObject = Kardeno_Release_Object_Dll,
        .addSpotLight = Kardeno_Add_Spot_Light_Dll,
        .releaseSpotLight = Kardeno_Release_Spot_Light_Dll,
    };
}

} // namespace sample_host
