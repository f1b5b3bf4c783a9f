# One source knows where the tree stands: paths.h.
set_source_files_properties(
  ${CMAKE_SOURCE_DIR}/tests/support/paths.cpp
  PROPERTIES COMPILE_DEFINITIONS "TESSARA_SOURCE_DIR=\"${CMAKE_SOURCE_DIR}\";TESSARA_BINARY_DIR=\"${CMAKE_BINARY_DIR}\"")
