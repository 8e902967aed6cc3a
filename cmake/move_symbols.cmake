# cmake -D LIBRARY=... -D OBJCOPY=... -P move_symbols.cmake
#
# Moves the debug symbols of a library into LIBRARY.debug. From a library that names such a file they have been moved
# already: a build may run this once more without having linked the library again.
file(STRINGS ${LIBRARY} link REGEX "\\.gnu_debuglink")
if(link)
    return()
endif()

# --preserve-dates keeps the time that files for Windows hold; otherwise it would be the time of the build.
execute_process(COMMAND ${OBJCOPY} --preserve-dates --only-keep-debug ${LIBRARY} ${LIBRARY}.debug
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${OBJCOPY} --preserve-dates --strip-debug --add-gnu-debuglink=${LIBRARY}.debug ${LIBRARY}
    COMMAND_ERROR_IS_FATAL ANY)
