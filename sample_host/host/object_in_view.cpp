// What the renderer calls of an object while it draws or picks.
#include "sample_host/host/frame_counts.h"
#include "sample_host/host/level_of_detail.h"
#include "sample_host/host/object.h"

#include <algorithm>

namespace sample_host {

// The functions of the renderer's table. None may throw: there is no way back through the renderer.
struct Object::Callbacks {
    static Object& of(SceneObject* record) { return *static_cast<Object*>(record); }
    static const View& of(RenderView* record) { return *static_cast<View*>(record); }

    static void update(SceneObject* object) noexcept { of(object).updatePlace(); }
    static void transform(SceneObject* object, RenderView* view) noexcept { of(object).placeInView(of(view)); }
    static SceneObject* selectLevel(SceneObject* object, RenderView*) noexcept { return &of(object).selectedLevel(); }
    static void testBounds(SceneObject* drawn, SceneObject* object, RenderView* view) noexcept
    {
        of(object).testBounds(of(drawn), of(view));
    }
    static void light(SceneObject* drawn, SceneObject* object, RenderView*) noexcept
    {
        of(object).lightVertices(of(drawn));
    }
    static void prepareVertices(SceneObject* drawn, SceneObject* object, RenderView* view) noexcept
    {
        of(object).prepareVertices(of(drawn), of(view));
    }
    static i32 facesEye(SceneFace* face) noexcept { return static_cast<Face*>(face)->facesEye; }

    static constexpr ObjectFunctions table{{}, update, transform, selectLevel, testBounds, light, {}, prepareVertices};
    static constexpr FaceTest faceTest{facesEye};
};

namespace {

// A bit for each plane that the vertex is inside of.
u32 outcode(const CameraVertex& vertex, const View& view)
{
    const f64 x = vertex.x, y = vertex.y, z = vertex.z;
    u32 inside = 0;
    if (vertex.z >= view.nearZ) inside |= outcodeNear;
    if (vertex.z <= view.farZ) inside |= outcodeFar;
    if (inside != (outcodeNear | outcodeFar)) {
        // Such a vertex is not projected: its edges are first cut at the near or the far plane. Its bits say on which
        // side of each side plane it lies, behind the eye as well. Together with the bits of the edge's other end they
        // tell whether the edge crosses that plane.
        if (x >= -z) inside |= outcodeLeft;
        if (x <= z) inside |= outcodeRight;
        if (y <= z) inside |= outcodeTop;
        if (y >= -z) inside |= outcodeBottom;
        return inside;
    }
    // The point on the screen, computed exactly as the renderer computes it. The renderer's clippers trust these bits
    // and work on the screen, so a corner must never lie on the other side of an edge than its bit says.
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

} // namespace

const FaceTest* Object::faceTestRecord()
{
    return &Callbacks::faceTest;
}

// One class record serves all objects. Nobody writes to it, although the renderer's type for it is not const.
ObjectClass* Object::classRecord()
{
    static ObjectClass record{{}, &Callbacks::table};
    return &record;
}

// Parents are called before their children, so the parent's place is already that of this frame.
void Object::updatePlace()
{
    const Placement own = movement_(surroundings_.phase);
    inScene_ = parent_ ? parent_->inScene_ * own : own;
    if (surroundings_.counts) ++surroundings_.counts->objects;
}

void Object::placeInView(const View& view)
{
    inView_ = view.eye().fromScene * inScene_;
    if (!isSprite_) return;
    // A sprite has only its place and its size from the movement. Its X and Y are those of the picture.
    const double size = length(inScene_.axisX);
    inView_.axisX = {size * view.stretchX(), 0, 0};
    inView_.axisY = {0, size * view.stretchY(), 0};
    inView_.axisZ = {0, 0, -size};
}

Object& Object::selectedLevel()
{
    if (levels_.empty()) return *this;
    const int only = surroundings_.onlyLevel;
    if (only >= 0) return *levels_[std::min(std::size_t(only), levels_.size() - 1)];
    return *levels_[levelAt(inView_.origin.z, levelLimits_)];
}

// Seen unless the sphere around what is drawn lies wholly beyond one of the six planes of the view's pyramid.
void Object::testBounds(const Object& drawn, const View& view)
{
    const Vector centre = inView_.point(drawn.centre_);
    const double radius = drawn.radius_ * length(inScene_.axisX);
    // In camera space, which is stretched, a side plane at 45 degrees is reached from this far away.
    const double reachX = radius * std::sqrt(view.stretchX() * view.stretchX() + 1);
    const double reachY = radius * std::sqrt(view.stretchY() * view.stretchY() + 1);
    visible = drawn.faceCount > 0 && centre.z + radius >= view.nearZ && centre.z - radius <= view.farZ
              && std::abs(centre.x) - centre.z <= reachX && std::abs(centre.y) - centre.z <= reachY;
}

// Red, green and blue at a place in the scene: 1 is the full light.
Vector Object::lightAt(const Vector& place, const Vector& normal) const
{
    const Light& light = surroundings_.light;
    Vector sum{light.ambient, light.ambient, light.ambient};
    for (const Lamp& lamp : light.lamps) {
        const Vector toLamp = lamp.place - place;
        const double distance = length(toLamp);
        const double facing = std::max(0.0, dot(normal, unit(toLamp)));
        const double fading = 1 / (1 + distance * distance / (lamp.reach * lamp.reach));
        sum = sum + lamp.strength * ((1 - light.ambient) * facing * fading);
    }
    return {std::min(sum.x, 1.0), std::min(sum.y, 1.0), std::min(sum.z, 1.0)};
}

void Object::lightVertices(const Object& drawn)
{
    if (surroundings_.counts) surroundings_.counts->verticesLit += int(drawn.positions_.size());
    VertexShade* shades = surroundings_.engine.vertexShades.data() + drawn.firstVertex_;
    for (std::size_t i = 0; i < drawn.positions_.size(); ++i) {
        const Vector light = lightAt(inScene_.point(drawn.positions_[i]), inScene_.direction(drawn.normals_[i])) * 255;
        shades[i] = {f32(light.x), f32(light.y), f32(light.z), f32((light.x + light.y + light.z) / 3)};
        if (drawn.colours_.empty()) continue;
        // Materials without vertex colours take the mean, and only the others the single colours.
        const Colour colour = drawn.colours_[i];
        shades[i].red = f32(light.x * colour.red / 255);
        shades[i].green = f32(light.y * colour.green / 255);
        shades[i].blue = f32(light.z * colour.blue / 255);
    }
}

void Object::prepareVertices(Object& drawn, const View& view)
{
    lastDrawn_ = &drawn;
    if (surroundings_.counts) {
        ++surroundings_.counts->objectsDrawn;
        surroundings_.counts->verticesPrepared += int(drawn.positions_.size());
        surroundings_.counts->facesTested += drawn.faceCount;
    }
    CameraVertex* vertices = surroundings_.engine.cameraVertices.data() + drawn.firstVertex_;
    u32* outcodes = surroundings_.engine.vertexOutcodes.data() + drawn.firstVertex_;
    for (std::size_t i = 0; i < drawn.positions_.size(); ++i) {
        const Vector p = inView_.point(drawn.positions_[i]);
        vertices[i] = {f32(p.x), f32(p.y), f32(p.z)};
        outcodes[i] = outcode(vertices[i], view);
    }
    for (Face& face : drawn.faceRecords_) prepareFace(face);
}

// The face's plane in camera space, which is stretched, and whether the face shows its front. Seen from in front, its
// outline runs counter-clockwise. A face whose plane goes through the eye shows neither side, and the renderer could
// not compute its depth.
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

std::vector<CameraVertex> Object::outline(i32 face) const
{
    std::vector<CameraVertex> corners;
    if (!lastDrawn_ || face < 0 || face >= lastDrawn_->faceCount) return corners;
    const SceneFace& record = *lastDrawn_->faces[face];
    for (i32 i = 0; i < record.vertexCount; ++i) {
        const i32 own = record.vertexIndices[i] - lastDrawn_->firstVertex_;
        const Vector p = inView_.point(lastDrawn_->positions_[std::size_t(own)]);
        corners.push_back({f32(p.x), f32(p.y), f32(p.z)});
    }
    return corners;
}

const Material* Object::materialOf(i32 face) const
{
    if (!lastDrawn_ || face < 0 || face >= lastDrawn_->faceCount) return nullptr;
    return static_cast<const Material*>(lastDrawn_->faces[face]->material);
}

std::string Object::groupOf(i32 face) const
{
    if (!lastDrawn_ || face < 0 || face >= lastDrawn_->faceCount) return "";
    const int group = lastDrawn_->groupOfFaces_[std::size_t(face)];
    return group < 0 ? "" : lastDrawn_->groups_[std::size_t(group)];
}

} // namespace sample_host
