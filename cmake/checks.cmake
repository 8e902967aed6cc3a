# The checks beside the tests look at the built library and its objects from outside, and at the rules that the sources
# keep to. Each is an entry of CTest named check_*.
set(tools ${PROJECT_SOURCE_DIR}/tools)

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    kardeno_not_here(check_exports "an archive has neither exports nor imports")
else()
    add_test(NAME check_exports COMMAND ${tools}/check_exports exports $<TARGET_FILE:kardeno_soft>)
    add_test(NAME check_exports_checked COMMAND ${tools}/check_exports exports $<TARGET_FILE:kardeno_soft_checked>)
endif()

if(NOT KARDENO_SANITIZED AND NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    # The sanitizers bring their own libraries and their own work at load.
    if(WIN32)
        set(allowed_imports KERNEL32.dll msvcrt.dll)
    else()
        set(allowed_imports libc.so.6 ld-linux-aarch64.so.1)
    endif()
    add_test(NAME check_imports COMMAND ${tools}/check_exports imports $<TARGET_FILE:kardeno_soft> ${allowed_imports})
    add_test(NAME check_imports_checked
        COMMAND ${tools}/check_exports imports $<TARGET_FILE:kardeno_soft_checked> ${allowed_imports})
    add_test(NAME check_nothing_runs_at_load
        COMMAND ${tools}/check_objects initialisers
            $<TARGET_OBJECTS:kardeno_objects> $<TARGET_OBJECTS:kardeno_soft>
            $<TARGET_OBJECTS:kardeno_checked_objects>
        COMMAND_EXPAND_LISTS)
    add_test(NAME check_nothing_of_a_higher_level_is_shared
        COMMAND ${tools}/check_objects levels $<TARGET_OBJECTS:kardeno_objects>
        COMMAND_EXPAND_LISTS)
endif()

# Some checks compile, and do so as part of the test: what they find is a failed test and not a failed build.
function(add_compiling_check name target)
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${target} -- -k 0)
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK build_folder)
endfunction()

# The headers of the library as #include lines would name them.
set(library_headers)
foreach(room ${kardeno_rooms} checked)
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/${room}/*.h)
    list(APPEND library_headers ${headers})
endforeach()
file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/include/*/*.h)
list(APPEND library_headers ${headers})

# Includers of headers, compiled as a check. Each further argument is the name of a file to make, which may include.
function(add_header_check name target)
    kardeno_set_instruction_levels(${ARGN})
    add_library(${target} OBJECT EXCLUDE_FROM_ALL ${ARGN})
    target_link_libraries(${target} PRIVATE kardeno_options)
    add_compiling_check(${name} ${target})
endfunction()

# <windows.h> defines many words as something else, and hosts for Windows include it first: all headers compile behind
# it.
if(WIN32)
    set(folder ${CMAKE_BINARY_DIR}/headers_after_windows)
    list(TRANSFORM library_headers REPLACE "(.+)" "#include \"\\1\"\n" OUTPUT_VARIABLE lines)
    list(JOIN lines "" lines)
    file(CONFIGURE OUTPUT ${folder}/all.cpp CONTENT "#include <windows.h>\n${lines}")
    add_header_check(check_headers_compile_after_windows_h headers_after_windows ${folder}/all.cpp)
endif()

# What a host includes compiles in every version of C and C++ that the compiler knows. On the build that checks the
# sources so does clang, also as a compiler for programs that are built with the vendor's tools for Windows.
function(kardeno_check_header name c_compiler cxx_compiler)
    add_test(NAME check_header_${name} COMMAND ${tools}/check_header ${ARGN} ${c_compiler} ${cxx_compiler})
endfunction()
foreach(language C CXX)
    set(host_compiler_${language} "${CMAKE_${language}_COMPILER} ${CMAKE_${language}_FLAGS}")
    if(CMAKE_${language}_COMPILER_TARGET)
        string(APPEND host_compiler_${language} " --target=${CMAKE_${language}_COMPILER_TARGET}")
    endif()
endforeach()
set(windows_h)
if(WIN32)
    set(windows_h --windows)
endif()
kardeno_check_header(of_hosts "${host_compiler_C}" "${host_compiler_CXX}" ${windows_h})
if(KARDENO_SOURCE_CHECKS)
    find_program(clang NAMES clang-14)
    if(clang)
        foreach(target i686-linux-gnu i686-pc-windows-msvc)
            # Without that vendor's headers the compiler brings those that need no system.
            set(options --target=${target} -ffreestanding)
            list(JOIN options " " options)
            kardeno_check_header(${target} "clang-14 ${options}" "clang++-14 ${options}")
        endforeach()
    else()
        kardeno_not_here(check_header_by_clang "there is no clang-14")
    endif()
endif()

# Hosts are built with the installed library, as others would. A sanitized library is for nobody else.
if(NOT KARDENO_SANITIZED)
    set(compile_and_link "${host_compiler_C}")
    if(NOT WIN32)
        string(APPEND compile_and_link " ${CMAKE_EXE_LINKER_FLAGS}")
    endif()
    add_test(NAME check_packages_installed
        COMMAND ${tools}/check_packages installed ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/packages/installed
            "${CMAKE_TOOLCHAIN_FILE}" "${compile_and_link}" ${CMAKE_CROSSCOMPILING_EMULATOR})
    set_tests_properties(check_packages_installed PROPERTIES FIXTURES_REQUIRED emulator)
    if(WIN32)
        add_test(NAME check_packages_vendors_tools
            COMMAND ${tools}/check_packages vendors_tools ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/packages/vendors_tools
                ${CMAKE_CROSSCOMPILING_EMULATOR})
        set_tests_properties(check_packages_vendors_tools PROPERTIES FIXTURES_REQUIRED emulator)
    endif()
    if(kardeno_symbols_apart)
        add_test(NAME check_packages_debug_symbols
            COMMAND ${tools}/check_packages debug_symbols ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/packages/debug_symbols
                ${CMAKE_NM} ${CMAKE_ADDR2LINE})
        set_tests_properties(check_packages_debug_symbols PROPERTIES RESOURCE_LOCK build_folder)
    endif()
    add_test(NAME check_packages_archives
        COMMAND ${tools}/check_packages archives ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/packages/archives)
    set_tests_properties(check_packages_archives PROPERTIES RESOURCE_LOCK build_folder)
    # The builds of 32 bits stand for the others, and for both kinds of archives.
    if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_SYSTEM_PROCESSOR MATCHES "^i[3-6]86$")
        add_test(NAME check_packages_archives_of_two_builds
            COMMAND ${tools}/check_packages archives_of_two_builds ${CMAKE_BINARY_DIR}
                ${CMAKE_BINARY_DIR}/packages/archives_of_two_builds "${CMAKE_TOOLCHAIN_FILE}")
        set_tests_properties(check_packages_archives_of_two_builds PROPERTIES RESOURCE_LOCK build_folder)
    endif()
endif()

if(NOT KARDENO_SOURCE_CHECKS)
    return()
endif()

add_test(NAME check_packages_sources
    COMMAND ${tools}/check_packages sources ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/packages/sources
        "${CMAKE_TOOLCHAIN_FILE}")

set(reference_warnings FAIL_ON_WARNINGS)
set(reference_output ${PROJECT_BINARY_DIR}/checked_reference)
configure_file(${PROJECT_SOURCE_DIR}/docs/reference/Doxyfile.in ${reference_output}/Doxyfile @ONLY)
add_test(NAME check_reference
    COMMAND ${tools}/make_reference ${reference_output}/Doxyfile ${reference_output}/reference)
add_test(NAME check_links COMMAND ${tools}/check_links ${PROJECT_SOURCE_DIR})
add_test(NAME check_includes COMMAND ${tools}/check_includes)
add_test(NAME check_behaviours COMMAND ${tools}/check_behaviours)
add_test(NAME check_records COMMAND ${tools}/list_records --check)
add_test(NAME check_c_names COMMAND ${tools}/write_c_names --check)
add_test(NAME check_words COMMAND ${tools}/check_words)
add_test(NAME check_documents COMMAND ${tools}/check_documents ${CMAKE_BINARY_DIR} "${host_compiler_C}")
set_tests_properties(check_documents PROPERTIES RESOURCE_LOCK build_folder)
add_test(NAME check_format COMMAND ${tools}/check_format --any-width docs/records.json
    --any-width page/package-lock.json)
add_test(NAME check_tools COMMAND python3 -B -m unittest discover -s ${PROJECT_SOURCE_DIR}/tests/tools -p "*_test.py")

# Every header compiles alone.
set(folder ${CMAKE_BINARY_DIR}/headers_alone)
set(includers)
foreach(header ${library_headers})
    file(CONFIGURE OUTPUT ${folder}/${header}.cpp CONTENT "#include \"${header}\"\n")
    list(APPEND includers ${folder}/${header}.cpp)
endforeach()
add_header_check(check_headers_compile_alone headers_alone ${includers})

# Floating point becomes integer in support/arithmetic*.h alone. tools/check_objects says how this is seen.
set(truncation_users ${kardeno_sources} ${checked_sources})
list(FILTER truncation_users EXCLUDE REGEX "/support/arithmetic[^/]*\\.cpp$")
add_library(opaque_truncation OBJECT EXCLUDE_FROM_ALL ${truncation_users})
target_compile_definitions(opaque_truncation PRIVATE KARDENO_BUILDING_LIBRARY KARDENO_OPAQUE_TRUNCATION)
target_link_libraries(opaque_truncation PRIVATE kardeno_options)
add_compiling_check(check_opaque_truncation_compiles opaque_truncation)
set_tests_properties(check_opaque_truncation_compiles PROPERTIES FIXTURES_SETUP opaque_truncation)
add_test(NAME check_no_bare_float_to_integer_casts
    COMMAND ${tools}/check_objects truncations $<TARGET_OBJECTS:opaque_truncation> COMMAND_EXPAND_LISTS)
set_tests_properties(check_no_bare_float_to_integer_casts PROPERTIES FIXTURES_REQUIRED opaque_truncation)
