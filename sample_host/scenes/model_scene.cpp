#include "sample_host/scenes/model_scene.h"

#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/own_textures.h"

#include <algorithm>

namespace sample_host {

namespace {

// The zoom at which the whole mesh stays inside a square picture, wherever on its circle the camera is. It has a limit:
// a mesh that is a mere point in the middle would stay inside at any zoom.
double fittingZoom(const Mesh& mesh, const Camera& camera)
{
    constexpr int turns = 24;
    double widest = 0;
    for (int i = 0; i < turns; ++i) {
        const Placement toEye = camera.sceneToEye(double(i) / turns);
        for (const Vector& position : mesh.positions) {
            const Vector seen = toEye.point(position);
            widest = std::max({widest, std::abs(seen.x) / seen.z, std::abs(seen.y) / seen.z});
        }
    }
    return std::min(0.96 / widest, 10.0);
}

// A floor just below the model.
Mesh floorUnder(const Mesh& mesh, int material)
{
    double lowest = 0;
    for (const Vector& position : mesh.positions) lowest = std::min(lowest, position.y);
    Mesh floor;
    addBoard(floor, material, {{-1.4, lowest - 0.01, 1.4}, {2.8, 0, 0}, {0, 0, -2.8}, 6, 6, 1.5, 1.5});
    return floor;
}

} // namespace

std::unique_ptr<Scene> buildModelScene(Engine& engine, const Model& model, const MaterialMode& mode,
                                       const Progress& progress)
{
    auto scene = std::make_unique<Scene>(engine, mode);
    scene->name = model.name;
    std::vector<Material*> palette;
    for (const MaterialRecipe& recipe : model.materials) {
        report(progress, "making materials", double(palette.size()) / double(model.materials.size()));
        palette.push_back(scene->addMaterial(recipe));
    }
    scene->addObject(model.mesh, palette).name = scene->name;
    const std::size_t triangles = model.mesh.polygons.size();
    scene->contents = std::to_string(triangles) + (triangles == 1 ? " triangle" : " triangles");

    MaterialRecipe tiles;
    tiles.name = "floor";
    tiles.image = floorTiles();
    palette.push_back(scene->addMaterial(tiles));
    scene->addObject(floorUnder(model.mesh, int(palette.size()) - 1), palette).name = "floor";

    // The model fills a sphere of radius 1. The camera goes round it, and the lamp stays.
    scene->camera.distance = 2.6;
    scene->camera.height = 1.3;
    scene->camera.startTurn = 0.09;
    scene->camera.zoom = fittingZoom(model.mesh, scene->camera);
    scene->camera.nearZ = 0.1;
    scene->camera.farZ = 10;
    scene->light() = {.ambient = 0.35, .lamps = {{.place = {4, 6, 5}, .reach = 100}}};
    return scene;
}

} // namespace sample_host
