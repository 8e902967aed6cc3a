// Random scenes for both renderers: everything that a host may do, small enough to draw thousands of them.
#pragma once

#include "tests/reference/random_materials.h"

#include <deque>

namespace kardeno::tests {

enum class Theme {
    everything,
    oneRow,     // one row of the render-mode table on every face
    trees,      // groups, parts, levels of detail
    seeThrough, // stacks of sorted polygons, equal depths among them
    slivers,    // narrow posts, repeated corners, outlines that cross themselves
    billboards,
    clipped,     // solids around the near and the far plane and across the sides
    loosePlanes, // outcodes of clipped corners that do not fit the view, so that polygons reach beyond it
    tallAndWide, // the most rows that there may be, and long rows
    crowds,      // so many faces, edges and spans that every list grows in the middle of a frame
    meshes,      // nets of many thousands of faces of a few pixels each
    layers,      // dozens of polygons over one another everywhere
    fullRows,    // thousands of edges that start on one row
    crossings    // edges of which very many cross between two rows
};

struct SceneChoice {
    Theme theme = Theme::everything;
    reference::Row row = reference::Row::unlitPlain; // of Theme::oneRow
    i32 crowd = 0;                                   // how much there is of the last four themes
};

// One object's share of the vertex arrays. They are filled when the host prepares the object, as in an engine, so that
// objects may take turns in the same place.
struct Geometry {
    i32 firstVertex = 0;
    bool sharesPlace = false;
    std::vector<CameraVertex> vertices;
    std::vector<VertexShade> shades;
};

class RandomScene {
public:
    RandomScene(u32 seed, const SceneChoice& sceneChoice, reference::Renderer& renderer);
    RandomScene(const RandomScene&) = delete;
    RandomScene& operator=(const RandomScene&) = delete;

    // Moves everything, changes the view and some of the materials.
    void nextFrame();

    RandomNumbers random;
    reference::Renderer& model;
    TestHost host;
    TestScene scene;
    i32 frameWidth = 0, frameHeight = 0;
    std::deque<TestObject*> objects;
    i32 faceCount = 0;
    bool lastPickHit = false;

private:
    const SceneChoice choice;
    std::deque<Geometry> geometries;
    std::vector<TestMaterial*> materials;
    CameraVertex moved = {0, 0, 0};
    i32 privateVertices; // where the next place of its own begins
    i32 outcodeRule = 0;

    void chooseSize();
    void chooseView();
    void chooseMaterials();
    void addTree(TestObject* parent, i32 depth);
    TestObject& addObject(TestObject* parent, bool inTree);
    void giveShape(TestObject& object, bool inTree);
    void addShape(TestObject& object, Geometry& geometry);
    void reserveVertices(Geometry& geometry);
    void prepare(const Geometry& geometry);
    void light(const Geometry& geometry);
    u32 outcodeOf(const CameraVertex& vertex) const;

    // The shapes, in random_shapes.cpp.
    void addScreenPolygon(TestObject& object, Geometry& geometry);
    void addRectangles(TestObject& object, Geometry& geometry);
    void addPosts(TestObject& object, Geometry& geometry);
    void addPlane(TestObject& object, Geometry& geometry);
    void addSlants(TestObject& object, Geometry& geometry);
    void addGrid(TestObject& object, Geometry& geometry);
    void addBox(TestObject& object, Geometry& geometry);
    void addSolidPolygon(TestObject& object, Geometry& geometry);
    void addSpoiltPolygon(TestObject& object, Geometry& geometry);
    void addMesh(TestObject& object, Geometry& geometry);
    void addLayers(TestObject& object, Geometry& geometry);
    void addFullRow(TestObject& object, Geometry& geometry);
    void addCrossings(TestObject& object, Geometry& geometry);
    i32 addVertex(Geometry& geometry, f64 x, f64 y, f64 z);
    i32 addScreenVertex(Geometry& geometry, f64 screenX, f64 screenY, f64 z);
    void addFace(TestObject& object, const Geometry& geometry, std::vector<i32> corners);
    f64 randomDepth();
    f64 snapped(f64 coordinate);
};

} // namespace kardeno::tests
