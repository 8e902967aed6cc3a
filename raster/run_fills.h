// The fillers of runs of polygons. The frame driver draws the lists with them: a run filler draws all polygons up to
// the next material, so that what follows from the material is found once, and reads them in the form in which they are
// stored. It draws the same pixels as the plain filler that stands in the row of the render-mode table.
#pragma once

#include "host/host_context.h"
#include "raster/lane_spans.h"
#include "raster/perspective_subdivision.h"
#include "raster/span_routines.h"

#include <type_traits>

namespace kardeno {

// Polygons that lie one after another in a list. A run filler moves `next` behind the last polygon that it has drawn.
struct PolygonRun {
    const StoredPolygon* next;
    const StoredPolygon* end;
};

// Where fillers draw.
struct FillTarget {
    u16* frameBuffer; // pixel (x, y) is frameBuffer[y * pitch + x]
    u32 argument;     // the frame's argument for its fillers, which none of ours reads
    u32 pitch;

    u16* pixelsOf(const Span& span) const { return pixelAt(frameBuffer, pitch, span.x, span.y); }
};

using RunFiller = void (*)(PolygonRun& run, const FillTarget& target);

// The run filler of each row of the render-mode table; null where the plain filler draws every polygon.
extern RunFiller RunFillers[renderModeRowCount];

// Draws a polygon with the plain filler of its material.
void fillPlainly(const StoredPolygon& polygon, const FillTarget& target);

// Calls draw(polygon, spans) for the visible polygons of the run, up to the next material.
template <class Draw>
inline void forEachInRun(PolygonRun& run, Draw draw)
{
    const SceneMaterial* const material = run.next->material;
    do {
        const StoredPolygon& polygon = *run.next;
        run.next = following(run.next);
        const SpanList spans = spansOf(polygon.state);
        if (!spans.empty()) draw(polygon, spans);
    } while (run.next != run.end && run.next->material == material);
}

// What draws spans of less than 8 pixels in registers, for a filler that has nothing of the kind. The others stand in
// short_runs.h.
struct NoShortRuns {
    explicit NoShortRuns(const SpanGradients&) {}
};

// Draws the spans of a polygon, the short ones by `shortRuns` if `hasShortRuns`, all others with an inner routine. A
// polygon in another vertex format, which a host can bring about by giving a material another state in the middle of a
// frame, is drawn plainly.
template <class Format, class ShortRuns>
inline void drawSpans(const StoredPolygon& polygon, const SpanList& spans, const FillTarget& target,
                      SpanRoutine routine, SpanGradients& gradients, const ShortRuns& shortRuns, bool hasShortRuns)
{
    const i32 top = polygon.format == Format::id ? walkSides<Format>(polygon) : -1;
    if (top < 0) return fillPlainly(polygon, target);
    LaneSpans<Format> values(top);
    for (const Span& span : spans) {
        values.goTo(span);
        if constexpr (!std::is_same_v<ShortRuns, NoShortRuns>) {
            if (span.length < blockLength && hasShortRuns) {
                u16* const pixels = target.pixelsOf(span);
                if (span.length == 1)
                    shortRuns.one(values.start, values.shade, pixels);
                else
                    shortRuns.few(values.start, values.step, values.shade, values.shadeStep, span.length, pixels);
                continue;
            }
        }
        values.give(gradients);
        gradients.count = span.length;
        routine(&gradients, target.pixelsOf(span));
    }
}

template <class Format, class ShortRuns>
inline void fillTexturedRun(PolygonRun& run, const FillTarget& target, const TexturedSpanRoutines& routines)
{
    const SceneMaterial& material = *run.next->material;
    SpanGradients gradients;
    gradients.texture = material.textureMap->image;
    gradients.ramp = material.renderPrivate->shadeRamp;
    gradients.key = routines.keyOf(*material.textureMap);
    const SpanRoutine routine = routines.choose(*gradients.texture, fillerFormat(*hostContext));
    const ShortRuns shortRuns(gradients);
    const bool hasShortRuns = gradients.texture->is256x256 != 0;
    forEachInRun(run, [&](const StoredPolygon& polygon, const SpanList& spans) {
        drawSpans<Format>(polygon, spans, target, routine, gradients, shortRuns, hasShortRuns);
    });
}

template <class Format, class ShortRuns>
inline void fillPlainRun(PolygonRun& run, const FillTarget& target, const PlainSpanRoutines& routines)
{
    SpanGradients gradients;
    gradients.ramp = run.next->material->renderPrivate->shadeRamp;
    const SpanRoutine routine = routines[fillerFormat(*hostContext)];
    const ShortRuns shortRuns(gradients);
    forEachInRun(run, [&](const StoredPolygon& polygon, const SpanList& spans) {
        drawSpans<Format>(polygon, spans, target, routine, gradients, shortRuns, true);
    });
}

} // namespace kardeno
