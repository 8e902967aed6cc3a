# There is one test program for each folder of tests/, linked with the library's objects.
#
#   tests/<room>/*_test.cpp          the tests; the other .cpp files of that folder are helpers of this one program
#   tests/support/                   the tests' host, scenes and frames, compiled once for all programs; its *_test.cpp
#                                    are the tests of the room support
#   scenes/                          scenes that all programs share
if(NOT EXISTS ${CMAKE_BINARY_DIR}/headers/doctest/doctest.h)
    message(FATAL_ERROR "The tests need doctest: run tools/setup check, or configure with -DKARDENO_TESTS=OFF")
endif()

set(test_folder ${PROJECT_SOURCE_DIR}/tests)

# Programs for Windows need Wine. Its server must be running before the first of them starts: otherwise that program
# starts the server, which inherits the pipe that CTest reads, and CTest waits for the server to end.
if(WIN32 AND CMAKE_CROSSCOMPILING)
    math(EXPR address_bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    set(wine ${PROJECT_SOURCE_DIR}/tools/wine ${address_bits})
    execute_process(COMMAND ${wine} look RESULT_VARIABLE no_wine OUTPUT_QUIET ERROR_QUIET)
    if(no_wine)
        message(FATAL_ERROR "The tests run under Wine: run tools/wine ${address_bits} get, or configure with "
                            "-DKARDENO_TESTS=OFF")
    endif()
    add_test(NAME fixture_wine COMMAND ${wine} start)
    set_tests_properties(fixture_wine PROPERTIES FIXTURES_SETUP emulator)
endif()

# What a build cannot test says so by name: tools/count_results shows the line beside the build's results.
function(kardeno_not_here what why)
    add_test(NAME absent_${what} COMMAND ${CMAKE_COMMAND} -E echo "[not here] ${what}: ${why}")
endfunction()

add_library(test_options INTERFACE)
target_link_libraries(test_options INTERFACE
    kardeno_headers kardeno_arithmetic kardeno_warnings third_party_headers ${CMAKE_DL_LIBS})

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    target_compile_definitions(test_options INTERFACE
        DOCTEST_CONFIG_NO_POSIX_SIGNALS DOCTEST_CONFIG_NO_EXCEPTIONS_BUT_WITH_ALL_ASSERTS)
endif()

# Test code runs once and briefly: most of what -O2 would do to it is lost time. The library's objects are compiled as
# ever; only a template that a test itself instantiates is compiled as the test is.
add_library(test_code INTERFACE)
target_link_libraries(test_code INTERFACE test_options)
target_compile_options(test_code INTERFACE $<$<CONFIG:Release>:-O1> $<$<BOOL:${KARDENO_SANITIZED}>:-O0>)

add_library(test_main OBJECT ${test_folder}/test_main.cpp)
target_link_libraries(test_main PRIVATE test_code)

file(GLOB support_sources CONFIGURE_DEPENDS ${test_folder}/support/*.cpp)
list(FILTER support_sources EXCLUDE REGEX "_test\\.cpp$")
add_library(test_support OBJECT ${support_sources})
target_link_libraries(test_support PRIVATE test_code)

# What nearly every test reads first, read once; each file still includes what it uses. The programs take this header
# over as it is, so they are compiled with the options of test_support and no others.
target_precompile_headers(test_support PRIVATE
    <doctest/doctest.h> <algorithm> <cmath> <cstdlib> <cstring> <deque> <functional> <limits> <memory> <ostream>
    <random> <set> <string> <vector>)

# A test program is one entry of CTest. It runs in the folder of the sources, so that a file it reads has one name in
# every build.
function(kardeno_add_test_program program)
    add_executable(${program} ${ARGN})
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
    target_link_libraries(${program} PRIVATE test_code test_main)
    target_precompile_headers(${program} REUSE_FROM test_support)
    add_test(NAME ${program} COMMAND ${program} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${program} PROPERTIES FIXTURES_REQUIRED emulator)
endfunction()

# Runs a test program that loads the library once more, with the checked one, which may say nothing but what the further
# arguments allow. What that remembers is not given back when it is unloaded, since nothing runs then.
function(kardeno_add_checked_run program)
    add_dependencies(${program} kardeno_soft_checked)
    add_test(NAME ${program}_checked
        COMMAND ${PROJECT_SOURCE_DIR}/tools/run_checked ${ARGN}
            ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${program}>
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${program}_checked PROPERTIES
        ENVIRONMENT "KARDENO_LIBRARY=$<TARGET_FILE:kardeno_soft_checked>;ASAN_OPTIONS=detect_leaks=0"
        FIXTURES_REQUIRED emulator)
endfunction()

# The scenes that all test programs share.
file(GLOB scene_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/scenes/*.cpp)
add_library(scenes OBJECT ${scene_sources})
target_link_libraries(scenes PRIVATE test_options)

set(test_folders ${kardeno_rooms} scenes robustness reference library)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    list(REMOVE_ITEM test_folders library)
    kardeno_not_here(tests_library "a WebAssembly module has no dynamic library to load; the page links it in")
endif()
foreach(room ${test_folders})
    file(GLOB sources CONFIGURE_DEPENDS ${test_folder}/${room}/*.cpp)
    list(REMOVE_ITEM sources ${support_sources})
    if(sources)
        kardeno_add_test_program(tests_${room} ${sources})
        target_link_libraries(tests_${room} PRIVATE test_support scenes kardeno_objects)
    endif()
endforeach()

# The checked library's objects stand in for the exported functions. Its tests draw the scenes of others.
file(GLOB sources CONFIGURE_DEPENDS ${test_folder}/checked/*.cpp)
file(GLOB helpers CONFIGURE_DEPENDS ${test_folder}/reference/*.cpp ${test_folder}/robustness/*.cpp)
list(FILTER helpers EXCLUDE REGEX "_test\\.cpp$")
kardeno_add_test_program(tests_checked ${sources} ${helpers} ${kardeno_objects_without_exports})
target_link_libraries(tests_checked PRIVATE test_support scenes kardeno_checked_objects)

# The shared scenes are hosts of their own, which share no process with the tests' host: both keep the library's pools.
file(GLOB sources CONFIGURE_DEPENDS ${test_folder}/checked_scenes/*.cpp)
kardeno_add_test_program(tests_checked_scenes
    ${sources} ${test_folder}/checked/hearing.cpp ${kardeno_objects_without_exports})
target_link_libraries(tests_checked_scenes PRIVATE test_support scenes kardeno_checked_objects)

# The tests that see the library as a host does load it from its file.
if(TARGET tests_library)
    add_dependencies(tests_library kardeno_soft)
    set_tests_properties(tests_library PROPERTIES ENVIRONMENT "KARDENO_LIBRARY=$<TARGET_FILE:kardeno_soft>")
    # A scene of these tests is cut in a view that is not 90 degrees wide, by a normal that its corners have not.
    kardeno_add_checked_run(tests_library --but normal-wrong --but projection-angle)
    add_test(NAME checked_library_stops_at_the_first_sentence
        COMMAND ${PROJECT_SOURCE_DIR}/tools/run_checked --stops
            ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:tests_library>
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    get_test_property(tests_library_checked ENVIRONMENT environment)
    set_tests_properties(checked_library_stops_at_the_first_sentence PROPERTIES
        ENVIRONMENT "${environment}" FIXTURES_REQUIRED emulator)
endif()
