# Debian packages contain a changelog in Debian's form, and changelogs and man pages are compressed. cpack runs this
# script on the installed files of each component.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changelog "tessara (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * CHANGELOG.md in the package libtessara-dev lists the changes.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")

set(share ${CPACK_TEMPORARY_DIRECTORY}/*${CPACK_PACKAGING_INSTALL_PREFIX}/share)
file(GLOB documentations ${share}/doc/*)
foreach(documentation IN LISTS documentations)
  file(WRITE ${documentation}/changelog "${changelog}")
endforeach()

file(GLOB pages ${share}/man/man1/*.1 ${share}/doc/*/changelog)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9nf ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
