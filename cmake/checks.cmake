# The checks beside the tests look at the built library and its objects from outside, and at the rules that the sources
# keep to. Each is an entry of CTest named check_*.
set(tools ${PROJECT_SOURCE_DIR}/tools)

add_test(NAME check_exports COMMAND ${tools}/check_exports exports $<TARGET_FILE:kardeno_soft>)

if(NOT KARDENO_SANITIZED)
    # The sanitizers bring their own libraries and their own work at load.
    if(WIN32)
        set(allowed_imports KERNEL32.dll msvcrt.dll)
    else()
        set(allowed_imports libc.so.6)
    endif()
    add_test(NAME check_imports COMMAND ${tools}/check_exports imports $<TARGET_FILE:kardeno_soft> ${allowed_imports})
    add_test(NAME check_nothing_runs_at_load
        COMMAND ${tools}/check_objects initialisers
            $<TARGET_OBJECTS:kardeno_objects> $<TARGET_OBJECTS:kardeno_soft>
        COMMAND_EXPAND_LISTS)
endif()

if(NOT KARDENO_SOURCE_CHECKS)
    return()
endif()

add_test(NAME check_includes COMMAND ${tools}/check_includes)
add_test(NAME check_behaviours COMMAND ${tools}/check_behaviours)

# The two checks that compile do so as part of the test, so that what they find is a failed test and not a failed build.
function(add_compiling_check name target)
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${target} -- -k 0)
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK build_folder)
endfunction()

# Every header compiles alone, and the public one also as C.
set(alone ${CMAKE_BINARY_DIR}/headers_alone)
set(header_users ${alone}/kardeno_soft.c)
file(CONFIGURE OUTPUT ${alone}/kardeno_soft.c CONTENT "#include \"kardeno_soft/kardeno_soft.h\"\n")
foreach(room include/kardeno_soft ${kardeno_rooms})
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/${room}/*.h)
    foreach(header ${headers})
        file(CONFIGURE OUTPUT ${alone}/${header}.cpp CONTENT "#include \"${header}\"\n")
        list(APPEND header_users ${alone}/${header}.cpp)
    endforeach()
endforeach()
kardeno_set_instruction_levels(${header_users})
add_library(headers_alone OBJECT EXCLUDE_FROM_ALL ${header_users})
target_link_libraries(headers_alone PRIVATE kardeno_options)
add_compiling_check(check_headers_compile_alone headers_alone)

# Floating point becomes integer in support/arithmetic*.h alone. tools/check_objects says how this is seen.
set(truncation_users ${kardeno_sources})
list(FILTER truncation_users EXCLUDE REGEX "/support/arithmetic[^/]*\\.cpp$")
add_library(opaque_truncation OBJECT EXCLUDE_FROM_ALL ${truncation_users})
target_compile_definitions(opaque_truncation PRIVATE KARDENO_BUILDING_LIBRARY KARDENO_OPAQUE_TRUNCATION)
target_link_libraries(opaque_truncation PRIVATE kardeno_options)
add_compiling_check(check_opaque_truncation_compiles opaque_truncation)
set_tests_properties(check_opaque_truncation_compiles PROPERTIES FIXTURES_SETUP opaque_truncation)
add_test(NAME check_no_bare_float_to_integer_casts
    COMMAND ${tools}/check_objects truncations $<TARGET_OBJECTS:opaque_truncation> COMMAND_EXPAND_LISTS)
set_tests_properties(check_no_bare_float_to_integer_casts PROPERTIES FIXTURES_REQUIRED opaque_truncation)
