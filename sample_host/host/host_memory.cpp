#include "sample_host/host/host_memory.h"

#include <cstdint>
#include <cstdlib>

namespace sample_host {

namespace {

// Stands before each block and links the blocks into a ring, which begins and ends at `ring`. Its size is a multiple of
// 16 bytes, so that the block behind it is aligned as the C library aligns its blocks.
struct alignas(16) Header {
    Header* previous;
    Header* next;
};

constinit Header ring{&ring, &ring};
constinit int users = 0; // HostMemory objects that live

// Links a header, which names its neighbours already, into the ring. Gives the block behind it.
void* linked(Header* header)
{
    header->previous->next = header;
    header->next->previous = header;
    return header + 1;
}

Header* headerOf(void* block)
{
    return static_cast<Header*>(block) - 1;
}

// Zero-filled; 0 when there is no memory.
void* allocateZeros(u32 count, u32 size)
{
    const std::uint64_t bytes = std::uint64_t(count) * size + sizeof(Header);
    Header* header = bytes <= SIZE_MAX ? static_cast<Header*>(std::calloc(1, std::size_t(bytes))) : nullptr;
    if (!header) return nullptr;
    *header = {&ring, ring.next};
    return linked(header);
}

// A null block allocates. On failure the block stays as it is, in the ring too.
void* resize(void* block, u32 bytes)
{
    if (!block) return allocateZeros(1, bytes);
    const std::uint64_t total = std::uint64_t(bytes) + sizeof(Header);
    if (total > SIZE_MAX) return nullptr;
    Header* header = static_cast<Header*>(std::realloc(headerOf(block), std::size_t(total)));
    return header ? linked(header) : nullptr;
}

void release(void* block)
{
    if (!block) return;
    Header* header = headerOf(block);
    header->previous->next = header->next;
    header->next->previous = header->previous;
    std::free(header);
}

} // namespace

HostMemory::HostMemory()
{
    ++users;
}

HostMemory::~HostMemory()
{
    if (--users > 0) return;
    while (ring.next != &ring) release(ring.next + 1);
}

void HostMemory::serve(HostContext& context)
{
    context.alloc = allocateZeros;
    context.realloc = resize;
    context.free = release;
}

} // namespace sample_host
