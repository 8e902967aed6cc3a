#include "tests/reference/reference_renderer.h"

#include "tests/reference/reference_emission.h"
#include "tests/reference/reference_fillers.h"
#include "tests/reference/reference_picking.h"
#include "tests/reference/reference_resolver.h"
#include "tests/reference/reference_walk.h"

#include <cmath>

namespace kardeno::reference {

namespace {

bool isDrawable(const RenderView& view)
{
    const f32 right = view.projection->right, bottom = view.projection->bottom;
    for (const f32 edge : {view.left, view.top, right, bottom}) {
        if (!std::isfinite(edge)) return false;
    }
    return view.top >= 0 && bottom <= 4096 && view.left >= -32768 && right <= 32767;
}

} // namespace

void Renderer::initialise(HostContext* hostContext)
{
    context = hostContext;
    materials.initialise(hostContext->bitsPerPixel);
}

void Renderer::render(RenderView* view, u16* frameBuffer, u8 flags)
{
    if (!view->camera) return;
    view->camera->functions->prepare(view->camera, view);
    if (!isDrawable(*view)) return;
    lists = {};

    Walk walk = {view, context, &materials, true, [&](SceneObject* drawn, SceneObject*) {
                     for (i32 i = 0; i < drawn->faceCount; ++i) {
                         SceneFace& face = *drawn->faces[i];
                         if (face.faceTest->test(&face))
                             emit(*view, face, materials.of(face.material).row, *context, lists);
                     }
                 }};
    walk.roots();

    const std::vector<Span> uncovered = resolveRows(*view, lists.resolved, lists.sorted);
    if (flags & 1) {
        for (const Span& span : uncovered) {
            for (i32 x = span.x; x < span.x + span.length; ++x)
                frameBuffer[static_cast<std::ptrdiff_t>(span.y) * view->pitch + x] = 0;
        }
    }
    const auto draw = [&](const Polygon& polygon) {
        fill(polygon, materials, *view, context->bitsPerPixel, frameBuffer);
    };
    for (const Polygon& polygon : lists.resolved) draw(polygon);
    for (const size_t index : farthestFirst(lists.sorted)) draw(lists.sorted[index]);
    for (const size_t index : farthestFirst(lists.lateSorted)) draw(lists.lateSorted[index]);
}

SceneObject* Renderer::pick(RenderView* view, f32 x, f32 y, i32* faceIndex, f32* depth)
{
    if (!view->camera) return nullptr;
    view->camera->functions->prepare(view->camera, view);
    *depth = view->farZ;
    *faceIndex = 0;
    SceneObject* nearest = nullptr;
    Walk walk = {view, context, &materials, false, [&](SceneObject* drawn, SceneObject* owner) {
                     for (i32 i = 0; i < drawn->faceCount; ++i) {
                         SceneFace& face = *drawn->faces[i];
                         if (!face.faceTest->test(&face)) continue;
                         const std::optional<f32> hit = depthUnderPoint(*view, face, x, y, *context);
                         if (!hit || !(*hit < *depth)) continue;
                         *depth = *hit;
                         *faceIndex = i;
                         nearest = owner;
                     }
                 }};
    walk.roots();
    return nearest;
}

} // namespace kardeno::reference
