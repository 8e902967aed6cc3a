// Where the fields of the host's records lie. A host that was compiled elsewhere writes them by offset.
#include "kardeno_soft/host_records.h"

#include <doctest/doctest.h>

using namespace kardeno;

TEST_CASE("the host context's arrays, services, pixel format and stamp lie at their offsets")
{
    CHECK(offsetof(HostContext, cameraVertices) == 4);
    CHECK(offsetof(HostContext, screenVertices) == 8);
    CHECK(offsetof(HostContext, vertexShades) == 16);
    CHECK(offsetof(HostContext, vertexOutcodes) == 20);
    CHECK(offsetof(HostContext, vertexStamps) == 24);
    CHECK(offsetof(HostContext, alloc) == 44);
    CHECK(offsetof(HostContext, realloc) == 48);
    CHECK(offsetof(HostContext, free) == 52);
    CHECK(offsetof(HostContext, bitsPerPixel) == 352);
    CHECK(offsetof(HostContext, projectionStamp) == 16832);
}

TEST_CASE("vertices lie close together: 12 bytes in camera space and on the screen, 16 bytes of light, 8 of texture")
{
    CHECK(sizeof(CameraVertex) == 12);
    CHECK(sizeof(ScreenVertex) == 12);
    CHECK(offsetof(ScreenVertex, invDepth) == 8);
    CHECK(sizeof(VertexShade) == 16);
    CHECK(offsetof(VertexShade, red) == 0);
    CHECK(offsetof(VertexShade, intensity) == 12);
    CHECK(sizeof(TexCoord) == 8);
    CHECK(offsetof(TexCoord, v) == 4);
}

TEST_CASE("the outcode bits are near 1, far 2, left 4, right 8, top 16 and bottom 32")
{
    CHECK(outcodeNear == 1);
    CHECK(outcodeFar == 2);
    CHECK(outcodeLeft == 4);
    CHECK(outcodeRight == 8);
    CHECK(outcodeTop == 16);
    CHECK(outcodeBottom == 32);
    CHECK(outcodeAll == 63);
}

TEST_CASE("the view's fields lie at their offsets, and its projection is ten numbers in a row")
{
    CHECK(offsetof(RenderView, firstObject) == 0);
    CHECK(offsetof(RenderView, camera) == 20);
    CHECK(offsetof(RenderView, left) == 32);
    CHECK(offsetof(RenderView, top) == 36);
    CHECK(offsetof(RenderView, nearZ) == 48);
    CHECK(offsetof(RenderView, farZ) == 52);
    CHECK(offsetof(RenderView, pitch) == 60);
    CHECK(offsetof(RenderView, projection) == 64);

    CHECK(offsetof(ViewProjection, right) == 0);
    CHECK(offsetof(ViewProjection, bottom) == 4);
    CHECK(offsetof(ViewProjection, centreX) == 8);
    CHECK(offsetof(ViewProjection, centreY) == 12);
    CHECK(offsetof(ViewProjection, scaleX) == 16);
    CHECK(offsetof(ViewProjection, scaleY) == 20);
    CHECK(offsetof(ViewProjection, invScaleX) == 24);
    CHECK(offsetof(ViewProjection, invScaleY) == 28);
    CHECK(offsetof(ViewProjection, centreXOverScaleX) == 32);
    CHECK(offsetof(ViewProjection, centreYOverScaleY) == 36);
    CHECK(sizeof(ViewProjection) == 40);
}

TEST_CASE("the camera's functions hang at 92, an object's at 108 of its class, in slots 3 to 7 and 9")
{
    CHECK(offsetof(SceneCamera, functions) == 92);
    CHECK(offsetof(CameraFunctions, prepare) == 0);
    CHECK(offsetof(ObjectClass, functions) == 108);
    CHECK(offsetof(ObjectFunctions, update) == 3 * 4);
    CHECK(offsetof(ObjectFunctions, transform) == 4 * 4);
    CHECK(offsetof(ObjectFunctions, selectLevel) == 5 * 4);
    CHECK(offsetof(ObjectFunctions, testBounds) == 6 * 4);
    CHECK(offsetof(ObjectFunctions, light) == 7 * 4);
    CHECK(offsetof(ObjectFunctions, prepareVertices) == 9 * 4);
}

TEST_CASE("an object's fields lie at their offsets")
{
    CHECK(offsetof(SceneObject, firstChild) == 36);
    CHECK(offsetof(SceneObject, nextSibling) == 40);
    CHECK(offsetof(SceneObject, nextRoot) == 44);
    CHECK(offsetof(SceneObject, partOfGroup) == 60);
    CHECK(offsetof(SceneObject, faceCount) == 80);
    CHECK(offsetof(SceneObject, faces) == 84);
    CHECK(offsetof(SceneObject, visible) == 92);
    CHECK(offsetof(SceneObject, materials) == 104);
    CHECK(offsetof(SceneObject, groupFlag) == 220);
    CHECK(offsetof(SceneObject, objectClass) == 228);
    CHECK(offsetof(MaterialNode, material) == 0);
    CHECK(offsetof(MaterialNode, next) == 4);
}

TEST_CASE("a face's fields lie at their offsets")
{
    CHECK(offsetof(SceneFace, vertexCount) == 0);
    CHECK(offsetof(SceneFace, vertexIndices) == 4);
    CHECK(offsetof(SceneFace, texCoords) == 8);
    CHECK(offsetof(SceneFace, material) == 20);
    CHECK(offsetof(SceneFace, normalX) == 40);
    CHECK(offsetof(SceneFace, normalY) == 44);
    CHECK(offsetof(SceneFace, normalZ) == 48);
    CHECK(offsetof(SceneFace, faceColour) == 60);
    CHECK(offsetof(SceneFace, faceTest) == 64);
    CHECK(offsetof(FaceTest, test) == 0);
}

TEST_CASE("a material's colours of six bytes follow each other from 44 on, and its other fields lie at their offsets")
{
    CHECK(sizeof(MaterialColour) == 6);
    CHECK(offsetof(MaterialColour, red) == 0);
    CHECK(offsetof(MaterialColour, green) == 1);
    CHECK(offsetof(MaterialColour, blue) == 2);
    CHECK(offsetof(MaterialColour, packed) == 4);
    CHECK(offsetof(SceneMaterial, ambientColour) == 44);
    CHECK(offsetof(SceneMaterial, diffuseColour) == 50);
    CHECK(offsetof(SceneMaterial, specularColour) == 56);
    CHECK(offsetof(SceneMaterial, tintColour) == 62);
    CHECK(offsetof(SceneMaterial, shininess) == 68);
    CHECK(offsetof(SceneMaterial, specularLevel) == 72);
    CHECK(offsetof(SceneMaterial, transparency) == 76);
    CHECK(offsetof(SceneMaterial, shadingMode) == 80);
    CHECK(offsetof(SceneMaterial, textureMap) == 92);
    CHECK(offsetof(SceneMaterial, materialFlags) == 108);
    CHECK(offsetof(SceneMaterial, renderPrivate) == 112);
    CHECK(offsetof(MaterialFlags, flags) == 4);
}

TEST_CASE("a texture map's fields and its image's lie at their offsets, the texels following the image at 32")
{
    CHECK(offsetof(TextureMap, transparentIndex) == 51);
    CHECK(offsetof(TextureMap, transparentColour) == 52);
    CHECK(offsetof(TextureMap, image) == 56);
    CHECK(offsetof(TextureMap, palette) == 60);
    CHECK(offsetof(TextureImage, bitsPerTexel) == 0);
    CHECK(offsetof(TextureImage, is256x256) == 12);
    CHECK(offsetof(TextureImage, indexMask) == 16);
    CHECK(offsetof(TextureImage, rowShift) == 20);
    CHECK(offsetof(TextureImage, width) == 24);
    CHECK(offsetof(TextureImage, height) == 28);
    CHECK(sizeof(TextureImage) == 32);
}
