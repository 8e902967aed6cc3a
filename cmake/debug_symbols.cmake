# The shared libraries of a release build are compiled with debug symbols, which then move out of each library into a
# file beside it, LIBRARY.debug. The library names that file, so that a debugger finds it. kardeno_symbols_apart says
# whether this build does so: an archive of objects and the libraries of a debug build keep what they are compiled with.
set(kardeno_symbols_apart NO)
if(KARDENO_SYMBOLS_APART AND kind STREQUAL "SHARED" AND CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT KARDENO_SANITIZED
        AND CMAKE_OBJCOPY)
    set(kardeno_symbols_apart YES)
endif()
if(NOT kardeno_symbols_apart)
    return()
endif()

# Symbols name the sources as seen from their top folder, wherever that is and wherever the build is. A compiler cache
# may hand the compiler names that are relative to the build folder.
file(RELATIVE_PATH build_to_sources ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/CMakeLists.txt)
string(REPLACE CMakeLists.txt "" build_to_sources ${build_to_sources})
set(symbol_options -g -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
if(build_to_sources)
    list(APPEND symbol_options -ffile-prefix-map=${build_to_sources}=)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # Of several prefixes that match clang takes any.
    list(APPEND symbol_options -fdebug-compilation-dir=.)
else()
    # Of several prefixes that match GCC takes the one that was given last.
    list(APPEND symbol_options -fdebug-prefix-map=${PROJECT_BINARY_DIR}=.)
endif()
foreach(target kardeno_objects kardeno_checked_objects kardeno_soft kardeno_soft_checked)
    target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:${symbol_options}>")
endforeach()

# Programs that link the library's objects, such as the tests, leave the symbols out.
foreach(objects kardeno_objects kardeno_checked_objects)
    target_link_options(${objects} INTERFACE -Wl,--strip-debug)
endforeach()

set(move_symbols ${PROJECT_SOURCE_DIR}/cmake/move_symbols.cmake)
foreach(library kardeno_soft kardeno_soft_checked)
    set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS ${move_symbols})
    add_custom_command(TARGET ${library} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -D LIBRARY=$<TARGET_FILE:${library}> -D OBJCOPY=${CMAKE_OBJCOPY} -P ${move_symbols}
        VERBATIM)
endforeach()
