#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/own_textures.h"
#include "sample_host/scenes/particle_movements.h"
#include "sample_host/scenes/scenes.h"

namespace sample_host {

namespace {

enum CourtMaterial { tiled, sky, stone, water, drop, spark, flame, ember, halo };

constexpr double hair = 0.015;
constexpr double spout = 1.25;      // height of the fountain's mouth
constexpr double waterLevel = 0.45; // of the basin

std::vector<Material*> courtMaterials(Scene& scene)
{
    const auto particle = [&](const char* name, Colour colour, i32 shadingMode) {
        return scene.addMaterial({.name = name, .shadingMode = shadingMode, .image = glow(colour)});
    };
    return {scene.addMaterial({.name = "tiles", .image = floorTiles()}),
            scene.addMaterial({.name = "sky", .image = dimmed(duskSky(), 45), .glows = true}),
            scene.addMaterial({.name = "stone", .image = marble()}),
            scene.addMaterial({.name = "water", .diffuse = {30, 70, 110}, .transparency = 50, .glows = true}),
            particle("drop", {70, 110, 170}, 11),
            particle("spark", {120, 150, 190}, 11),
            particle("flame", {200, 100, 24}, 11),
            particle("ember", {150, 44, 16}, 11),
            particle("halo", {86, 52, 22}, 10)};
}

Object& addParticle(Scene& scene, std::span<Material* const> palette, int material, double size, Movement movement)
{
    Mesh mesh;
    addSprite(mesh, material, size);
    Object& particle = scene.addObject(mesh, palette, std::move(movement));
    particle.becomeSprite();
    return particle;
}

Mesh stonework(std::span<const Vector> fires)
{
    Mesh mesh;
    addColumn(mesh, stone, {.foot = {0, hair, 0}, .radius = 1.25, .height = 0.4, .sides = 10, .repeatUp = 0.5});
    addColumn(mesh, stone, {.foot = {0, 0.4 + 2 * hair, 0}, .radius = 0.2, .height = spout - 0.5, .topRadius = 0.12});
    for (const Vector& fire : fires)
        addColumn(mesh, stone, {.foot = {fire.x, hair, fire.z}, .radius = 0.16, .height = fire.y, .topRadius = 0.24});
    // Things that the fountain can be hidden behind.
    for (const double x : {-2.1, 2.1})
        for (const double z : {-2.1, 2.1})
            addColumn(mesh, stone, {.foot = {x, hair, z}, .radius = 0.24, .height = 3, .repeatUp = 3});
    return mesh;
}

// The water's surface around the spout's column, which goes through it.
Mesh surface()
{
    Mesh mesh;
    constexpr int sides = 10;
    const auto circle = [&](double radius) {
        const int first = int(mesh.positions.size());
        for (int i = 0; i < sides; ++i)
            mesh.addVertex(
                {radius * sineOfTurn(double(i) / sides), waterLevel, radius * cosineOfTurn(double(i) / sides)},
                {0, 1, 0});
        return first;
    };
    const int outer = circle(1.1), inner = circle(0.24);
    for (int i = 0; i < sides; ++i) {
        const int next = (i + 1) % sides;
        mesh.addPolygon(water, std::array{Mesh::Corner{outer + i}, Mesh::Corner{outer + next},
                                          Mesh::Corner{inner + next}, Mesh::Corner{inner + i}});
    }
    return mesh;
}

} // namespace

std::unique_ptr<Scene> buildParticlesScene(Engine& engine, const MaterialMode& mode)
{
    auto scene = std::make_unique<Scene>(engine, mode);
    scene->name = "particles";
    const std::vector<Material*> palette = courtMaterials(*scene);
    constexpr std::array<Vector, 3> fires{{{2.3, 0.9, 0}, {-1.15, 0.9, 2}, {-1.15, 0.9, -2}}};

    Mesh floor, ring;
    addBoard(floor, tiled, {{-8, 0, 8}, {16, 0, 0}, {0, 0, -16}, 32, 32, 6, 6});
    addRing(ring, sky, {.radius = 12, .foot = -3, .height = 16});
    scene->addObject(floor, palette).name = "floor";
    scene->addObject(ring, palette).name = "sky";
    scene->addObject(stonework(fires), palette).name = "stonework";
    scene->addObject(surface(), palette).name = "water";

    constexpr int drops = 260, flames = 28;
    for (int i = 0; i < drops; ++i)
        addParticle(*scene, palette, i % 3 == 0 ? spark : drop, 0.19, thrown({spout, waterLevel}, i, drops)).name =
            "drop of water";
    for (const Vector& fire : fires) {
        const Vector mouth = fire + Vector{0, 0.12, 0};
        for (int i = 0; i < flames; ++i)
            addParticle(*scene, palette, i % 2 == 0 ? flame : ember, 0.34, burning(mouth, i, flames)).name = "flame";
        addParticle(*scene, palette, halo, 1.8, standing(movedTo(mouth + Vector{0, 0.3, 0}))).name = "halo";
    }
    scene->contents = std::to_string(scene->polygonCount()) + " polygons, most of them particles";

    scene->camera.target = {0, 1.1, 0};
    scene->camera.distance = 5.6;
    scene->camera.height = 1.2;
    scene->camera.startTurn = 0.03;
    scene->camera.zoom = 1.7;
    scene->camera.nearZ = 0.2;
    scene->camera.farZ = 40;
    scene->light().ambient = 0.14;
    for (const Vector& fire : fires)
        scene->light().lamps.push_back({.place = fire + Vector{0, 0.6, 0}, .reach = 1.6, .strength = {0.9, 0.9, 0.9}});
    return scene;
}

} // namespace sample_host
