// A table that finds a number by an address. It is what the checked library remembers things in. Its memory comes from
// the C library and never from the host, whose allocator sees the same calls as from the plain library.
#pragma once

#include "kardeno_soft/types.h"

namespace kardeno::checked {

struct AddressTable {
    struct Entry {
        const void* address; // 0: the place is empty
        u32 value;
    };

    Entry* entries = nullptr;
    u32 capacity = 0; // a power of two, or 0
    u32 count = 0;

    // The value of an address; 0 when the table does not know it.
    u32* find(const void* address) const;
    // The same, but an unknown address is added with the value 0. Returns 0 when there is no memory.
    u32* findOrAdd(const void* address);
    // Forgets all addresses.
    void clear();

private:
    Entry* placeOf(const void* address) const;
    bool grow();
};

} // namespace kardeno::checked
