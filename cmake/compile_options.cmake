# How everything is compiled. Four sets, each an interface library:
#   kardeno_headers     where #include "room/header.h" and #include "kardeno_soft/header.h" are looked for
#   kardeno_arithmetic  what the pixels depend on; whatever computes with the library's numbers uses it, tests included
#   kardeno_warnings    the warnings that tests and tools are held to
#   kardeno_options     the library itself: both of the above and what keeps a run-time library out of it

add_library(kardeno_headers INTERFACE)
target_include_directories(kardeno_headers INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)

add_library(kardeno_arithmetic INTERFACE)
target_compile_options(kardeno_arithmetic INTERFACE -ffp-contract=off -fno-math-errno)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    target_compile_options(kardeno_arithmetic INTERFACE -msse2 -mfpmath=sse)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^i[3-6]86$")
    # Hosts call in with any multiple of 4 in ESP, SSE wants 16. GCC realigns the frames of AddressSanitizer only when
    # told so in a second way.
    target_compile_options(kardeno_arithmetic INTERFACE -msse2 -mfpmath=sse -mstackrealign)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(kardeno_arithmetic INTERFACE -mincoming-stack-boundary=2)
    endif()
endif()

# A designated initialiser names what matters and leaves the rest 0 on purpose.
add_library(kardeno_warnings INTERFACE)
target_compile_options(kardeno_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wno-missing-field-initializers -Werror)

add_library(kardeno_options INTERFACE)
target_link_libraries(kardeno_options INTERFACE kardeno_headers kardeno_arithmetic kardeno_warnings)
target_compile_options(kardeno_options INTERFACE
    -fno-exceptions -fvisibility=hidden $<$<COMPILE_LANGUAGE:CXX>:-fno-rtti -fno-threadsafe-statics>
    -Wconversion -Wsign-conversion)

# Programs for WebAssembly: no exceptions in its C++ library, signals and clocks by emulation, and a stack that is large
# enough for a scene; below it lies nothing, so that an overflow traps and never runs into data.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions> -D_WASI_EMULATED_SIGNAL)
    add_link_options(-lwasi-emulated-signal -Wl,-z,stack-size=1048576 -Wl,--stack-first)
endif()

# Everything that is built, tests and sample host too: the run-time of the sanitizers must come with the program.
if(KARDENO_SANITIZED)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr)
    add_compile_options(${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(${sanitizers})
endif()

# A file whose name ends in the name of an instruction level may use that level. SSE2 is what every file may use.
# No level has FMA: it would round once where the scalar routine rounds twice.
set(instruction_level_avx2 -mavx2 -mno-fma)

function(kardeno_set_instruction_levels)
    foreach(file IN LISTS ARGN)
        if(file MATCHES "_(avx2)\\.(cpp|h\\.cpp)$")
            set_property(SOURCE ${file} PROPERTY COMPILE_OPTIONS ${instruction_level_${CMAKE_MATCH_1}})
        endif()
    endforeach()
endfunction()
