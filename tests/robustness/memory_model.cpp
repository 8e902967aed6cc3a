#include "tests/robustness/memory_model.h"

#include "geometry/polygon_lists.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"

#include <algorithm>

namespace kardeno::tests {

namespace {

constexpr i32 listStep = 512;
constexpr i32 poolStep = 4096;

} // namespace

void MemoryModel::complain(const std::string& what)
{
    if (complaint.empty()) complaint = what;
}

const void* MemoryModel::expectRealloc(const char* of, const void* block, i32 records, u32 size)
{
    if (nextCall >= calls->size()) {
        complain(std::string("no further call, but realloc was due for ") + of);
        return nullptr;
    }
    const ServiceCall& call = (*calls)[nextCall++];
    const u32 bytes = static_cast<u32>(records) * size;
    if (call.kind != ServiceCall::realloc || call.block != block || call.bytes != bytes) {
        complain("call " + std::to_string(nextCall) + " is not the realloc to " + std::to_string(bytes)
                 + " bytes that was due for " + of + ", but kind " + std::to_string(call.kind) + " to "
                 + std::to_string(call.bytes));
    }
    return call.result;
}

void MemoryModel::expectFree(const void* block)
{
    const bool freed =
        nextCall < calls->size() && (*calls)[nextCall].kind == ServiceCall::free && (*calls)[nextCall].block == block;
    if (!freed) complain("a sort array that was just obtained was not given back");
    ++nextCall;
}

// All three or none. What was obtained when another was refused goes back to the host, but the stored pointers stay; an
// array that is gone starts anew from a null block.
bool MemoryModel::growSortArrays()
{
    sortCapacity += listStep;
    const void* blocks[3];
    for (size_t i = 0; i < 3; ++i)
        blocks[i] = expectRealloc("a sort array", givenBack[i] ? nullptr : sortArrays[i], sortCapacity, 4);

    const bool all = blocks[0] && blocks[1] && blocks[2];
    for (size_t i = 0; i < 3; ++i) {
        if (all) sortArrays[i] = blocks[i];
        if (!all && blocks[i]) expectFree(blocks[i]);
        if (blocks[i]) givenBack[i] = !all;
    }
    if (!all) sortCapacity -= listStep;
    return all;
}

bool MemoryModel::reserve(ModelList& list)
{
    const i32 count = static_cast<i32>(list.faces.size());
    if (list.capacity <= count) {
        list.capacity += listStep;
        const void* const block = expectRealloc("a list", list.stored, list.capacity, listRecordBytes);
        if (block) {
            list.real = block;
            list.room = list.capacity;
        }
        // A list whose sort arrays are refused keeps its raised capacity and its stored pointer.
        if (sortCapacity <= count && !growSortArrays()) return false;
        if (!block) {
            list.capacity -= listStep;
            return false;
        }
        list.stored = block;
    }
    return list.stored && list.stored == list.real && count < list.room;
}

// Every side asks for room, the level ones too. A growth goes through all sides again.
bool MemoryModel::fileEdges(const GridScene& grid)
{
    std::vector<i32> order = resolved.faces;
    order.insert(order.end(), sorted.faces.begin(), sorted.faces.end());
    i32 count = 0;
    for (size_t i = 0; i < order.size();) {
        const i32 down = grid.faces[static_cast<size_t>(order[i])].sidesDown();
        bool grown = false;
        for (i32 side = 0; side < 2 * down + 2 && !grown; ++side) {
            if (count >= edges.capacity) {
                edges.capacity += poolStep;
                const void* const block =
                    expectRealloc("the edge pool", edges.real, edges.capacity, edgePoolRecordBytes);
                if (!block) {
                    edges.capacity -= poolStep;
                    return false;
                }
                edges.real = block;
                grown = true;
                continue;
            }
            const bool level = side == down || side == 2 * down + 1;
            if (!level) ++count;
        }
        i = grown ? 0 : i + 1;
        if (grown) count = 0;
    }
    return true;
}

// How many of the runs become spans.
i32 MemoryModel::storedRuns(i32 runs, bool& refused)
{
    while (runs > spans.capacity) {
        const i32 capacity = spans.capacity + poolStep;
        const void* const block = expectRealloc("the span pool", spans.real, capacity, spanPoolRecordBytes);
        refused = !block;
        if (refused) return spans.capacity;
        spans.real = block;
        spans.capacity = capacity;
    }
    return runs;
}

bool MemoryModel::canSort(const ModelList& list) const
{
    return !givenBack[0] && !givenBack[1] && !givenBack[2] && sortCapacity >= static_cast<i32>(list.faces.size());
}

void MemoryModel::paint(const GridScene& grid, const std::vector<GridRun>& runs)
{
    const i32 width = grid.frame.width;
    const auto paintRun = [&](const GridRun& run, u16 colour) {
        for (i32 x = run.x; x < run.xEnd; ++x) picture[static_cast<size_t>(run.y * width + x)] = colour;
    };
    const auto faceOf = [&](i32 index) -> const GridFace& { return grid.faces[static_cast<size_t>(index)]; };

    std::vector<std::vector<GridRun>> ofFace(grid.faces.size());
    for (const GridRun& run : runs) {
        if (run.face < 0)
            paintRun(run, 0);
        else if (faceOf(run.face).list == GridList::resolved)
            paintRun(run, GridScene::resolvedColour);
        else
            ofFace[static_cast<size_t>(run.face)].push_back(run);
    }

    // From the last record to the first; of sorted ones the deepest is the last.
    std::vector<i32> order = sorted.faces;
    if (canSort(sorted)) {
        std::stable_sort(order.begin(), order.end(), [&](i32 a, i32 b) { return faceOf(a).depth < faceOf(b).depth; });
    }
    for (size_t i = order.size(); i-- > 0;) {
        const u16 colour = faceOf(order[i]).depth == 2 ? GridScene::nearColour : GridScene::farColour;
        for (const GridRun& run : ofFace[static_cast<size_t>(order[i])]) paintRun(run, colour);
    }

    for (const i32 index : late.faces) {
        u16& pixel = picture[static_cast<size_t>(faceOf(index).y * width + faceOf(index).x)];
        pixel = static_cast<u16>(pixel + GridScene::lateColour);
    }
}

void MemoryModel::compareRecords(bool spansRefused)
{
    const auto compareList = [this](const char* name, const ModelList& model, const PolygonList& list) {
        if (model.stored != list.records || model.capacity != list.capacity)
            complain(std::string("what is stored of a list is not as the rules leave it: ") + name);
    };
    compareList("resolved", resolved, resolvedPolygons);
    compareList("sorted", sorted, sortedPolygons);
    compareList("late", late, lateSortedPolygons);

    const SortArray* const arrays[] = {&kardeno::sortArrays.sortOrder, &kardeno::sortArrays.sortKeys,
                                       &kardeno::sortArrays.sortScratch};
    for (size_t i = 0; i < 3; ++i) {
        if (arrays[i]->entries != sortArrays[i]) complain("a sort array's pointer is not as the rules leave it");
    }
    if (kardeno::sortArrays.capacity != sortCapacity)
        complain("the sort arrays' capacity is not as the rules leave it");
    if (EdgePool.edges != edges.real || EdgePool.capacity != edges.capacity)
        complain("what is stored of the edge pool is not as the rules leave it");

    // A refused span pool keeps the raised capacity, and its base moves back by a step's bytes.
    const uintptr_t base =
        reinterpret_cast<uintptr_t>(spans.real) - (spansRefused ? poolStep * spanPoolRecordBytes : 0u);
    if (reinterpret_cast<uintptr_t>(SpanPool.spans) != base
        || SpanPool.capacity != spans.capacity + (spansRefused ? poolStep : 0))
        complain("what is stored of the span pool is not as the rules leave it");
}

void MemoryModel::follow(const GridScene& grid, i32 count, const std::vector<ServiceCall>& ofThisFrame)
{
    complaint.clear();
    calls = &ofThisFrame;
    nextCall = 0;
    const i32 width = grid.frame.width;
    const i32 height = grid.frame.height;
    picture.assign(static_cast<size_t>(width * height), GridScene::emptyColour);

    for (ModelList* list : {&resolved, &sorted, &late}) list->faces.clear();
    for (i32 i = 0; i < count; ++i) {
        const GridList which = grid.faces[static_cast<size_t>(i)].list;
        ModelList& list = which == GridList::resolved ? resolved : which == GridList::sorted ? sorted : late;
        if (reserve(list)) list.faces.push_back(i);
    }

    bool spansRefused = false;
    const bool drawn = fileEdges(grid);
    if (drawn) {
        std::vector<i32> taken = resolved.faces;
        taken.insert(taken.end(), sorted.faces.begin(), sorted.faces.end());
        std::vector<GridRun> runs = visibleRuns(grid.faces, taken, width, height);
        runs.resize(static_cast<size_t>(storedRuns(static_cast<i32>(runs.size()), spansRefused)));
        paint(grid, runs);
    }
    if (nextCall != calls->size()) complain("the library made a call that the rules do not make");
    if (drawn) compareRecords(spansRefused);

    const size_t takenFaces = resolved.faces.size() + sorted.faces.size() + late.faces.size();
    undisturbed =
        drawn && !spansRefused && takenFaces == static_cast<size_t>(count) && (sorted.faces.empty() || canSort(sorted));
}

} // namespace kardeno::tests
