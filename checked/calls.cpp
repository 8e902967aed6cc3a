#include "checked/calls.h"

#include "checked/system.h"
#include "host/host_context.h"

namespace kardeno::checked {

namespace {

constinit u32 isRunning = 0;
constinit uintptr_t runningThread = 0; // of the call that is running

} // namespace

Call::Call(const char* theName) : name(theName), alone(__atomic_exchange_n(&isRunning, 1u, __ATOMIC_ACQUIRE) == 0)
{
    const uintptr_t thread = currentThread();
    if (alone)
        __atomic_store_n(&runningThread, thread, __ATOMIC_RELAXED);
    else if (__atomic_load_n(&runningThread, __ATOMIC_RELAXED) == thread)
        tell(Mistake::insideCallback, place());
    else
        tell(Mistake::secondThread, place());
}

Call::~Call()
{
    if (alone) __atomic_store_n(&isRunning, 0u, __ATOMIC_RELEASE);
}

bool Call::isReady() const
{
    if (!alone) return false;
    if (!hostContext) tell(Mistake::beforeInitialisation, place());
    return hostContext;
}

bool Call::isReadyFor(const void* record) const
{
    if (!isReady()) return false;
    if (!record) tell(Mistake::missingRecord, place());
    return record;
}

} // namespace kardeno::checked
