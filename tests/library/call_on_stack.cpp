#include "tests/library/call_on_stack.h"

// The assembler stands in a file of its own: the compiler does not see what it does to the stack, nor the section.
#if defined(KARDENO_STACKS_OF_ANY_ALIGNMENT)
asm(R"(
    .text
    .globl kardeno_tests_call_on_stack
    .p2align 4
kardeno_tests_call_on_stack:
    pushl %ebp
    movl %esp, %ebp
    pushl %ebx
    pushl %esi
    pushl %edi

    # Room for the words, so that the first one ends up at a multiple of 16 less the offset.
    movl 20(%ebp), %ecx
    leal 0(,%ecx,4), %eax
    subl %eax, %esp
    andl $-16, %esp
    subl 12(%ebp), %esp

    movl 16(%ebp), %esi
    movl %esp, %edi
    cld
    rep movsl
    call *8(%ebp)

    leal -12(%ebp), %esp
    popl %edi
    popl %esi
    popl %ebx
    popl %ebp
    ret

    .globl kardeno_tests_stack_pointer_at_call
    .p2align 4
kardeno_tests_stack_pointer_at_call:
    leal 4(%esp), %eax
    ret
)");
#endif
