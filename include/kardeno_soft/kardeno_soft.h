/* kardeno_soft is a software 3D renderer in a dynamic library. This is the only header that a host includes.

   A host loads the library by file name and looks the 28 functions up by their plain names (function_table.h makes that
   ten lines), or links the library. It calls Kardeno_Init_Render_Dll, and from then on it may call the functions in any
   order. There is one renderer in a process, which keeps its state in globals: only one call may run at a time, and
   none may be made from inside a host callback.

   All functions use the C calling convention (the caller pops the arguments) and accept a stack that is aligned to no
   more than 4 bytes. A function that can fail returns 0 when it does.

   Names. In C++ everything lies in namespace kardeno: kardeno::RenderView, kardeno::outcodeNear, kardeno::u32. In C the
   word stands before each name, KardenoRenderView and kardenoOutcodeNear, and the numbers are those of <stdint.h> and
   float, so that a host keeps its own RenderView and u32. A C host that would rather write the names as they stand here
   defines KARDENO_SHORT_NAMES before it includes this header. */
#pragma once

#include "function_table.h"
#include "host_records.h"
#include "render_modes.h"
#include "version.h"

#include "c_names.h"

#ifdef __cplusplus
namespace kardeno {
extern "C" {
#endif

/* Initialises the renderer and returns 1. The context is kept by its address, so it must live as long as the renderer
   is used. The render-mode table is filled, and the colour tables are built for the context's bitsPerPixel. Another
   call replaces the context; materials keep their rows. */
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Init_Render_Dll(HostContext* context);
/* Frees nothing: the renderer keeps its polygon lists and pools for as long as it is loaded. */
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Render_Dll(const void* record);

/* The flags of a frame; all other bits are ignored. */
enum {
    frameClear = 1 /* pixels of the drawn rectangle that no polygon covers become 0 */
};

/* Draws one frame. Pixel (x, y) is frameBuffer[y * view->pitch + x], and only pixels in the view's rectangle are
   written. `argument` is passed on to the span fillers, which ignore it. `flags` is 0 or frameClear, with which pixels
   that no polygon covers become 0. The call does nothing when view->camera is 0, and draws nothing when the rectangle
   is out of its limits or the host refuses the memory for the edges. */
KARDENO_EXPORT void KARDENO_CALL Kardeno_Render_Dll(RenderView* view, u16* frameBuffer, u32 argument, u8 flags);

/* Returns the object whose face lies nearest under the screen point (x, y), or 0 when there is none. Sets *faceIndex to
   the index of that face in the object's drawn geometry (0 without a hit) and *depth to the camera-space Z of the face
   at the point (farZ without a hit). Writes nothing when view->camera is 0. */
KARDENO_EXPORT SceneObject* KARDENO_CALL Kardeno_Pick_Dll(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);

/* Gives a material its private record. Returns 0 when the record cannot be allocated. */
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Material_Dll(SceneMaterial* material);
/* Frees the material's shade ramp and its private record. The pointer renderPrivate is not cleared. */
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Material_Dll(SceneMaterial* material);
/* Refills the material's shade ramp, if it has one. A host calls this after it changed colours or the palette. */
KARDENO_EXPORT void KARDENO_CALL Kardeno_Update_Material_Dll(SceneMaterial* material);
/* Recomputes the material's flag word and chooses how the material is drawn: stateUnlit, stateLit and the others of
   render_modes.h. Returns 0, and leaves the row as it was, when a shade ramp is needed and cannot be allocated, and for
   a material that was never added. */
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Set_Material_Render_State_Dll(SceneMaterial* material, i32 state);
/* Returns the render state most recently chosen with the material's row, or 0 for a material without a row. All
   materials that select a row share it, so the state may have come with another material. */
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Get_Material_Render_State_Dll(const SceneMaterial* material);
/* Recomputes the material's flag word and does nothing else. */
KARDENO_EXPORT void KARDENO_CALL Kardeno_Set_Material_Fct_Dll(SceneMaterial* material);

/* Gives a face a block of memory with a random flat colour. Returns 0 when the block cannot be allocated. */
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Face_Dll(SceneFace* face);
/* Frees the block of the face's flat colour. The pointer faceColour is not cleared. */
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Face_Dll(SceneFace* face);

/* The renderer keeps nothing of animations, cameras, lights, light maps, maps, objects and spot lights. Adding one
   returns 1; releasing or updating one does nothing. */
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Animation_Dll(const void* record);
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Camera_Dll(const void* record);
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Light_Dll(const void* record);
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Light_Map_Dll(const void* record);
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Map_Dll(const void* record);
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Object_Dll(const void* record);
KARDENO_EXPORT i32 KARDENO_CALL Kardeno_Add_Spot_Light_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Animation_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Camera_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Light_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Light_Map_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Map_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Object_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Release_Spot_Light_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Update_Light_Map_Dll(const void* record);
KARDENO_EXPORT void KARDENO_CALL Kardeno_Update_Map_Dll(const void* record);

#ifdef __cplusplus
} /* extern "C" */
} /* namespace kardeno */
#endif

#include "c_names_end.h"
