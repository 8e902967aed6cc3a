#include "sample_host/reading/scene_meshes.h"

#include "sample_host/scenes/own_shapes.h"

namespace sample_host {

namespace {

using Names = std::vector<std::string>;

int materialIn(const JsonEntry& entry, const char* key, const Names& names)
{
    return int(entry.at(key).oneOf(names, "material"));
}

// Two numbers of an entry, or the other two.
std::array<double, 2> twoOr(const JsonEntry& entry, const char* key, std::array<double, 2> absent)
{
    if (!entry.has(key)) return absent;
    const std::vector<JsonEntry> parts = entry.at(key).listOf(2, "a list of two numbers");
    return {parts[0].number(), parts[1].number()};
}

Board boardIn(const JsonEntry& entry)
{
    constexpr int most = 256;
    Board board{entry.at("corner").vector(), entry.at("right").vector(), entry.at("up").vector()};
    board.columns = entry.wholeOr("columns", 1, most, 1);
    board.rows = entry.wholeOr("rows", 1, most, 1);
    const auto repeat = twoOr(entry, "repeat", {1, 1});
    board.repeatRight = repeat[0];
    board.repeatUp = repeat[1];
    if (entry.has("hole")) {
        const std::vector<JsonEntry> parts =
            entry.at("hole").listOf(4, "the first column and row and the last ones, in a list");
        // The file counts from 1, and the last ones belong to the hole.
        board.hole = {parts[0].whole(1, most) - 1, parts[1].whole(1, most) - 1, parts[2].whole(1, most),
                      parts[3].whole(1, most)};
    }
    return board;
}

void addBoardOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "corner", "right", "up", "columns", "rows", "repeat", "hole"});
    addBoard(mesh, materialIn(entry, "material", names), boardIn(entry));
}

void addChequersOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "other material", "corner", "right", "up", "columns", "rows", "repeat", "hole"});
    addChequers(mesh, materialIn(entry, "material", names), materialIn(entry, "other material", names), boardIn(entry));
}

void addBoxOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "middle", "half size"});
    addBox(mesh, materialIn(entry, "material", names), entry.vectorOr("middle", {}), entry.at("half size").vector());
}

void addBallOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "middle", "radius", "slices", "repeat"});
    addBall(mesh, materialIn(entry, "material", names), entry.vectorOr("middle", {}), entry.at("radius").number(),
            entry.wholeOr("slices", 3, 64, 16), entry.wholeOr("repeat", 1, 64, 1));
}

void addColumnOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "foot", "radius", "top radius", "height", "sides", "repeat up", "open"});
    Column column;
    column.foot = entry.vectorOr("foot", {});
    column.radius = column.topRadius = entry.at("radius").number();
    column.topRadius = entry.numberOr("top radius", column.topRadius);
    column.height = entry.at("height").number();
    column.sides = entry.wholeOr("sides", 3, 10, 8);
    column.repeatUp = entry.numberOr("repeat up", 1);
    column.open = entry.flagOr("open", false);
    addColumn(mesh, materialIn(entry, "material", names), column);
}

void addRingOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "radius", "foot", "height", "sides", "repeat around"});
    Ring ring;
    ring.radius = entry.at("radius").number();
    ring.foot = entry.numberOr("foot", 0);
    ring.height = entry.at("height").number();
    ring.sides = entry.wholeOr("sides", 3, 64, ring.sides);
    ring.repeatAround = entry.wholeOr("repeat around", 1, 64, ring.repeatAround);
    addRing(mesh, materialIn(entry, "material", names), ring);
}

void addSpriteOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "size"});
    addSprite(mesh, materialIn(entry, "material", names), entry.at("size").number());
}

// Flat polygons over a list of vertices, all seen from one side.
void addPolygonsOf(Mesh& mesh, const JsonEntry& entry, const Names& names)
{
    entry.mustBeObjectOf({"material", "normal", "vertices", "polygons"});
    const int material = materialIn(entry, "material", names);
    const Vector normal = unit(entry.at("normal").vector());
    const int first = int(mesh.positions.size());
    const std::vector<JsonEntry> vertices = entry.at("vertices").list();
    if (vertices.empty()) return entry.at("vertices").refuse("a list of places");
    for (const JsonEntry& vertex : vertices) mesh.addVertex(vertex.vector(), normal);
    for (const JsonEntry& polygon : entry.at("polygons").list()) {
        const std::vector<JsonEntry> numbers = polygon.list();
        if (numbers.size() < 3 || numbers.size() > 10) return polygon.refuse("a list of three to ten vertices");
        std::vector<Mesh::Corner> corners;
        for (const JsonEntry& number : numbers) corners.push_back({first + number.whole(1, int(vertices.size())) - 1});
        mesh.addPolygon(material, corners);
    }
}

} // namespace

void addShape(Mesh& mesh, const JsonEntry& shape, const Names& names)
{
    const auto [kind, entry] =
        shape.onlyMember({"board", "chequers", "box", "ball", "column", "ring", "sprite", "polygons"});
    if (kind == "board") return addBoardOf(mesh, entry, names);
    if (kind == "chequers") return addChequersOf(mesh, entry, names);
    if (kind == "box") return addBoxOf(mesh, entry, names);
    if (kind == "ball") return addBallOf(mesh, entry, names);
    if (kind == "column") return addColumnOf(mesh, entry, names);
    if (kind == "ring") return addRingOf(mesh, entry, names);
    if (kind == "sprite") return addSpriteOf(mesh, entry, names);
    if (kind == "polygons") addPolygonsOf(mesh, entry, names);
}

} // namespace sample_host
