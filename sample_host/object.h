// An object of the scene: the renderer's record, the geometry that it draws, and the functions that the renderer calls.
#pragma once

#include "sample_host/camera.h"
#include "sample_host/material.h"
#include "sample_host/mesh.h"

namespace sample_host {

// A lamp that shines to all sides, fading with the distance.
struct Lamp {
    Vector place{0, 10, 0};
    double reach = 100;   // where it has half its strength
    double ambient = 0.3; // the part of the full light that is everywhere
};

// What the objects of a scene look at while a frame is drawn.
struct Surroundings {
    Engine& engine;
    Lamp lamp{};
    double phase = 0; // of all movements: from 0 to 1 and round again
};

// How an object stands in its parent, or in the scene when it has none, and how it turns there.
struct Movement {
    Placement place{};
    Vector axis{0, 1, 0};
    double turns = 0; // around the axis while the phase goes from 0 to 1
};

// The renderer gets pointers to the records and hands them back in its calls; the host's own fields stand behind the
// record, and a cast from the record to the host's type finds them.
struct Face : SceneFace {
    bool facesEye = false;
};

class Object : public SceneObject {
public:
    // Takes room for its vertices and announces its faces to the renderer. `palette` holds the materials that the mesh
    // names by number. Throws when there is no memory.
    Object(Surroundings& surroundings, const Mesh& mesh, std::span<Material* const> palette, const Movement& movement);
    ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    // Hangs a child under this object.
    void addChild(Object& child);
    // A group is drawn with its parts when any of them is seen. Parts are children of the group, or of other parts.
    void becomeGroup() { isGroup_ = 1; }
    void becomePart() { partOfGroup = 1; }

private:
    // What the renderer calls, in this order.
    void updatePlace();
    void placeInView(const View& view);
    void testBounds(const View& view);
    void lightVertices();
    void prepareVertices(const View& view);

    u32 outcode(const CameraVertex& vertex, const View& view) const;
    void prepareFace(Face& face);
    void releaseFaces();

    struct Callbacks;
    static ObjectClass* classRecord();

    Surroundings& surroundings_;
    Movement movement_;
    Object* parent_ = nullptr;
    i32 isGroup_ = 0;

    i32 firstVertex_ = 0; // of its part of the engine's arrays
    std::vector<Vector> positions_, normals_;
    Vector centre_{};
    double radius_ = 0;

    std::vector<Face> faceRecords_;
    std::vector<SceneFace*> facePointers_;
    std::vector<i32> cornerVertices_;
    std::vector<TexCoord> cornerTexCoords_;
    std::vector<MaterialNode> materialNodes_;

    Placement inScene_{};
    Placement inView_{};
};

} // namespace sample_host
