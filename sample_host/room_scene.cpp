#include "sample_host/own_shapes.h"
#include "sample_host/own_textures.h"
#include "sample_host/scenes.h"

namespace sample_host {

namespace {

constexpr double halfRoom = 4.5;
constexpr double roomHeight = 4;

// Where two surfaces touch, it is rounding that says which is in front, and it says so for a whole span at a time. What
// stands on the floor or reaches the ceiling therefore keeps a distance that nobody sees.
constexpr double hair = 0.015;

// The numbers of the room's materials in its palette.
enum RoomMaterial { tiled, bricked, plastered, marbled, wooden, striped };

std::vector<Material*> roomMaterials(Scene& scene)
{
    const auto add = [&](const char* name, SharedImage image) {
        MaterialRecipe recipe;
        recipe.name = name;
        recipe.image = std::move(image);
        return scene.addMaterial(recipe);
    };
    return {add("tiles", floorTiles()), add("bricks", bricks()), add("plaster", plaster()),
            add("marble", marble()),    add("wood", crate()),    add("stripes", stripes())};
}

Mesh walls()
{
    const double side = 2 * halfRoom;
    const Vector x{side, 0, 0}, y{0, roomHeight, 0}, z{0, 0, side};
    const Vector low{-halfRoom, 0, -halfRoom}, high{halfRoom, roomHeight, halfRoom};
    Mesh mesh;
    addBoard(mesh, tiled, {low + z, x, z * -1, 8, 8, 4, 4});
    addBoard(mesh, plastered, {high - x - z, x, z, 8, 8, 4, 4});
    addBoard(mesh, bricked, {low, x, y, 8, 4, 4, 2});
    addBoard(mesh, bricked, {low + x + z, x * -1, y, 8, 4, 4, 2});
    addBoard(mesh, bricked, {low + z, z * -1, y, 8, 4, 4, 2});
    addBoard(mesh, bricked, {low + x, z, y, 8, 4, 4, 2});
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

// A crate on the pedestal with three balls around it: a group, whose parts turn with it and by themselves.
void addCarousel(Scene& scene, std::span<Material* const> palette)
{
    Mesh crateMesh, ballMesh;
    addBox(crateMesh, wooden, {}, {0.38, 0.38, 0.38});
    addBall(ballMesh, striped, {}, 0.26, 16);

    Object& middle = scene.addObject(crateMesh, palette, {.place = movedTo({0, 1.15, 0}), .turns = -1});
    middle.becomeGroup();
    for (int i = 0; i < 3; ++i) {
        const Vector place{1.05 * sineOfTurn(i / 3.0), 0.35, 1.05 * cosineOfTurn(i / 3.0)};
        const Movement rolling{.place = movedTo(place), .axis = unit({1, 1, 0}), .turns = -2};
        scene.addObject(ballMesh, palette, rolling, &middle).becomePart();
    }
}

} // namespace

std::unique_ptr<Scene> buildRoomScene(Engine& engine, const SceneRequest& request)
{
    auto scene = std::make_unique<Scene>(engine, request.mode);
    scene->name = "room";
    const std::vector<Material*> palette = roomMaterials(*scene);
    scene->addObject(walls(), palette);
    scene->addObject(pillars(), palette);
    addCarousel(*scene, palette);

    Mesh stack;
    addBox(stack, wooden, {-3.7, 0.45 + hair, 0.4}, {0.45, 0.45, 0.45});
    addBox(stack, wooden, {-3.8, 0.4 + hair, 1.6}, {0.4, 0.4, 0.4});
    addBox(stack, wooden, {1.2, 0.35 + hair, -3.9}, {0.35, 0.35, 0.35});
    scene->addObject(stack, palette);

    scene->contents = std::to_string(scene->polygonCount()) + " polygons";

    // The camera goes round inside of the pillars and looks across the carousel into the corners.
    scene->camera.target = {0, 1.1, 0};
    scene->camera.distance = 3.3;
    scene->camera.height = 0.75;
    scene->camera.startTurn = 0.05;
    scene->camera.zoom = 1.25;
    scene->camera.nearZ = 0.1;
    scene->camera.farZ = 30;
    scene->lamp() = {.place = {0, 3.6, 0}, .reach = 6, .ambient = 0.4};
    return scene;
}

} // namespace sample_host
