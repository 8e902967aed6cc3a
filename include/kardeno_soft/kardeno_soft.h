/* kardeno_soft: a software 3D renderer in a dynamic library. This is the header that a host includes; with the host's
   records it is all that a host needs.

   Load the library by file name, look the 28 functions up by their plain names, call Kardeno_Init_Render_Dll once, then
   anything in any order, one call at a time: there is one renderer for a process, it keeps its state in globals, and
   none of the functions may be called from inside a host callback. All use the C calling convention (the caller pops
   the arguments), and all accept a stack that is aligned to 4 bytes only. A function that can fail answers 0. */
#pragma once

#include "host_records.h"
#include "render_modes.h"

#if defined(_WIN32) && defined(KARDENO_BUILDING_LIBRARY)
#define KARDENO_EXPORT __declspec(dllexport)
#elif defined(__GNUC__)
#define KARDENO_EXPORT __attribute__((visibility("default")))
#else
#define KARDENO_EXPORT
#endif

#ifdef __cplusplus
namespace kardeno {
extern "C" {
#endif

/* Keeps the context (borrowed, for ever), fills the render-mode table and builds the colour tables for its
   bitsPerPixel. Calling it again replaces the context; materials keep their modes. Always 1. */
KARDENO_EXPORT i32 Kardeno_Init_Render_Dll(HostContext* context);

/* Draws one frame. Pixel (x, y) is frameBuffer[y * view->pitch + x]; only the rectangle of the view is written.
   `argument` is passed on to the span fillers, which ignore it. flags bit 0: clear what no polygon covers to 0.
   Does nothing when view->camera is 0. */
KARDENO_EXPORT void Kardeno_Render_Dll(RenderView* view, u16* frameBuffer, u32 argument, u8 flags);

/* The object whose face lies nearest under the screen point (x, y), or 0. *faceIndex is the face's index in the drawn
   geometry of that object (0 without a hit), *depth its camera-space Z there (farZ without a hit). */
KARDENO_EXPORT SceneObject* Kardeno_Pick_Dll(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);

/* Gives a material its private record; 0 when it cannot be allocated. */
KARDENO_EXPORT i32 Kardeno_Add_Material_Dll(SceneMaterial* material);
/* Frees the material's shade ramp and private record. The pointers to them are not cleared. */
KARDENO_EXPORT void Kardeno_Release_Material_Dll(SceneMaterial* material);
/* Refills the shade ramp, if there is one, after a change of colours or palette. */
KARDENO_EXPORT void Kardeno_Update_Material_Dll(SceneMaterial* material);
/* Chooses how the material is drawn. 0: unlit; 1 or 2: lit; others: flat fallbacks. 0 when a shade ramp was needed and
   could not be allocated, and for a material that was never added. */
KARDENO_EXPORT i32 Kardeno_Set_Material_Render_State_Dll(SceneMaterial* material, i32 state);
/* The render state most recently chosen with the material's row; rows are shared by all materials that select them. */
KARDENO_EXPORT i32 Kardeno_Get_Material_Render_State_Dll(const SceneMaterial* material);
/* Recomputes the material's flag word, and nothing else. */
KARDENO_EXPORT void Kardeno_Set_Material_Fct_Dll(SceneMaterial* material);

/* Gives a face its random flat colour; 0 when it cannot be allocated. */
KARDENO_EXPORT i32 Kardeno_Add_Face_Dll(SceneFace* face);
/* Frees the face's flat colour. The pointer is not cleared. */
KARDENO_EXPORT void Kardeno_Release_Face_Dll(SceneFace* face);

/* The renderer keeps nothing for these records. Adding one always gives 1; releasing or updating one does nothing. */
KARDENO_EXPORT i32 Kardeno_Add_Animation_Dll(const void* record);
KARDENO_EXPORT i32 Kardeno_Add_Camera_Dll(const void* record);
KARDENO_EXPORT i32 Kardeno_Add_Light_Dll(const void* record);
KARDENO_EXPORT i32 Kardeno_Add_Light_Map_Dll(const void* record);
KARDENO_EXPORT i32 Kardeno_Add_Map_Dll(const void* record);
KARDENO_EXPORT i32 Kardeno_Add_Object_Dll(const void* record);
KARDENO_EXPORT i32 Kardeno_Add_Spot_Light_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Animation_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Camera_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Light_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Light_Map_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Map_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Object_Dll(const void* record);
/* Frees nothing: the frame's lists and pools last until the library is unloaded. */
KARDENO_EXPORT void Kardeno_Release_Render_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Release_Spot_Light_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Update_Light_Map_Dll(const void* record);
KARDENO_EXPORT void Kardeno_Update_Map_Dll(const void* record);

#ifdef __cplusplus
} /* extern "C" */
} /* namespace kardeno */
#endif
