#include "tests/reference/random_scene.h"

#include <algorithm>

namespace kardeno::tests {

namespace {

using reference::Row;

// Levels of detail answer through functions of their own, so that it shows whose function was called.
ObjectFunctions plainFunctions;

void noteLevel(SceneObject* level)
{
    static_cast<TestObject*>(level)->scene->log.push_back("through the level's own function:");
}

void testBoundsOfLevel(SceneObject* drawn, SceneObject* object, RenderView* view)
{
    noteLevel(drawn);
    plainFunctions.testBounds(drawn, object, view);
}

void lightLevel(SceneObject* drawn, SceneObject* object, RenderView* view)
{
    noteLevel(drawn);
    plainFunctions.light(drawn, object, view);
}

void prepareLevel(SceneObject* drawn, SceneObject* object, RenderView* view)
{
    noteLevel(drawn);
    plainFunctions.prepareVertices(drawn, object, view);
}

constexpr i32 sharedPlaces = 64; // the first vertices, where objects take turns

i32 someFormat(RandomNumbers& random)
{
    const i32 formats[] = {15, 15, 15, 15, 16, 16, 16, 16, 24, 32};
    return random.oneOf(formats);
}

} // namespace

RandomScene::RandomScene(u32 seed, const SceneChoice& sceneChoice, reference::Renderer& renderer)
    : random(seed), model(renderer), host(someFormat(random)), scene(host), choice(sceneChoice),
      privateVertices(sharedPlaces)
{
    model.initialise(&host.context());
    host.context().projectionStamp = random.chance(5) ? 0xfffffffeu : 1;

    chooseSize();
    const f64 nearest[] = {0.5, 1, 1, 3.7, 10, 300, 20000};
    const f64 nearZ = random.oneOf(nearest);
    scene.view.record.nearZ = static_cast<f32>(nearZ);
    scene.view.record.farZ = static_cast<f32>(nearZ * random.real(4, random.chance(50) ? 20 : 1000));
    outcodeRule = random.integer(0, 1);
    chooseView();
    chooseMaterials();

    i32 faces = random.chance(70) ? random.integer(1, 20) : random.integer(20, 60);
    if (choice.theme == Theme::crowds) faces = random.integer(3000, 5000);
    if (choice.crowd > 0) faces = 1; // the one object has them all
    while (faceCount < faces) {
        if (choice.theme == Theme::trees || (choice.crowd == 0 && random.chance(5))) {
            addTree(nullptr, 0);
            if (choice.theme == Theme::trees && random.chance(30)) return;
        } else {
            addObject(nullptr, false);
        }
    }
}

void RandomScene::nextFrame()
{
    chooseView();
    const f64 reach = scene.view.record.nearZ;
    const f64 offset[3] = {random.real(-0.4, 0.4), random.real(-0.4, 0.4), random.real(-0.6, 0.6)};
    moved = {static_cast<f32>(offset[0] * reach), static_cast<f32>(offset[1] * reach),
             static_cast<f32>(offset[2] * reach)};
    for (TestMaterial* material : materials) {
        if (random.chance(20)) repaint(*material, model, random);
        if (random.chance(10) && choice.theme != Theme::oneRow) setRenderState(*material, model, random.integer(-1, 3));
    }
    for (TestObject* object : objects) { object->boundsVisible = random.chance(85) ? random.integer(1, 2) : 0; }
}

void RandomScene::chooseSize()
{
    struct Size {
        i32 width, height;
    };
    const Size small[] = {{64, 48}, {64, 48}, {64, 64}, {96, 64}, {128, 64}, {128, 96}, {160, 100}, {320, 200}};
    const Size extreme[] = {{8, 4096}, {24, 2100}, {3000, 12}};
    Size size = choice.theme == Theme::tallAndWide ? random.oneOf(extreme) : random.oneOf(small);
    if (choice.theme == Theme::crowds || choice.theme == Theme::meshes) size = {320, 200};
    frameWidth = size.width;
    frameHeight = size.height;
}

void RandomScene::chooseView()
{
    RenderView& view = scene.view.record;
    ViewProjection& projection = scene.view.projection;
    f64 left = 0, top = 0, right = frameWidth, bottom = frameHeight;
    if (random.chance(50)) {
        left = random.integer(0, frameWidth) / 4.0;
        top = random.integer(0, frameHeight) / 4.0;
        right -= random.integer(0, frameWidth / 2) / 4.0;
        bottom -= random.integer(0, frameHeight / 2) / 4.0;
    }
    if (random.chance(20)) {
        left += random.real(0, 1);
        top += random.real(0, 1);
        right -= random.real(0, 1);
        bottom -= random.real(0, 1);
    }
    if (choice.theme == Theme::loosePlanes && random.chance(20)) left = random.real(-4, 0);

    // The corners that the near and the far clipper make are tested against X = -Z to Z: a projection that does not
    // put these planes at the edges of the view lets polygons reach beyond it.
    f64 centreX = (left + right) / 2, scaleX = (right - left) / 2;
    f64 centreY = (top + bottom) / 2, scaleY = (bottom - top) / 2;
    if (choice.theme == Theme::loosePlanes || random.chance(10)) {
        centreX = random.real(left, right);
        centreY = random.real(top, bottom);
        scaleX *= random.real(0.3, 3);
        scaleY *= random.real(0.3, 3);
    } else if (random.chance(20)) { // coordinates that come out exact
        centreX = frameWidth / 2;
        centreY = frameHeight / 2;
        scaleX = scaleY = 64;
    }
    view.left = static_cast<f32>(left);
    view.top = static_cast<f32>(top);
    projection.right = static_cast<f32>(right);
    projection.bottom = static_cast<f32>(bottom);
    projection.centreX = static_cast<f32>(centreX);
    projection.centreY = static_cast<f32>(centreY);
    projection.scaleX = static_cast<f32>(scaleX);
    projection.scaleY = static_cast<f32>(scaleY);
    projection.invScaleX = 1 / projection.scaleX;
    projection.invScaleY = 1 / projection.scaleY;
    projection.centreXOverScaleX = projection.centreX / projection.scaleX;
    projection.centreYOverScaleY = projection.centreY / projection.scaleY;
}

void RandomScene::chooseMaterials()
{
    const Row seeThrough[] = {Row::fallbackBlend,
                              Row::unlitTexturedShade1,
                              Row::unlitTranslucent,
                              Row::unlitTexturedShade2,
                              Row::litTranslucent,
                              Row::unlitTexturedTranslucent,
                              Row::litTexturedShade1,
                              Row::litTexturedTranslucent,
                              Row::litTexturedShade1Translucent,
                              Row::litTexturedShade2,
                              Row::unlitPlain,
                              Row::litTextured};
    const Row billboards[] = {Row::unlitTexturedShade10, Row::unlitTexturedShade10, Row::unlitTexturedShade11,
                              Row::unlitTexturedShade11, Row::unlitTextured,        Row::litPlain};
    const i32 count = choice.theme == Theme::oneRow ? 2 : random.integer(3, 7);
    for (i32 i = 0; i < count; ++i) {
        Row row = static_cast<Row>(random.integer(0, reference::rowCount - 1));
        if (choice.theme == Theme::oneRow) row = choice.row;
        if (choice.theme == Theme::seeThrough) row = random.oneOf(seeThrough);
        if (choice.theme == Theme::billboards) row = random.oneOf(billboards);
        materials.push_back(&addMaterial(scene, model, row, random));
    }
}

// An object of any kind with children of any kind. Where an object has a level of detail to be drawn in its place, that
// level has children of its own, but not always as many.
void RandomScene::addTree(TestObject* parent, i32 depth)
{
    TestObject& object = addObject(parent, true);
    const i32 kind = random.integer(0, 9);
    object.isGroup = kind < 3;
    object.partOfGroup = kind == 2 || (kind > 2 && kind < 7);
    const i32 children = depth < 3 ? random.integer(0, depth == 0 ? 4 : 2) : 0;
    for (i32 i = 0; i < children; ++i) addTree(&object, depth + 1);
    if (random.chance(10)) object.level = objects[random.next() % objects.size()]; // with siblings of its own
    if (!random.chance(30)) return;

    TestObject& level = scene.addObject("level of " + object.name, nullptr); // hangs nowhere in the tree
    plainFunctions = level.functions;
    level.functions.testBounds = testBoundsOfLevel;
    level.functions.light = lightLevel;
    level.functions.prepareVertices = prepareLevel;
    giveShape(level, true);
    object.level = &level;
    TestObject* parentOfCopies = &level;
    for (i32 copies = random.integer(0, children); copies > 0; --copies) {
        TestObject& child = addObject(parentOfCopies, true);
        if (random.chance(20)) parentOfCopies = &child;
    }
}

TestObject& RandomScene::addObject(TestObject* parent, bool inTree)
{
    const std::string name = "object " + std::to_string(objects.size());
    TestObject& object = parent ? scene.addObject(name, parent) : scene.addRoot(name);
    object.boundsVisible = random.chance(inTree ? 70 : 95) ? random.integer(1, 2) : 0;
    if (random.chance(50)) object.level = &object; // else 0, which means the same
    giveShape(object, inTree);
    return object;
}

void RandomScene::giveShape(TestObject& object, bool inTree)
{
    objects.push_back(&object);
    Geometry& geometry = geometries.emplace_back();
    geometry.sharesPlace = !inTree && random.chance(50);
    addShape(object, geometry);
    reserveVertices(geometry);
    for (SceneFace* face : object.faceList) {
        TestFace& own = static_cast<TestFace&>(*face);
        for (i32& index : own.indices) index += geometry.firstVertex;
    }
    object.onPrepare = [this, &geometry] { prepare(geometry); };
    object.onLight = [this, &geometry] { light(geometry); };
}

void RandomScene::addShape(TestObject& object, Geometry& geometry)
{
    using Shape = void (RandomScene::*)(TestObject&, Geometry&);
    const Shape any[] = {&RandomScene::addScreenPolygon, &RandomScene::addScreenPolygon, &RandomScene::addRectangles,
                         &RandomScene::addPosts,         &RandomScene::addGrid,          &RandomScene::addBox,
                         &RandomScene::addSolidPolygon,  &RandomScene::addSpoiltPolygon, &RandomScene::addPlane,
                         &RandomScene::addSlants};
    const Shape seeThrough[] = {&RandomScene::addRectangles, &RandomScene::addRectangles,
                                &RandomScene::addScreenPolygon, &RandomScene::addPlane};
    const Shape slivers[] = {&RandomScene::addPosts, &RandomScene::addSpoiltPolygon, &RandomScene::addGrid,
                             &RandomScene::addSlants, &RandomScene::addPlane};
    const Shape billboards[] = {&RandomScene::addRectangles, &RandomScene::addBox, &RandomScene::addScreenPolygon};
    const Shape clipped[] = {&RandomScene::addSolidPolygon, &RandomScene::addBox, &RandomScene::addSolidPolygon};
    Shape shape = random.oneOf(any);
    switch (choice.theme) {
    case Theme::seeThrough: shape = random.oneOf(seeThrough); break;
    case Theme::slivers: shape = random.oneOf(slivers); break;
    case Theme::billboards: shape = random.oneOf(billboards); break;
    case Theme::clipped:
    case Theme::loosePlanes: shape = random.oneOf(clipped); break;
    case Theme::meshes: shape = &RandomScene::addMesh; break;
    case Theme::layers: shape = &RandomScene::addLayers; break;
    case Theme::fullRows: shape = &RandomScene::addFullRow; break;
    case Theme::crossings: shape = &RandomScene::addCrossings; break;
    default: break;
    }
    (this->*shape)(object, geometry);
}

void RandomScene::reserveVertices(Geometry& geometry)
{
    const i32 count = static_cast<i32>(geometry.vertices.size());
    for (i32 i = 0; i < count; ++i) {
        const f32 channels[4] = {static_cast<f32>(random.real(0, 255)), static_cast<f32>(random.real(0, 255)),
                                 static_cast<f32>(random.real(0, 255)), static_cast<f32>(random.real(0, 255))};
        VertexShade shade = {channels[0], channels[1], channels[2], channels[3]};
        if (random.chance(1)) shade.intensity = static_cast<f32>(random.real(-300, 600));
        geometry.shades.push_back(shade);
    }
    geometry.sharesPlace = geometry.sharesPlace && count <= sharedPlaces;
    geometry.firstVertex = geometry.sharesPlace ? 0 : privateVertices;
    if (!geometry.sharesPlace) privateVertices += count;
    while (static_cast<i32>(host.cameraVertices.size()) < privateVertices) {
        const i32 vertex = host.addVertex(0, 0, 1);
        host.stamps[static_cast<size_t>(vertex)] = 0x80000000u;      // no projectionStamp that is ever reached
        const f32 before = static_cast<f32>(random.integer(0, 255)); // where the host never lights
        host.shades[static_cast<size_t>(vertex)] = {before, 255 - before, before / 2, before};
    }
}

void RandomScene::prepare(const Geometry& geometry)
{
    for (size_t i = 0; i < geometry.vertices.size(); ++i) {
        const size_t vertex = static_cast<size_t>(geometry.firstVertex) + i;
        const CameraVertex& from = geometry.vertices[i];
        host.cameraVertices[vertex] = {from.x + moved.x, from.y + moved.y, from.z + moved.z};
        host.outcodes[vertex] = outcodeOf(host.cameraVertices[vertex]);
    }
}

void RandomScene::light(const Geometry& geometry)
{
    std::copy(geometry.shades.begin(), geometry.shades.end(), host.shades.begin() + geometry.firstVertex);
}

// Hosts may test on the screen or in camera space; the two differ by roundings.
u32 RandomScene::outcodeOf(const CameraVertex& vertex) const
{
    const RenderView& view = scene.view.record;
    const ViewProjection& projection = *view.projection;
    u32 outcode = 0;
    if (vertex.z > 0 && outcodeRule == 0) {
        const f64 x = projection.centreX + projection.scaleX * static_cast<f64>(vertex.x) / vertex.z;
        const f64 y = projection.centreY - projection.scaleY * static_cast<f64>(vertex.y) / vertex.z;
        outcode = screenOutcode(view, static_cast<f32>(x), static_cast<f32>(y)) & ~u32{outcodeNear | outcodeFar};
    } else {
        const f64 x = static_cast<f64>(projection.scaleX) * vertex.x + static_cast<f64>(projection.centreX) * vertex.z;
        const f64 y = static_cast<f64>(projection.centreY) * vertex.z - static_cast<f64>(projection.scaleY) * vertex.y;
        if (x >= static_cast<f64>(view.left) * vertex.z) outcode |= outcodeLeft;
        if (x <= static_cast<f64>(projection.right) * vertex.z) outcode |= outcodeRight;
        if (y >= static_cast<f64>(view.top) * vertex.z) outcode |= outcodeTop;
        if (y <= static_cast<f64>(projection.bottom) * vertex.z) outcode |= outcodeBottom;
    }
    if (vertex.z >= view.nearZ) outcode |= outcodeNear;
    if (vertex.z <= view.farZ) outcode |= outcodeFar;
    return outcode;
}

} // namespace kardeno::tests
