#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/own_textures.h"
#include "sample_host/scenes/robot.h"
#include "sample_host/scenes/scenes.h"

namespace sample_host {

namespace {

enum YardMaterial { tiled, sky, shadow };

std::vector<Material*> yardMaterials(Scene& scene)
{
    const MaterialRecipe floor{.name = "tiles", .image = floorTiles()};
    const MaterialRecipe dusk{.name = "sky", .image = duskSky(), .glows = true};
    const MaterialRecipe dark{.name = "shadow", .diffuse = {0, 0, 0}, .transparency = 50, .glows = true};
    return {scene.addMaterial(floor), scene.addMaterial(dusk), scene.addMaterial(dark)};
}

// A disc that darkens the floor.
Mesh roundShadow()
{
    constexpr double aboveFloor = 0.012;
    Mesh mesh;
    std::vector<Mesh::Corner> corners;
    for (int i = 0; i < 10; ++i) {
        const Vector place{0.55 * sineOfTurn(i / 10.0), aboveFloor, 0.5 * cosineOfTurn(i / 10.0)};
        corners.push_back({mesh.addVertex(place, {0, 1, 0}), 0, 0});
    }
    mesh.addPolygon(shadow, corners);
    return mesh;
}

} // namespace

std::unique_ptr<Scene> buildRobotsScene(Engine& engine, const MaterialMode& mode)
{
    auto scene = std::make_unique<Scene>(engine, mode);
    scene->name = "robots";
    const std::vector<Material*> palette = yardMaterials(*scene);
    Mesh floor, ring;
    addBoard(floor, tiled, {{-14, 0, 14}, {28, 0, 0}, {0, 0, -28}, 14, 14, 7, 7});
    addRing(ring, sky, {.radius = 22, .foot = -3, .height = 17});
    scene->addObject(floor, palette).name = "floor";
    scene->addObject(ring, palette).name = "sky";

    // A wedge with its point in front.
    const RobotLevels levels = addRobotLevels(*scene);
    const Mesh disc = roundShadow();
    constexpr int robots = 9;
    for (int i = 0; i < robots; ++i) {
        const int row = (i + 1) / 2, side = i % 2 == 1 ? 1 : -1;
        const Placement place = movedTo({side * 1.25 * row, 0, 3 - 1.7 * row});
        const std::string name = "robot " + std::to_string(i + 1);
        scene->addObject(disc, palette, standing(place)).name = "shadow of " + name;
        addRobot(*scene, levels, name, place, 0.11 * i);
    }

    scene->contents = std::to_string(robots) + " robots of " + std::to_string(levels.polygons[0]) + ", "
                      + std::to_string(levels.polygons[1]) + " or " + std::to_string(levels.polygons[2])
                      + " polygons by their distance";

    scene->camera.target = {0, 0.9, 0};
    scene->camera.distance = 7;
    scene->camera.height = 1.9;
    scene->camera.startTurn = 0.025;
    scene->camera.zoom = 1.9;
    scene->camera.nearZ = 0.2;
    scene->camera.farZ = 60;
    scene->light() = {.ambient = 0.4, .lamps = {{.place = {9, 12, 8}, .reach = 100}}};
    return scene;
}

} // namespace sample_host
