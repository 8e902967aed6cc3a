#include "checked/face_checks.h"

#include "checked/numbers.h"
#include "checked/registry.h"
#include "checked/view_checks.h"
#include "geometry/face_steps.h"

#include <stdlib.h>
#include <string.h>

namespace kardeno::checked {

namespace {

struct Vector {
    f64 x, y, z;
};

Vector operator-(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

f64 dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

f64 square(const Vector& a)
{
    return dot(a, a);
}

// When each vertex was looked at, so that one that many faces share is looked at once for each object. Vertices beyond
// the limit are looked at for every face.
struct Visit {
    u32 batch, object;
};
constexpr i32 mostVisits = 1 << 22;
constinit Visit* visits = nullptr;
constinit i32 visitRoom = 0;
constinit u32 batch = 0;
constinit u32 objectOfBatch = 0;

Visit* visitOf(i32 index)
{
    if (index < visitRoom) return visits + index;
    if (index >= mostVisits) return nullptr;
    i32 room = visitRoom ? visitRoom : 1024;
    while (room <= index) room *= 2;
    Visit* const larger = static_cast<Visit*>(realloc(visits, static_cast<size_t>(room) * sizeof(Visit)));
    if (!larger) return nullptr;
    memset(larger + visitRoom, 0, static_cast<size_t>(room - visitRoom) * sizeof(Visit));
    visits = larger;
    visitRoom = room;
    return visits + index;
}

// What can be said for certain of where a vertex is: bits of planes that it clearly lies inside of, and outside of.
struct Certain {
    u32 inside = 0, outside = 0;

    // `distance` is positive inside.
    void add(u32 bit, f64 distance, f64 slack)
    {
        if (distance > slack) inside |= bit;
        if (distance < -slack) outside |= bit;
    }
};

Certain placeOf(const CameraVertex& vertex, const ViewSides& sides)
{
    constexpr f64 share = 0.0001; // of the numbers that a distance is the difference of
    const f64 x = vertex.x, y = vertex.y, z = vertex.z;
    Certain certain;
    certain.add(outcodeNear, z - sides.nearZ, share * (magnitude(z) + magnitude(sides.nearZ)));
    certain.add(outcodeFar, sides.farZ - z, share * (magnitude(z) + magnitude(sides.farZ)));
    constexpr u32 depthPlanes = outcodeNear | outcodeFar;
    if ((certain.inside & depthPlanes) == depthPlanes) {
        const f64 acrossX = sides.scaleX * x, acrossY = sides.scaleY * y;
        const f64 slackX = sides.slack * z + share * magnitude(acrossX);
        const f64 slackY = sides.slack * z + share * magnitude(acrossY);
        certain.add(outcodeLeft, sides.left * z + acrossX, slackX);
        certain.add(outcodeRight, sides.right * z - acrossX, slackX);
        certain.add(outcodeTop, sides.top * z - acrossY, slackY);
        certain.add(outcodeBottom, sides.bottom * z + acrossY, slackY);
    } else if (certain.outside & depthPlanes) {
        constexpr f64 wideShare = 0.01;
        const f64 slackX = wideShare * (magnitude(x) + magnitude(z));
        const f64 slackY = wideShare * (magnitude(y) + magnitude(z));
        certain.add(outcodeLeft, x + z, slackX);
        certain.add(outcodeRight, z - x, slackX);
        certain.add(outcodeTop, z - y, slackY);
        certain.add(outcodeBottom, y + z, slackY);
    }
    return certain;
}

// The corners of a face in camera space, seen from the first one.
struct Corners {
    Vector first;
    Vector offsets[16];
    i32 count;
    f64 largest;   // the largest coordinate of a corner
    f64 longest;   // square of the longest offset
    Vector normal; // of the area that the outline encloses
    f64 normalSquare;

    Corners(const HostContext& context, const SceneFace& face) : count(face.vertexCount)
    {
        largest = longest = 0;
        normal = {0, 0, 0};
        for (i32 i = 0; i < count; ++i) {
            const CameraVertex& vertex = context.cameraVertices[face.vertexIndices[i]];
            const Vector corner = {vertex.x, vertex.y, vertex.z};
            if (i == 0) first = corner;
            offsets[i] = corner - first;
            const f64 values[] = {corner.x, corner.y, corner.z};
            for (const f64 value : values) {
                if (magnitude(value) > largest) largest = magnitude(value);
            }
            if (square(offsets[i]) > longest) longest = square(offsets[i]);
            if (i < 2) continue;
            const Vector part = cross(offsets[i - 1], offsets[i]);
            normal = {normal.x + part.x, normal.y + part.y, normal.z + part.z};
        }
        normalSquare = square(normal);
    }

    // Whether the outline is so large that the rounding of its corners turns the normal by less than a degree.
    bool hasNormal() const
    {
        const f64 rounding = 6e-6 * largest; // 100 times that of a coordinate
        return normalSquare > rounding * rounding * longest && longest > 0;
    }

    bool areFlat() const
    {
        constexpr f64 share = 0.02; // of the longest offset
        for (i32 i = 2; i < count; ++i) {
            const f64 height = dot(normal, offsets[i]);
            if (height * height > share * share * normalSquare * longest) return false;
        }
        return true;
    }

    bool areConvex() const
    {
        constexpr f64 sine = 0.02;
        for (i32 i = 0; i < count; ++i) {
            const Vector& corner = offsets[(i + 1) % count];
            const Vector before = corner - offsets[i];
            const Vector after = offsets[(i + 2) % count] - corner;
            const f64 turn = dot(cross(before, after), normal);
            if (turn >= 0) continue;
            const f64 shortest = 0.0004 * 0.0004 * longest; // sides too short for a direction
            const f64 beforeSquare = square(before), afterSquare = square(after);
            if (beforeSquare < shortest || afterSquare < shortest) continue;
            if (turn * turn > sine * sine * beforeSquare * afterSquare * normalSquare) return false;
        }
        return true;
    }
};

} // namespace

ViewSides sidesOf(const RenderView& view)
{
    const ViewProjection& projection = *view.projection;
    const f64 centreX = projection.centreX, centreY = projection.centreY;
    return {.nearZ = view.nearZ,
            .farZ = view.farZ,
            .scaleX = projection.scaleX,
            .scaleY = projection.scaleY,
            .left = centreX - view.left,
            .right = projection.right - centreX,
            .top = centreY - view.top,
            .bottom = projection.bottom - centreY,
            .slack = 2 + 0.0001 * (magnitude(centreX) + magnitude(centreY)),
            .ninetyDegrees = isNinetyDegrees(view)};
}

void FaceChecks::begin(const HostContext& theContext, const RenderView& view, bool newBatch)
{
    context = &theContext;
    sides = sidesOf(view);
    vertexCount = sizesOf(theContext).vertexCount;
    backsOfObject = 0;
    if (newBatch) {
        ++batch;
        objectOfBatch = 0;
    }
    ++objectOfBatch;
}

bool FaceChecks::hasCorners(const SceneFace& face, const Place& place)
{
    if (face.vertexCount < fewestFaceCorners || face.vertexCount > mostFaceCorners) {
        tell(Mistake::cornerCount, place, "%d", face.vertexCount);
        if (face.vertexCount < minCorners || face.vertexCount > maxCorners) return false;
    }
    if (!face.vertexIndices) {
        tell(Mistake::missingIndices, place);
        return false;
    }
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const i32 index = face.vertexIndices[i];
        if (index >= 0 && (vertexCount == 0 || static_cast<u32>(index) < vertexCount)) continue;
        if (vertexCount)
            tell(Mistake::indexOutside, place, "corner %d: index %d of %u vertices", i, index, vertexCount);
        else
            tell(Mistake::indexOutside, place, "corner %d: index %d", i, index);
        return false;
    }
    return true;
}

bool FaceChecks::mayBeEmitted(const SceneFace& face, RenderModeRow row, const Place& place)
{
    const RowNeeds& needs = needsOf(row);
    if (needs.billboard && face.vertexCount != 4) tell(Mistake::billboardCorners, place, "%d", face.vertexCount);
    if (needs.texelBits && !face.texCoords) {
        tell(Mistake::missingTexCoords, place);
        return false;
    }
    if (needs.shades && !context->vertexShades) {
        Place ofContext = place;
        ofContext.about = context;
        tell(Mistake::missingArray, ofContext, "vertexShades");
        return false;
    }
    switch (standingOf(face)) {
    case Standing::good: break;
    case Standing::unknown: tell(Mistake::faceNotAdded, place); return false;
    case Standing::released: tell(Mistake::faceReleased, place); return false;
    case Standing::foreign: tell(Mistake::faceColourReplaced, place); return false;
    }

    for (i32 i = 0; i < face.vertexCount; ++i) lookAtVertex(face.vertexIndices[i], place);
    if (needs.texelBits) {
        const TextureImage& image = *face.material->textureMap->image;
        for (i32 i = 0; i < face.vertexCount; ++i) {
            const TexCoord& coord = face.texCoords[i];
            const f64 u = coord.u, v = coord.v;
            if (!isFinite(u) || !isFinite(v))
                tell(Mistake::texCoordNotFinite, place, "corner %d: %g, %g", i, u, v);
            else if ((u < -0.001 || u > 1.001) && !image.is256x256)
                tell(Mistake::texCoordBeyond, at(place, *face.material), "corner %d: %g", i, u);
        }
    }
    if (needs.light) lookAtLight(face, place);
    lookAtPlane(face, row, place);
    return true;
}

void FaceChecks::lookAtVertex(i32 index, const Place& place)
{
    if (Visit* const visit = visitOf(index)) {
        if (visit->batch == batch) {
            if (visit->object == objectOfBatch) return;
            tell(Mistake::sharedVertex, place, "index %d", index);
        }
        *visit = {batch, objectOfBatch};
    }
    const CameraVertex& vertex = context->cameraVertices[index];
    if (!isFinite(vertex.x) || !isFinite(vertex.y) || !isFinite(vertex.z)) {
        tell(Mistake::vertexNotFinite, place, "index %d: %g, %g, %g", index, static_cast<f64>(vertex.x),
             static_cast<f64>(vertex.y), static_cast<f64>(vertex.z));
        return;
    }
    lookAtOutcode(index, place);
    const u32 stamp = context->vertexStamps[index];
    if (static_cast<i32>(stamp - context->projectionStamp) > 0)
        tell(Mistake::stampAhead, place, "index %d: %u, projectionStamp %u", index, stamp, context->projectionStamp);
}

void FaceChecks::lookAtOutcode(i32 index, const Place& place)
{
    const CameraVertex& vertex = context->cameraVertices[index];
    const u32 outcode = context->vertexOutcodes[index];
    const Certain certain = placeOf(vertex, sides);
    if (!((outcode & certain.outside) | (~outcode & certain.inside))) return;
    const bool isZero = (outcode & outcodeAll) == 0 && certain.inside == outcodeAll;
    const bool isReversed =
        (outcode & outcodeAll) == certain.outside && (certain.inside | certain.outside) == outcodeAll;
    tell(isZero       ? Mistake::outcodeZero
         : isReversed ? Mistake::outcodeReversed
                      : Mistake::outcodeWrong,
         place, "index %d at %g, %g, %g: 0x%02x, clearly inside 0x%02x and outside 0x%02x", index,
         static_cast<f64>(vertex.x), static_cast<f64>(vertex.y), static_cast<f64>(vertex.z), outcode, certain.inside,
         certain.outside);
}

void FaceChecks::lookAtLight(const SceneFace& face, const Place& place)
{
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const f64 intensity = context->vertexShades[face.vertexIndices[i]].intensity;
        if (intensity >= 0 && intensity < 256) continue;
        tell(Mistake::intensityRange, place, "index %d: %g", face.vertexIndices[i], intensity);
        return;
    }
}

void FaceChecks::lookAtPlane(const SceneFace& face, RenderModeRow row, const Place& place)
{
    const FoldedOutcodes outcodes = foldedOutcodes(*context, face);
    if ((outcodes.any & outcodeAll) != outcodeAll) return; // nothing of it is seen

    constexpr u32 depthPlanes = outcodeNear | outcodeFar;
    if (!sides.ninetyDegrees && (outcodes.all & depthPlanes) != depthPlanes) {
        Place ofView = place;
        ofView.about = place.view;
        tell(Mistake::projectionAngle, ofView);
    }

    const Corners corners(*context, face);
    if (!isFinite(corners.normalSquare)) return;
    const Vector normal = {face.normalX, face.normalY, face.normalZ};
    const f64 square = dot(normal, normal);
    if (row != rowUnlitTexturedShade10) {
        if (!isFinite(square) || square == 0) {
            tell(Mistake::normalZero, place, "%g, %g, %g", normal.x, normal.y, normal.z);
        } else if (dot(normal, corners.first) == 0) {
            tell(Mistake::normalThroughEye, place, "%g, %g, %g", normal.x, normal.y, normal.z);
        } else if (!needsOf(row).billboard && corners.hasNormal()) {
            // The square of the cosine of 5 degrees.
            constexpr f64 leastCosine = 0.9924;
            const f64 product = dot(normal, corners.normal);
            if (product * product < leastCosine * square * corners.normalSquare)
                tell(Mistake::normalWrong, place, "%g, %g, %g; the corners have %g, %g, %g", normal.x, normal.y,
                     normal.z, corners.normal.x, corners.normal.y, corners.normal.z);
        }
    }
    if (needsOf(row).billboard || !corners.hasNormal()) return;
    if (corners.count > 3) {
        if (isTold(Level::hint) && !corners.areFlat()) tell(Mistake::notFlat, place);
        if (!corners.areConvex()) tell(Mistake::notConvex, place);
    }
    // Seen from the front, the normal of the corners points away from the eye. Faces that are nearly edge-on are not
    // counted.
    const f64 towards = dot(corners.normal, corners.first);
    const f64 slack = 0.0001 * 0.0001 * corners.normalSquare * dot(corners.first, corners.first);
    if (towards * towards <= slack) return;
    if (towards > 0)
        ++fronts;
    else
        ++backs, ++backsOfObject;
}

} // namespace kardeno::checked
