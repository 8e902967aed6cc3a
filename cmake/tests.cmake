# There is one test program for each folder of tests/, linked with the library's objects.
#
#   tests/<room>/*_test.cpp          the tests; the other .cpp files of that folder are helpers of this one program
#   tests/support/*.h                the tests' host, scenes and frames, in headers that all programs share
#   scenes/                          scenes that all programs share
if(NOT EXISTS ${CMAKE_BINARY_DIR}/headers/doctest/doctest.h)
    message(FATAL_ERROR "The tests need doctest: run tools/setup check, or configure with -DKARDENO_TESTS=OFF")
endif()

set(test_folder ${PROJECT_SOURCE_DIR}/tests)

# Wine's server must be running before the first program for Windows starts. Otherwise that program starts the server,
# which inherits the pipe that CTest reads, and CTest waits for the server to end.
if(WIN32 AND CMAKE_CROSSCOMPILING)
    math(EXPR address_bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    add_test(NAME fixture_wine COMMAND ${PROJECT_SOURCE_DIR}/tools/wine ${address_bits} start)
    set_tests_properties(fixture_wine PROPERTIES FIXTURES_SETUP emulator)
endif()

add_library(test_options INTERFACE)
target_link_libraries(test_options INTERFACE
    kardeno_headers kardeno_arithmetic kardeno_warnings third_party_headers ${CMAKE_DL_LIBS})

add_library(test_main OBJECT ${test_folder}/test_main.cpp)
target_link_libraries(test_main PRIVATE test_options)

# A test program is one entry of CTest. It runs in the top folder of the sources, so that a file that it reads has the
# same name in every build.
function(kardeno_add_test_program program)
    add_executable(${program} ${ARGN})
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
    target_link_libraries(${program} PRIVATE test_options test_main)
    add_test(NAME ${program} COMMAND ${program} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${program} PROPERTIES FIXTURES_REQUIRED emulator)
endfunction()

# The scenes that all test programs share.
file(GLOB scene_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/scenes/*.cpp)
add_library(scenes OBJECT ${scene_sources})
target_link_libraries(scenes PRIVATE test_options)

foreach(room ${kardeno_rooms} scenes robustness reference library)
    file(GLOB sources CONFIGURE_DEPENDS ${test_folder}/${room}/*.cpp)
    if(sources)
        kardeno_add_test_program(tests_${room} ${sources})
        target_link_libraries(tests_${room} PRIVATE scenes kardeno_objects)
    endif()
endforeach()

# The tests that see the library as a host does load it from its file.
if(TARGET tests_library)
    add_dependencies(tests_library kardeno_soft)
    set_tests_properties(tests_library PROPERTIES ENVIRONMENT "KARDENO_LIBRARY=$<TARGET_FILE:kardeno_soft>")
endif()
