# Stops at once, with one sentence, when this machine lacks what the preset needs: CMake itself would show a screenful
# of a failed trial. KARDENO_NEEDED_TOOLS names groups of tools/setup.
if(KARDENO_NEEDED_TOOLS AND CMAKE_HOST_UNIX)
    execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../tools/setup --look ${KARDENO_NEEDED_TOOLS}
        RESULT_VARIABLE lacks_something ERROR_VARIABLE sentence ERROR_STRIP_TRAILING_WHITESPACE)
    if(lacks_something)
        message(FATAL_ERROR "${sentence}")
    endif()
endif()
