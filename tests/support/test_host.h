// The tests' host: services that can be refused, that move every block, and that remember every call.
//
// Making a TestHost brings the library back to what it is at load, empty pools and lists, and initialises it with the
// host's context. One lives at a time.
#pragma once

#include "geometry/polygon_lists.h"
#include "host/host_context.h"
#include "kardeno_soft/kardeno_soft.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KARDENO_TESTS_UNDER_ASAN 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define KARDENO_TESTS_UNDER_ASAN 1
#endif
#if defined(KARDENO_TESTS_UNDER_ASAN)
#include <sanitizer/asan_interface.h>
#endif

namespace kardeno::tests {

// What the host does with the memory that it gives out.
namespace host_memory {

inline constexpr u8 releasedFill = 0xdd;
inline constexpr u8 freshFill = 0xcd; // realloc promises nothing about new bytes
inline constexpr u32 roomToGrow = 4u << 20;

// Memory that the library must not touch, reading included, although the host keeps it: released blocks, and the room
// behind a block that can grow in place. Only AddressSanitizer sees a touch; elsewhere a write into a released block is
// found at the end.
inline void forbid([[maybe_unused]] const u8* bytes, [[maybe_unused]] u32 count)
{
#if defined(KARDENO_TESTS_UNDER_ASAN)
    __asan_poison_memory_region(bytes, count);
#endif
}

inline void allow([[maybe_unused]] const u8* bytes, [[maybe_unused]] u32 count)
{
#if defined(KARDENO_TESTS_UNDER_ASAN)
    __asan_unpoison_memory_region(bytes, count);
#endif
}

[[noreturn]] inline void fail(const char* sentence)
{
    std::fprintf(stderr, "TestHost: %s\n", sentence);
    std::abort();
}

} // namespace host_memory

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

    inline static TestHost* current = nullptr;
    static void* allocService(u32 count, u32 size);
    static void* reallocService(void* block, u32 bytes);
    static void freeService(void* block);
};

// Makes the pools and lists of the library what they are at load. (What they held belonged to a host that is gone.)
void forgetPools();

// Bodies.

inline void forgetPools()
{
    EdgePool = {};
    SpanPool = {};
    resolvedPolygons = {};
    sortedPolygons = {};
    lateSortedPolygons = {};
    sortArrays = {};
}

inline TestHost::TestHost(i32 bitsPerPixel) : record(std::make_unique<HostContext>())
{
    if (current) host_memory::fail("two hosts at a time");
    current = this;
    std::memset(record.get(), 0, sizeof(HostContext));
    record->alloc = allocService;
    record->realloc = reallocService;
    record->free = freeService;
    record->bitsPerPixel = bitsPerPixel;
    record->projectionStamp = 1;
    forgetPools();
    Kardeno_Init_Render_Dll(record.get());
}

inline TestHost::~TestHost()
{
    for (const Block& block : blocks) {
        host_memory::allow(block.bytes.get(), block.room);
        if (!block.released) continue;
        const u8* const end = block.bytes.get() + block.size;
        if (std::any_of(block.bytes.get(), const_cast<u8*>(end),
                        [](u8 byte) { return byte != host_memory::releasedFill; }))
            host_memory::fail("a released block was written to");
    }
    forgetPools();
    hostContext = nullptr;
    current = nullptr;
}

inline void TestHost::refuse(i32 n)
{
    refuseAt = n;
    refusesOn = false;
    refusing = false;
    refusedCalls.clear();
}

inline void TestHost::refuseFrom(i32 n)
{
    refuse(n);
    refusesOn = true;
}

inline void TestHost::refuseCalls(std::vector<i32> numbers)
{
    refuse(0);
    refusedCalls = std::move(numbers);
}

inline void TestHost::refuseNothing()
{
    refuse(0);
}

inline bool TestHost::refusesNow()
{
    bool named = false;
    for (i32& number : refusedCalls) named |= --number == 0;
    if (named || refusing) return true;
    if (refuseAt == 0 || --refuseAt > 0) return false;
    refusing = refusesOn;
    return true;
}

inline std::vector<ServiceCall> TestHost::reallocs() const
{
    std::vector<ServiceCall> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [](const ServiceCall& call) { return call.kind == ServiceCall::realloc; });
    return found;
}

inline u32 TestHost::liveBlocks() const
{
    return static_cast<u32>(
        std::count_if(blocks.begin(), blocks.end(), [](const Block& block) { return !block.released; }));
}

inline i32 TestHost::addVertex(f32 x, f32 y, f32 z, u32 outcode)
{
    cameraVertices.push_back({x, y, z});
    screenVertices.push_back({0, 0, 0});
    shades.push_back({0, 0, 0, 0});
    outcodes.push_back(outcode);
    stamps.push_back(0);
    pointAtVertices();
    return static_cast<i32>(cameraVertices.size()) - 1;
}

inline void TestHost::pointAtVertices()
{
    record->cameraVertices = cameraVertices.data();
    record->screenVertices = screenVertices.data();
    record->vertexShades = shades.data();
    record->vertexOutcodes = outcodes.data();
    record->vertexStamps = stamps.data();
}

inline void* TestHost::give(u32 bytes, bool zeroed)
{
    const u32 room = movesBlocks ? bytes : std::max(bytes, host_memory::roomToGrow);
    Block block = {std::unique_ptr<u8[]>(new u8[room]), bytes, room, false};
    std::memset(block.bytes.get(), zeroed ? 0 : host_memory::freshFill, bytes);
    host_memory::forbid(block.bytes.get() + bytes, room - bytes);
    blocks.push_back(std::move(block));
    return blocks.back().bytes.get();
}

inline TestHost::Block* TestHost::find(const void* block)
{
    for (Block& candidate : blocks) {
        if (candidate.bytes.get() == block && !candidate.released) return &candidate;
    }
    host_memory::fail("a block was given back that the host does not know, or twice");
}

inline void TestHost::release(Block& block)
{
    std::memset(block.bytes.get(), host_memory::releasedFill, block.size);
    host_memory::forbid(block.bytes.get(), block.size);
    block.released = true; // kept, so that a late write shows
}

inline void* TestHost::allocService(u32 count, u32 size)
{
    TestHost& host = *current;
    void* const result = host.refusesNow() ? nullptr : host.give(count * size, true);
    host.calls.push_back({ServiceCall::alloc, nullptr, count * size, result, count});
    return result;
}

inline void* TestHost::reallocService(void* block, u32 bytes)
{
    TestHost& host = *current;
    if (block) host.find(block); // must be live even when the call is refused
    void* result = nullptr;
    if (!host.refusesNow()) {
        Block* const old = block ? host.find(block) : nullptr;
        if (old && !host.movesBlocks && old->size <= bytes && bytes <= old->room) {
            u8* const added = old->bytes.get() + old->size;
            host_memory::allow(added, bytes - old->size);
            std::memset(added, host_memory::freshFill, bytes - old->size);
            old->size = bytes;
            result = block;
        } else {
            result = host.give(bytes, false);
            if (block) {
                Block& source = *host.find(block); // `blocks` may have moved
                std::memcpy(result, block, std::min(source.size, bytes));
                host.release(source);
            }
        }
    }
    host.calls.push_back({ServiceCall::realloc, block, bytes, result, 0});
    return result;
}

inline void TestHost::freeService(void* block)
{
    TestHost& host = *current;
    host.calls.push_back({ServiceCall::free, block, 0, nullptr, 0});
    host.release(*host.find(block));
}

} // namespace kardeno::tests
