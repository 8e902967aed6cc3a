# Stops at once, with one sentence, when this machine lacks what the groups of packages hold (tools/setup lists them).
# Toolchain files call it: CMake itself would show a screenful of a failed trial.
function(kardeno_needs)
    get_property(is_trial GLOBAL PROPERTY IN_TRY_COMPILE)
    if(is_trial OR NOT CMAKE_HOST_UNIX)
        return()
    endif()
    execute_process(COMMAND ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../tools/setup --look ${ARGN}
        RESULT_VARIABLE result ERROR_VARIABLE sentence)
    if(result)
        message(FATAL_ERROR "${sentence}")
    endif()
endfunction()
