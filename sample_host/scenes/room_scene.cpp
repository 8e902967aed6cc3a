#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/own_textures.h"
#include "sample_host/scenes/scenes.h"

namespace sample_host {

namespace {

constexpr double halfRoom = 4.5;
constexpr double roomHeight = 4;

// Where two surfaces touch, it is rounding that says which is in front, and it says so for a whole span at a time. What
// stands on the floor or reaches the ceiling therefore keeps a distance that nobody sees.
constexpr double hair = 0.015;

// As far as light goes down the image of a ray: all of it would show the first row of texels again.
constexpr double fadedOut = 0.97;

// The numbers of the room's materials in its palette.
enum RoomMaterial {
    tiled,
    bricked,
    plastered,
    marbled,
    wooden,
    striped,
    glazed,
    sky,
    sunlight,
    sunray,
    lampray,
    lampPool
};

std::vector<Material*> roomMaterials(Scene& scene)
{
    const auto add = [&](const char* name, SharedImage image, MaterialRecipe recipe = {}) {
        recipe.name = name;
        recipe.image = std::move(image);
        return scene.addMaterial(recipe);
    };
    const MaterialRecipe glass{.transparency = 50, .glows = true}, light{.shadingMode = 2, .glows = true};
    return {add("tiles", floorTiles()),
            add("bricks", bricks()),
            add("plaster", plaster()),
            add("marble", marble()),
            add("wood", crate()),
            add("stripes", stripes()),
            add("glass", leadedGlass(), glass),
            add("sky", duskSky(), {.glows = true}),
            add("sunlight", dimmed(leadedGlass(), 45), light),
            add("sunray", beam({90, 76, 52}), light),
            add("lampray", beam({120, 96, 50}), light),
            add("lamp pool", glow({120, 96, 50}), light)};
}

// The window takes two by two of the cells of the far wall.
constexpr CellRange windowCells{3, 1, 5, 3};
constexpr double windowHalf = 2 * halfRoom / 8, windowFoot = 1, windowHeight = 2;

Mesh walls()
{
    const double side = 2 * halfRoom;
    const Vector x{side, 0, 0}, y{0, roomHeight, 0}, z{0, 0, side};
    const Vector low{-halfRoom, 0, -halfRoom}, high{halfRoom, roomHeight, halfRoom};
    Mesh mesh;
    addBoard(mesh, tiled, {low + z, x, z * -1, 8, 8, 4, 4});
    addBoard(mesh, plastered, {high - x - z, x, z, 8, 8, 4, 4});
    addBoard(mesh, bricked, {low, x, y, 8, 4, 4, 2, windowCells});
    addBoard(mesh, bricked, {low + x + z, x * -1, y, 8, 4, 4, 2});
    addBoard(mesh, bricked, {low + z, z * -1, y, 8, 4, 4, 2});
    addBoard(mesh, bricked, {low + x, z, y, 8, 4, 4, 2});
    return mesh;
}

// The window's niche in the wall, and what is seen through it.
Mesh niche()
{
    const Vector low{-windowHalf, windowFoot, -halfRoom}, right{2 * windowHalf, 0, 0}, up{0, windowHeight, 0};
    const Vector out{0, 0, -0.35};
    Mesh mesh;
    addBoard(mesh, plastered, {low, right, out, 2, 1, 1, 0.25});
    addBoard(mesh, plastered, {low + up + out, right, out * -1, 2, 1, 1, 0.25});
    addBoard(mesh, plastered, {low, out, up, 1, 2, 0.25, 1});
    addBoard(mesh, plastered, {low + right + out, out * -1, up, 1, 2, 0.25, 1});
    addBoard(mesh, sky, {{-12, -3, -12}, {24, 0, 0}, {0, 14, 0}, 4, 1, 2, 0.98});
    return mesh;
}

Mesh glass()
{
    Mesh mesh;
    const Vector low{-windowHalf + hair, windowFoot + hair, -halfRoom - 0.25};
    addBoard(mesh, glazed, {low, {2 * (windowHalf - hair), 0, 0}, {0, windowHeight - 2 * hair, 0}, 2, 2, 1, 1});
    return mesh;
}

// The sun through the window: its colours on the floor, and the ray of light that leads there.
Mesh sunshine()
{
    const Vector window{-windowHalf, windowFoot, -halfRoom + hair}, up{0, windowHeight, 0};
    const Vector floor{-windowHalf + 1, 2 * hair, -3.2}, along{0, 0, 2.4};
    const Vector right{2 * windowHalf, 0, 0};
    Mesh mesh;
    addBoard(mesh, sunlight, {floor + along, right, along * -1, 2, 2, 1, 1});
    const Vector above = window + up, down = floor + along - above;
    addBoard(mesh, sunray, {above + down, right, down * -1, 2, 4, 1, fadedOut});
    return mesh;
}

Mesh pillars()
{
    Mesh mesh;
    for (const double x : {-3.0, 3.0})
        for (const double z : {-3.0, 3.0}) addColumn(mesh, marbled, {{x, hair, z}, 0.35, roomHeight - 2 * hair, 10, 4});
    addColumn(mesh, marbled, {{0, hair, 0}, 0.7, 0.5, 10, 1});
    return mesh;
}

// What a lamp at the ceiling does: a cone of light, and the pool below it.
Mesh lampLight(const Vector& foot, double radius)
{
    Mesh mesh;
    addColumn(mesh, lampray,
              {.foot = foot + Vector{0, 3 * hair, 0},
               .radius = radius,
               .height = roomHeight - 5 * hair,
               .sides = 10,
               .repeatUp = fadedOut,
               .topRadius = 0.12,
               .open = true});
    const double half = 1.3 * radius;
    addBoard(mesh, lampPool, {foot + Vector{-half, 2 * hair, half}, {2 * half, 0, 0}, {0, 0, -2 * half}});
    return mesh;
}

// A crate on the pedestal with three balls around it: a group, whose parts turn with it and by themselves.
void addCarousel(Scene& scene, std::span<Material* const> palette)
{
    Mesh crateMesh, ballMesh;
    addBox(crateMesh, wooden, {}, {0.38, 0.38, 0.38});
    addBall(ballMesh, striped, {}, 0.26, 16);

    Object& middle = scene.addObject(crateMesh, palette, turning(movedTo({0, 1.15, 0}), {0, 1, 0}, -1));
    middle.name = "crate of the carousel";
    middle.becomeGroup();
    for (int i = 0; i < 3; ++i) {
        const Vector place{1.05 * sineOfTurn(i / 3.0), 0.35, 1.05 * cosineOfTurn(i / 3.0)};
        Object& ball = scene.addObject(ballMesh, palette, turning(movedTo(place), unit({1, 1, 0}), -2), &middle);
        ball.name = "ball " + std::to_string(i + 1);
        ball.becomePart();
    }
}

Mesh crates()
{
    Mesh mesh;
    addBox(mesh, wooden, {-3.7, 0.45 + hair, 0.4}, {0.45, 0.45, 0.45});
    addBox(mesh, wooden, {-3.8, 0.4 + hair, 1.6}, {0.4, 0.4, 0.4});
    addBox(mesh, wooden, {2.1, 0.35 + hair, -4}, {0.35, 0.35, 0.35});
    return mesh;
}

} // namespace

std::unique_ptr<Scene> buildRoomScene(Engine& engine, const MaterialMode& mode)
{
    auto scene = std::make_unique<Scene>(engine, mode);
    scene->name = "room";
    const std::vector<Material*> palette = roomMaterials(*scene);
    const auto add = [&](const char* name, const Mesh& mesh) { scene->addObject(mesh, palette).name = name; };
    add("room", walls());
    add("niche", niche());
    add("pillars", pillars());
    add("crates", crates());
    addCarousel(*scene, palette);
    add("window", glass());
    add("sunshine", sunshine());
    add("lamp by the left wall", lampLight({-2.6, 0, -1.2}, 0.55));
    add("lamp by the right wall", lampLight({2.9, 0, -0.6}, 0.55));
    scene->contents = std::to_string(scene->polygonCount()) + " polygons";

    // The camera goes round inside of the pillars and looks across the carousel into the corners.
    scene->camera.target = {0, 1.1, 0};
    scene->camera.distance = 3.3;
    scene->camera.height = 0.75;
    scene->camera.startTurn = 0.05;
    scene->camera.zoom = 1.25;
    scene->camera.nearZ = 0.1;
    scene->camera.farZ = 30;
    scene->light() = {.ambient = 0.35, .lamps = {{.place = {0, 3.6, 0}, .reach = 6}}};
    return scene;
}

} // namespace sample_host
