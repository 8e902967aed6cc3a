#include "checked/address_table.h"

#include <stdint.h>
#include <stdlib.h>

namespace kardeno::checked {

namespace {

constexpr u32 firstCapacity = 64;

u32 hashOf(const void* address)
{
    // Addresses of blocks differ in their middle bits. The odd factor is 2^32 divided by the golden ratio.
    const uint64_t number = reinterpret_cast<uintptr_t>(address);
    const u32 folded = static_cast<u32>(number >> 2) ^ static_cast<u32>(number >> 32);
    const u32 product = folded * 2654435769u;
    return product ^ product >> 15;
}

} // namespace

// The place of the address, or the empty place where it belongs. The table is never full.
AddressTable::Entry* AddressTable::placeOf(const void* address) const
{
    u32 place = hashOf(address) & (capacity - 1);
    while (entries[place].address && entries[place].address != address) place = (place + 1) & (capacity - 1);
    return &entries[place];
}

u32* AddressTable::find(const void* address) const
{
    if (!address || capacity == 0) return nullptr;
    Entry* const entry = placeOf(address);
    return entry->address ? &entry->value : nullptr;
}

u32* AddressTable::findOrAdd(const void* address)
{
    if (!address) return nullptr;
    if (u32* const value = find(address)) return value;
    if (2 * (count + 1) > capacity && !grow()) return nullptr;
    Entry* const entry = placeOf(address);
    *entry = {address, 0};
    ++count;
    return &entry->value;
}

void AddressTable::clear()
{
    free(entries);
    *this = {};
}

bool AddressTable::grow()
{
    AddressTable larger;
    larger.capacity = capacity ? 2 * capacity : firstCapacity;
    larger.entries = static_cast<Entry*>(calloc(larger.capacity, sizeof(Entry)));
    if (!larger.entries) return false;
    for (u32 i = 0; i < capacity; ++i) {
        if (entries[i].address) *larger.placeOf(entries[i].address) = entries[i];
    }
    larger.count = count;
    free(entries);
    *this = larger;
    return true;
}

} // namespace kardeno::checked
