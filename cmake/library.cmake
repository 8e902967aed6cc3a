# The library is built of rooms (folders). Each may include headers of itself and of those before it in this list only.
set(kardeno_rooms support host geometry spanbuffer raster frame interface)

# The entry point that Windows calls belongs to the DLL and not to the test programs.
set(library_entry_win32 ${PROJECT_SOURCE_DIR}/interface/library_entry_win32.cpp)

set(kardeno_sources)
foreach(room ${kardeno_rooms})
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${room}/*.cpp)
    list(APPEND kardeno_sources ${sources})
endforeach()
list(REMOVE_ITEM kardeno_sources ${library_entry_win32})
kardeno_set_instruction_levels(${kardeno_sources})
set_property(SOURCE ${PROJECT_SOURCE_DIR}/interface/exports.cpp PROPERTY COMPILE_OPTIONS ${realigning_options})

# The objects are a target of their own, so that tests can link what the library does not export.
add_library(kardeno_objects OBJECT ${kardeno_sources})
target_compile_definitions(kardeno_objects PRIVATE KARDENO_BUILDING_LIBRARY)
target_link_libraries(kardeno_objects PRIVATE kardeno_options)

# WebAssembly has no dynamic libraries that a host could load: a program links the library in.
set(kind SHARED)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    set(kind STATIC)
endif()

# This target and its headers are all that a project which includes ours needs.
add_library(kardeno_soft ${kind} $<TARGET_OBJECTS:kardeno_objects>)
add_library(kardeno_soft::kardeno_soft ALIAS kardeno_soft)
set_target_properties(kardeno_soft PROPERTIES
    LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
target_include_directories(kardeno_soft INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
if(kind STREQUAL "STATIC")
    return()
endif()

if(WIN32)
    # Without the usual start-up files, nothing but our own entry point runs at load. The fixed base address and the
    # missing time stamp make the file depend on the sources alone.
    target_sources(kardeno_soft PRIVATE ${library_entry_win32})
    enable_language(RC)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
    target_sources(kardeno_soft PRIVATE ${PROJECT_BINARY_DIR}/version.rc)
    target_compile_definitions(kardeno_soft PRIVATE KARDENO_BUILDING_LIBRARY)
    target_link_libraries(kardeno_soft PRIVATE kardeno_options)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(entry _DllMain@12)
        set(image_base 0x10000000)
    else()
        set(entry DllMain)
        set(image_base 0x180000000)
    endif()
    target_link_options(kardeno_soft PRIVATE -nostartfiles -static
        -Wl,-e,${entry} -Wl,--image-base,${image_base} -Wl,--no-insert-timestamp)
    set_target_properties(kardeno_soft PROPERTIES PREFIX "")
else()
    set_target_properties(kardeno_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)
    set(version_script ${PROJECT_SOURCE_DIR}/cmake/kardeno_soft.map)
    target_link_options(kardeno_soft PRIVATE -Wl,--version-script,${version_script})
    set_target_properties(kardeno_soft PROPERTIES LINK_DEPENDS ${version_script})
    if(NOT KARDENO_SANITIZED)
        # The library may need only the C library and the compiler's helpers. Anything else is an error when it is
        # linked and not when it is loaded.
        target_link_options(kardeno_soft PRIVATE -nodefaultlibs -Wl,-z,defs)
        target_link_libraries(kardeno_soft PRIVATE c gcc)
    endif()
endif()
