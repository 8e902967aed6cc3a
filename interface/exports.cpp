// The 28 exported functions. Each hands its arguments on to the routine that does the work.
#include "kardeno_soft/kardeno_soft.h"

#include "frame/frame_driver.h"
#include "frame/picking.h"
#include "host/host_context.h"
#include "host/pixel_format.h"
#include "interface/faces.h"
#include "interface/materials.h"
#include "interface/render_mode_table.h"
#include "raster/colour_tables.h"

namespace kardeno {

i32 Kardeno_Init_Render_Dll(HostContext* context)
{
    hostContext = context;
    fillRenderModeTable();
    buildColourScaleTables(tableFormat(*context));
    return 1;
}

void Kardeno_Render_Dll(RenderView* view, u16* frameBuffer, u32 argument, u8 flags)
{
    renderFrame(*hostContext, view, frameBuffer, argument, flags);
}

SceneObject* Kardeno_Pick_Dll(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth)
{
    return pick(*hostContext, view, x, y, faceIndex, depth);
}

i32 Kardeno_Add_Material_Dll(SceneMaterial* material)
{
    return addMaterial(*hostContext, *material);
}

void Kardeno_Release_Material_Dll(SceneMaterial* material)
{
    releaseMaterial(*hostContext, *material);
}

void Kardeno_Update_Material_Dll(SceneMaterial* material)
{
    updateMaterial(*hostContext, *material);
}

i32 Kardeno_Set_Material_Render_State_Dll(SceneMaterial* material, i32 state)
{
    return setMaterialState(*hostContext, *material, state);
}

i32 Kardeno_Get_Material_Render_State_Dll(const SceneMaterial* material)
{
    return materialState(*material);
}

void Kardeno_Set_Material_Fct_Dll(SceneMaterial* material)
{
    setMaterialFlags(*material);
}

i32 Kardeno_Add_Face_Dll(SceneFace* face)
{
    return addFace(*hostContext, *face);
}

void Kardeno_Release_Face_Dll(SceneFace* face)
{
    releaseFace(*hostContext, *face);
}

// The renderer keeps nothing for the records of the functions below.

i32 Kardeno_Add_Animation_Dll(const void*)
{
    return 1;
}

i32 Kardeno_Add_Camera_Dll(const void*)
{
    return 1;
}

i32 Kardeno_Add_Light_Dll(const void*)
{
    return 1;
}

i32 Kardeno_Add_Light_Map_Dll(const void*)
{
    return 1;
}

i32 Kardeno_Add_Map_Dll(const void*)
{
    return 1;
}

i32 Kardeno_Add_Object_Dll(const void*)
{
    return 1;
}

i32 Kardeno_Add_Spot_Light_Dll(const void*)
{
    return 1;
}

void Kardeno_Release_Animation_Dll(const void*) {}
void Kardeno_Release_Camera_Dll(const void*) {}
void Kardeno_Release_Light_Dll(const void*) {}
void Kardeno_Release_Light_Map_Dll(const void*) {}
void Kardeno_Release_Map_Dll(const void*) {}
void Kardeno_Release_Object_Dll(const void*) {}
void Kardeno_Release_Render_Dll(const void*) {}
void Kardeno_Release_Spot_Light_Dll(const void*) {}
void Kardeno_Update_Light_Map_Dll(const void*) {}
void Kardeno_Update_Map_Dll(const void*) {}

} // namespace kardeno
