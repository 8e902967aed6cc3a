#include "sample_host/scenes/robot.h"

#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/own_textures.h"

namespace sample_host {

namespace {

enum RobotMaterial { plated, steel, dark, signal };

// How fine a level's geometry is.
struct Fineness {
    int ballSlices, columnSides;
    Colour signalColour; // of the lamp on the robot's chest, by which one sees the level
};
constexpr Fineness levels[]{{16, 10, {90, 255, 110}}, {8, 6, {255, 220, 60}}, {4, 3, {255, 70, 50}}};

// Surfaces that touch flicker, so parts keep apart from each other.
constexpr double gap = 0.02;

void addTorso(Mesh& mesh, const Fineness& fineness)
{
    addBox(mesh, plated, {0, 0.42, 0}, {0.36, 0.4, 0.2});
    addColumn(mesh, dark, {{0, -0.16, 0}, 0.2, 0.16, fineness.columnSides});
    addBox(mesh, signal, {0, 0.55, 0.23 + gap}, {0.09, 0.09, 0.03});
}

void addHead(Mesh& mesh, const Fineness& fineness)
{
    addColumn(mesh, dark, {{0, 0, 0}, 0.09, 0.08, fineness.columnSides});
    addBall(mesh, steel, {0, 0.08 + gap + 0.24, 0}, 0.24, fineness.ballSlices);
    for (const double x : {-0.1, 0.1}) addBox(mesh, signal, {x, 0.37, 0.245}, {0.035, 0.03, 0.01});
}

// Hangs down from its joint.
void addLimb(Mesh& mesh, int material, double radius, double height, const Fineness& fineness)
{
    addColumn(mesh, material, {{0, -height, 0}, radius, height, fineness.columnSides});
}

void addUpperArm(Mesh& mesh, const Fineness& fineness)
{
    addBall(mesh, dark, {0, 0, 0}, 0.12, fineness.ballSlices);
    addColumn(mesh, steel, {{0, -0.42, 0}, 0.09, 0.42 - 0.12 - gap, fineness.columnSides});
}

void addForearm(Mesh& mesh, const Fineness& fineness)
{
    addLimb(mesh, plated, 0.1, 0.3, fineness);
    addBall(mesh, dark, {0, -0.3 - gap - 0.09, 0}, 0.09, fineness.ballSlices);
}

void addThigh(Mesh& mesh, const Fineness& fineness)
{
    addLimb(mesh, steel, 0.12, 0.4, fineness);
}

void addShin(Mesh& mesh, const Fineness& fineness)
{
    addLimb(mesh, plated, 0.13, 0.34, fineness);
    addBox(mesh, dark, {0, -0.34 - gap - 0.06, 0.07}, {0.13, 0.06, 0.21});
}

// The parts as a list, each behind its parent. A joint is the origin of its part, seen from the parent's.
struct Part {
    const char* name;
    int parent; // -1: this is the group
    Vector joint;
    void (*addShape)(Mesh& mesh, const Fineness& fineness);
    Swing swing; // for a robot that has no lead
};
constexpr double hips = 1.13;
constexpr Vector sideways{1, 0, 0};

// clang-format off
constexpr Part parts[]{
    {"torso",             -1, {0, 0, 0},               addTorso,    {{0, 1, 0}, 0, 0.015, 4, 0.25}},
    {"head",               0, {0, 0.82 + gap, 0},      addHead,     {{0, 1, 0}, 0, 0.07, 2}},
    {"left upper arm",     0, {0.36 + 0.14, 0.68, 0},  addUpperArm, {sideways, 0, 0.09, 4, 0.5}},
    {"left forearm",       2, {0, -0.42 - gap, 0},     addForearm,  {sideways, -0.1, 0.05, 4, 0.5}},
    {"right upper arm",    0, {-0.36 - 0.14, 0.68, 0}, addUpperArm, {sideways, 0, 0.09, 4}},
    {"right forearm",      4, {0, -0.42 - gap, 0},     addForearm,  {sideways, -0.1, 0.05, 4}},
    {"left thigh",         0, {0.19, -0.16 - gap, 0},  addThigh,    {sideways, -0.02, 0.08, 4}},
    {"left shin",          6, {0, -0.4 - gap, 0},      addShin,     {sideways, 0.06, 0.06, 4, 0.75}},
    {"right thigh",        0, {-0.19, -0.16 - gap, 0}, addThigh,    {sideways, -0.02, 0.08, 4, 0.5}},
    {"right shin",         8, {0, -0.4 - gap, 0},      addShin,     {sideways, 0.06, 0.06, 4, 0.25}},
};
// clang-format on

std::vector<Material*> materials(Scene& scene, const Fineness& fineness)
{
    const MaterialRecipe shine{.specular = {255, 255, 255}, .shininess = 60, .specularLevel = 90};
    MaterialRecipe plates = shine, bare = shine, joints = shine, lamp;
    plates.name = "plates";
    plates.image = metal();
    bare.name = "steel";
    bare.diffuse = {210, 126, 60};
    joints.name = "joints";
    joints.diffuse = {74, 78, 96};
    lamp.name = "lamp";
    lamp.diffuse = fineness.signalColour;
    lamp.glows = true;
    return {scene.addMaterial(plates), scene.addMaterial(bare), scene.addMaterial(joints), scene.addMaterial(lamp)};
}

} // namespace

RobotLevels addRobotLevels(Scene& scene)
{
    RobotLevels result{.limits = {5.5, 9.5}};
    for (const Fineness& fineness : levels) {
        const std::vector<Material*> palette = materials(scene, fineness);
        const int before = scene.polygonCount();
        std::vector<Object*> tree;
        for (const Part& part : parts) {
            Mesh mesh;
            part.addShape(mesh, fineness);
            Object* parent = part.parent < 0 ? nullptr : tree[std::size_t(part.parent)];
            tree.push_back(&scene.addLevelGeometry(mesh, palette, parent));
        }
        result.roots.push_back(tree[0]);
        result.polygons.push_back(scene.polygonCount() - before);
    }
    return result;
}

void addRobot(Scene& scene, const RobotLevels& robotLevels, const std::string& name, const Placement& place,
              double lead)
{
    std::vector<Object*> tree;
    for (const Part& part : parts) {
        Swing swing = part.swing;
        swing.lead += lead;
        const bool isGroup = part.parent < 0;
        const Placement joint = isGroup ? place * movedTo({0, hips, 0}) : movedTo(part.joint);
        Object* parent = isGroup ? nullptr : tree[std::size_t(part.parent)];
        Object& object = scene.addObject({}, {}, swinging(joint, swing), parent);
        object.name = name + ", " + part.name;
        if (isGroup) {
            object.becomeGroup();
            object.drawLevels(robotLevels.roots, robotLevels.limits);
        } else
            object.becomePart();
        tree.push_back(&object);
    }
}

} // namespace sample_host
