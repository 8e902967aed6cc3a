// An object of the scene: the renderer's record, the geometry that it draws, and the functions that the renderer calls.
#pragma once

#include "sample_host/host/camera.h"
#include "sample_host/host/material.h"
#include "sample_host/host/mesh.h"
#include "sample_host/host/movement.h"

#include <string>

namespace sample_host {

// A lamp that shines to all sides, fading with the distance.
struct Lamp {
    Vector place{0, 10, 0};
    double reach = 100;       // where it has half its strength
    Vector strength{1, 1, 1}; // of its red, green and blue
};

struct Light {
    double ambient = 0.3; // the part of the full light that is everywhere
    std::vector<Lamp> lamps;
};

struct FrameCounts;

// What the objects of a scene look at while a frame is drawn.
struct Surroundings {
    Engine& engine;
    Light light{};
    double phase = 0;              // of all movements: from 0 to 1 and round again
    int onlyLevel = -1;            // of detail, drawn at every distance; -1: by the distance
    FrameCounts* counts = nullptr; // of the renderer's calls; null when nobody counts them
};

// The renderer gets pointers to its records and hands them back in its calls. The host's types are derived from the
// records, so a cast from the record to the host's type leads to the host's own fields.
struct Face : SceneFace {
    bool facesEye = false;
};

class Object : public SceneObject {
public:
    // Takes room for its vertices and announces its faces to the renderer. `palette` holds the materials that the mesh
    // names by number. Throws when there is no memory.
    Object(Surroundings& surroundings, const Mesh& mesh, std::span<Material* const> palette, Movement movement);
    ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    // Hangs a child under this object.
    void addChild(Object& child);
    // A group is drawn with its parts when any of them is seen. Parts are children of the group, or of other parts.
    void becomeGroup() { isGroup_ = 1; }
    void becomePart() { partOfGroup = 1; }
    // Turns to the eye wherever that is, as a particle does.
    void becomeSprite() { isSprite_ = true; }

    // Gives the object levels of detail. As long as it is no farther from the eye than limits[i] it draws the geometry
    // of levels[i], and its parts draw that of the level's parts. Beyond all limits the last level is drawn, so there
    // is one level more than there are limits. Objects may share levels: what is prepared for one object is drawn
    // before the next one is prepared.
    void drawLevels(std::span<Object* const> levels, std::span<const double> limits);

    // The outline of a face in camera space. The face is one of the geometry that was last prepared for this object.
    std::vector<CameraVertex> outline(i32 face) const;

    // The same face's material, and the name of its group in the model; null and empty if there is none.
    const Material* materialOf(i32 face) const;
    std::string groupOf(i32 face) const;

    std::string name; // for people

private:
    // What the renderer calls, in this order. `drawn` is the object whose geometry is drawn: this one, or one of a
    // level.
    void updatePlace();
    void placeInView(const View& view);
    Object& selectedLevel();
    void testBounds(const Object& drawn, const View& view);
    void lightVertices(const Object& drawn);
    void prepareVertices(Object& drawn, const View& view);

    Vector lightAt(const Vector& place, const Vector& normal) const;
    void prepareFace(Face& face);
    void findBounds();
    void fillRecords(const Mesh& mesh, std::span<Material* const> palette);
    void releaseFaces();

    struct Callbacks;
    static const FaceTest* faceTestRecord();
    static ObjectClass* classRecord();

    Surroundings& surroundings_;
    Movement movement_;
    Object* parent_ = nullptr;
    Object* lastChild_ = nullptr;
    i32 isGroup_ = 0;
    bool isSprite_ = false;
    std::vector<Object*> levels_;
    std::vector<double> levelLimits_;

    i32 firstVertex_ = 0; // of its part of the engine's arrays
    std::vector<Vector> positions_, normals_;
    std::vector<Colour> colours_;
    std::vector<std::string> groups_;
    std::vector<int> groupOfFaces_;
    Vector centre_{};
    double radius_ = 0;

    std::vector<Face> faceRecords_;
    std::vector<SceneFace*> facePointers_;
    std::vector<i32> cornerVertices_;
    std::vector<TexCoord> cornerTexCoords_;
    std::vector<MaterialNode> materialNodes_;

    Placement inScene_{};
    Placement inView_{};
    const Object* lastDrawn_ = nullptr;
};

} // namespace sample_host
