# CPack calls this when what belongs into the archive stands in a folder.
set(archive ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.${CPACK_KARDENO_ENDING})
execute_process(COMMAND ${CPACK_KARDENO_PACK} ${CPACK_TEMPORARY_DIRECTORY} ${archive} COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES ${archive})
