# Every file of the package gets the time of SOURCE_DATE_EPOCH, so that the same sources make the same package.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(
    COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
