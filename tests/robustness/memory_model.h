// The rules of the library's memory, told a second time and slowly: which calls of realloc and free a frame of a
// GridScene makes, what of it is drawn when some are refused, and what the library then remembers.
//
// The model does not know which calls the host refuses. It reads the host's list of calls along with the rules: each
// call must be the one that the rules make next, and its result, a block or 0, decides how they go on.
#pragma once

#include "tests/robustness/grid_scene.h"

#include <string>

namespace kardeno::tests {

class MemoryModel {
public:
    // Follows one frame of the first `count` faces. `calls` are those of this frame alone.
    void follow(const GridScene& grid, i32 count, const std::vector<ServiceCall>& calls);

    // The first thing that was not as the rules say; empty when all was.
    std::string complaint;
    // What the frame must look like.
    std::vector<u16> picture;
    // Whether every face was drawn, and the sorted ones in their order.
    bool undisturbed;

private:
    struct ModelList {
        const void* stored = nullptr;
        i32 capacity = 0;
        const void* real = nullptr; // the block that the host really keeps for it
        i32 room = 0;               // how many records fit in there
        std::vector<i32> faces;     // of this frame
    };
    struct ModelPool {
        const void* real = nullptr;
        i32 capacity = 0;
    };

    ModelList resolved, sorted, late;
    const void* sortArrays[3] = {};
    bool givenBack[3] = {};
    i32 sortCapacity = 0;
    ModelPool edges, spans;

    const std::vector<ServiceCall>* calls;
    size_t nextCall;

    void complain(const std::string& what);
    const void* expectRealloc(const char* of, const void* block, i32 records, u32 size);
    void expectFree(const void* block);

    bool growSortArrays();
    bool reserve(ModelList& list);
    bool fileEdges(const GridScene& grid);
    i32 storedRuns(i32 runs, bool& refused);
    bool canSort(const ModelList& list) const;
    void paint(const GridScene& grid, const std::vector<GridRun>& runs);
    void compareRecords(bool spansRefused);
};

} // namespace kardeno::tests
