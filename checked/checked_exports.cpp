// The 28 exported functions of the checked library. Each looks at what it was given before the routine of the plain
// library does the work.
#include "kardeno_soft/kardeno_soft.h"

#include "checked/calls.h"
#include "checked/registry.h"
#include "checked/view_checks.h"
#include "checked/watched_host.h"
#include "frame/frame_driver.h"
#include "frame/picking.h"
#include "host/host_context.h"
#include "host/pixel_format.h"
#include "interface/faces.h"
#include "interface/materials.h"
#include "interface/render_mode_table.h"
#include "raster/colour_tables.h"

namespace kardeno {

using namespace checked;

namespace {

Place placeOf(const Call& call, const SceneFace* face)
{
    Place place = call.place();
    place.face = face;
    return place;
}

// What all functions do that the renderer keeps nothing for.
i32 acceptRecord(const char* name)
{
    const Call call(name);
    call.isReady();
    return 1;
}

} // namespace

i32 Kardeno_Init_Render_Dll(HostContext* context)
{
    const Call call("Kardeno_Init_Render_Dll");
    if (!call.isAlone()) return 0;
    readSettings();
    if (!context) {
        tell(Mistake::missingRecord, call.place());
        return 0;
    }
    if (!isUsable(*context, call.place())) return 0;
    lookAtFormat(*context, call.place());
    forgetFrames();
    hostContext = context;
    fillRenderModeTable();
    buildColourScaleTables(tableFormat(*context));
    return 1;
}

void Kardeno_Render_Dll(RenderView* view, u16* frameBuffer, u32 argument, u8 flags)
{
    const Call call("Kardeno_Render_Dll");
    if (!call.isReadyFor(view) || !isUsable(*hostContext, call.place())) return;
    Place place = call.place();
    place.record = view;
    if (!view->camera) return tell(Mistake::missingCamera, place);
    if (!frameBuffer) return tell(Mistake::missingFrameBuffer, place);
    WatchedHost host(*hostContext, view, Purpose::frame, place);
    renderFrameOf(host, *hostContext, view, frameBuffer, argument, flags);
}

SceneObject* Kardeno_Pick_Dll(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth)
{
    const Call call("Kardeno_Pick_Dll");
    if (!call.isReadyFor(view) || !isUsable(*hostContext, call.place())) return nullptr;
    Place place = call.place();
    place.record = view;
    if (!view->camera) {
        tell(Mistake::missingCamera, place);
        return nullptr;
    }
    if (!faceIndex || !depth) {
        tell(Mistake::missingResult, place);
        return nullptr;
    }
    if (!(x - x == 0) || !(y - y == 0))
        tell(Mistake::pickPoint, place, "%g, %g", static_cast<f64>(x), static_cast<f64>(y));
    WatchedHost host(*hostContext, view, Purpose::pick, place);
    return pickOf(host, *hostContext, view, x, y, faceIndex, depth);
}

i32 Kardeno_Add_Material_Dll(SceneMaterial* material)
{
    const Call call("Kardeno_Add_Material_Dll");
    if (!call.isReadyFor(material) || !isUsable(*hostContext, call.place())) return 0;
    if (standingOf(*material) == Standing::good) tell(Mistake::materialAddedAgain, at(call.place(), *material));
    if (!addMaterial(*hostContext, *material)) return 0;
    rememberMaterial(*material);
    return 1;
}

void Kardeno_Release_Material_Dll(SceneMaterial* material)
{
    const Call call("Kardeno_Release_Material_Dll");
    if (!call.isReadyFor(material) || !isUsable(*hostContext, call.place())) return;
    if (!material->renderPrivate) return;
    const Place place = at(call.place(), *material);
    switch (standingOf(*material)) {
    case Standing::good: break;
    case Standing::released: return tell(Mistake::materialReleasedTwice, place);
    default: return tell(Mistake::materialNotAdded, place);
    }
    forgetMaterial(*material);
    releaseMaterial(*hostContext, *material);
}

void Kardeno_Update_Material_Dll(SceneMaterial* material)
{
    const Call call("Kardeno_Update_Material_Dll");
    if (!call.isReadyFor(material) || !material->renderPrivate) return;
    if (mayRefillRamp(*material, at(call.place(), *material))) updateMaterial(*hostContext, *material);
}

i32 Kardeno_Set_Material_Render_State_Dll(SceneMaterial* material, i32 state)
{
    const Call call("Kardeno_Set_Material_Render_State_Dll");
    if (!call.isReadyFor(material) || !isUsable(*hostContext, call.place())) return 0;
    const Place place = at(call.place(), *material);
    if (!mayChooseState(*material, state, place)) return 0;
    const bool hadRamp = material->renderPrivate->shadeRamp;
    if (!setMaterialState(*hostContext, *material, state)) return 0;
    lookAtChoice(*material, state, hadRamp, place);
    return 1;
}

i32 Kardeno_Get_Material_Render_State_Dll(const SceneMaterial* material)
{
    const Call call("Kardeno_Get_Material_Render_State_Dll");
    if (!call.isReadyFor(material) || !material->renderPrivate) return 0;
    return isAdded(*material, at(call.place(), *material)) ? materialState(*material) : 0;
}

void Kardeno_Set_Material_Fct_Dll(SceneMaterial* material)
{
    const Call call("Kardeno_Set_Material_Fct_Dll");
    if (!call.isReadyFor(material)) return;
    if (!material->materialFlags) return tell(Mistake::missingFlagBlock, at(call.place(), *material));
    setMaterialFlags(*material);
}

i32 Kardeno_Add_Face_Dll(SceneFace* face)
{
    const Call call("Kardeno_Add_Face_Dll");
    if (!call.isReadyFor(face) || !isUsable(*hostContext, call.place())) return 0;
    if (standingOf(*face) == Standing::good) tell(Mistake::faceAddedAgain, placeOf(call, face));
    if (!addFace(*hostContext, *face)) return 0;
    rememberFace(*face);
    return 1;
}

void Kardeno_Release_Face_Dll(SceneFace* face)
{
    const Call call("Kardeno_Release_Face_Dll");
    if (!call.isReadyFor(face) || !isUsable(*hostContext, call.place())) return;
    if (!face->faceColour) return;
    const Place place = placeOf(call, face);
    switch (standingOf(*face)) {
    case Standing::good: break;
    case Standing::released: return tell(Mistake::faceReleasedTwice, place);
    case Standing::foreign: return tell(Mistake::faceColourReplaced, place);
    case Standing::unknown: return tell(Mistake::faceNotAdded, place);
    }
    forgetFace(*face);
    releaseFace(*hostContext, *face);
}

i32 Kardeno_Add_Animation_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Animation_Dll");
}

i32 Kardeno_Add_Camera_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Camera_Dll");
}

i32 Kardeno_Add_Light_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Light_Dll");
}

i32 Kardeno_Add_Light_Map_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Light_Map_Dll");
}

i32 Kardeno_Add_Map_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Map_Dll");
}

i32 Kardeno_Add_Object_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Object_Dll");
}

i32 Kardeno_Add_Spot_Light_Dll(const void*)
{
    return acceptRecord("Kardeno_Add_Spot_Light_Dll");
}

void Kardeno_Release_Animation_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Animation_Dll");
}

void Kardeno_Release_Camera_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Camera_Dll");
}

void Kardeno_Release_Light_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Light_Dll");
}

void Kardeno_Release_Light_Map_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Light_Map_Dll");
}

void Kardeno_Release_Map_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Map_Dll");
}

void Kardeno_Release_Object_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Object_Dll");
}

void Kardeno_Release_Render_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Render_Dll");
}

void Kardeno_Release_Spot_Light_Dll(const void*)
{
    acceptRecord("Kardeno_Release_Spot_Light_Dll");
}

void Kardeno_Update_Light_Map_Dll(const void*)
{
    acceptRecord("Kardeno_Update_Light_Map_Dll");
}

void Kardeno_Update_Map_Dll(const void*)
{
    acceptRecord("Kardeno_Update_Map_Dll");
}

} // namespace kardeno
