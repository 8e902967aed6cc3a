#include "checked/face_checks.h"

#include "checked/face_outline.h"
#include "checked/numbers.h"
#include "checked/registry.h"
#include "checked/view_checks.h"
#include "geometry/face_steps.h"

namespace kardeno::checked {

void FaceChecks::begin(const HostContext& theContext, const RenderView& view, bool newBatch)
{
    context = &theContext;
    vertices.begin(theContext, view, newBatch);
    vertexCount = sizesOf(theContext).vertexCount;
    ninetyDegrees = isNinetyDegrees(view);
    backsOfObject = 0;
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

    for (i32 i = 0; i < face.vertexCount; ++i) vertices.look(face.vertexIndices[i], place);
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
    if (!ninetyDegrees && (outcodes.all & depthPlanes) != depthPlanes) {
        Place ofView = place;
        ofView.about = place.view;
        tell(Mistake::projectionAngle, ofView);
    }

    const FaceOutline outline(*context, face);
    if (!isFinite(outline.normalSquare)) return;
    const Vector normal = {face.normalX, face.normalY, face.normalZ};
    const f64 square = dot(normal, normal);
    if (row != rowUnlitTexturedShade10) {
        if (!isFinite(square) || square == 0) {
            tell(Mistake::normalZero, place, "%g, %g, %g", normal.x, normal.y, normal.z);
        } else if (dot(normal, outline.first) == 0) {
            tell(Mistake::normalThroughEye, place, "%g, %g, %g", normal.x, normal.y, normal.z);
        } else if (!needsOf(row).billboard && outline.hasNormal()) {
            // The square of the cosine of 5 degrees.
            constexpr f64 leastCosine = 0.9924;
            const f64 product = dot(normal, outline.normal);
            if (product * product < leastCosine * square * outline.normalSquare)
                tell(Mistake::normalWrong, place, "%g, %g, %g; the corners have %g, %g, %g", normal.x, normal.y,
                     normal.z, outline.normal.x, outline.normal.y, outline.normal.z);
        }
    }
    if (needsOf(row).billboard || !outline.hasNormal()) return;
    if (outline.count > 3) {
        if (isTold(Level::hint) && !outline.isFlat()) tell(Mistake::notFlat, place);
        if (!outline.isConvex()) tell(Mistake::notConvex, place);
    }
    // Seen from the front, the normal of the corners points away from the eye. Faces that are nearly edge-on are not
    // counted.
    const f64 towards = dot(outline.normal, outline.first);
    const f64 slack = 0.0001 * 0.0001 * outline.normalSquare * dot(outline.first, outline.first);
    if (towards * towards <= slack) return;
    if (towards > 0)
        ++fronts;
    else
        ++backs, ++backsOfObject;
}

} // namespace kardeno::checked
