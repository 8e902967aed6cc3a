#include "sample_host/object.h"

#include <algorithm>

namespace sample_host {

// The functions of the renderer's table. None may throw: there is no way back through the renderer.
struct Object::Callbacks {
    static Object& of(SceneObject* record) { return *static_cast<Object*>(record); }
    static const View& of(RenderView* record) { return *static_cast<View*>(record); }

    static void update(SceneObject* object) noexcept { of(object).updatePlace(); }
    static void transform(SceneObject* object, RenderView* view) noexcept { of(object).placeInView(of(view)); }
    static SceneObject* selectLevel(SceneObject* object, RenderView*) noexcept { return object; }
    // `drawn` is what selectLevel returned: here always the object itself.
    static void testBounds(SceneObject*, SceneObject* object, RenderView* view) noexcept
    {
        of(object).testBounds(of(view));
    }
    static void light(SceneObject*, SceneObject* object, RenderView*) noexcept { of(object).lightVertices(); }
    static void prepareVertices(SceneObject*, SceneObject* object, RenderView* view) noexcept
    {
        of(object).prepareVertices(of(view));
    }
    static i32 facesEye(SceneFace* face) noexcept { return static_cast<Face*>(face)->facesEye; }

    static constexpr ObjectFunctions table{{}, update, transform, selectLevel, testBounds, light, {}, prepareVertices};
    static constexpr FaceTest faceTest{facesEye};
};

// One class record serves all objects. It is never written after its start, although the record does not say so.
ObjectClass* Object::classRecord()
{
    static ObjectClass record{{}, &Callbacks::table};
    return &record;
}

Object::Object(Surroundings& surroundings, const Mesh& mesh, std::span<Material* const> palette,
               const Movement& movement)
    : SceneObject{}, surroundings_(surroundings), movement_(movement), positions_(mesh.positions),
      normals_(mesh.normals), faceRecords_(mesh.polygons.size())
{
    Engine& engine = surroundings_.engine;
    firstVertex_ = engine.addVertices(i32(positions_.size()));

    // The sphere around the box around all vertices.
    if (!positions_.empty()) {
        Vector low = positions_[0], high = positions_[0];
        for (const Vector& p : positions_) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
        centre_ = (low + high) * 0.5;
        for (const Vector& p : positions_) radius_ = std::max(radius_, length(p - centre_));
    }

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
        face.faceTest = &Callbacks::faceTest;
        facePointers_.push_back(&face);
    }
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const auto usesIt = [&](const Mesh::Polygon& polygon) { return std::size_t(polygon.material) == i; };
        if (std::ranges::any_of(mesh.polygons, usesIt)) materialNodes_.push_back({palette[i], nullptr});
    }
    for (std::size_t i = 1; i < materialNodes_.size(); ++i) materialNodes_[i - 1].next = &materialNodes_[i];

    faceCount = i32(facePointers_.size());
    faces = facePointers_.data();
    materials = materialNodes_.empty() ? nullptr : materialNodes_.data();
    groupFlag = &isGroup_;
    objectClass = classRecord();

    for (Face& face : faceRecords_) {
        if (!engine.library.addFace(&face)) {
            releaseFaces();
            throw std::bad_alloc();
        }
    }
    engine.library.addObject(this);
}

Object::~Object()
{
    surroundings_.engine.library.releaseObject(this);
    releaseFaces();
}

// A face that was never added has no colour block yet, which the renderer accepts.
void Object::releaseFaces()
{
    for (Face& face : faceRecords_) surroundings_.engine.library.releaseFace(&face);
}

void Object::addChild(Object& child)
{
    child.parent_ = this;
    SceneObject** end = &firstChild;
    while (*end) end = &(*end)->nextSibling;
    *end = &child;
}

// Parents are called before their children, so the parent's place is already that of this frame.
void Object::updatePlace()
{
    const Placement own = movement_.place * turned(movement_.axis, movement_.turns * surroundings_.phase);
    inScene_ = parent_ ? parent_->inScene_ * own : own;
}

void Object::placeInView(const View& view)
{
    inView_ = view.eye().fromScene * inScene_;
}

// Seen unless the sphere around the object lies wholly beyond one of the six planes of the view's pyramid.
void Object::testBounds(const View& view)
{
    const Vector centre = inView_.point(centre_);
    // Camera space is stretched, the sphere is not: distances to the side planes are measured unstretched.
    const double reachX = radius_ * std::sqrt(view.stretchX() * view.stretchX() + 1);
    const double reachY = radius_ * std::sqrt(view.stretchY() * view.stretchY() + 1);
    visible = faceCount > 0 && centre.z + radius_ >= view.nearZ && centre.z - radius_ <= view.farZ
              && std::abs(centre.x) - centre.z <= reachX && std::abs(centre.y) - centre.z <= reachY;
}

void Object::lightVertices()
{
    const Lamp& lamp = surroundings_.lamp;
    VertexShade* shades = surroundings_.engine.vertexShades.data() + firstVertex_;
    for (std::size_t i = 0; i < positions_.size(); ++i) {
        const Vector toLamp = lamp.place - inScene_.point(positions_[i]);
        const double distance = length(toLamp);
        const double facing = std::max(0.0, dot(inScene_.direction(normals_[i]), unit(toLamp)));
        const double fading = 1 / (1 + distance * distance / (lamp.reach * lamp.reach));
        const double light = lamp.ambient + (1 - lamp.ambient) * facing * fading;
        const f32 intensity = f32(255 * std::min(light, 1.0));
        shades[i] = {intensity, intensity, intensity, intensity};
    }
}

void Object::prepareVertices(const View& view)
{
    CameraVertex* vertices = surroundings_.engine.cameraVertices.data() + firstVertex_;
    u32* outcodes = surroundings_.engine.vertexOutcodes.data() + firstVertex_;
    for (std::size_t i = 0; i < positions_.size(); ++i) {
        const Vector p = inView_.point(positions_[i]);
        vertices[i] = {f32(p.x), f32(p.y), f32(p.z)};
        outcodes[i] = outcode(vertices[i], view);
    }
    for (Face& face : faceRecords_) prepareFace(face);
}

// A bit for each plane that the vertex is inside of.
u32 Object::outcode(const CameraVertex& vertex, const View& view) const
{
    const f64 x = vertex.x, y = vertex.y, z = vertex.z;
    u32 inside = 0;
    if (vertex.z >= view.nearZ) inside |= outcodeNear;
    if (vertex.z <= view.farZ) inside |= outcodeFar;
    if (inside != (outcodeNear | outcodeFar)) {
        // Such a vertex is never projected as it is. What counts is the plane, behind the eye as well: with the bits of
        // both its ends an edge then tells right whether the part of it that is seen crosses the plane.
        if (x >= -z) inside |= outcodeLeft;
        if (x <= z) inside |= outcodeRight;
        if (y <= z) inside |= outcodeTop;
        if (y >= -z) inside |= outcodeBottom;
        return inside;
    }
    // The point on the screen exactly as the renderer computes it, so that its clippers, which go by these bits but
    // work on the screen, never find a corner on the other side than its bit says.
    const ViewProjection& projection = *view.projection;
    const f32 inverse = f32(1 / z);
    const f32 screenX = f32(projection.scaleX * x * inverse + projection.centreX);
    const f32 screenY = f32(projection.centreY - y * projection.scaleY * inverse);
    if (screenX >= view.left) inside |= outcodeLeft;
    if (screenX <= projection.right) inside |= outcodeRight;
    if (screenY >= view.top) inside |= outcodeTop;
    if (screenY <= projection.bottom) inside |= outcodeBottom;
    return inside;
}

// The face's plane in camera space, stretched as that is, and whether the face shows its front: its outline is then
// counter-clockwise on the screen. A plane through the eye has no front, and no depth that could be computed.
void Object::prepareFace(Face& face)
{
    const CameraVertex* vertices = surroundings_.engine.cameraVertices.data();
    const auto corner = [&](i32 i) {
        const CameraVertex& vertex = vertices[face.vertexIndices[i]];
        return Vector{vertex.x, vertex.y, vertex.z};
    };
    const Vector first = corner(0);
    Vector normal{};
    for (i32 i = 1; i + 1 < face.vertexCount; ++i) normal = normal + cross(corner(i) - first, corner(i + 1) - first);
    face.normalX = f32(normal.x);
    face.normalY = f32(normal.y);
    face.normalZ = f32(normal.z);
    face.facesEye = dot({face.normalX, face.normalY, face.normalZ}, first) > 0;
}

} // namespace sample_host
