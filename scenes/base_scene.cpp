#include "scenes/base_scene.h"

#include <cstdlib>
#include <cstring>

namespace kardeno::scenes {

namespace {

const Scene* lastInitialised = nullptr;

void* allocService(u32 count, u32 size)
{
    return std::calloc(count, size);
}

void prepareCamera(SceneCamera*, RenderView*) {}

void updateObject(SceneObject*) {}

void placeObject(SceneObject*, RenderView*) {}

SceneObject* theObjectItself(SceneObject* object, RenderView*)
{
    return object;
}

void showObject(SceneObject*, SceneObject* object, RenderView*)
{
    object->visible = 1;
}

// Shades, vertices and outcodes are made with the scene and never change, so that these callbacks have nothing to do.
void nothingToDo(SceneObject*, SceneObject*, RenderView*) {}

i32 showFace(SceneFace*)
{
    return 1;
}

constexpr CameraFunctions cameraFunctions = {.prepare = prepareCamera};
constexpr FaceTest everyFace = {.test = showFace};
constexpr ObjectFunctions objectFunctions = {.gap0 = {},
                                             .update = updateObject,
                                             .transform = placeObject,
                                             .selectLevel = theObjectItself,
                                             .testBounds = showObject,
                                             .light = nothingToDo,
                                             .gap32 = {},
                                             .prepareVertices = nothingToDo};

u32 outcodeOf(const CameraVertex& vertex, f32 nearZ, f32 farZ)
{
    u32 outcode = 0;
    if (vertex.z >= nearZ) outcode |= outcodeNear;
    if (vertex.z <= farZ) outcode |= outcodeFar;
    if (vertex.x >= -vertex.z) outcode |= outcodeLeft;
    if (vertex.x <= vertex.z) outcode |= outcodeRight;
    if (vertex.y <= vertex.z) outcode |= outcodeTop;
    if (vertex.y >= -vertex.z) outcode |= outcodeBottom;
    return outcode;
}

MaterialColour materialColour(i32 bitsPerPixel, const Colour& colour)
{
    return {.red = colour.red,
            .green = colour.green,
            .blue = colour.blue,
            .gap3 = {},
            .packed = packedPixel(bitsPerPixel, colour)};
}

// No render state selects the two last rows. The material is given a state that selects the flat fallback, and its
// pointer is moved on from there.
void pointAtSpareRow(SceneMaterial& material, Surface::SpareRow row)
{
    Kardeno_Set_Material_Render_State_Dll(&material, 7);
    material.renderPrivate->mode += (row == Surface::gouraud ? rowSpareA : rowSpareB) - rowFallbackFlat;
}

} // namespace

Scene::Scene(const Settings& theSettings)
    : settings(theSettings), view(), projection(), camera(), context(std::make_unique<HostContext>())
{
    camera.functions = &cameraFunctions;
    const f32 centreX = (settings.left + settings.right) / 2;
    const f32 centreY = (settings.top + settings.bottom) / 2;
    const f32 scaleX = (settings.right - settings.left) / 2;
    const f32 scaleY = (settings.bottom - settings.top) / 2;
    projection = {.right = settings.right,
                  .bottom = settings.bottom,
                  .centreX = centreX,
                  .centreY = centreY,
                  .scaleX = scaleX,
                  .scaleY = scaleY,
                  .invScaleX = 1 / scaleX,
                  .invScaleY = 1 / scaleY,
                  .centreXOverScaleX = centreX / scaleX,
                  .centreYOverScaleY = centreY / scaleY};
    view.camera = &camera;
    view.left = settings.left;
    view.top = settings.top;
    view.nearZ = settings.nearZ;
    view.farZ = settings.farZ;
    view.projection = &projection;

    context->alloc = allocService;
    context->realloc = [](void* block, u32 bytes) { return std::realloc(block, bytes); };
    context->free = [](void* block) { std::free(block); };
    context->bitsPerPixel = settings.bitsPerPixel;
    initialiseRenderer();
}

Scene::~Scene()
{
    initialiseRenderer();
    for (Material& material : materials) Kardeno_Release_Material_Dll(&material);
    for (Face& face : faces) Kardeno_Release_Face_Dll(&face);
    lastInitialised = nullptr;
}

void Scene::initialiseRenderer()
{
    if (lastInitialised == this) return;
    Kardeno_Init_Render_Dll(context.get());
    lastInitialised = this;
}

Texture& Scene::addTexture(i32 bitsPerTexel, i32 width, i32 height, Picture picture)
{
    return textures.emplace_back(bitsPerTexel, settings.bitsPerPixel, width, height, picture);
}

Material& Scene::addMaterial(const Surface& surface)
{
    initialiseRenderer();
    Material& material = materials.emplace_back();
    material.ambientColour = materialColour(settings.bitsPerPixel, surface.ambient);
    material.diffuseColour = materialColour(settings.bitsPerPixel, surface.diffuse);
    material.specularColour = materialColour(settings.bitsPerPixel, surface.specular);
    material.tintColour = materialColour(settings.bitsPerPixel, surface.tint);
    material.shininess = surface.shininess;
    material.specularLevel = surface.specularLevel;
    material.transparency = surface.transparency;
    material.shadingMode = surface.shadingMode;
    material.textureMap = surface.texture ? &surface.texture->map : nullptr;
    material.materialFlags = &material.flagWords;
    Kardeno_Add_Material_Dll(&material);
    if (surface.spareRow == Surface::none)
        Kardeno_Set_Material_Render_State_Dll(&material, surface.state);
    else
        pointAtSpareRow(material, surface.spareRow);
    return material;
}

Object& Scene::addObject()
{
    Object* const before = objects.empty() ? nullptr : &objects.back();
    Object& object = objects.emplace_back();
    object.ownClass.functions = &objectFunctions;
    object.objectClass = &object.ownClass;
    object.groupFlag = &object.group;
    (before ? before->nextRoot : view.firstObject) = &object;
    return object;
}

i32 Scene::addVertex(const Vector& place, const VertexShade& shade)
{
    // Camera space is stretched so that the sides of the picture are the planes X = -Z, X = Z, Y = Z and Y = -Z.
    const f64 heightByWidth = static_cast<f64>(projection.scaleY) / projection.scaleX;
    const CameraVertex vertex = {static_cast<f32>(place.x * settings.zoom * heightByWidth),
                                 static_cast<f32>(place.y * settings.zoom), static_cast<f32>(place.z)};
    cameraVertices.push_back(vertex);
    outcodes.push_back(outcodeOf(vertex, settings.nearZ, settings.farZ));
    shades.push_back(shade);
    screenVertices.push_back({0, 0, 0});
    stamps.push_back(0);

    context->cameraVertices = cameraVertices.data();
    context->screenVertices = screenVertices.data();
    context->vertexShades = shades.data();
    context->vertexOutcodes = outcodes.data();
    context->vertexStamps = stamps.data();
    return static_cast<i32>(cameraVertices.size()) - 1;
}

Vector Scene::normalOf(const std::vector<Corner>& corners) const
{
    const auto corner = [&](size_t i) {
        const CameraVertex& vertex = cameraVertices[static_cast<size_t>(corners[i].vertex)];
        return Vector{vertex.x, vertex.y, vertex.z};
    };
    const Vector u = corner(1) + -1 * corner(0);
    const Vector w = corner(2) + -1 * corner(0);
    return {u.y * w.z - u.z * w.y, u.z * w.x - u.x * w.z, u.x * w.y - u.y * w.x};
}

bool Scene::isOffTheEye(const std::vector<Corner>& corners) const
{
    const Vector normal = normalOf(corners);
    const CameraVertex& first = cameraVertices[static_cast<size_t>(corners[0].vertex)];
    const Vector corner = {first.x, first.y, first.z};
    const f64 distance = dot(normal, corner);
    return distance * distance > 0.00001 * dot(normal, normal) * dot(corner, corner);
}

Face& Scene::addFace(Object& object, SceneMaterial& material, const std::vector<Corner>& corners, u16 faceColour)
{
    initialiseRenderer();
    Face& face = faces.emplace_back();
    for (const Corner& corner : corners) {
        face.indices.push_back(corner.vertex);
        face.coordinates.push_back({corner.u, corner.v});
    }
    face.vertexCount = static_cast<i32>(corners.size());
    face.vertexIndices = face.indices.data();
    face.texCoords = face.coordinates.data();
    face.material = &material;
    face.faceTest = &everyFace;
    const Vector normal = normalOf(corners);
    face.normalX = static_cast<f32>(normal.x);
    face.normalY = static_cast<f32>(normal.y);
    face.normalZ = static_cast<f32>(normal.z);
    Kardeno_Add_Face_Dll(&face);
    *face.faceColour = faceColour; // the renderer's own choice differs from platform to platform

    object.faceList.push_back(&face);
    object.faces = object.faceList.data();
    object.faceCount = static_cast<i32>(object.faceList.size());
    for (const MaterialNode& node : object.nodes) {
        if (node.material == &material) return face;
    }
    object.nodes.push_back({&material, object.materials});
    object.materials = &object.nodes.back();
    return face;
}

void Scene::draw(u16* pixels, i32 pitch, bool clear)
{
    initialiseRenderer();
    view.pitch = pitch;
    Kardeno_Render_Dll(&view, pixels, 0, clear ? 1 : 0);
}

SceneObject* Scene::pick(f32 x, f32 y, i32* faceIndex, f32* depth)
{
    initialiseRenderer();
    return Kardeno_Pick_Dll(&view, x, y, faceIndex, depth);
}

} // namespace kardeno::scenes
