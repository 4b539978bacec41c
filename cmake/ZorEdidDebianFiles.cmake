# What cpack runs over the staged files before it packs them: pages and changelogs compressed as Debian wants them, and
# times that do not depend on when they were staged.
file(GLOB files ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/man1/*.1
                ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog*)
execute_process(COMMAND gzip -9n ${files} COMMAND_ERROR_IS_FATAL ANY)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
                  COMMAND_ERROR_IS_FATAL ANY)
endif()
