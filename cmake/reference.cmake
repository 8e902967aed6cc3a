# The reference of the installed headers (target `reference`), made wherever there is Doxygen, and installed then.
find_program(doxygen doxygen)
mark_as_advanced(doxygen)
# What Doxygen complains of is a matter of the check check_reference and stops no build.
set(reference_warnings NO)
set(reference_output ${PROJECT_BINARY_DIR})
configure_file(${PROJECT_SOURCE_DIR}/docs/reference/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)

set(reference_folder ${PROJECT_BINARY_DIR}/reference)
file(GLOB reference_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/kardeno_soft/*.h
    ${PROJECT_SOURCE_DIR}/docs/reference/* ${PROJECT_SOURCE_DIR}/docs/pictures/*.svg)
add_custom_command(OUTPUT ${reference_folder}/index.html
    COMMAND ${PROJECT_SOURCE_DIR}/tools/make_reference ${PROJECT_BINARY_DIR}/Doxyfile ${reference_folder}
    DEPENDS ${reference_sources} ${PROJECT_BINARY_DIR}/Doxyfile
        ${PROJECT_SOURCE_DIR}/tools/make_reference ${PROJECT_SOURCE_DIR}/tools/reference_input
    VERBATIM)
set(in_all)
if(doxygen AND KARDENO_INSTALL AND NOT KARDENO_SANITIZED)
    set(in_all ALL)
    install(DIRECTORY ${reference_folder} DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()
add_custom_target(reference ${in_all} DEPENDS ${reference_folder}/index.html)
if(in_all)
    add_dependencies(installed_files reference)
endif()
