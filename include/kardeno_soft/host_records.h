/* The host's records, as they lie in the host's memory: the contract between a host and the renderer.

   The renderer keeps no scene. It reads these records in place, through fixed byte offsets and 32-bit pointers, and
   writes only the fields marked "written by the renderer". Bytes inside a gap belong to the host and are never touched.
   A host may append whatever it likes to a record: only HostContext, TextureImage and the vertex arrays have a meaning
   beyond their last named field.

   Plain C as well as C++. A host in C++ finds everything in namespace kardeno. */
#pragma once

#include "types.h"

#include <assert.h>
#include <stddef.h>

/* The place of a field and the size of a record, in bytes: where pointers have 32 bits, and where they have 64. */
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

/* A vertex in camera space: X to the right, Y up, Z away from the eye. */
struct CameraVertex {
    f32 x, y, z;
};
KARDENO_SIZE(CameraVertex, 12, 12);
KARDENO_OFFSET(CameraVertex, x, 0, 0);
KARDENO_OFFSET(CameraVertex, y, 4, 4);
KARDENO_OFFSET(CameraVertex, z, 8, 8);

/* A projected vertex: pixels, y pointing down, and 1/Z. */
struct ScreenVertex {
    f32 x, y, invDepth;
};
KARDENO_SIZE(ScreenVertex, 12, 12);
KARDENO_OFFSET(ScreenVertex, x, 0, 0);
KARDENO_OFFSET(ScreenVertex, y, 4, 4);
KARDENO_OFFSET(ScreenVertex, invDepth, 8, 8);

/* What the host's lighting callback leaves for a vertex. */
struct VertexShade {
    f32 red, green, blue; /* 0 to 255; read by the two colour-interpolating rows only */
    f32 intensity;        /* in quarter levels of the 64-level shade ramp: 0 to 255 */
};
KARDENO_SIZE(VertexShade, 16, 16);
KARDENO_OFFSET(VertexShade, red, 0, 0);
KARDENO_OFFSET(VertexShade, green, 4, 4);
KARDENO_OFFSET(VertexShade, blue, 8, 8);
KARDENO_OFFSET(VertexShade, intensity, 12, 12);

/* Texture coordinates of a corner: 0 to 1 spans the image. */
struct TexCoord {
    f32 u, v;
};
KARDENO_SIZE(TexCoord, 8, 8);
KARDENO_OFFSET(TexCoord, u, 0, 0);
KARDENO_OFFSET(TexCoord, v, 4, 4);

/* Plane bits of a vertex; a bit that is set means INSIDE that plane. The host fills them for its vertices. */
enum {
    outcodeNear = 0x01,   /* in front of the near plane: Z >= nearZ */
    outcodeFar = 0x02,    /* before the far plane: Z <= farZ */
    outcodeLeft = 0x04,   /* screen x >= left, or X >= -Z in camera space */
    outcodeRight = 0x08,  /* screen x <= right, or X <= Z */
    outcodeTop = 0x10,    /* screen y >= top, or Y <= Z */
    outcodeBottom = 0x20, /* screen y <= bottom, or Y >= -Z */
    outcodeAll = 0x3f
};

/* The host's services and vertex arrays, handed over once; it must live as long as the renderer is used. */
struct HostContext {
    u8 gap0[4];
    const CameraVertex* cameraVertices; /* written by the host's prepareVertices */
    ScreenVertex* screenVertices;       /* written by the renderer when it projects a vertex */
    u8 gap12[4];
    const VertexShade* vertexShades; /* written by the host's light */
    const u32* vertexOutcodes;       /* written by the host's prepareVertices */
    u32* vertexStamps;               /* written by the renderer: projectionStamp at which screenVertices was computed */
    u8 gap28[16];
    void* (*alloc)(u32 count, u32 size);      /* zero-filled; 0 on failure */
    void* (*realloc)(void* block, u32 bytes); /* a null block allocates; 0 on failure, the block staying valid */
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

/* What a frame or a pick looks through. */
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
    i32 pitch; /* frame-buffer row length in pixels */
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

/* Screen x = centreX + scaleX X / Z; screen y = centreY - scaleY Y / Z. The host fills all ten. */
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
    i32 partOfGroup; /* nonzero: drawn with the enclosing group object */
    u8 gap64[16];
    i32 faceCount;
    SceneFace** faces;
    u8 gap88[4];
    i32 visible; /* set by the host's testBounds; written by the renderer for group objects */
    u8 gap96[8];
    MaterialNode* materials; /* the materials that the object uses */
    u8 gap108[112];
    const i32* groupFlag; /* the value is nonzero when the object is a group */
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

struct MaterialNode {
    SceneMaterial* material;
    MaterialNode* next;
};
KARDENO_SIZE(MaterialNode, 8, 16);
KARDENO_OFFSET(MaterialNode, material, 0, 0);
KARDENO_OFFSET(MaterialNode, next, 4, 8);

struct ObjectClass {
    u8 gap0[108];
    const ObjectFunctions* functions;
};
KARDENO_OFFSET(ObjectClass, functions, 108, 112);

/* The host's functions of an object. "drawn" is the object whose geometry is drawn: what selectLevel chose. */
struct ObjectFunctions {
    u8 gap0[12];
    void (*update)(SceneObject* object);
    void (*transform)(SceneObject* object, RenderView* view);
    SceneObject* (*selectLevel)(SceneObject* object, RenderView* view);            /* 0: the object itself */
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

/* One convex polygon of an object: 3 to 10 corners, counter-clockwise on the screen when it is to be seen. */
struct SceneFace {
    i32 vertexCount;
    const i32* vertexIndices;
    const TexCoord* texCoords; /* one per corner */
    u8 gap12[8];
    SceneMaterial* material;
    u8 gap24[16];
    f32 normalX, normalY, normalZ; /* plane normal in camera space */
    u8 gap52[8];
    u16* faceColour; /* the face's flat colour, in a block of the renderer; random at first, a host may store another */
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
    i32 shininess;     /* percent; the highlight takes 32 - 28 shininess / 100 of the 64 ramp levels */
    i32 specularLevel; /* percent; strength of the highlight at the top of the ramp */
    i32 transparency;  /* 0 opaque; 50 half transparent; anything else another transparency */
    i32 shadingMode;   /* 1, 2, 10 and 11 have a meaning */
    u8 gap84[8];
    TextureMap* textureMap; /* or 0 */
    u8 gap96[12];
    MaterialFlags* materialFlags;
    MaterialPrivate* renderPrivate; /* written and owned by the renderer */
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
    u16 transparentColour; /* the same for 16-bit texels, in the colour-keyed unlit filler */
    u8 gap54[2];
    TextureImage* image;
    const u8* palette; /* 256 x { blue, green, red, unused } */
};
KARDENO_OFFSET(TextureMap, transparentIndex, 51, 51);
KARDENO_OFFSET(TextureMap, transparentColour, 52, 52);
KARDENO_OFFSET(TextureMap, image, 56, 56);
KARDENO_OFFSET(TextureMap, palette, 60, 64);

/* An image, its texels following it row after row: u8 palette indices when bitsPerTexel is 8, else u16 pixels in the
   frame buffer's format. Width and height are powers of two. */
struct TextureImage {
    u32 bitsPerTexel;
    u8 gap4[8];
    u32 is256x256; /* nonzero: the map is 256 x 256, and each coordinate wraps by itself */
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
