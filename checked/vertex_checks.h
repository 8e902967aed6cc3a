// Looks at the vertices of the faces of an object: their coordinates, outcodes and stamps.
#pragma once

#include "checked/sentences.h"

namespace kardeno::checked {

// The sides of a view, as distances from the centre of the projection.
struct ViewSides {
    f64 nearZ, farZ;
    f64 scaleX, scaleY;
    f64 left, right, top, bottom;
    f64 slack; // in pixels: a vertex that is no farther than this from a side may be told to be on either side of it
};

class VertexChecks {
public:
    // Begins with the vertices of an object. `newBatch` is set unless they were prepared together with those of the
    // object before it, as those of a group and its parts are.
    void begin(const HostContext& context, const RenderView& view, bool newBatch);

    // Looks at a vertex, unless it was looked at for a face of this object before.
    void look(i32 index, const Place& place);

private:
    const HostContext* context;
    ViewSides sides;

    void lookAtOutcode(i32 index, const Place& place);
};

} // namespace kardeno::checked
