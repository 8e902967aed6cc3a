#include "checked/vertex_checks.h"

#include "checked/numbers.h"

#include <stdlib.h>
#include <string.h>

namespace kardeno::checked {

namespace {

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

ViewSides sidesOf(const RenderView& view)
{
    const ViewProjection& projection = *view.projection;
    const f64 centreX = projection.centreX, centreY = projection.centreY;
    return {.nearZ = view.nearZ,
            .farZ = view.farZ < largestNumber ? view.farZ : largestNumber,
            .scaleX = projection.scaleX,
            .scaleY = projection.scaleY,
            .left = centreX - view.left,
            .right = projection.right - centreX,
            .top = centreY - view.top,
            .bottom = projection.bottom - centreY,
            .slack = 2 + 0.0001 * (magnitude(centreX) + magnitude(centreY))};
}

} // namespace

void VertexChecks::begin(const HostContext& theContext, const RenderView& view, bool newBatch)
{
    context = &theContext;
    sides = sidesOf(view);
    if (newBatch) {
        ++batch;
        objectOfBatch = 0;
    }
    ++objectOfBatch;
}

void VertexChecks::look(i32 index, const Place& place)
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

void VertexChecks::lookAtOutcode(i32 index, const Place& place)
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

} // namespace kardeno::checked
