// The frame that was drawn last, taken apart: its polygons in the order in which they are painted, their spans, and the
// frame painted only up to one of them. All of it lies in the renderer's lists and pools until the next frame.
#pragma once

#include "geometry/polygon_lists.h"
#include "inspector/frame_record.h"
#include "sample_host/host/scene.h"

namespace inspector {

// What scripts read of a polygon; all fields take four bytes.
struct PaintedPolygon {
    i32 list; // 0: resolved, 1: sorted, 2: late sorted
    i32 row;  // of the render-mode table
    i32 face; // its number in the record; -1: it is not there
    i32 firstSpan, spanCount;
    i32 sortDepth; // of the two sorted lists
    f32 invDepthStepX, invDepthStepY, invDepthOrigin;
};

struct PaintedSpan {
    i32 x, y, length;
    i32 polygon; // its place in the order of painting; -1: the background
};

struct PartCounts {
    i32 edges, spans, backgroundSpans;
    i32 pixels; // that polygons write, each as often as it is written
    i32 depthComparisons;
};

class FrameParts {
public:
    // Takes apart what the renderer's lists hold now.
    void takeApart(const FrameRecord& record, const FrameBuffer& frame);

    const std::vector<PaintedPolygon>& polygons() const { return polygons_; }
    const std::vector<PaintedSpan>& spans() const { return spans_; }
    const PartCounts& counts() const { return counts_; }
    const kardeno::StoredPolygon& stored(i32 polygon) const { return *stored_[std::size_t(polygon)]; }
    // The place of a polygon in the order of painting, from its place in the two resolved lists one after the other.
    i32 placeOf(i32 resolvedIndex) const { return places_[std::size_t(resolvedIndex)]; }

    // Paints the first polygons, and then the first spans of the next one, over black. Returns the pixels, whose rows
    // are as long as those of the frame.
    const std::vector<u16>& paintUpTo(i32 polygonCount, i32 spanCount);

private:
    void addList(const kardeno::PolygonList& list, const FrameRecord& record);
    void addSpans(i32 polygon, const FrameBuffer& frame);

    std::vector<PaintedPolygon> polygons_;
    std::vector<const kardeno::StoredPolygon*> stored_;
    std::vector<i32> places_;
    std::vector<PaintedSpan> spans_;
    PartCounts counts_{};
    std::vector<u16> painted_;
    u32 pitch_ = 0;
};

FrameParts& frameParts();

} // namespace inspector
