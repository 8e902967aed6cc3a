// The counts of a frame: what became of its faces, and what was made of them. The page and the command `stats` say the
// same numbers, because both have them from here.
#pragma once

#include "sample_host/host/scene.h"

namespace inspector {

class FrameParts;
struct FrameRecord;

struct FrameSummary {
    kardeno::i32 objects;      // whose vertices were prepared
    kardeno::i32 facesTested;  // each of them is one of the next four, or a polygon
    kardeno::i32 facesHidden;  // they show their backs
    kardeno::i32 facesOutside; // of the view
    kardeno::i32 facesOnOneRow;
    kardeno::i32 facesCut; // polygons of faces through which a clip plane goes
    kardeno::i32 polygons; // in the three lists
    kardeno::i32 resolved, sorted, lateSorted;
    kardeno::i32 edges;
    kardeno::i32 spans; // of polygons
    kardeno::i32 backgroundSpans;
    kardeno::i32 pixels; // that polygons write, each as often as it is written
    kardeno::i32 depthComparisons;
};

// Calls visit(name, count) for each of them, in this order.
template <class Visit>
void forEachCount(const FrameSummary& summary, Visit visit)
{
    visit("objects", summary.objects);
    visit("facesTested", summary.facesTested);
    visit("facesHidden", summary.facesHidden);
    visit("facesOutside", summary.facesOutside);
    visit("facesOnOneRow", summary.facesOnOneRow);
    visit("facesCut", summary.facesCut);
    visit("polygons", summary.polygons);
    visit("resolved", summary.resolved);
    visit("sorted", summary.sorted);
    visit("lateSorted", summary.lateSorted);
    visit("edges", summary.edges);
    visit("spans", summary.spans);
    visit("backgroundSpans", summary.backgroundSpans);
    visit("pixels", summary.pixels);
    visit("depthComparisons", summary.depthComparisons);
}

// The counts of a frame that was recorded and taken apart.
FrameSummary summaryOf(const FrameRecord& record, const FrameParts& parts);

// The renderer that is linked with the program, watched while it draws. It keeps the memory that it was given.
const sample_host::RendererTable& watchedRenderer();

// Draws a scene of the watched renderer and counts. The frame is the one that is always drawn.
FrameSummary drawAndCount(sample_host::Scene& scene, sample_host::FrameBuffer& frame, double phase);

} // namespace inspector
