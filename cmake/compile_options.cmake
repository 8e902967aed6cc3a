# How everything is compiled. There are four sets of options, each an interface library:
#   kardeno_headers     where #include "room/header.h" and #include "kardeno_soft/header.h" are looked for
#   kardeno_arithmetic  what the pixels depend on; all that computes with the library's numbers uses it, tests included
#   kardeno_warnings    the warnings that tests and tools are held to
#   kardeno_options     what the library uses: the three above, and what keeps a C++ run-time library out of it

add_library(kardeno_headers INTERFACE)
target_include_directories(kardeno_headers INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)

add_library(kardeno_arithmetic INTERFACE)
target_compile_options(kardeno_arithmetic INTERFACE -ffp-contract=off -fno-math-errno)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    target_compile_options(kardeno_arithmetic INTERFACE -msse2 -mfpmath=sse)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^i[3-6]86$")
    target_compile_options(kardeno_arithmetic INTERFACE -msse2 -mfpmath=sse)
endif()
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    target_compile_options(kardeno_arithmetic INTERFACE -msimd128)
endif()

# A host on 32-bit x86 may call with a stack that is aligned to 4 bytes only, while SSE needs 16. The exported functions
# realign it; what they call, the host's functions among them, finds it aligned. GCC realigns the frames that
# AddressSanitizer lays out only with the second option.
set(realigning_options)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^i[3-6]86$")
    set(realigning_options -mstackrealign)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        list(APPEND realigning_options -mincoming-stack-boundary=2)
    endif()
endif()

# A designated initialiser names the fields that matter and leaves the others 0 on purpose. What an unknown compiler
# warns of must not stop a project that takes the sources in.
add_library(kardeno_warnings INTERFACE)
target_compile_options(kardeno_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wno-missing-field-initializers $<$<BOOL:${PROJECT_IS_TOP_LEVEL}>:-Werror>)

add_library(kardeno_options INTERFACE)
target_link_libraries(kardeno_options INTERFACE kardeno_headers kardeno_arithmetic kardeno_warnings)
target_compile_options(kardeno_options INTERFACE
    -fno-exceptions -fvisibility=hidden $<$<COMPILE_LANGUAGE:CXX>:-fno-rtti -fno-threadsafe-statics>
    -Wconversion -Wsign-conversion)

# WebAssembly's C++ library has no exceptions, and signals are emulated there. The stack is large enough for a scene,
# and nothing lies below it, so that an overflow traps instead of running into data.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions> -D_WASI_EMULATED_SIGNAL)
    add_link_options(-lwasi-emulated-signal -Wl,-z,stack-size=1048576 -Wl,--stack-first)
endif()

# A sanitized build compiles everything so, tests and sample host too: the run-time library of the sanitizers must come
# with the program.
if(KARDENO_SANITIZED)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr)
    add_compile_options(${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(${sanitizers})
endif()

# A file whose name ends in the name of an instruction level is compiled for that level. On x86 every file may use SSE2,
# in WebAssembly SIMD128. No level has fused multiply-add, which would round once where the scalar routine rounds twice.
set(instruction_level_avx2 -mavx2 -mno-fma)

function(kardeno_set_instruction_levels)
    foreach(file IN LISTS ARGN)
        if(file MATCHES "_(avx2)\\.(cpp|h\\.cpp)$")
            set_property(SOURCE ${file} PROPERTY COMPILE_OPTIONS ${instruction_level_${CMAKE_MATCH_1}})
        endif()
    endforeach()
endfunction()
