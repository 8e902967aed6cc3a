// Looks at the faces of a frame or a pick that pass the host's test: their vertices, outcodes, normals and outlines.
#pragma once

#include "checked/material_checks.h"

namespace kardeno::checked {

// The sides of a view, as distances from the centre of the projection.
struct ViewSides {
    f64 nearZ, farZ;
    f64 scaleX, scaleY;
    f64 left, right, top, bottom;
    f64 slack; // in pixels: a vertex that is no farther than this from a side may be told to be on either side of it
    bool ninetyDegrees;
};
ViewSides sidesOf(const RenderView& view);

class FaceChecks {
public:
    // Begins with the faces of an object. `newBatch` is set unless its vertices were prepared together with those of
    // the object before it, as those of a group and its parts are.
    void begin(const HostContext& context, const RenderView& view, bool newBatch);

    // Whether the corners of the face can be found.
    bool hasCorners(const SceneFace& face, const Place& place);
    // Whether the face can be emitted by the row of its material.
    bool mayBeEmitted(const SceneFace& face, RenderModeRow row, const Place& place);

    i32 fronts = 0; // faces of the frame that are seen from their front
    i32 backs = 0;  // and from their back
    i32 backsOfObject = 0;

private:
    const HostContext* context;
    ViewSides sides;
    u32 vertexCount; // 0: unknown

    void lookAtVertex(i32 index, const Place& place);
    void lookAtOutcode(i32 index, const Place& place);
    void lookAtPlane(const SceneFace& face, RenderModeRow row, const Place& place);
    void lookAtLight(const SceneFace& face, const Place& place);
};

} // namespace kardeno::checked
