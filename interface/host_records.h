/* The host's records, as they lie in the host's memory: the contract between a host and the renderer.

   The renderer keeps no scene. It reads these records in place, through fixed byte offsets and 32-bit pointers, and
   writes only the fields marked "written by the renderer". Bytes inside a gap belong to the host and are never touched.
   A host may append whatever it likes to a record: only HostContext, TextureImage and the vertex arrays have a meaning
   beyond their last named field.

   Plain C as well as C++. A host in C++ finds everything in namespace kardeno. */
#pragma once

#include "support/types.h"

#include <assert.h>
#include <stddef.h>

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

/* A projected vertex: pixels, y pointing down, and 1/Z. */
struct ScreenVertex {
    f32 x, y, invDepth;
};

/* What the host's lighting callback leaves for a vertex. */
struct VertexShade {
    f32 red, green, blue; /* 0 to 255; read by the two colour-interpolating rows only */
    f32 intensity;        /* in quarter levels of the 64-level shade ramp: 0 to 255 */
};

/* Texture coordinates of a corner: 0 to 1 spans the image. */
struct TexCoord {
    f32 u, v;
};

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

struct CameraFunctions {
    void (*prepare)(SceneCamera* camera, RenderView* view); /* called before anything else of a frame or a pick */
};

struct SceneCamera {
    u8 gap0[92];
    const CameraFunctions* functions;
};

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

struct MaterialNode {
    SceneMaterial* material;
    MaterialNode* next;
};

struct ObjectClass {
    u8 gap0[108];
    const ObjectFunctions* functions;
};

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

struct FaceTest {
    i32 (*test)(SceneFace* face); /* nonzero when the face is to be drawn */
};

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

struct MaterialColour {
    u8 red, green, blue;
    u8 gap3;
    u16 packed; /* the same colour in frame-buffer format, prepared by the host */
};

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

struct MaterialFlags {
    u8 gap0[4];
    u32 flags; /* written by the renderer: the material flag word */
};

struct TextureMap {
    u8 gap0[51];
    u8 transparentIndex;   /* palette index that the colour-keyed lit filler leaves undrawn */
    u16 transparentColour; /* the same for 16-bit texels, in the colour-keyed unlit filler */
    u8 gap54[2];
    TextureImage* image;
    const u8* palette; /* 256 x { blue, green, red, unused } */
};

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

static_assert(offsetof(HostContext, cameraVertices) == 4 && offsetof(HostContext, screenVertices) == 8, "");
static_assert(offsetof(HostContext, vertexShades) == 16 && offsetof(HostContext, vertexOutcodes) == 20, "");
static_assert(offsetof(HostContext, vertexStamps) == 24 && offsetof(HostContext, alloc) == 44, "");
static_assert(offsetof(HostContext, realloc) == 48 && offsetof(HostContext, free) == 52, "");
static_assert(offsetof(HostContext, bitsPerPixel) == 352 && offsetof(HostContext, projectionStamp) == 16832, "");
static_assert(offsetof(RenderView, firstObject) == 0 && offsetof(RenderView, camera) == 20, "");
static_assert(offsetof(RenderView, left) == 32 && offsetof(RenderView, top) == 36, "");
static_assert(offsetof(RenderView, nearZ) == 48 && offsetof(RenderView, farZ) == 52, "");
static_assert(offsetof(RenderView, pitch) == 60 && offsetof(RenderView, projection) == 64, "");
static_assert(offsetof(ViewProjection, centreX) == 8 && offsetof(ViewProjection, scaleX) == 16, "");
static_assert(offsetof(ViewProjection, invScaleX) == 24 && offsetof(ViewProjection, centreYOverScaleY) == 36, "");
static_assert(offsetof(SceneCamera, functions) == 92 && offsetof(ObjectClass, functions) == 108, "");
static_assert(offsetof(SceneObject, firstChild) == 36 && offsetof(SceneObject, nextSibling) == 40, "");
static_assert(offsetof(SceneObject, nextRoot) == 44 && offsetof(SceneObject, partOfGroup) == 60, "");
static_assert(offsetof(SceneObject, faceCount) == 80 && offsetof(SceneObject, faces) == 84, "");
static_assert(offsetof(SceneObject, visible) == 92 && offsetof(SceneObject, materials) == 104, "");
static_assert(offsetof(SceneObject, groupFlag) == 220 && offsetof(SceneObject, objectClass) == 228, "");
static_assert(offsetof(MaterialNode, material) == 0 && offsetof(MaterialNode, next) == 4, "");
static_assert(offsetof(ObjectFunctions, update) == 12 && offsetof(ObjectFunctions, transform) == 16, "");
static_assert(offsetof(ObjectFunctions, selectLevel) == 20 && offsetof(ObjectFunctions, testBounds) == 24, "");
static_assert(offsetof(ObjectFunctions, light) == 28 && offsetof(ObjectFunctions, prepareVertices) == 36, "");
static_assert(offsetof(SceneFace, vertexCount) == 0 && offsetof(SceneFace, vertexIndices) == 4, "");
static_assert(offsetof(SceneFace, texCoords) == 8 && offsetof(SceneFace, material) == 20, "");
static_assert(offsetof(SceneFace, normalX) == 40 && offsetof(SceneFace, normalY) == 44, "");
static_assert(offsetof(SceneFace, normalZ) == 48 && offsetof(SceneFace, faceColour) == 60, "");
static_assert(offsetof(SceneFace, faceTest) == 64, "");
static_assert(sizeof(MaterialColour) == 6 && offsetof(MaterialColour, packed) == 4, "");
static_assert(offsetof(SceneMaterial, ambientColour) == 44 && offsetof(SceneMaterial, diffuseColour) == 50, "");
static_assert(offsetof(SceneMaterial, specularColour) == 56 && offsetof(SceneMaterial, tintColour) == 62, "");
static_assert(offsetof(SceneMaterial, shininess) == 68 && offsetof(SceneMaterial, specularLevel) == 72, "");
static_assert(offsetof(SceneMaterial, transparency) == 76 && offsetof(SceneMaterial, shadingMode) == 80, "");
static_assert(offsetof(SceneMaterial, textureMap) == 92 && offsetof(SceneMaterial, materialFlags) == 108, "");
static_assert(offsetof(SceneMaterial, renderPrivate) == 112 && offsetof(MaterialFlags, flags) == 4, "");
static_assert(offsetof(TextureMap, transparentIndex) == 51 && offsetof(TextureMap, transparentColour) == 52, "");
static_assert(offsetof(TextureMap, image) == 56 && offsetof(TextureMap, palette) == 60, "");
static_assert(offsetof(TextureImage, is256x256) == 12 && offsetof(TextureImage, indexMask) == 16, "");
static_assert(offsetof(TextureImage, rowShift) == 20 && offsetof(TextureImage, width) == 24, "");
static_assert(offsetof(TextureImage, height) == 28 && sizeof(TextureImage) == 32, "");
static_assert(sizeof(CameraVertex) == 12 && sizeof(ScreenVertex) == 12 && sizeof(VertexShade) == 16, "");

#ifdef __cplusplus
} /* namespace kardeno */
#endif
