# Where `cmake --install` puts each file, in components: the library, the files for development, the program, and the
# Python package, whose files bindings/python names.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/tessara)

set_target_properties(tessara_kernel PROPERTIES EXPORT_NAME kernel)
set_target_properties(tessara_headers PROPERTIES EXPORT_NAME headers)
install(
  TARGETS tessara
  EXPORT tessara
  LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(
  TARGETS tessara_kernel tessara_headers
  EXPORT tessara
  ARCHIVE COMPONENT development)
install(
  DIRECTORY include/tessara
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development)

# find_package(tessara)
install(
  EXPORT tessara
  FILE tessara-config.cmake
  NAMESPACE tessara::
  DESTINATION ${package_dir}
  COMPONENT development)
write_basic_package_version_file(tessara-config-version.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/tessara-config-version.cmake
  DESTINATION ${package_dir}
  COMPONENT development)

# pkg-config tessara, pkg-config tessara-kernel. The paths in these files are relative, so that the tree can be moved.
file(RELATIVE_PATH pc_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
foreach(name tessara tessara-kernel)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
endforeach()

# Documentation goes to a directory named after the Debian package of the component.
set(TESSARA_LIBRARY_PACKAGE libtessara${PROJECT_VERSION_MAJOR})
set(TESSARA_DEVELOPMENT_PACKAGE libtessara-dev)
set(TESSARA_PROGRAM_PACKAGE tessara)
set(TESSARA_PYTHON_PACKAGE python3-tessara)
set(TESSARA_POSTGRESQL_PACKAGE postgresql-15-tessara)
set(doc_root ${CMAKE_INSTALL_DATADIR}/doc)
set(components library development)
if(TESSARA_BUILD_PROGRAM)
  list(APPEND components program)
endif()
if(TESSARA_BUILD_PYTHON)
  list(APPEND components python)
endif()
if(TESSARA_BUILD_POSTGRESQL)
  list(APPEND components postgresql)
endif()
foreach(component IN LISTS components)
  string(TOUPPER ${component} name)
  install(
    FILES cmake/copyright
    DESTINATION ${doc_root}/${TESSARA_${name}_PACKAGE}
    COMPONENT ${component})
endforeach()
install(
  FILES CHANGELOG.md
  DESTINATION ${doc_root}/${TESSARA_DEVELOPMENT_PACKAGE}
  COMPONENT development)
install(
  DIRECTORY examples
  DESTINATION ${doc_root}/${TESSARA_DEVELOPMENT_PACKAGE}
  COMPONENT development)
install(
  DIRECTORY docs
  DESTINATION ${doc_root}/${TESSARA_DEVELOPMENT_PACKAGE}
  COMPONENT development
  FILES_MATCHING
  PATTERN "*.md"
  PATTERN "*.ipynb"
  PATTERN "*.svg")

# The manual that scripts/docs has built; without it the pages in Markdown and the headers have the same text.
set(TESSARA_MANUAL "" CACHE PATH "Directory of the built manual to install; empty for none")
if(TESSARA_MANUAL)
  install(
    DIRECTORY ${TESSARA_MANUAL}/
    DESTINATION ${doc_root}/${TESSARA_DEVELOPMENT_PACKAGE}/html
    COMPONENT development)
endif()

if(TESSARA_BUILD_PROGRAM)
  install(TARGETS tessara_program COMPONENT program)
endif()

if(TARGET tessara_manual)
  install(
    FILES ${CMAKE_BINARY_DIR}/program/tessara.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT program)
  install(
    FILES ${CMAKE_BINARY_DIR}/program/tessara.bash-completion
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tessara
    COMPONENT program)
endif()
