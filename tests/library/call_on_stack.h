// Calls with a stack of any alignment: hosts on 32-bit x86 call in with a stack pointer that is a multiple of 4 and no
// more. Other machines fix the alignment, and functions are called there as the compiler calls them.
#pragma once

#include "kardeno_soft/types.h"

#include <bit>
#include <cstdint>
#include <type_traits>

#if defined(__i386__)
#define KARDENO_STACKS_OF_ANY_ALIGNMENT 1
#endif

namespace kardeno::tests {

#if defined(KARDENO_STACKS_OF_ANY_ALIGNMENT)

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

// The same with arguments of their own types (integers, pointers and f32) and a result of one word.
template <class Result = u32, class... Arguments>
Result callWithOffset(u32 offset, void* function, Arguments... arguments)
{
    const u32 words[sizeof...(Arguments) + 1] = {wordOf(arguments)...};
    return std::bit_cast<Result>(callOnStack(function, offset, words, sizeof...(Arguments)));
}

#else

// `offset` is 0: the stack stands where the machine's rules want it.
template <class Result = u32, class... Arguments>
Result callWithOffset(u32, void* function, Arguments... arguments)
{
    return reinterpret_cast<Result (*)(Arguments...)>(function)(arguments...);
}

#endif

} // namespace kardeno::tests
