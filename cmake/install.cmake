# What `cmake --install` puts where, and the archives that CPack makes of it. Both can be moved as a whole: nothing in
# them names a folder of the machine.
set(CMAKE_INSTALL_LIBDIR lib CACHE STRING "Folder of libraries below the prefix")
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Everything that is built in order to be installed, and nothing else.
add_custom_target(installed_files DEPENDS kardeno_soft kardeno_soft_checked)

install(TARGETS kardeno_soft EXPORT kardeno_soft)
# The checked library is loaded in place of the plain one, by its name: nothing but its file is needed, and no import
# library.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    install(TARGETS kardeno_soft_checked ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
else()
    install(TARGETS kardeno_soft_checked
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

# Debug symbols are a component of their own, which only those get who ask for it. Debuggers look for the symbols of a
# library beside it.
if(kardeno_symbols_apart)
    set(library_folder ${CMAKE_INSTALL_LIBDIR})
    if(WIN32)
        set(library_folder ${CMAKE_INSTALL_BINDIR})
    endif()
    install(FILES $<TARGET_FILE:kardeno_soft>.debug $<TARGET_FILE:kardeno_soft_checked>.debug
        DESTINATION ${library_folder} COMPONENT debug EXCLUDE_FROM_ALL)
endif()

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/kardeno_soft DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# find_package(kardeno_soft) gives the target kardeno_soft::kardeno_soft.
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/kardeno_soft)
install(EXPORT kardeno_soft NAMESPACE kardeno_soft:: DESTINATION ${package_folder} FILE kardeno_softTargets.cmake)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kardeno_softConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/kardeno_softConfig.cmake
    ${PROJECT_BINARY_DIR}/kardeno_softConfigVersion.cmake DESTINATION ${package_folder})

file(RELATIVE_PATH pc_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${PROJECT_SOURCE_DIR}/cmake/kardeno_soft.pc.in ${PROJECT_BINARY_DIR}/kardeno_soft.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kardeno_soft.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(WIN32)
    # For the vendor's tools: an import library of their form, and the list of names that it is made from. On 32-bit x86
    # the C names have an underscore, in the library as in objects, and the names that the DLL exports have none.
    file(STRINGS ${PROJECT_SOURCE_DIR}/tools/exports.txt names)
    list(JOIN names "\n    " names)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/kardeno_soft.def
        CONTENT "LIBRARY kardeno_soft.dll\nEXPORTS\n    ${names}\n")
    install(FILES ${PROJECT_BINARY_DIR}/kardeno_soft.def DESTINATION ${CMAKE_INSTALL_LIBDIR})

    find_program(llvm_dlltool NAMES llvm-dlltool-14 llvm-dlltool)
    mark_as_advanced(llvm_dlltool)
    if(llvm_dlltool)
        set(import_library ${PROJECT_BINARY_DIR}/kardeno_soft.lib)
        set(machine_of_4 i386)
        set(machine_of_8 i386:x86-64)
        add_custom_command(OUTPUT ${import_library}
            COMMAND ${llvm_dlltool} -m ${machine_of_${CMAKE_SIZEOF_VOID_P}} -d ${PROJECT_BINARY_DIR}/kardeno_soft.def
                -D kardeno_soft.dll -l ${import_library}
            DEPENDS ${PROJECT_BINARY_DIR}/kardeno_soft.def VERBATIM)
        add_custom_target(import_library ALL DEPENDS ${import_library})
        add_dependencies(installed_files import_library)
        install(FILES ${import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR})
    endif()
endif()

# Documents and examples stand to each other as they do in the sources, where they name each other. Links of documents
# to headers lead to the installed ones, and what is not installed is named without a link.
file(RELATIVE_PATH documents_to_headers /prefix/${CMAKE_INSTALL_DOCDIR}/docs /prefix/${CMAKE_INSTALL_INCLUDEDIR})
foreach(document host_guide.md checked_library.md)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/${document})
    file(READ ${PROJECT_SOURCE_DIR}/docs/${document} text)
    string(REPLACE "](../include/" "](${documents_to_headers}/" text "${text}")
    string(REGEX REPLACE "\\[([^]]*)\\]\\((\\.\\./sample_host|performance\\.md)\\)" "\\1" text "${text}")
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${document} CONTENT "${text}" @ONLY)
endforeach()
install(FILES LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_BINARY_DIR}/host_guide.md ${PROJECT_BINARY_DIR}/checked_library.md
    docs/records.md docs/records.json
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(FILES docs/pictures/camera_space.svg docs/pictures/winding.svg docs/pictures/group_walk.svg
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs/pictures)
install(FILES examples/turning_cube.c examples/turning_cube.cpp examples/turning_cube.py examples/small_scene.c
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

# Archives depend on the sources and the compiler alone: tools/pack makes them, since CPack's own have times and owners.
# Debug symbols are in a second archive.
set(kardeno_machine ${CMAKE_SYSTEM_PROCESSOR})
if(kardeno_machine STREQUAL "i686")
    set(kardeno_machine i386)
endif()
string(TOLOWER ${CMAKE_SYSTEM_NAME} kardeno_system)
if(WIN32)
    math(EXPR kardeno_machine "8 * ${CMAKE_SIZEOF_VOID_P}")
    set(kardeno_system_and_machine win${kardeno_machine})
    set(CPACK_KARDENO_ENDING zip)
elseif(kardeno_machine STREQUAL "wasm32")
    set(kardeno_system_and_machine wasm32)
    set(CPACK_KARDENO_ENDING tar.gz)
else()
    set(kardeno_system_and_machine ${kardeno_system}-${kardeno_machine})
    set(CPACK_KARDENO_ENDING tar.gz)
endif()
set(CPACK_GENERATOR External)
set(CPACK_EXTERNAL_ENABLE_STAGING ON)
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_EXTERNAL_PACKAGE_SCRIPT ${PROJECT_SOURCE_DIR}/cmake/pack.cmake)
set(CPACK_PACKAGE_NAME kardeno_soft)
set(CPACK_PACKAGE_VENDOR kardeno_soft)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_FILE_NAME kardeno_soft-${PROJECT_VERSION}-${kardeno_system_and_machine})
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES OFF)
set(CPACK_KARDENO_PACK ${PROJECT_SOURCE_DIR}/tools/pack)
if(kardeno_symbols_apart)
    set(CPACK_KARDENO_SYMBOLS_OF ${PROJECT_BINARY_DIR})
endif()
include(CPack)
