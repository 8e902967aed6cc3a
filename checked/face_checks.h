// Looks at the faces of a frame or a pick that pass the host's test: their corners, normals and light.
#pragma once

#include "checked/material_checks.h"
#include "checked/vertex_checks.h"

namespace kardeno::checked {

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
    VertexChecks vertices;
    u32 vertexCount;    // 0: unknown
    bool ninetyDegrees; // the drawn rectangle is as wide and as high

    void lookAtPlane(const SceneFace& face, RenderModeRow row, const Place& place);
    void lookAtLight(const SceneFace& face, const Place& place);
};

} // namespace kardeno::checked
