// Watches that the library is called as its header says: initialised, one call at a time, and never from a function of
// the host.
#pragma once

#include "checked/sentences.h"

namespace kardeno::checked {

// A call of the library, from its beginning to its end.
class Call {
public:
    explicit Call(const char* name);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // Whether no other call is running; otherwise nothing may be touched.
    bool isAlone() const { return alone; }
    // The same, and the library was initialised.
    bool isReady() const;
    // The same, and the record was handed over.
    bool isReadyFor(const void* record) const;

    Place place() const { return {.call = name}; }

private:
    const char* const name;
    bool alone;
};

} // namespace kardeno::checked
