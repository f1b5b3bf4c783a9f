# Debian packages by cpack, one for each component: the library, the files for development, the program, and the Python
# package.
# scripts/package builds them.
set(TESSARA_MAINTAINER "" CACHE STRING "Maintainer of the Debian packages as 'Name <address>'; cpack fails without it")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessara)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development program)
if(TESSARA_BUILD_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
endif()
if(TESSARA_BUILD_POSTGRESQL)
  list(APPEND CPACK_COMPONENTS_ALL postgresql)
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
set(CPACK_COMPONENT_PROGRAM_DEPENDS library)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_files.cmake)

set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${TESSARA_MAINTAINER}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

# The first line of a description is the summary. A common summary would be put before each of them.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${TESSARA_LIBRARY_PACKAGE})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION
    "coordinate calculations for map and geodata applications
Tessara converts positions between 24 coordinate systems and 239 geodetic
datums, reads and writes them as text, relates them to the pixels of maps, and
measures distances, lines and areas.

This package contains the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${TESSARA_DEVELOPMENT_PACKAGE})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "coordinate calculations for map and geodata applications (development)
Tessara converts positions between 24 coordinate systems and 239 geodetic
datums, reads and writes them as text, relates them to the pixels of maps, and
measures distances, lines and areas.

This package contains the headers, the static library of plain functions, the
files for CMake and pkg-config, the manual and example programs.")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME ${TESSARA_PROGRAM_PACKAGE})
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION science)
# `tessara map` calls rsvg-convert to write PNG files.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS librsvg2-bin)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
    "converter for coordinates between systems and geodetic datums
The command tessara converts positions, in degrees or as the texts of a
coordinate system, to 21 systems and 239 geodetic datums. It reads and writes
lines, CSV, JSON lines and GeoJSON points, checks typed positions, solves
geodesics, and draws windows of maps as SVG or PNG files.")

if(TESSARA_BUILD_PYTHON)
  # The module fits one version of the interpreter.
  math(EXPR next_minor "${TESSARA_PYTHON_MINOR} + 1")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME ${TESSARA_PYTHON_PACKAGE})
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.${TESSARA_PYTHON_MINOR}), python3 (<< 3.${next_minor}), python3-numpy")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-pandas, python3-geopandas")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/python3-tessara/postinst
                                                ${CMAKE_CURRENT_LIST_DIR}/python3-tessara/prerm)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_STRICT_PERMISSION ON)
  set(CPACK_DEBIAN_PYTHON_DESCRIPTION
      "coordinate calculations for map and geodata applications (Python)
Tessara converts positions between 24 coordinate systems and 239 geodetic
datums: numbers, lists, NumPy arrays and pandas Series in, the same out. It
reads and writes positions as texts, solves geodesics, and draws maps that
notebooks show.

This package contains the module for Python 3, which needs no other package of
the library.")
endif()

if(TESSARA_BUILD_POSTGRESQL)
  set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_NAME ${TESSARA_POSTGRESQL_PACKAGE})
  set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_SECTION database)
  set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_DEPENDS "postgresql-15")
  set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_SUGGESTS "postgresql-15-postgis-3")
  set(CPACK_DEBIAN_POSTGRESQL_DESCRIPTION
      "coordinate systems and military references for PostgreSQL 15
The extension tessara converts positions between 24 coordinate systems and
239 geodetic datums within the database. Military references are a type with
indexes on squares, positions a type that is read from typed texts.

The extension tessara_postgis casts positions to the types of PostGIS.")
endif()

include(CPack)
