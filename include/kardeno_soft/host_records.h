/* The host's records as they lie in the host's memory. They are the contract between a host and the renderer.

   The renderer keeps no scene of its own. It reads these records in place, at fixed byte offsets, and writes only the
   fields whose remarks begin with "Renderer". Bytes inside a gap belong to the host and are never touched. A host may
   append fields of its own to a record, unless the size of the record counts: CameraVertex, ScreenVertex, VertexShade
   and TexCoord are elements of arrays, MaterialColour lies inside SceneMaterial, and the texels follow TextureImage.

   Each field's remark begins with who writes it and when. "Host:" alone means that the value must be there before the
   record is first used, and may be changed between any two calls of the renderer. Pointers are never 0 unless the
   remark says what 0 means. */
#pragma once

#include "compilers.h"
#include "types.h"

#include "c_names.h"

/* The records lie as a compiler lays them out by itself, also in a host that packs its own. */
#pragma pack(push, 8)

#ifdef __cplusplus
namespace kardeno {
#endif

KARDENO_RECORD(HostContext);
KARDENO_RECORD(RenderView);
KARDENO_RECORD(ViewProjection);
KARDENO_RECORD(SceneCamera);
KARDENO_RECORD(CameraFunctions);
KARDENO_RECORD(SceneObject);
KARDENO_RECORD(ObjectClass);
KARDENO_RECORD(ObjectFunctions);
KARDENO_RECORD(SceneFace);
KARDENO_RECORD(FaceTest);
KARDENO_RECORD(SceneMaterial);
KARDENO_RECORD(MaterialNode);
KARDENO_RECORD(MaterialColour);
KARDENO_RECORD(MaterialPrivate); /* the renderer's own; a host only keeps the pointer */
KARDENO_RECORD(MaterialFlags);
KARDENO_RECORD(TextureMap);
KARDENO_RECORD(TextureImage);
KARDENO_RECORD(CameraVertex);
KARDENO_RECORD(ScreenVertex);
KARDENO_RECORD(VertexShade);
KARDENO_RECORD(TexCoord);

/* A vertex in camera space: X points right, Y up and Z away from the eye. */
struct CameraVertex {
    /* Host, in prepareVertices: in the units of nearZ and farZ, any finite values */
    f32 x, y, z;
};
KARDENO_SIZE(CameraVertex, 12, 12);
KARDENO_OFFSET(CameraVertex, x, 0, 0);
KARDENO_OFFSET(CameraVertex, y, 4, 4);
KARDENO_OFFSET(CameraVertex, z, 8, 8);

/* A projected vertex: its place on the screen in pixels, with y pointing down, and its inverse depth 1 / Z. */
struct ScreenVertex {
    /* Renderer, during a frame or a pick: valid while the vertex's stamp is the context's projectionStamp */
    f32 x, y, invDepth;
};
KARDENO_SIZE(ScreenVertex, 12, 12);
KARDENO_OFFSET(ScreenVertex, x, 0, 0);
KARDENO_OFFSET(ScreenVertex, y, 4, 4);
KARDENO_OFFSET(ScreenVertex, invDepth, 8, 8);

/* The light at a vertex. */
struct VertexShade {
    /* Host, in light: 0 (black) to 255 (full), read only by the two rows that interpolate colours */
    f32 red, green, blue;
    /* Host, in light: 0 (no light) to 255 (the top of the highlight); a quarter of it is the level in the
       shade ramp of 64 levels, and values beyond 0 to 255 wrap around in it */
    f32 intensity;
};
KARDENO_SIZE(VertexShade, 16, 16);
KARDENO_OFFSET(VertexShade, red, 0, 0);
KARDENO_OFFSET(VertexShade, green, 4, 4);
KARDENO_OFFSET(VertexShade, blue, 8, 8);
KARDENO_OFFSET(VertexShade, intensity, 12, 12);

/* The texture coordinates of a corner. The image spans 0 to 1 in both directions. */
struct TexCoord {
    /* Host: u runs along a row of texels and v from row to row. A 256 x 256 image repeats in both directions; of other
       images only whole turns of v repeat, and a u beyond 0 to 1 runs into the next row of texels */
    f32 u, v;
};
KARDENO_SIZE(TexCoord, 8, 8);
KARDENO_OFFSET(TexCoord, u, 0, 0);
KARDENO_OFFSET(TexCoord, v, 4, 4);

/* The outcode of a vertex has a bit for each clip plane. A bit that is set means that the vertex lies INSIDE that
   plane. The host fills the outcodes of its vertices. Of a vertex between the near and the far plane the four other
   bits are found on the screen, and of any other in camera space. */
enum {
    outcodeNear = 0x01,   /* Z >= nearZ */
    outcodeFar = 0x02,    /* Z <= farZ */
    outcodeLeft = 0x04,   /* screen x >= left, or X >= -Z in camera space */
    outcodeRight = 0x08,  /* screen x <= right, or X <= Z */
    outcodeTop = 0x10,    /* screen y >= top, or Y <= Z */
    outcodeBottom = 0x20, /* screen y <= bottom, or Y >= -Z */
    outcodeAll = 0x3f     /* inside all six planes */
};

/* The two formats of the frame buffer, as the values of HostContext.bitsPerPixel. */
enum {
    bitsPerPixel555 = 15, /* red in bits 14 to 10, green in 9 to 5, blue in 4 to 0; bit 15 is not used */
    bitsPerPixel565 = 16  /* red in bits 15 to 11, green in 10 to 5, blue in 4 to 0 */
};

/* The host's services and its vertex arrays, handed over at initialisation. The record must live as long as the
   renderer is used. The five arrays have an element for every index that a face may name; they may be replaced by
   larger ones between two calls of the renderer and in prepareVertices. */
struct HostContext {
    u8 gap0[4];
    /* Host, in prepareVertices: the vertices of the drawn object */
    const CameraVertex* cameraVertices;
    /* Host: the array; Renderer: its elements, when it first projects a vertex of an object */
    ScreenVertex* screenVertices;
    u8 gap12[4];
    /* Host, in light: the light at the vertices of the drawn object; may be 0 while no material is lit or has a spare
       row */
    const VertexShade* vertexShades;
    /* Host, in prepareVertices: the outcodes of the vertices of the drawn object */
    const u32* vertexOutcodes;
    /* Host: the array, filled with 0 once; Renderer: its elements, the projectionStamp under which a vertex was
       projected */
    u32* vertexStamps;
    u8 gap28[16];
    /* Host, before initialisation: returns count x size bytes filled with 0, or 0 when there are none */
    void*(KARDENO_CALL* alloc)(u32 count, u32 size);
    /* Host, before initialisation: makes a block larger and returns where it is then, or 0 when it cannot and the block
       stays as it was; a block of 0 is a new one */
    void*(KARDENO_CALL* realloc)(void* block, u32 bytes);
    /* Host, before initialisation: takes back a block of the two functions above, never 0 */
    void(KARDENO_CALL* free)(void* block);
    u8 gap56[296];
    /* Host, before initialisation: bitsPerPixel555 or bitsPerPixel565, and nothing else */
    i32 bitsPerPixel;
    u8 gap356[16476];
    /* Host: 0, once; Renderer: adds 1 before each object's vertices are lit and prepared */
    u32 projectionStamp;
};
KARDENO_OFFSET(HostContext, cameraVertices, 4, 8);
KARDENO_OFFSET(HostContext, screenVertices, 8, 16);
KARDENO_OFFSET(HostContext, vertexShades, 16, 32);
KARDENO_OFFSET(HostContext, vertexOutcodes, 20, 40);
KARDENO_OFFSET(HostContext, vertexStamps, 24, 48);
KARDENO_OFFSET(HostContext, alloc, 44, 72);
KARDENO_OFFSET(HostContext, realloc, 48, 80);
KARDENO_OFFSET(HostContext, free, 52, 88);
KARDENO_OFFSET(HostContext, bitsPerPixel, 352, 392);
KARDENO_OFFSET(HostContext, projectionStamp, 16832, 16872);

/* The view that a frame or a pick is made of: the objects, the camera and the drawn rectangle. */
struct RenderView {
    /* Host: the first root; further roots follow through nextRoot; 0: no object */
    SceneObject* firstObject;
    u8 gap4[16];
    /* Host: 0: a frame or a pick does nothing */
    SceneCamera* camera;
    u8 gap24[8];
    /* Host: left edge of the drawn rectangle, the first column that is drawn; in pixels, at least -32,768 */
    f32 left;
    /* Host: the first scanline that is drawn, at least 0 */
    f32 top;
    u8 gap40[8];
    /* Host: nearest Z that is drawn, above 0; a corner that is cut at the near plane gets exactly this Z */
    f32 nearZ;
    /* Host: farthest Z that is drawn, above nearZ; also the depth at which a pick starts */
    f32 farZ;
    u8 gap56[4];
    /* Host: length of a row of the frame buffer, in pixels and not in bytes */
    i32 pitch;
    /* Host: how camera space becomes the screen, and two edges of the drawn rectangle */
    const ViewProjection* projection;
};
KARDENO_OFFSET(RenderView, firstObject, 0, 0);
KARDENO_OFFSET(RenderView, camera, 20, 24);
KARDENO_OFFSET(RenderView, left, 32, 40);
KARDENO_OFFSET(RenderView, top, 36, 44);
KARDENO_OFFSET(RenderView, nearZ, 48, 56);
KARDENO_OFFSET(RenderView, farZ, 52, 60);
KARDENO_OFFSET(RenderView, pitch, 60, 68);
KARDENO_OFFSET(RenderView, projection, 64, 72);

/* The perspective projection: screen x is centreX + scaleX * X / Z, and screen y is centreY - scaleY * Y / Z. The host
   fills all ten fields. */
struct ViewProjection {
    /* Host: right edge in pixels, the first column that is not drawn; at most 32,767 */
    f32 right;
    /* Host: scanlines are drawn while y < bottom; at most 4,096 */
    f32 bottom;
    /* Host: in pixels, where the eye looks */
    f32 centreX, centreY;
    /* Host: in pixels, half the width and half the height of the drawn rectangle; never 0 */
    f32 scaleX, scaleY;
    /* Host: 1 / scaleX */
    f32 invScaleX;
    /* Host: 1 / scaleY */
    f32 invScaleY;
    /* Host: centreX / scaleX */
    f32 centreXOverScaleX;
    /* Host: centreY / scaleY */
    f32 centreYOverScaleY;
};
KARDENO_OFFSET(ViewProjection, right, 0, 0);
KARDENO_OFFSET(ViewProjection, bottom, 4, 4);
KARDENO_OFFSET(ViewProjection, centreX, 8, 8);
KARDENO_OFFSET(ViewProjection, centreY, 12, 12);
KARDENO_OFFSET(ViewProjection, scaleX, 16, 16);
KARDENO_OFFSET(ViewProjection, scaleY, 20, 20);
KARDENO_OFFSET(ViewProjection, invScaleX, 24, 24);
KARDENO_OFFSET(ViewProjection, invScaleY, 28, 28);
KARDENO_OFFSET(ViewProjection, centreXOverScaleX, 32, 32);
KARDENO_OFFSET(ViewProjection, centreYOverScaleY, 36, 36);

/* What the renderer asks of a camera. */
struct CameraFunctions {
    /* Host: called once, before anything else of a frame or a pick; the place to change the view */
    void(KARDENO_CALL* prepare)(SceneCamera* camera, RenderView* view);
};
KARDENO_OFFSET(CameraFunctions, prepare, 0, 0);

/* The host's camera, of which the renderer reads nothing but where its function is. */
struct SceneCamera {
    u8 gap0[92];
    /* Host: the camera's one function */
    const CameraFunctions* functions;
};
KARDENO_OFFSET(SceneCamera, functions, 92, 96);

/* A node of the host's object tree. */
struct SceneObject {
    u8 gap0[36];
    /* Host: 0: no children */
    SceneObject* firstChild;
    /* Host: the next object below the same parent; 0: the last one */
    SceneObject* nextSibling;
    /* Host: only followed from the view's firstObject; 0: the last root */
    SceneObject* nextRoot;
    u8 gap48[12];
    /* Host: nonzero: the object is drawn with the group object that encloses it, and never on its own; 0: it stands for
       itself, or is a group */
    i32 partOfGroup;
    u8 gap64[16];
    /* Host: 0: nothing to draw */
    i32 faceCount;
    /* Host: faceCount pointers; may be 0 when there are no faces */
    SceneFace** faces;
    u8 gap88[4];
    /* Host, in testBounds: nonzero: the object can be seen; 0: it is not drawn. Renderer: in a group that is not seen
       itself 1 or 0, by whether one of its parts is */
    i32 visible;
    u8 gap96[8];
    /* Host: the materials that the object uses, looked through for one that needs light; 0: none */
    MaterialNode* materials;
    u8 gap108[112];
    /* Host: points at a value that is nonzero when the object is a group, which is culled and drawn as one with its
       parts */
    const i32* groupFlag;
    u8 gap224[4];
    /* Host: the class whose functions are called for the object; many objects may share it */
    ObjectClass* objectClass;
};
KARDENO_OFFSET(SceneObject, firstChild, 36, 40);
KARDENO_OFFSET(SceneObject, nextSibling, 40, 48);
KARDENO_OFFSET(SceneObject, nextRoot, 44, 56);
KARDENO_OFFSET(SceneObject, partOfGroup, 60, 76);
KARDENO_OFFSET(SceneObject, faceCount, 80, 96);
KARDENO_OFFSET(SceneObject, faces, 84, 104);
KARDENO_OFFSET(SceneObject, visible, 92, 116);
KARDENO_OFFSET(SceneObject, materials, 104, 128);
KARDENO_OFFSET(SceneObject, groupFlag, 220, 248);
KARDENO_OFFSET(SceneObject, objectClass, 228, 264);

/* A node of the linked list of materials that an object uses. */
struct MaterialNode {
    /* Host: a material for which a render state was chosen */
    SceneMaterial* material;
    /* Host: 0: the last one */
    MaterialNode* next;
};
KARDENO_SIZE(MaterialNode, 8, 16);
KARDENO_OFFSET(MaterialNode, material, 0, 0);
KARDENO_OFFSET(MaterialNode, next, 4, 8);

/* The class of an object, through which the renderer finds the object's functions. */
struct ObjectClass {
    u8 gap0[108];
    /* Host: the functions of every object of this class */
    const ObjectFunctions* functions;
};
KARDENO_OFFSET(ObjectClass, functions, 108, 112);

/* The functions that the host provides for an object, in the order in which they are called. `drawn` is the object
   that selectLevel chose: its geometry is drawn, and testBounds, light and prepareVertices are taken from its class.
   None of the functions may call the renderer. */
struct ObjectFunctions {
    u8 gap0[12];
    /* Host: brings the object's own state up to date for this frame */
    void(KARDENO_CALL* update)(SceneObject* object);
    /* Host: finds where the object stands as seen from the camera */
    void(KARDENO_CALL* transform)(SceneObject* object, RenderView* view);
    /* Host: returns the object whose geometry is drawn, for instance a simpler one far away, with the same tree below
       it; 0: the object itself */
    SceneObject*(KARDENO_CALL* selectLevel)(SceneObject* object, RenderView* view);
    /* Host: sets the `visible` of `object` */
    void(KARDENO_CALL* testBounds)(SceneObject* drawn, SceneObject* object, RenderView* view);
    /* Host: fills vertexShades for the vertices of `drawn`; called only by frames, and only when a material of `drawn`
       has a row that was last chosen by stateLit or stateLitToo */
    void(KARDENO_CALL* light)(SceneObject* drawn, SceneObject* object, RenderView* view);
    u8 gap32[4];
    /* Host: fills cameraVertices and vertexOutcodes for the vertices of `drawn`, and the normals of its faces */
    void(KARDENO_CALL* prepareVertices)(SceneObject* drawn, SceneObject* object, RenderView* view);
};
KARDENO_OFFSET(ObjectFunctions, update, 12, 16);
KARDENO_OFFSET(ObjectFunctions, transform, 16, 24);
KARDENO_OFFSET(ObjectFunctions, selectLevel, 20, 32);
KARDENO_OFFSET(ObjectFunctions, testBounds, 24, 40);
KARDENO_OFFSET(ObjectFunctions, light, 28, 48);
KARDENO_OFFSET(ObjectFunctions, prepareVertices, 36, 64);

/* The function that a host provides for a face. */
struct FaceTest {
    /* Host: returns nonzero when the face is to be drawn, for instance because its front is seen */
    i32(KARDENO_CALL* test)(SceneFace* face);
};
KARDENO_OFFSET(FaceTest, test, 0, 0);

/* How many corners a face may have. */
enum {
    fewestFaceCorners = 3, /* a triangle */
    mostFaceCorners = 10   /* each of the six clip planes may add one more, and there is room for 16 */
};

/* One convex, flat polygon of an object. It is seen only from the side on which its corners run counter-clockwise on
   the screen. */
struct SceneFace {
    /* Host: fewestFaceCorners to mostFaceCorners; exactly 4 in a billboard */
    i32 vertexCount;
    /* Host: one for each corner, into the vertex arrays of HostContext */
    const i32* vertexIndices;
    /* Host: one for each corner; may be 0 when the material has no texture map */
    const TexCoord* texCoords;
    u8 gap12[8];
    /* Host: a material for which a render state was chosen */
    SceneMaterial* material;
    u8 gap24[16];
    /* Host, in prepareVertices: normal of the face's plane in camera space, of any length and either direction; its
       product with a corner must not be 0, as it is for a plane through the eye */
    f32 normalX, normalY, normalZ;
    u8 gap52[8];
    /* Renderer, when the face is added: a block with a random flat colour in the frame buffer's format, which the host
       may change; 0: the face was not added, or memory was refused, and must not be drawn */
    u16* faceColour;
    /* Host: what decides whether the face is drawn; many faces may share it */
    const FaceTest* faceTest;
};
KARDENO_OFFSET(SceneFace, vertexCount, 0, 0);
KARDENO_OFFSET(SceneFace, vertexIndices, 4, 8);
KARDENO_OFFSET(SceneFace, texCoords, 8, 16);
KARDENO_OFFSET(SceneFace, material, 20, 32);
KARDENO_OFFSET(SceneFace, normalX, 40, 56);
KARDENO_OFFSET(SceneFace, normalY, 44, 60);
KARDENO_OFFSET(SceneFace, normalZ, 48, 64);
KARDENO_OFFSET(SceneFace, faceColour, 60, 80);
KARDENO_OFFSET(SceneFace, faceTest, 64, 88);

/* A colour of a material, in the two forms that the renderer reads. */
struct MaterialColour {
    /* Host: 0 to 255; shade ramps are computed from the three */
    u8 red, green, blue;
    u8 gap3;
    /* Host: the same colour in the frame buffer's format; read of the diffuse colour alone */
    u16 packed;
};
KARDENO_SIZE(MaterialColour, 6, 6);
KARDENO_OFFSET(MaterialColour, red, 0, 0);
KARDENO_OFFSET(MaterialColour, green, 1, 1);
KARDENO_OFFSET(MaterialColour, blue, 2, 2);
KARDENO_OFFSET(MaterialColour, packed, 4, 4);

/* The values of SceneMaterial.transparency, in percent. Any other one selects a fallback row. */
enum {
    transparencyNone = 0, /* what lies behind is hidden */
    transparencyHalf = 50 /* the mean of the material and what lies behind */
};

/* The values of SceneMaterial.shadingMode. Any other one is taken as shadingPlain. */
enum {
    shadingPlain = 0,             /* every texel is drawn */
    shadingColourKey = 1,         /* texels of one colour or index are not drawn */
    shadingAdditive = 2,          /* the texels are added to what lies behind */
    shadingBillboardOverAll = 10, /* the same on a square that faces the eye, drawn last and hidden by nothing */
    shadingBillboard = 11         /* the same, hidden by what lies nearer */
};

/* What faces are made of: colours, a texture map, and how the two are drawn. The host adds it, chooses its render
   state, and tells the renderer when colours or the palette have changed. */
struct SceneMaterial {
    u8 gap0[44];
    /* Host: added at every level of the shade ramp of a material without a texture */
    MaterialColour ambientColour;
    /* Host: what grows with the light in a material without a texture; its packed value draws the unlit ones */
    MaterialColour diffuseColour;
    /* Host: added in the highlight, the upper levels of the shade ramp */
    MaterialColour specularColour;
    /* Host: a factor for the diffuse colour or the palette; 255 leaves it as it is */
    MaterialColour tintColour;
    /* Host: percent, 0 to 100; the highlight takes the top 32 - 28 * shininess / 100 of the 64 ramp levels, of which
       none are left from 115 on */
    i32 shininess;
    /* Host: percent, 0 to 100; the strength of the highlight at the top of the ramp; 0: no highlight */
    i32 specularLevel;
    /* Host: transparencyNone or transparencyHalf; any other value selects a fallback row */
    i32 transparency;
    /* Host: shadingPlain or another of the shading modes */
    i32 shadingMode;
    u8 gap84[8];
    /* Host: 0: a material without a texture */
    TextureMap* textureMap;
    u8 gap96[12];
    /* Host: where the renderer writes the flag word */
    MaterialFlags* materialFlags;
    /* Renderer, when the material is added: its own record; 0: memory was refused. It stays after the release, when it
       points at nothing */
    MaterialPrivate* renderPrivate;
};
KARDENO_OFFSET(SceneMaterial, ambientColour, 44, 44);
KARDENO_OFFSET(SceneMaterial, diffuseColour, 50, 50);
KARDENO_OFFSET(SceneMaterial, specularColour, 56, 56);
KARDENO_OFFSET(SceneMaterial, tintColour, 62, 62);
KARDENO_OFFSET(SceneMaterial, shininess, 68, 68);
KARDENO_OFFSET(SceneMaterial, specularLevel, 72, 72);
KARDENO_OFFSET(SceneMaterial, transparency, 76, 76);
KARDENO_OFFSET(SceneMaterial, shadingMode, 80, 80);
KARDENO_OFFSET(SceneMaterial, textureMap, 92, 96);
KARDENO_OFFSET(SceneMaterial, materialFlags, 108, 120);
KARDENO_OFFSET(SceneMaterial, renderPrivate, 112, 128);

/* Where the renderer leaves what it found out about a material. */
struct MaterialFlags {
    u8 gap0[4];
    /* Renderer, when a render state is chosen or Kardeno_Set_Material_Fct_Dll is called: the material flag word, a sum
       of the flags of render_modes.h */
    u32 flags;
};
KARDENO_OFFSET(MaterialFlags, flags, 4, 4);

/* A texture as a material names it: an image, the colours of its palette, and what is left out of it. */
struct TextureMap {
    u8 gap0[51];
    /* Host: palette index that shadingColourKey leaves undrawn on an opaque, lit material; a half-transparent one
       leaves the index 0 undrawn */
    u8 transparentIndex;
    /* Host: texel that shadingColourKey leaves undrawn on an unlit material, in the frame buffer's format */
    u16 transparentColour;
    u8 gap54[2];
    /* Host: the head of the image, with the texels behind it */
    TextureImage* image;
    /* Host: 256 x { blue, green, red, unused }; may be 0 when the image has no palette indices */
    const u8* palette;
};
KARDENO_OFFSET(TextureMap, transparentIndex, 51, 51);
KARDENO_OFFSET(TextureMap, transparentColour, 52, 52);
KARDENO_OFFSET(TextureMap, image, 56, 56);
KARDENO_OFFSET(TextureMap, palette, 60, 64);

/* What a texel may be, as the values of TextureImage.bitsPerTexel. */
enum {
    bitsPerTexelPalettised = 8, /* an index into the palette */
    bitsPerTexelPixels = 16     /* a pixel in the frame buffer's format */
};

/* The head of an image, whose texels follow it row after row. A texel is a u8 palette index when bitsPerTexel is 8, and
   otherwise a u16 pixel in the frame buffer's format. Width and height are powers of two. */
struct TextureImage {
    /* Host: bitsPerTexelPalettised or bitsPerTexelPixels */
    u32 bitsPerTexel;
    u8 gap4[8];
    /* Host: nonzero: the image is 256 x 256, and each coordinate wraps by itself; 0: any powers of two */
    u32 is256x256;
    /* Host: width x height - 1 */
    u32 indexMask;
    /* Host: log2 of the width */
    u32 rowShift;
    /* Host: in texels, the same powers of two as in rowShift and indexMask */
    f32 width, height;
};
KARDENO_SIZE(TextureImage, 32, 32);
KARDENO_OFFSET(TextureImage, bitsPerTexel, 0, 0);
KARDENO_OFFSET(TextureImage, is256x256, 12, 12);
KARDENO_OFFSET(TextureImage, indexMask, 16, 16);
KARDENO_OFFSET(TextureImage, rowShift, 20, 20);
KARDENO_OFFSET(TextureImage, width, 24, 24);
KARDENO_OFFSET(TextureImage, height, 28, 28);

#ifdef __cplusplus
} /* namespace kardeno */
#endif

#pragma pack(pop)

#include "c_names_end.h"
