/* How a material is drawn. The render-mode table has twenty rows of routines, which lie one after another in memory.
   The renderer's private record of a material points at one of them.

   A host chooses a row through Kardeno_Set_Material_Render_State_Dll and then needs nothing from this header. But no
   render state chooses rowSpareA or rowSpareB. A host that wants one of them sets any render state and then moves the
   pointer itself:

       material->renderPrivate->mode += rowSpareA - rowOfThatState;

   The order of the rows, their size and the place of `mode` are promised for that purpose. */
#pragma once

#include "host_records.h"

#include "c_names.h"

#pragma pack(push, 8)

#ifdef __cplusplus
namespace kardeno {
#endif

/* The render states. All other values are fallbacks, as stateFallback is: faces in one flat colour. */
enum {
    stateUnlit = 0,   /* the colours of the material or its texture as they are */
    stateLit = 1,     /* lit by the intensities that the host's light leaves */
    stateLitToo = 2,  /* the same as stateLit */
    stateFallback = 3 /* the random colour of each face */
};

/* The bits of a material's flag word, which the renderer sums up from its texture map, transparency and shadingMode. A
   row is selected by the whole word. */
enum {
    flagTextured = 1,          /* it has a texture map */
    flagShade1 = 2,            /* shadingColourKey */
    flagHalfTransparent = 4,   /* transparencyHalf */
    flagOtherTransparency = 8, /* any other transparency but transparencyNone */
    flagShade2 = 64,           /* shadingAdditive */
    flagShade10 = 256,         /* shadingBillboardOverAll */
    flagShade11 = 512          /* shadingBillboard */
};

KARDENO_RECORD(ScreenPolygon); /* the renderer's own; a host never sees into one */
KARDENO_RECORD(RenderMode);
KARDENO_RECORD(ClipperFamily);

/* Turns a face that passed the host's test into a screen polygon and appends it to one of the frame's lists. A face of
   which nothing is in view is dropped. */
typedef void (*EmitRoutine)(const RenderView* view, const SceneFace* face);
/* Clips a polygon against one plane, in place. */
typedef void (*ClipRoutine)(const RenderView* view, ScreenPolygon* polygon);
/* Draws a polygon's visible spans. Pixel (x, y) is frameBuffer[y * pitch + x]. No filler reads the argument. */
typedef void (*FillRoutine)(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

/* The six clippers of a vertex format, in the order in which a row holds them. */
struct ClipperFamily {
    /* Renderer, at initialisation: cuts away what lies nearer than nearZ */
    ClipRoutine nearPlane;
    /* Renderer, at initialisation: cuts away what lies farther than farZ */
    ClipRoutine farPlane;
    /* Renderer, at initialisation: cuts away what lies right of the rectangle */
    ClipRoutine rightPlane;
    /* Renderer, at initialisation: cuts away what lies left of the rectangle */
    ClipRoutine leftPlane;
    /* Renderer, at initialisation: cuts away what lies below the rectangle */
    ClipRoutine bottomPlane;
    /* Renderer, at initialisation: cuts away what lies above the rectangle */
    ClipRoutine topPlane;
};

/* A row of the table: an emission routine, the six plane clippers that it calls, and the filler that draws the result.
   */
struct RenderMode {
    /* Renderer, when a render state is chosen: that state, by whichever material */
    i32 state;
    /* Renderer, at initialisation: makes a screen polygon of a face of this row */
    EmitRoutine emit;
    /* Renderer, at initialisation: the clippers of the row's vertex format */
    ClipperFamily clip;
    /* Renderer, at initialisation: draws the polygons of this row */
    FillRoutine fill;
};
KARDENO_SIZE(RenderMode, 36, 72);
KARDENO_OFFSET(RenderMode, state, 0, 0);
KARDENO_OFFSET(RenderMode, emit, 4, 8);
KARDENO_OFFSET(RenderMode, clip.nearPlane, 8, 16);
KARDENO_OFFSET(RenderMode, clip.farPlane, 12, 24);
KARDENO_OFFSET(RenderMode, clip.rightPlane, 16, 32);
KARDENO_OFFSET(RenderMode, clip.leftPlane, 20, 40);
KARDENO_OFFSET(RenderMode, clip.bottomPlane, 24, 48);
KARDENO_OFFSET(RenderMode, clip.topPlane, 28, 56);
KARDENO_OFFSET(RenderMode, fill, 32, 64);

/* A ramp entry holds a 16-bit pixel in its upper half. */
typedef u32 RampEntry;

/* The renderer's private record of a material, which it allocates through the host, filled with zeros. */
struct MaterialPrivate {
    /* Renderer, when a render state is chosen; a host may move it to a spare row; 0: no render state was chosen yet */
    RenderMode* mode;
    /* Renderer, when a render state first needs it: 64 entries, or 64 x 256 with a texture map; keeps its size for the
       material's life; 0: not needed yet */
    RampEntry* shadeRamp;
};
KARDENO_SIZE(MaterialPrivate, 8, 16);
KARDENO_OFFSET(MaterialPrivate, mode, 0, 0);
KARDENO_OFFSET(MaterialPrivate, shadeRamp, 4, 8);

/* The rows, in their order in memory. */
typedef enum RenderModeRow {
    rowFallbackFlat,                 /* opaque, a random colour for each face: its low byte, twice */
    rowFallbackBlend,                /* half transparent, the random colour of each face */
    rowUnlitPlain,                   /* diffuseColour.packed */
    rowUnlitTextured,                /* 16-bit texels */
    rowUnlitTexturedShade1,          /* 16-bit texels without transparentColour */
    rowUnlitTranslucent,             /* half transparent, diffuseColour.packed */
    rowUnlitTexturedTranslucent,     /* half transparent, 16-bit texels */
    rowUnlitTexturedShade2,          /* additive, 16-bit texels */
    rowUnlitTexturedShade10,         /* additive billboard over everything, 16-bit texels */
    rowUnlitTexturedShade11,         /* additive billboard, 16-bit texels */
    rowUnlitPalettised,              /* palette indices, at the top level of the shade ramp */
    rowLitPlain,                     /* lit, without a texture */
    rowLitTextured,                  /* lit palette indices */
    rowLitTexturedShade1,            /* lit palette indices without transparentIndex */
    rowLitTranslucent,               /* half transparent, lit, without a texture */
    rowLitTexturedTranslucent,       /* half transparent, lit palette indices */
    rowLitTexturedShade1Translucent, /* half transparent, lit palette indices without the index 0 */
    rowLitTexturedShade2,            /* additive, lit palette indices */
    rowSpareA,                       /* interpolates the colours of the vertices */
    rowSpareB,                       /* scales the 16-bit texels of a texture map by the interpolated colours */
    renderModeRowCount               /* how many rows there are */
} RenderModeRow;

#ifdef __cplusplus
} /* namespace kardeno */
#endif

#pragma pack(pop)

#include "c_names_end.h"
