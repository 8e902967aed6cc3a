// A second renderer, the plainest that draws the same pixels: no templates, no tables of routines, no growing pools, no
// care for speed. It shares nothing with the library but the host's records, and it was written apart from it, so that
// a slip in either shows as a difference between the two. Memory that the host refuses is no part of it.
#pragma once

#include "tests/reference/reference_materials.h"
#include "tests/reference/reference_polygon.h"

namespace kardeno::reference {

class Renderer {
public:
    Materials materials;
    PolygonLists lists; // of the last frame

    void initialise(HostContext* hostContext);
    void render(RenderView* view, u16* frameBuffer, u8 flags);
    SceneObject* pick(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth);

private:
    HostContext* context = nullptr;
};

} // namespace kardeno::reference
