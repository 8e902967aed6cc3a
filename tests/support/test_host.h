// The tests' host: services that can be refused, that move every block, and that remember every call.
//
// Making a TestHost brings the library back to what it is at load, empty pools and lists, and initialises it with the
// host's context. One lives at a time.
#pragma once

#include "kardeno_soft/kardeno_soft.h"

#include <memory>
#include <vector>

namespace kardeno::tests {

// One call of a service of the host.
struct ServiceCall {
    enum Kind { alloc, realloc, free } kind;
    const void* block; // what was given: null for alloc
    u32 bytes;         // what was asked for: count x size for alloc, 0 for free
    const void* result;
    u32 count = 0; // alloc: how many items; 0 for the others
};

class TestHost {
public:
    explicit TestHost(i32 bitsPerPixel = 16);
    ~TestHost(); // checks that nothing was written into released blocks
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    HostContext& context() { return *record; }

    // The n-th call of alloc or realloc from now on (1 is the next) gets 0; all others get memory.
    void refuse(i32 n);
    // The n-th call from now on and every later one get 0.
    void refuseFrom(i32 n);
    // Each of the named calls gets 0, counted from now on; {1, 3} is the next and the one after its successor.
    void refuseCalls(std::vector<i32> numbers);
    void refuseNothing();

    // realloc moves every block unless told otherwise: then it enlarges in place what it gave with room to spare.
    void moveBlocks(bool moves) { movesBlocks = moves; }

    std::vector<ServiceCall> calls;            // every call so far; clear() it as you like
    std::vector<ServiceCall> reallocs() const; // those that are realloc
    u32 liveBlocks() const;                    // blocks given out and not released

    // Vertices. The arrays grow; a pointer into them is good until the next addVertex.
    i32 addVertex(f32 x, f32 y, f32 z, u32 outcode = outcodeAll);
    std::vector<CameraVertex> cameraVertices;
    std::vector<ScreenVertex> screenVertices;
    std::vector<VertexShade> shades;
    std::vector<u32> outcodes;
    std::vector<u32> stamps;

private:
    struct Block {
        std::unique_ptr<u8[]> bytes;
        u32 size;
        u32 room;
        bool released;
    };

    std::unique_ptr<HostContext> record; // large, and fenced by whatever checks the heap
    std::vector<Block> blocks;
    i32 refuseAt = 0;              // counts down to the call that is refused; 0: none
    std::vector<i32> refusedCalls; // each counts down likewise
    bool refusesOn = false;
    bool refusing = false;
    bool movesBlocks = true;

    bool refusesNow();
    void* give(u32 bytes, bool zeroed);
    Block* find(const void* block);
    void release(Block& block);
    void pointAtVertices();

    static TestHost* current;
    static void* allocService(u32 count, u32 size);
    static void* reallocService(void* block, u32 bytes);
    static void freeService(void* block);
};

// Makes the pools and lists of the library what they are at load. (What they held belonged to a host that is gone.)
void forgetPools();

} // namespace kardeno::tests
