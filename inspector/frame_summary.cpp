#include "inspector/frame_summary.h"

#include "inspector/frame_parts.h"
#include "sample_host/host/host_memory.h"
#include "sample_host/host/renderer_linked.h"

namespace inspector {

FrameSummary summaryOf(const FrameRecord& record, const FrameParts& parts)
{
    i32 fates[4]{}, cut = 0, lists[3]{};
    for (const FaceRecord& face : record.faces) {
        ++fates[int(face.fate)];
        if (face.fate == FaceFate::recorded && face.cut) ++cut;
        if (face.list >= 0) ++lists[face.list];
    }
    const PartCounts& counts = parts.counts();
    return {.objects = record.objectsPrepared,
            .facesTested = i32(record.faces.size()),
            .facesHidden = fates[int(FaceFate::hidden)],
            .facesOutside = fates[int(FaceFate::outside)],
            .facesOnOneRow = fates[int(FaceFate::oneRow)],
            .facesCut = cut,
            .polygons = i32(parts.polygons().size()),
            .resolved = lists[0],
            .sorted = lists[1],
            .lateSorted = lists[2],
            .edges = counts.edges,
            .spans = counts.spans,
            .backgroundSpans = counts.backgroundSpans,
            .pixels = counts.pixels,
            .depthComparisons = counts.depthComparisons};
}

const RendererTable& watchedRenderer()
{
    static const HostMemory memory;
    static const RendererTable renderer = recordingRenderer(linkedRenderer());
    return renderer;
}

FrameSummary drawAndCount(Scene& scene, FrameBuffer& frame, double phase)
{
    FrameRecord record;
    startRecord(record, -1);
    scene.draw(frame, phase);
    endRecord();
    frameParts().takeApart(record, frame);
    return summaryOf(record, frameParts());
}

} // namespace inspector
