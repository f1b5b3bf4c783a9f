# CLI11::CLI11 and nlohmann_json::nlohmann_json. Both consist of headers only, so a build for another system can use those
# of this system, through a directory that contains no other headers.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
  return()
endif()

set(headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(name CLI nlohmann)
  find_path(${name}_PARENT ${name} PATHS /usr/include /usr/local/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(CREATE_LINK ${${name}_PARENT}/${name} ${headers}/${name} SYMBOLIC)
endforeach()
foreach(target CLI11::CLI11 nlohmann_json::nlohmann_json)
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} INTERFACE ${headers})
endforeach()
