#include "benches/frames/neutral_scene.h"

#include "sample_host/host/failure.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numbers>

namespace benches {

namespace {

constexpr u8 clearUncovered = 1;       // flag of a frame: what no polygon covers becomes black
constexpr f32 cameraUnit = 100;        // camera units for a unit of the scene: the depth sort compares whole units
constexpr f32 texelShift = 0.3f / 256; // the renderer looks texels up 0.3 texel further on, which is taken back here

// The callbacks of faces have no argument that would lead to the scene, and there is one renderer in a process.
NeutralScene* drawnScene = nullptr;

void prepareCamera(SceneCamera*, RenderView*) {}
void update(SceneObject*) {}
void transform(SceneObject*, RenderView*) {}
SceneObject* selectLevel(SceneObject* object, RenderView*)
{
    return object;
}
void testBounds(SceneObject*, SceneObject* object, RenderView*)
{
    object->visible = 1;
}
void light(SceneObject*, SceneObject*, RenderView*) {}
void prepareVertices(SceneObject*, SceneObject*, RenderView*)
{
    drawnScene->prepareVertices();
}
i32 testFace(SceneFace* face)
{
    return drawnScene->facesTheEye(*static_cast<BenchFace*>(face));
}

constexpr CameraFunctions cameraFunctions{prepareCamera};
constexpr FaceTest faceTest{testFace};
constexpr i32 noGroup = 0;

ObjectFunctions makeObjectFunctions()
{
    ObjectFunctions functions{};
    functions.update = update;
    functions.transform = transform;
    functions.selectLevel = selectLevel;
    functions.testBounds = testBounds;
    functions.light = light;
    functions.prepareVertices = prepareVertices;
    return functions;
}

const ObjectFunctions objectFunctions = makeObjectFunctions();

constexpr u32 bitIf(bool inside, u32 bit)
{
    return inside ? bit : 0;
}

// The plane of a triangle, with a normal of length 1; a triangle without area has a normal of 0.
void setPlane(BenchFace& face, const FileVertex& a, const FileVertex& b, const FileVertex& c)
{
    const f64 e[3] = {b.x - a.x, b.y - a.y, b.z - a.z}, f[3] = {c.x - a.x, c.y - a.y, c.z - a.z};
    f64 normal[3] = {e[1] * f[2] - e[2] * f[1], e[2] * f[0] - e[0] * f[2], e[0] * f[1] - e[1] * f[0]};
    const f64 length = std::sqrt(normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2]);
    if (length > 0)
        for (f64& part : normal) part /= length;
    face.planeX = f32(normal[0]);
    face.planeY = f32(normal[1]);
    face.planeZ = f32(normal[2]);
    face.planeDistance = f32(normal[0] * a.x + normal[1] * a.y + normal[2] * a.z);
}

} // namespace

NeutralScene::NeutralScene(const sample_host::RendererTable& renderer, const SceneFile& file, const Drawing& drawing)
    : renderer_(renderer), file_(file), drawing_(drawing),
      pixels_(std::size_t(drawing.width) * std::size_t(drawing.height))
{
    if (drawing.palettised && drawing.variant.surfaces == Surfaces::texture
        && file.opaqueTriangles < file.triangles.size())
        sample_host::fail("no row draws unlit see-through faces with a map of 8 bits");
    drawnScene = this;
    makeContext();
    makeTexture();
    makeFaces();
    makeView();
}

void NeutralScene::makeContext()
{
    const std::size_t count = file_.vertices.size();
    cameraVertices_.resize(count);
    screenVertices_.resize(count);
    outcodes_.resize(count);
    stamps_.resize(count);
    for (const FileVertex& vertex : file_.vertices) {
        const f32 shade = vertex.light * 255;
        shades_.push_back({shade, shade, shade, shade});
    }
    context_.cameraVertices = cameraVertices_.data();
    context_.screenVertices = screenVertices_.data();
    context_.vertexShades = shades_.data();
    context_.vertexOutcodes = outcodes_.data();
    context_.vertexStamps = stamps_.data();
    context_.alloc = [](u32 elements, u32 size) { return std::calloc(elements, size); };
    context_.realloc = [](void* block, u32 bytes) { return std::realloc(block, bytes); };
    context_.free = [](void* block) { std::free(block); };
    context_.bitsPerPixel = drawing_.bitsPerPixel;
    if (!renderer_.initRender(&context_)) sample_host::fail("the renderer cannot be initialised");
}

u16 NeutralScene::packed(const u8 (&colour)[3]) const
{
    const int red = colour[0] >> 3, green = colour[1], blue = colour[2] >> 3;
    return drawing_.bitsPerPixel == 16 ? u16(red << 11 | (green >> 2) << 5 | blue)
                                       : u16(red << 10 | (green >> 3) << 5 | blue);
}

MaterialColour NeutralScene::colour(u8 red, u8 green, u8 blue) const
{
    return {.red = red, .green = green, .blue = blue, .gap3 = 0, .packed = packed({red, green, blue})};
}

void NeutralScene::makeTexture()
{
    const bool palettised = drawing_.palettised || drawing_.variant.isLit();
    const std::size_t bytes = sizeof(TextureImage) + sizeof file_.texels * (palettised ? 1 : 2);
    imageRecord_.resize((bytes + 3) / 4);
    TextureImage& image = *reinterpret_cast<TextureImage*>(imageRecord_.data());
    image.bitsPerTexel = palettised ? 8 : 16;
    image.is256x256 = 1;
    image.indexMask = 256 * 256 - 1;
    image.rowShift = 8;
    image.width = image.height = 256;
    if (palettised)
        std::memcpy(&image + 1, file_.texels, sizeof file_.texels);
    else {
        u16* texel = reinterpret_cast<u16*>(&image + 1);
        for (const u8 index : file_.texels) *texel++ = packed(file_.palette[index]);
    }
    for (std::size_t i = 0; i < 256; ++i)
        for (std::size_t channel = 0; channel < 3; ++channel) palette_[4 * i + 2 - channel] = file_.palette[i][channel];
    map_.image = &image;
    map_.palette = palette_;
}

SceneMaterial* NeutralScene::materialFor(u8 red, u8 green, u8 blue, bool seeThrough)
{
    SceneMaterial*& known = materialOfKey_[u32(seeThrough) << 16 | packed({red, green, blue})];
    if (known) return known;

    MaterialNode* const next = materials_.empty() ? nullptr : &materials_.back().node;
    Material& material = materials_.emplace_back();
    material.node = {&material, next};
    material.materialFlags = &material.flagWords;
    material.diffuseColour = colour(red, green, blue);
    material.tintColour = colour(255, 255, 255);
    material.transparency = seeThrough && !drawing_.variant.addsSeeThrough ? 50 : 0;
    material.shadingMode = seeThrough && drawing_.variant.addsSeeThrough ? 2 : 0;
    material.textureMap = drawing_.variant.isTextured() ? &map_ : nullptr;
    if (!renderer_.addMaterial(&material)
        || !renderer_.setMaterialRenderState(&material, drawing_.variant.isLit() ? 1 : 0))
        sample_host::fail("the renderer refused a material");
    return known = &material;
}

void NeutralScene::makeFaces()
{
    const std::size_t count = file_.triangles.size();
    for (const FileTriangle& triangle : file_.triangles) {
        for (const u32 corner : triangle.corners) {
            frontIndices_.push_back(i32(corner));
            const FileVertex& vertex = file_.vertices[corner];
            frontCoordinates_.push_back({vertex.u - texelShift, vertex.v - texelShift});
        }
    }
    backIndices_ = frontIndices_;
    backCoordinates_ = frontCoordinates_;
    for (std::size_t corner = 0; corner < 3 * count; corner += 3) {
        std::swap(backIndices_[corner + 1], backIndices_[corner + 2]);
        std::swap(backCoordinates_[corner + 1], backCoordinates_[corner + 2]);
    }

    faces_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        const FileTriangle& triangle = file_.triangles[i];
        BenchFace& face = faces_[i];
        face.vertexCount = 3;
        face.vertexIndices = &frontIndices_[3 * i];
        face.texCoords = &frontCoordinates_[3 * i];
        face.faceTest = &faceTest;
        const bool seeThrough = i >= file_.opaqueTriangles;
        switch (drawing_.variant.surfaces) {
        case Surfaces::texture:
        case Surfaces::litTexture: face.material = materialFor(255, 255, 255, seeThrough); break;
        case Surfaces::gouraud:
            face.material = materialFor(gouraudColour[0], gouraudColour[1], gouraudColour[2], seeThrough);
            break;
        case Surfaces::flat:
            face.material = materialFor(triangle.red, triangle.green, triangle.blue, seeThrough);
            break;
        }
        setPlane(face, file_.vertices[triangle.corners[0]], file_.vertices[triangle.corners[1]],
                 file_.vertices[triangle.corners[2]]);
        if (!renderer_.addFace(&face)) sample_host::fail("the renderer refused a face");
        facePointers_.push_back(&face);
    }
}

void NeutralScene::makeView()
{
    objectClass_.functions = &objectFunctions;
    object_.faceCount = i32(faces_.size());
    object_.faces = facePointers_.data();
    object_.materials = materials_.empty() ? nullptr : &materials_.back().node;
    object_.groupFlag = &noGroup;
    object_.objectClass = &objectClass_;
    camera_.functions = &cameraFunctions;

    const f32 halfWidth = f32(drawing_.width) / 2, halfHeight = f32(drawing_.height) / 2;
    projection_ = {
        .right = f32(drawing_.width),
        .bottom = f32(drawing_.height),
        .centreX = halfWidth,
        .centreY = halfHeight,
        .scaleX = halfWidth,
        .scaleY = halfHeight,
        .invScaleX = 1 / halfWidth,
        .invScaleY = 1 / halfHeight,
        .centreXOverScaleX = 1,
        .centreYOverScaleY = 1,
    };
    view_.firstObject = &object_;
    view_.camera = &camera_;
    view_.nearZ = file_.nearest * cameraUnit;
    view_.farZ = file_.farthest * cameraUnit;
    view_.pitch = drawing_.width;
    view_.projection = &projection_;
}

// The rows of the frame's matrix, scaled so that the sides of the view are those of the camera space, with Z away from
// the eye. Normals go by the inverse, transposed, which is made of cofactors.
void NeutralScene::setTransform(const FileMatrix& matrix)
{
    const f64 focus = drawing_.height / 2.0 / std::tan(file_.fieldOfView * std::numbers::pi / 360.0);
    const f64 scales[3] = {focus / (drawing_.width / 2.0) * cameraUnit, focus / (drawing_.height / 2.0) * cameraUnit,
                           -cameraUnit};
    f64 rows[3][4];
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            rows[row][column] = matrix[column * 4 + row] * scales[row];
            transform_.points[row][column] = f32(rows[row][column]);
        }
    }
    f64 cofactors[3][3];
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const std::size_t a = (i + 1) % 3, b = (i + 2) % 3, c = (j + 1) % 3, d = (j + 2) % 3;
            cofactors[i][j] = rows[a][c] * rows[b][d] - rows[a][d] * rows[b][c];
        }
    }
    const f64 determinant = rows[0][0] * cofactors[0][0] + rows[0][1] * cofactors[0][1] + rows[0][2] * cofactors[0][2];
    for (std::size_t j = 0; j < 3; ++j) {
        transform_.eye[j] =
            f32(-(cofactors[0][j] * rows[0][3] + cofactors[1][j] * rows[1][3] + cofactors[2][j] * rows[2][3])
                / determinant);
        for (std::size_t i = 0; i < 3; ++i) transform_.normals[i][j] = f32(cofactors[i][j] / determinant);
    }
}

void NeutralScene::prepareVertices()
{
    const CameraTransform t = transform_;
    const f32 nearZ = view_.nearZ, farZ = view_.farZ;
    const FileVertex* vertex = file_.vertices.data();
    CameraVertex* camera = cameraVertices_.data();
    u32* outcode = outcodes_.data();
    for (std::size_t count = file_.vertices.size(); count > 0; --count, ++vertex, ++camera, ++outcode) {
        const f32 x =
            t.points[0][0] * vertex->x + t.points[0][1] * vertex->y + t.points[0][2] * vertex->z + t.points[0][3];
        const f32 y =
            t.points[1][0] * vertex->x + t.points[1][1] * vertex->y + t.points[1][2] * vertex->z + t.points[1][3];
        const f32 z =
            t.points[2][0] * vertex->x + t.points[2][1] * vertex->y + t.points[2][2] * vertex->z + t.points[2][3];
        *camera = {x, y, z};
        *outcode = bitIf(z >= nearZ, outcodeNear) | bitIf(z <= farZ, outcodeFar) | bitIf(x >= -z, outcodeLeft)
                   | bitIf(x <= z, outcodeRight) | bitIf(y <= z, outcodeTop) | bitIf(y >= -z, outcodeBottom);
    }
}

bool NeutralScene::facesTheEye(BenchFace& face) const
{
    const CameraTransform& t = transform_;
    const f32 side = face.planeX * t.eye[0] + face.planeY * t.eye[1] + face.planeZ * t.eye[2] - face.planeDistance;
    const bool isFront = side > 0, isBack = side < 0;
    if (!isFront && (file_.frontFacesOnly || !isBack)) return false;
    if (!file_.frontFacesOnly) {
        const std::size_t corner = 3 * std::size_t(&face - faces_.data());
        face.vertexIndices = (isFront ? frontIndices_ : backIndices_).data() + corner;
        face.texCoords = (isFront ? frontCoordinates_ : backCoordinates_).data() + corner;
    }
    face.normalX = t.normals[0][0] * face.planeX + t.normals[0][1] * face.planeY + t.normals[0][2] * face.planeZ;
    face.normalY = t.normals[1][0] * face.planeX + t.normals[1][1] * face.planeY + t.normals[1][2] * face.planeZ;
    face.normalZ = t.normals[2][0] * face.planeX + t.normals[2][1] * face.planeY + t.normals[2][2] * face.planeZ;
    return true;
}

void NeutralScene::draw(int frame)
{
    setTransform(file_.frames[std::size_t(frame)]);
    renderer_.render(&view_, pixels_.data(), 0, clearUncovered);
}

} // namespace benches
