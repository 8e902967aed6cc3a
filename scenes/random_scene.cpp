#include "scenes/random_scene.h"

#include "scenes/shapes_scene.h"

#include <algorithm>

namespace kardeno::scenes {

namespace {

constexpr i32 rowCount = 20;
constexpr i32 opaqueRows[] = {0, 2, 3, 10, 11, 12, 18, 19};

// Returns the corners of a convex outline, which are points on the unit circle. They run counter-clockwise with y up.
std::vector<Vector> outlineOnCircle(RandomNumbers& random)
{
    constexpr f64 smallestStep = 0.15; // in quarters of the circle
    const i32 count = random.integer(3, 8);
    std::vector<f64> turns;
    while (static_cast<i32>(turns.size()) < count) {
        const f64 turn = random.real(0, 4 - smallestStep);
        const auto tooNear = [turn](f64 other) { return other - turn < smallestStep && turn - other < smallestStep; };
        if (std::none_of(turns.begin(), turns.end(), tooNear)) turns.push_back(turn);
    }
    std::sort(turns.begin(), turns.end());

    std::vector<Vector> points;
    for (const f64 turn : turns) {
        const i32 quarter = static_cast<i32>(turn);
        const f64 t = turn - quarter;
        const f64 x = (1 - t * t) / (1 + t * t), y = 2 * t / (1 + t * t);
        const Vector quarters[4] = {{x, y, 0}, {-y, x, 0}, {-x, -y, 0}, {y, -x, 0}};
        points.push_back(quarters[quarter]);
    }
    return points;
}

VertexShade randomShade(RandomNumbers& random)
{
    VertexShade shade;
    shade.red = static_cast<f32>(random.real(0, 255));
    shade.green = static_cast<f32>(random.real(0, 255));
    shade.blue = static_cast<f32>(random.real(0, 255));
    shade.intensity = static_cast<f32>(random.real(0, 255));
    return shade;
}

// Builds a scene polygon by polygon.
class Builder {
public:
    Builder(u32 seed, const RandomSceneSettings& theSettings, const Scene::Settings& sceneSettings)
        : scene(std::make_unique<Scene>(sceneSettings)), random(seed), settings(theSettings)
    {
        if (settings.rows == RowChoice::all || settings.rows == RowChoice::opaque) makeMaterials();
        for (Object*& object : objects) object = &scene->addObject();
    }

    // Adds a random polygon to a random object. The outline lies in the plane of `along` and `across`, which need not
    // be of length 1. Returns false, and adds no face, when that plane passes too near the eye.
    bool addPolygon(const Vector& centre, const Vector& along, const Vector& across, bool mayFaceAway)
    {
        std::vector<Vector> outline = outlineOnCircle(random);
        const bool turnedAway = mayFaceAway && random.oneIn(8);
        const f64 repeats = random.oneIn(4) ? 1.0 : 0.25;
        const f64 stretch = repeats * random.real(0.5, 4);
        const f64 shiftU = random.real(0, 1), shiftV = random.real(0, 1);
        std::vector<Corner> corners;
        for (const Vector& point : outline) {
            const i32 vertex = scene->addVertex(centre + point.x * along + point.y * across, randomShade(random));
            corners.push_back({vertex, static_cast<f32>(shiftU + stretch * (point.x + 1)),
                               static_cast<f32>(shiftV + stretch * (point.y + 1))});
        }
        if (!scene->isOffTheEye(corners)) return false;

        // The outline is seen counter-clockwise when the cross product of `along` and `across` points away from the
        // eye.
        const Vector normal = {along.y * across.z - along.z * across.y, along.z * across.x - along.x * across.z,
                               along.x * across.y - along.y * across.x};
        const bool seenFromInFront = dot(normal, centre) > 0;
        if (seenFromInFront == turnedAway) std::reverse(corners.begin(), corners.end());

        const u16 faceColour = static_cast<u16>(random.next());
        Object& object = *objects[random.integer(0, 2)];
        scene->addFace(object, nextMaterial(), corners, faceColour);
        return true;
    }

    std::unique_ptr<Scene> scene;
    RandomNumbers random;

private:
    RandomSceneSettings settings;
    Object* objects[3];
    std::vector<Material*> materials;

    // Makes a material for each row with each kind of map.
    void makeMaterials()
    {
        for (const i32 size : {64, 256}) {
            Texture& trueColour = scene->addTexture(16, size, size == 64 ? 32 : 256, noise);
            Texture& palettised = scene->addTexture(8, size, size == 64 ? 32 : 256, noise);
            for (i32 row = 0; row < rowCount; ++row) {
                const bool opaque = std::count(std::begin(opaqueRows), std::end(opaqueRows), row) > 0;
                if (settings.rows == RowChoice::opaque && !opaque) continue;
                materials.push_back(&scene->addMaterial(surfaceOfRow(row, settings.litState, trueColour, palettised)));
            }
        }
    }

    Material& nextMaterial()
    {
        if (!materials.empty()) return *materials[random.next() % materials.size()];
        Surface surface;
        if (settings.rows == RowChoice::plainAndGlass && random.oneIn(3)) surface.transparency = 50;
        Material& material = scene->addMaterial(surface);
        material.diffuseColour.packed = static_cast<u16>(scene->materials.size() * 641 & 0x7fff);
        return material;
    }
};

} // namespace

Surface surfaceOfRow(i32 row, i32 litState, Texture& trueColour, Texture& palettised)
{
    Surface surface;
    surface.ambient = {30, 20, 10};
    surface.diffuse = {190, 150, 220};
    surface.specular = {250, 255, 240};
    surface.tint = {255, 230, 250};
    surface.shininess = 40;
    surface.specularLevel = 50;

    constexpr i32 unlit = 0, lit = 1, other = 5;
    struct Choice {
        i32 state, shadingMode, transparency, bitsPerTexel;
    };
    constexpr Choice choices[rowCount] = {
        {other, 0, 0, 0},  {other, 0, 50, 0},  {unlit, 0, 0, 0},  {unlit, 0, 0, 16},  {unlit, 1, 0, 16},
        {unlit, 0, 50, 0}, {unlit, 0, 50, 16}, {unlit, 2, 0, 16}, {unlit, 10, 0, 16}, {unlit, 11, 0, 16},
        {unlit, 0, 0, 8},  {lit, 0, 0, 0},     {lit, 0, 0, 8},    {lit, 1, 0, 8},     {lit, 0, 50, 0},
        {lit, 0, 50, 8},   {lit, 1, 50, 8},    {lit, 2, 0, 8},    {unlit, 0, 0, 0},   {unlit, 0, 0, 16},
    };
    const Choice& choice = choices[row];
    surface.state = choice.state == lit ? litState : choice.state;
    surface.shadingMode = choice.shadingMode;
    surface.transparency = choice.transparency;
    if (choice.bitsPerTexel) surface.texture = choice.bitsPerTexel == 8 ? &palettised : &trueColour;
    if (row >= 18) surface.spareRow = row == 18 ? Surface::gouraud : Surface::scaledTexture;
    return surface;
}

std::unique_ptr<Scene> makeTangledScene(u32 seed, const RandomSceneSettings& settings)
{
    RandomNumbers shape(seed ^ 0x5eed5u);
    Scene::Settings view = {.bitsPerPixel = settings.bitsPerPixel, .nearZ = 10, .farZ = 400};
    view.left = shape.oneIn(2) ? 0 : static_cast<f32>(shape.real(0, 40));
    view.top = shape.oneIn(2) ? 0 : static_cast<f32>(shape.real(0, 30));
    view.right = view.left + static_cast<f32>(shape.integer(60, 160));
    view.bottom = view.top + static_cast<f32>(shape.integer(40, 120));

    Builder builder(seed, settings, view);
    RandomNumbers& random = builder.random;
    for (i32 i = 0; i < settings.polygons;) {
        const f64 z = random.oneIn(6) ? random.real(-5, 30) : random.real(8, 440);
        const f64 reach = z > 12 ? z : 12;
        const f64 x = random.real(-1.1, 1.1) * reach, y = random.real(-0.9, 0.9) * reach;
        const f64 size = reach * (random.oneIn(5) ? random.real(0.5, 3) : random.real(0.03, 0.5));
        const f64 flatness = random.real(0.3, 1);
        i32 q[4];
        for (i32& part : q) part = random.integer(-4, 4);
        if (q[0] == 0 && q[1] == 0 && q[2] == 0 && q[3] == 0) q[0] = 1;
        const Placement placement = turned(q[0], q[1], q[2], q[3]);
        const Vector along = size * placement.right, across = size * flatness * placement.up;
        if (builder.addPolygon({x, y, z}, along, across, true)) ++i;
    }
    return std::move(builder.scene);
}

std::unique_ptr<Scene> makeLayeredScene(u32 seed, const RandomSceneSettings& settings)
{
    constexpr f64 ratio = 1.12; // from layer to layer; a polygon reaches at most 3 percent of its depth to either side
    Scene::Settings view = {.bitsPerPixel = settings.bitsPerPixel, .right = 160, .bottom = 120, .nearZ = 50};
    f64 depths[layerCount] = {view.nearZ};
    for (i32 i = 1; i < layerCount; ++i) depths[i] = depths[i - 1] * ratio;
    view.farZ = static_cast<f32>(depths[layerCount - 1]);

    Builder builder(seed, settings, view);
    RandomNumbers& random = builder.random;
    for (i32 i = layerCount - 1; i > 0; --i) std::swap(depths[i], depths[random.integer(0, i)]);
    for (i32 i = 0; i < settings.polygons && i < layerCount;) {
        const f64 z = depths[i];
        const f64 x = random.real(-0.8, 0.8) * z, y = random.real(-0.6, 0.6) * z;
        const f64 halfWidth = random.real(0.1, 0.6) * z, halfHeight = random.real(0.1, 0.5) * z;
        const f64 tiltX = random.real(-0.015, 0.015) * z, tiltY = random.real(-0.015, 0.015) * z;
        if (builder.addPolygon({x, y, z}, {halfWidth, 0, tiltX}, {0, halfHeight, tiltY}, false)) ++i;
    }
    return std::move(builder.scene);
}

} // namespace kardeno::scenes
