/* The host's records as they lie in the host's memory. They are the contract between a host and the renderer.

   The renderer keeps no scene of its own. It reads these records in place, at fixed byte offsets, and writes only the
   fields that are marked "written by the renderer". Bytes inside a gap belong to the host and are never touched. A host
   may append fields of its own to a record, unless the size of the record counts: CameraVertex, ScreenVertex,
   VertexShade and TexCoord are elements of arrays, MaterialColour lies inside SceneMaterial, and the texels follow
   TextureImage.

   The header is plain C as well as C++. In C++ everything lies in namespace kardeno. */
#pragma once

#include "types.h"

#include <assert.h>
#include <stddef.h>

/* These assert the place of a field and the size of a record, in bytes, with 32-bit and with 64-bit pointers. */
#define KARDENO_OFFSET(record, field, at32, at64)                                                                      \
    static_assert(offsetof(record, field) == (sizeof(void*) == 4 ? (at32) : (at64)), "")
#define KARDENO_SIZE(record, size32, size64)                                                                           \
    static_assert(sizeof(record) == (sizeof(void*) == 4 ? (size32) : (size64)), "")

#ifdef __cplusplus
namespace kardeno {
#endif

typedef struct HostContext HostContext;
typedef struct RenderView RenderView;
typedef struct ViewProjection ViewProjection;
typedef struct SceneCamera SceneCamera;
typedef struct CameraFunctions CameraFunctions;
typedef struct SceneObject SceneObject;
typedef struct ObjectClass ObjectClass;
typedef struct ObjectFunctions ObjectFunctions;
typedef struct SceneFace SceneFace;
typedef struct FaceTest FaceTest;
typedef struct SceneMaterial SceneMaterial;
typedef struct MaterialNode MaterialNode;
typedef struct MaterialColour MaterialColour;
typedef struct MaterialPrivate MaterialPrivate; /* the renderer's own; a host only keeps the pointer */
typedef struct MaterialFlags MaterialFlags;
typedef struct TextureMap TextureMap;
typedef struct TextureImage TextureImage;
typedef struct CameraVertex CameraVertex;
typedef struct ScreenVertex ScreenVertex;
typedef struct VertexShade VertexShade;
typedef struct TexCoord TexCoord;

/* A vertex in camera space: X points right, Y up and Z away from the eye. */
struct CameraVertex {
    f32 x, y, z;
};
KARDENO_SIZE(CameraVertex, 12, 12);
KARDENO_OFFSET(CameraVertex, x, 0, 0);
KARDENO_OFFSET(CameraVertex, y, 4, 4);
KARDENO_OFFSET(CameraVertex, z, 8, 8);

/* A projected vertex: its place on the screen in pixels, with y pointing down, and its inverse depth 1 / Z. */
struct ScreenVertex {
    f32 x, y, invDepth;
};
KARDENO_SIZE(ScreenVertex, 12, 12);
KARDENO_OFFSET(ScreenVertex, x, 0, 0);
KARDENO_OFFSET(ScreenVertex, y, 4, 4);
KARDENO_OFFSET(ScreenVertex, invDepth, 8, 8);

/* The light at a vertex, as the host's `light` callback leaves it. */
struct VertexShade {
    f32 red, green, blue; /* 0 to 255; read only by the two rows that interpolate colours */
    f32 intensity;        /* 0 to 255; a quarter of it is the level in the shade ramp of 64 levels */
};
KARDENO_SIZE(VertexShade, 16, 16);
KARDENO_OFFSET(VertexShade, red, 0, 0);
KARDENO_OFFSET(VertexShade, green, 4, 4);
KARDENO_OFFSET(VertexShade, blue, 8, 8);
KARDENO_OFFSET(VertexShade, intensity, 12, 12);

/* The texture coordinates of a corner. The image spans 0 to 1 in both directions. */
struct TexCoord {
    f32 u, v;
};
KARDENO_SIZE(TexCoord, 8, 8);
KARDENO_OFFSET(TexCoord, u, 0, 0);
KARDENO_OFFSET(TexCoord, v, 4, 4);

/* The outcode of a vertex has a bit for each clip plane. A bit that is set means that the vertex lies INSIDE that
   plane. The host fills the outcodes of its vertices. */
enum {
    outcodeNear = 0x01,   /* Z >= nearZ */
    outcodeFar = 0x02,    /* Z <= farZ */
    outcodeLeft = 0x04,   /* screen x >= left, or X >= -Z in camera space */
    outcodeRight = 0x08,  /* screen x <= right, or X <= Z */
    outcodeTop = 0x10,    /* screen y >= top, or Y <= Z */
    outcodeBottom = 0x20, /* screen y <= bottom, or Y >= -Z */
    outcodeAll = 0x3f
};

/* The host's services and its vertex arrays, handed over at initialisation. The record must live as long as the
   renderer is used. */
struct HostContext {
    u8 gap0[4];
    const CameraVertex* cameraVertices; /* written by the host's prepareVertices */
    ScreenVertex* screenVertices;       /* written by the renderer when it projects a vertex */
    u8 gap12[4];
    const VertexShade* vertexShades; /* written by the host's light */
    const u32* vertexOutcodes;       /* written by the host's prepareVertices */
    u32* vertexStamps; /* written by the renderer: the projectionStamp under which a vertex was projected */
    u8 gap28[16];
    void* (*alloc)(u32 count, u32 size);      /* zero-filled; 0 on failure */
    void* (*realloc)(void* block, u32 bytes); /* a null block allocates; 0 on failure, which leaves the block valid */
    void (*free)(void* block);
    u8 gap56[296];
    i32 bitsPerPixel; /* 16: RGB 5-6-5; 15: RGB 5-5-5 */
    u8 gap356[16476];
    u32 projectionStamp; /* written by the renderer: incremented before each object's vertices are prepared */
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
    SceneObject* firstObject; /* first root; further roots follow through nextRoot */
    u8 gap4[16];
    SceneCamera* camera; /* when 0, a frame or a pick does nothing */
    u8 gap24[8];
    f32 left; /* left edge of the drawn rectangle in pixels, at least -32,768 */
    f32 top;  /* first scanline, at least 0 */
    u8 gap40[8];
    f32 nearZ;
    f32 farZ; /* also the starting depth of a pick */
    u8 gap56[4];
    i32 pitch; /* length of a frame-buffer row in pixels */
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
    f32 right;  /* right edge in pixels, at most 32,767 */
    f32 bottom; /* scanlines run while y < bottom, at most 4,096 */
    f32 centreX;
    f32 centreY;
    f32 scaleX;
    f32 scaleY;
    f32 invScaleX;         /* 1 / scaleX */
    f32 invScaleY;         /* 1 / scaleY */
    f32 centreXOverScaleX; /* centreX / scaleX */
    f32 centreYOverScaleY; /* centreY / scaleY */
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

struct CameraFunctions {
    void (*prepare)(SceneCamera* camera, RenderView* view); /* called before anything else of a frame or a pick */
};
KARDENO_OFFSET(CameraFunctions, prepare, 0, 0);

struct SceneCamera {
    u8 gap0[92];
    const CameraFunctions* functions;
};
KARDENO_OFFSET(SceneCamera, functions, 92, 96);

/* A node of the host's object tree. */
struct SceneObject {
    u8 gap0[36];
    SceneObject* firstChild;
    SceneObject* nextSibling;
    SceneObject* nextRoot; /* only followed from the view's firstObject */
    u8 gap48[12];
    i32 partOfGroup; /* nonzero: the object is drawn with the group object that encloses it */
    u8 gap64[16];
    i32 faceCount;
    SceneFace** faces;
    u8 gap88[4];
    i32 visible; /* set by the host's testBounds; that of a group is also written by the renderer */
    u8 gap96[8];
    MaterialNode* materials; /* the materials that the object uses */
    u8 gap108[112];
    const i32* groupFlag; /* points at a value that is nonzero when the object is a group */
    u8 gap224[4];
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
    SceneMaterial* material;
    MaterialNode* next;
};
KARDENO_SIZE(MaterialNode, 8, 16);
KARDENO_OFFSET(MaterialNode, material, 0, 0);
KARDENO_OFFSET(MaterialNode, next, 4, 8);

/* The class of an object, through which the renderer finds the object's functions. */
struct ObjectClass {
    u8 gap0[108];
    const ObjectFunctions* functions;
};
KARDENO_OFFSET(ObjectClass, functions, 108, 112);

/* The functions that the host provides for an object. `drawn` is the object that selectLevel chose: its geometry is
   drawn. */
struct ObjectFunctions {
    u8 gap0[12];
    void (*update)(SceneObject* object);
    void (*transform)(SceneObject* object, RenderView* view);
    SceneObject* (*selectLevel)(SceneObject* object, RenderView* view);            /* 0 means the object itself */
    void (*testBounds)(SceneObject* drawn, SceneObject* object, RenderView* view); /* sets the object's `visible` */
    void (*light)(SceneObject* drawn, SceneObject* object, RenderView* view);      /* fills vertexShades */
    u8 gap32[4];
    void (*prepareVertices)(SceneObject* drawn, SceneObject* object, RenderView* view);
};
KARDENO_OFFSET(ObjectFunctions, update, 12, 16);
KARDENO_OFFSET(ObjectFunctions, transform, 16, 24);
KARDENO_OFFSET(ObjectFunctions, selectLevel, 20, 32);
KARDENO_OFFSET(ObjectFunctions, testBounds, 24, 40);
KARDENO_OFFSET(ObjectFunctions, light, 28, 48);
KARDENO_OFFSET(ObjectFunctions, prepareVertices, 36, 64);

struct FaceTest {
    i32 (*test)(SceneFace* face); /* nonzero when the face is to be drawn */
};
KARDENO_OFFSET(FaceTest, test, 0, 0);

/* One convex polygon of an object. It has 3 to 10 corners and is seen only from the side on which they run
   counter-clockwise on the screen. */
struct SceneFace {
    i32 vertexCount;
    const i32* vertexIndices;  /* one per corner, into the vertex arrays of HostContext */
    const TexCoord* texCoords; /* one per corner */
    u8 gap12[8];
    SceneMaterial* material;
    u8 gap24[16];
    f32 normalX, normalY, normalZ; /* normal of the face's plane in camera space, of any length */
    u8 gap52[8];
    u16* faceColour; /* written by the renderer: a block that holds a random flat colour, which the host may change */
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

struct MaterialColour {
    u8 red, green, blue;
    u8 gap3;
    u16 packed; /* the same colour in frame-buffer format, prepared by the host */
};
KARDENO_SIZE(MaterialColour, 6, 6);
KARDENO_OFFSET(MaterialColour, red, 0, 0);
KARDENO_OFFSET(MaterialColour, green, 1, 1);
KARDENO_OFFSET(MaterialColour, blue, 2, 2);
KARDENO_OFFSET(MaterialColour, packed, 4, 4);

struct SceneMaterial {
    u8 gap0[44];
    MaterialColour ambientColour;
    MaterialColour diffuseColour;
    MaterialColour specularColour;
    MaterialColour tintColour;
    i32 shininess;     /* percent; the highlight takes the top 32 - 28 * shininess / 100 of the 64 ramp levels */
    i32 specularLevel; /* percent; the strength of the highlight at the top of the ramp */
    i32 transparency;  /* 0: opaque; 50: half transparent; any other value selects a fallback row */
    i32 shadingMode;   /* 1: colour key; 2: additive; 10 and 11: additive billboard; others mean nothing */
    u8 gap84[8];
    TextureMap* textureMap; /* 0 for a material without a texture */
    u8 gap96[12];
    MaterialFlags* materialFlags;
    MaterialPrivate* renderPrivate; /* written by the renderer, which owns the record */
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

struct MaterialFlags {
    u8 gap0[4];
    u32 flags; /* written by the renderer: the material flag word */
};
KARDENO_OFFSET(MaterialFlags, flags, 4, 4);

struct TextureMap {
    u8 gap0[51];
    u8 transparentIndex;   /* palette index that the colour-keyed lit filler leaves undrawn */
    u16 transparentColour; /* texel that the colour-keyed unlit filler leaves undrawn */
    u8 gap54[2];
    TextureImage* image;
    const u8* palette; /* 256 x { blue, green, red, unused } */
};
KARDENO_OFFSET(TextureMap, transparentIndex, 51, 51);
KARDENO_OFFSET(TextureMap, transparentColour, 52, 52);
KARDENO_OFFSET(TextureMap, image, 56, 56);
KARDENO_OFFSET(TextureMap, palette, 60, 64);

/* The head of an image, whose texels follow it row after row. A texel is a u8 palette index when bitsPerTexel is 8, and
   otherwise a u16 pixel in the frame buffer's format. Width and height are powers of two. */
struct TextureImage {
    u32 bitsPerTexel;
    u8 gap4[8];
    u32 is256x256; /* nonzero: the image is 256 x 256, and each coordinate wraps by itself */
    u32 indexMask; /* width x height - 1 */
    u32 rowShift;  /* log2 of the width */
    f32 width;     /* texels */
    f32 height;
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
