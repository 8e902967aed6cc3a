# What `cmake --install` puts where, and the archives that CPack makes of it. Both can be moved as a whole: nothing in
# them names a folder of the machine.
set(CMAKE_INSTALL_LIBDIR lib CACHE STRING "Folder of libraries below the prefix")
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS kardeno_soft EXPORT kardeno_soft)
# The checked library is loaded in place of the plain one, by its name: nothing but its file is needed, and no import
# library.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    install(TARGETS kardeno_soft_checked ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
else()
    install(TARGETS kardeno_soft_checked
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/kardeno_soft DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# find_package(kardeno_soft) gives the target kardeno_soft::kardeno_soft.
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/kardeno_soft)
install(EXPORT kardeno_soft NAMESPACE kardeno_soft:: DESTINATION ${package_folder} FILE kardeno_softConfig.cmake)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kardeno_softConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kardeno_softConfigVersion.cmake DESTINATION ${package_folder})

file(RELATIVE_PATH pc_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${PROJECT_SOURCE_DIR}/cmake/kardeno_soft.pc.in ${PROJECT_BINARY_DIR}/kardeno_soft.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kardeno_soft.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(WIN32)
    # For the vendor's tools, which make an import library of their own form from it: lib /def:kardeno_soft.def
    file(STRINGS ${PROJECT_SOURCE_DIR}/tools/exports.txt names)
    list(JOIN names "\n    " names)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/kardeno_soft.def
        CONTENT "LIBRARY kardeno_soft.dll\nEXPORTS\n    ${names}\n")
    install(FILES ${PROJECT_BINARY_DIR}/kardeno_soft.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

# Documents and examples stand to each other as they do in the sources, where they name each other.
install(FILES LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/host_guide.md docs/checked_library.md docs/records.md docs/records.json
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(FILES examples/turning_cube.c examples/turning_cube.cpp examples/turning_cube.py examples/small_scene.c
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

# Archives depend on the sources and the compiler alone: tools/pack makes them, since CPack's own have times and owners.
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
set(CPACK_EXTERNAL_PACKAGE_SCRIPT ${PROJECT_SOURCE_DIR}/cmake/pack.cmake)
set(CPACK_PACKAGE_NAME kardeno_soft)
set(CPACK_PACKAGE_VENDOR kardeno_soft)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_FILE_NAME kardeno_soft-${PROJECT_VERSION}-${kardeno_system_and_machine})
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES OFF)
set(CPACK_KARDENO_PACK ${PROJECT_SOURCE_DIR}/tools/pack)
include(CPack)
