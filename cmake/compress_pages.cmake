# Debian packages hold man pages and changes compressed. cpack runs this on the installed files of each component.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*/share/man/man1/*.1 ${CPACK_TEMPORARY_DIRECTORY}/*/share/doc/*/changelog)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
