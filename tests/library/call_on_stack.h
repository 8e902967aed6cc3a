// Calls with a stack of any alignment: hosts call in with a stack pointer that is a multiple of 4 and no more.
#pragma once

#include "kardeno_soft/types.h"

#include <bit>
#include <type_traits>

namespace kardeno::tests {

// Calls a cdecl function with `count` words as arguments. At the call, the stack pointer is a multiple of 16 less
// `offset` (0, 4, 8 or 12). Gives back what the function leaves in EAX.
extern "C" u32 callOnStack(void* function, u32 offset, const u32* words, u32 count) asm("kardeno_tests_call_on_stack");

// The stack pointer at the call of this function.
extern "C" u32 stackPointerAtCall() asm("kardeno_tests_stack_pointer_at_call");

template <class Argument>
u32 wordOf(Argument argument)
{
    if constexpr (std::is_pointer_v<Argument>)
        return reinterpret_cast<u32>(argument);
    else if constexpr (std::is_same_v<Argument, f32>)
        return std::bit_cast<u32>(argument);
    else
        return static_cast<u32>(argument);
}

// The same with arguments of their own types: integers, pointers and f32.
template <class... Arguments>
u32 callWithOffset(u32 offset, void* function, Arguments... arguments)
{
    const u32 words[sizeof...(Arguments) + 1] = {wordOf(arguments)...};
    return callOnStack(function, offset, words, sizeof...(Arguments));
}

} // namespace kardeno::tests
