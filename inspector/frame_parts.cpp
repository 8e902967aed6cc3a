#include "inspector/frame_parts.h"

#include "geometry/depth_sort.h"
#include "host/render_modes.h"
#include "inspector/opened_row.h"
#include "raster/flat_fills.h"
#include "spanbuffer/edge_table.h"

#include <algorithm>
#include <map>

namespace inspector {

namespace {

// The polygons of a list in the order in which the renderer paints them.
std::vector<const StoredPolygon*> inOrderOfPainting(const PolygonList& list, bool sorted)
{
    std::vector<const StoredPolygon*> order;
    if (sorted && list.storedCount > 0 && sortArrays.canHold(list.storedCount)) {
        SortPolygonsByDepth(list);
        for (i32 i = list.storedCount - 1; i >= 0; --i)
            order.push_back(&polygonAt(list, sortArrays.sortOrder.entries[i]));
        return order;
    }
    for (const StoredPolygon* polygon = list.held; polygon != list.end(); polygon = following(polygon))
        order.push_back(polygon);
    if (sorted) std::reverse(order.begin(), order.end());
    return order;
}

i32 listNumber(const PolygonList& list)
{
    return &list == &resolvedPolygons ? 0 : &list == &sortedPolygons ? 1 : 2;
}

i32 rowOf(const SceneMaterial& material)
{
    return i32(&modeOf(material) - RenderModeTable);
}

} // namespace

void FrameParts::addList(const PolygonList& list, const FrameRecord& record)
{
    const i32 number = listNumber(list);
    std::map<u32, i32> faceAt; // by the polygon's place in the list's block
    for (std::size_t i = 0; i < record.faces.size(); ++i)
        if (record.faces[i].list == number) faceAt[record.faces[i].byteOffset] = i32(i);

    const u8* const block = reinterpret_cast<const u8*>(list.held);
    for (const StoredPolygon* polygon : inOrderOfPainting(list, number > 0)) {
        const auto face = faceAt.find(u32(reinterpret_cast<const u8*>(polygon) - block));
        stored_.push_back(polygon);
        polygons_.push_back({.list = number,
                             .row = rowOf(*polygon->material),
                             .face = face == faceAt.end() ? -1 : face->second,
                             .firstSpan = 0,
                             .spanCount = 0,
                             .sortDepth = polygon->maxDepth,
                             .invDepthStepX = polygon->invDepthStepX,
                             .invDepthStepY = polygon->invDepthStepY,
                             .invDepthOrigin = polygon->invDepthOrigin});
    }
}

// The polygons of the late list have no spans: their fillers paint the whole outline, row by row.
void FrameParts::addSpans(i32 place, const FrameBuffer& frame)
{
    PaintedPolygon& polygon = polygons_[std::size_t(place)];
    polygon.firstSpan = i32(spans_.size());
    if (polygon.list == 2) {
        for (const OutlineRow& row : outlineRows(stored(place), frame.width, frame.height))
            spans_.push_back({row.left, row.y, row.right - row.left, place});
    } else {
        for (const Span& span : spansOf(stored(place).state)) spans_.push_back({span.x, span.y, span.length, place});
    }
    polygon.spanCount = i32(spans_.size()) - polygon.firstSpan;
    for (std::size_t i = std::size_t(polygon.firstSpan); i < spans_.size(); ++i) counts_.pixels += spans_[i].length;
}

void FrameParts::takeApart(const FrameRecord& record, const FrameBuffer& frame)
{
    *this = {};
    pitch_ = u32(frame.pitch);
    painted_.resize(frame.pixels.size());
    for (const PolygonList* list : {&resolvedPolygons, &sortedPolygons, &lateSortedPolygons}) addList(*list, record);
    for (std::size_t i = 0; i < stored_.size(); ++i) addSpans(i32(i), frame);
    for (const Span& span : spansOf(BackgroundPolygon)) {
        spans_.push_back({span.x, span.y, span.length, -1});
        ++counts_.backgroundSpans;
    }

    places_.resize(std::size_t(resolvedPolygons.storedCount + sortedPolygons.storedCount));
    for (std::size_t i = 0; i < stored_.size(); ++i)
        if (polygons_[i].list < 2) places_[(stored_[i]->state - firstPolygonState) / sizeof(PolygonState)] = i32(i);

    counts_.spans = i32(spans_.size()) - counts_.backgroundSpans;
    counts_.edges = EdgePool.count;
    counts_.depthComparisons = comparisonsOfFrame(frame.width, frame.height);
}

const std::vector<u16>& FrameParts::paintUpTo(i32 polygonCount, i32 spanCount)
{
    std::fill(painted_.begin(), painted_.end(), u16{0});
    const FillTarget target{painted_.data(), 0, pitch_};
    const i32 total = i32(stored_.size());
    const auto paint = [&](i32 place) {
        PolygonRun run{.next = stored_[std::size_t(place)], .end = following(stored_[std::size_t(place)])};
        const RunFiller filler = RunFillers[rowOf(*run.next->material)];
        if (filler)
            filler(run, target);
        else
            fillPlainly(*run.next, target);
    };
    for (i32 i = 0; i < std::min(polygonCount, total); ++i) paint(i);

    // A part of a polygon is painted by showing its filler fewer spans for a moment.
    if (polygonCount >= total || spanCount <= 0 || polygons_[std::size_t(polygonCount)].list == 2) return painted_;
    PolygonState& state = stateAt(stored(polygonCount).state);
    const u32 all = state.spanCount;
    state.spanCount = std::min(u32(spanCount), all);
    if (state.spanCount > 0) {
        u16& isLast = SpanPool.sorted()[state.firstSpan + state.spanCount - 1].isLast;
        const u16 before = isLast;
        isLast = 1;
        paint(polygonCount);
        isLast = before;
    }
    state.spanCount = all;
    return painted_;
}

FrameParts& frameParts()
{
    static FrameParts parts;
    return parts;
}

} // namespace inspector
