#include "tests/support/test_host.h"

#include "geometry/polygon_lists.h"
#include "host/host_context.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utility>

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

namespace {

// What the host does with the memory that it gives out.
constexpr u8 releasedFill = 0xdd;
constexpr u8 freshFill = 0xcd; // realloc promises nothing about new bytes
constexpr u32 roomToGrow = 4u << 20;

// Memory that the library must not touch, reading included, although the host keeps it: released blocks, and the room
// behind a block that can grow in place. Only AddressSanitizer sees a touch; elsewhere a write into a released block is
// found at the end.
void forbid([[maybe_unused]] const u8* bytes, [[maybe_unused]] u32 count)
{
#if defined(KARDENO_TESTS_UNDER_ASAN)
    __asan_poison_memory_region(bytes, count);
#endif
}

void allow([[maybe_unused]] const u8* bytes, [[maybe_unused]] u32 count)
{
#if defined(KARDENO_TESTS_UNDER_ASAN)
    __asan_unpoison_memory_region(bytes, count);
#endif
}

[[noreturn]] void fail(const char* sentence)
{
    std::fprintf(stderr, "TestHost: %s\n", sentence);
    std::abort();
}

} // namespace

TestHost* TestHost::current = nullptr;

void forgetPools()
{
    EdgePool = {};
    SpanPool = {};
    resolvedPolygons = {};
    sortedPolygons = {};
    lateSortedPolygons = {};
    sortArrays = {};
    polygonStates = nullptr;
}

TestHost::TestHost(i32 bitsPerPixel) : record(std::make_unique<HostContext>())
{
    if (current) fail("two hosts at a time");
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

TestHost::~TestHost()
{
    for (const Block& block : blocks) {
        allow(block.bytes.get(), block.room);
        if (!block.released) continue;
        const u8* const end = block.bytes.get() + block.size;
        if (std::any_of(block.bytes.get(), const_cast<u8*>(end), [](u8 byte) { return byte != releasedFill; }))
            fail("a released block was written to");
    }
    forgetPools();
    hostContext = nullptr;
    current = nullptr;
}

void TestHost::refuse(i32 n)
{
    refuseAt = n;
    refusesOn = false;
    refusing = false;
    refusedCalls.clear();
}

void TestHost::refuseFrom(i32 n)
{
    refuse(n);
    refusesOn = true;
}

void TestHost::refuseCalls(std::vector<i32> numbers)
{
    refuse(0);
    refusedCalls = std::move(numbers);
}

void TestHost::refuseNothing()
{
    refuse(0);
}

bool TestHost::refusesNow()
{
    bool named = false;
    for (i32& number : refusedCalls) named |= --number == 0;
    if (named || refusing) return true;
    if (refuseAt == 0 || --refuseAt > 0) return false;
    refusing = refusesOn;
    return true;
}

std::vector<ServiceCall> TestHost::reallocs() const
{
    std::vector<ServiceCall> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [](const ServiceCall& call) { return call.kind == ServiceCall::realloc; });
    return found;
}

u32 TestHost::liveBlocks() const
{
    return static_cast<u32>(
        std::count_if(blocks.begin(), blocks.end(), [](const Block& block) { return !block.released; }));
}

i32 TestHost::addVertex(f32 x, f32 y, f32 z, u32 outcode)
{
    cameraVertices.push_back({x, y, z});
    screenVertices.push_back({0, 0, 0});
    shades.push_back({0, 0, 0, 0});
    outcodes.push_back(outcode);
    stamps.push_back(0);
    pointAtVertices();
    return static_cast<i32>(cameraVertices.size()) - 1;
}

void TestHost::pointAtVertices()
{
    record->cameraVertices = cameraVertices.data();
    record->screenVertices = screenVertices.data();
    record->vertexShades = shades.data();
    record->vertexOutcodes = outcodes.data();
    record->vertexStamps = stamps.data();
}

void* TestHost::give(u32 bytes, bool zeroed)
{
    const u32 room = movesBlocks ? bytes : std::max(bytes, roomToGrow);
    Block block = {std::unique_ptr<u8[]>(new u8[room]), bytes, room, false};
    std::memset(block.bytes.get(), zeroed ? 0 : freshFill, bytes);
    forbid(block.bytes.get() + bytes, room - bytes);
    blocks.push_back(std::move(block));
    return blocks.back().bytes.get();
}

TestHost::Block* TestHost::find(const void* block)
{
    for (Block& candidate : blocks) {
        if (candidate.bytes.get() == block && !candidate.released) return &candidate;
    }
    fail("a block was given back that the host does not know, or twice");
}

void TestHost::release(Block& block)
{
    std::memset(block.bytes.get(), releasedFill, block.size);
    forbid(block.bytes.get(), block.size);
    block.released = true; // kept, so that a late write shows
}

void* TestHost::allocService(u32 count, u32 size)
{
    TestHost& host = *current;
    void* const result = host.refusesNow() ? nullptr : host.give(count * size, true);
    host.calls.push_back({ServiceCall::alloc, nullptr, count * size, result, count});
    return result;
}

void* TestHost::reallocService(void* block, u32 bytes)
{
    TestHost& host = *current;
    if (block) host.find(block); // must be live even when the call is refused
    void* result = nullptr;
    if (!host.refusesNow()) {
        Block* const old = block ? host.find(block) : nullptr;
        if (old && !host.movesBlocks && old->size <= bytes && bytes <= old->room) {
            u8* const added = old->bytes.get() + old->size;
            allow(added, bytes - old->size);
            std::memset(added, freshFill, bytes - old->size);
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

void TestHost::freeService(void* block)
{
    TestHost& host = *current;
    host.calls.push_back({ServiceCall::free, block, 0, nullptr, 0});
    host.release(*host.find(block));
}

} // namespace kardeno::tests
