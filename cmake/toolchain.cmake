# Compiler options for all targets: warnings, floating point rules, sanitizers.
set(TESSARA_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined,float-cast-overflow")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Compares precompiled headers by content instead of by time, and lets all build directories share what one compiles.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=true CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${CCACHE_PROGRAM})
endif()

add_library(tessara_build INTERFACE)
target_compile_options(
  tessara_build
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wsign-conversion
            -Wshadow
            -Wnon-virtual-dtor
            -Werror
            # Exact comparisons decide behaviour: no fused multiply-add, no reordering.
            -ffp-contract=off
            -fno-fast-math)

if(TESSARA_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # Names that belong to the compiler, such as _Name or a__b.
  target_compile_options(tessara_build INTERFACE -Wreserved-identifier -Wreserved-macro-identifier)
endif()

# The library's own sources, besides: nobody reads errno or the flags of exceptions, so that a square root is an
# instruction and both sides of a choice may be computed. Results are the same.
add_library(tessara_arithmetic INTERFACE)
target_compile_options(tessara_arithmetic INTERFACE -fno-math-errno -fno-trapping-math)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Where g++ finds a product plus a number beside a product minus a number it makes one instruction of them, on
  # processors that have it, also without contraction.
  target_compile_options(tessara_arithmetic INTERFACE -fno-tree-slp-vectorize)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # With -O3, g++ 12 warns of an overlap in expressions such as "x" + text.
  target_compile_options(tessara_build INTERFACE -Wno-restrict)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 17)
  # std::stable_sort of libstdc++ 12 uses a function that is deprecated, which clang reports since 17.
  target_compile_options(tessara_build INTERFACE -Wno-deprecated-declarations)
endif()

if(TESSARA_SANITIZE)
  add_compile_options(-fsanitize=${TESSARA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TESSARA_SANITIZE})
endif()

# Precompiles the standard headers that most sources of a target include. clang reads the part that a source uses, which
# saves a third of the time. Other builds don't: g++ reads all of it, and clang-tidy can't read those of g++.
function(tessara_precompile target)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND (TESSARA_SANITIZE OR TESSARA_BUILD_WEB))
    target_precompile_headers(
      ${target} PRIVATE <algorithm> <array> <charconv> <cmath> <cstdint> <cstring> <functional> <limits> <map> <memory>
      <optional> <set> <span> <sstream> <stdexcept> <string> <string_view> <tuple> <utility> <vector>)
  endif()
endfunction()

# For sources that include <regex>, in which g++ 12 warns of uninitialized members if sanitizers are on.
add_library(tessara_regex INTERFACE)
if(TESSARA_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tessara_regex INTERFACE -Wno-maybe-uninitialized)
endif()
