# The version stands in the headers, where hosts see it, and nowhere else.
set(version_header ${CMAKE_CURRENT_LIST_DIR}/../include/kardeno_soft/version.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${version_header})
file(STRINGS ${version_header} kardeno_version REGEX "define KARDENO_VERSION ")
string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" kardeno_version "${kardeno_version}")
