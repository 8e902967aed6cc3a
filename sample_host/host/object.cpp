// The building of an object. What the renderer calls while it draws is in object_in_view.cpp.
#include "sample_host/host/object.h"

#include "sample_host/host/failure.h"

#include <algorithm>

namespace sample_host {

namespace {

// A colour that looks random. The renderer gives each face such a colour by the C library's `rand`, which differs from
// system to system. The host writes its own over it, because the pictures of all builds are to be equal.
u16 scatteredColour(u32 face)
{
    u32 bits = (face + 1) * 0x9e3779b1u;
    bits = (bits ^ bits >> 15) * 0x2c1b3c6du;
    return u16(bits >> 13);
}

} // namespace

Object::Object(Surroundings& surroundings, const Mesh& mesh, std::span<Material* const> palette, Movement movement)
    : SceneObject{}, surroundings_(surroundings), movement_(std::move(movement)), positions_(mesh.positions),
      normals_(mesh.normals), colours_(mesh.colours), groups_(mesh.groups), faceRecords_(mesh.polygons.size())
{
    Engine& engine = surroundings_.engine;
    firstVertex_ = engine.addVertices(i32(positions_.size()));
    findBounds();
    fillRecords(mesh, palette);
    for (std::size_t i = 0; i < faceRecords_.size(); ++i) {
        if (!engine.renderer.addFace(&faceRecords_[i])) {
            releaseFaces();
            failForMemory();
        }
        *faceRecords_[i].faceColour = scatteredColour(u32(i));
    }
    engine.renderer.addObject(this);
}

Object::~Object()
{
    surroundings_.engine.renderer.releaseObject(this);
    releaseFaces();
}

// The sphere around the box around all vertices.
void Object::findBounds()
{
    if (positions_.empty()) return;
    Vector low = positions_[0], high = positions_[0];
    for (const Vector& p : positions_) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    centre_ = (low + high) * 0.5;
    for (const Vector& p : positions_) radius_ = std::max(radius_, length(p - centre_));
}

void Object::fillRecords(const Mesh& mesh, std::span<Material* const> palette)
{
    // The lists are filled before any record points into them.
    for (const Mesh::Corner& corner : mesh.corners) {
        cornerVertices_.push_back(firstVertex_ + corner.vertex);
        cornerTexCoords_.push_back({f32(corner.u), f32(corner.v)});
    }
    for (std::size_t i = 0; i < mesh.polygons.size(); ++i) {
        const Mesh::Polygon& polygon = mesh.polygons[i];
        Face& face = faceRecords_[i];
        face.vertexCount = polygon.cornerCount;
        face.vertexIndices = &cornerVertices_[polygon.firstCorner];
        face.texCoords = &cornerTexCoords_[polygon.firstCorner];
        face.material = palette[std::size_t(polygon.material)];
        face.faceTest = faceTestRecord();
        facePointers_.push_back(&face);
        groupOfFaces_.push_back(polygon.group);
    }
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const auto usesIt = [&](const Mesh::Polygon& polygon) { return std::size_t(polygon.material) == i; };
        if (std::any_of(mesh.polygons.begin(), mesh.polygons.end(), usesIt))
            materialNodes_.push_back({palette[i], nullptr});
    }
    for (std::size_t i = 1; i < materialNodes_.size(); ++i) materialNodes_[i - 1].next = &materialNodes_[i];

    faceCount = i32(facePointers_.size());
    faces = facePointers_.data();
    materials = materialNodes_.empty() ? nullptr : materialNodes_.data();
    groupFlag = &isGroup_;
    objectClass = classRecord();
}

// Some faces may not have been added yet. They have no colour that could be released, and the renderer accepts that.
void Object::releaseFaces()
{
    for (Face& face : faceRecords_) surroundings_.engine.renderer.releaseFace(&face);
}

void Object::addChild(Object& child)
{
    child.parent_ = this;
    (lastChild_ ? lastChild_->nextSibling : firstChild) = &child;
    lastChild_ = &child;
}

void Object::drawLevels(std::span<Object* const> levels, std::span<const double> limits)
{
    levels_.assign(levels.begin(), levels.end());
    levelLimits_.assign(limits.begin(), limits.end());
}

} // namespace sample_host
