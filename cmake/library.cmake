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

# The checked library looks at what a host hands over before the same objects do the work. Only the exported functions
# are others.
file(GLOB checked_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/checked/*.cpp)
set_property(SOURCE ${PROJECT_SOURCE_DIR}/checked/checked_exports.cpp PROPERTY COMPILE_OPTIONS ${realigning_options})
add_library(kardeno_checked_objects OBJECT EXCLUDE_FROM_ALL ${checked_sources})
set(kardeno_objects_without_exports $<FILTER:$<TARGET_OBJECTS:kardeno_objects>,EXCLUDE,/interface/exports\\.cpp\\.>)

foreach(objects kardeno_objects kardeno_checked_objects)
    target_compile_definitions(${objects} PRIVATE KARDENO_BUILDING_LIBRARY)
    target_link_libraries(${objects} PRIVATE kardeno_options)
endforeach()

# WebAssembly has no dynamic libraries that a host could load: a program links the library in.
set(kind SHARED)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    set(kind STATIC)
endif()

# This target and its headers are all that a project which includes ours needs. Who wants the checked library too asks
# for it by its name.
add_library(kardeno_soft ${kind} $<TARGET_OBJECTS:kardeno_objects>)
add_library(kardeno_soft::kardeno_soft ALIAS kardeno_soft)
add_library(kardeno_soft_checked ${kind}
    ${kardeno_objects_without_exports} $<TARGET_OBJECTS:kardeno_checked_objects>)
add_library(kardeno_soft::kardeno_soft_checked ALIAS kardeno_soft_checked)
if(NOT PROJECT_IS_TOP_LEVEL)
    set_target_properties(kardeno_soft_checked PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
foreach(library kardeno_soft kardeno_soft_checked)
    set_target_properties(${library} PROPERTIES
        LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    target_include_directories(${library} INTERFACE
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
endforeach()
if(kind STREQUAL "STATIC")
    return()
endif()

if(WIN32)
    # Without the usual start-up files, nothing but our own entry point runs at load. The fixed base address and the
    # missing time stamp make the file depend on the sources alone.
    enable_language(RC)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(entry _DllMain@12)
        set(image_base_of_kardeno_soft 0x10000000)
        set(image_base_of_kardeno_soft_checked 0x11000000)
    else()
        set(entry DllMain)
        set(image_base_of_kardeno_soft 0x180000000)
        set(image_base_of_kardeno_soft_checked 0x181000000)
    endif()
    foreach(library kardeno_soft kardeno_soft_checked)
        configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${PROJECT_BINARY_DIR}/${library}.rc @ONLY)
        target_sources(${library} PRIVATE ${library_entry_win32} ${PROJECT_BINARY_DIR}/${library}.rc)
        target_compile_definitions(${library} PRIVATE KARDENO_BUILDING_LIBRARY)
        target_link_libraries(${library} PRIVATE kardeno_options)
        target_link_options(${library} PRIVATE -nostartfiles -static
            -Wl,-e,${entry} -Wl,--image-base,${image_base_of_${library}} -Wl,--no-insert-timestamp)
        set_target_properties(${library} PROPERTIES PREFIX "")
    endforeach()
else()
    set_target_properties(kardeno_objects kardeno_checked_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)
    set(version_script ${PROJECT_SOURCE_DIR}/cmake/kardeno_soft.map)
    foreach(library kardeno_soft kardeno_soft_checked)
        target_link_options(${library} PRIVATE -Wl,--version-script,${version_script})
        set_target_properties(${library} PROPERTIES LINK_DEPENDS ${version_script})
        if(NOT KARDENO_SANITIZED)
            # The library may need only the C library and the compiler's helpers. Anything else is an error when it is
            # linked and not when it is loaded.
            target_link_options(${library} PRIVATE -nodefaultlibs -Wl,-z,defs)
            target_link_libraries(${library} PRIVATE c gcc)
        endif()
    endforeach()
endif()
