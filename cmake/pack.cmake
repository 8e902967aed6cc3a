# CPack calls this when what belongs into the archive stands in a folder.
set(archive ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.${CPACK_KARDENO_ENDING})
execute_process(COMMAND ${CPACK_KARDENO_PACK} ${CPACK_TEMPORARY_DIRECTORY} ${archive} COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES ${archive})

# Unpacked in the same place, the archive of the debug symbols puts each file beside its library.
if(CPACK_KARDENO_SYMBOLS_OF)
    set(folder ${CPACK_TOPLEVEL_DIRECTORY}/debug)
    set(archive ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}-debug.${CPACK_KARDENO_ENDING})
    file(REMOVE_RECURSE ${folder})
    execute_process(
        COMMAND ${CMAKE_COMMAND} --install ${CPACK_KARDENO_SYMBOLS_OF} --prefix ${folder} --component debug
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CPACK_KARDENO_PACK} ${folder} ${archive} ${CPACK_PACKAGE_FILE_NAME}
        COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND CPACK_EXTERNAL_BUILT_PACKAGES ${archive})
endif()
