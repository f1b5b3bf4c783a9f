# What the tests need of others: GoogleTest, and the peers that results are compared with. A build for another system has
# GoogleTest from its sources, and no peers.
add_library(tessara_peers INTERFACE)
if(CMAKE_CROSSCOMPILING)
  set(INSTALL_GTEST OFF)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  target_include_directories(tessara_peers SYSTEM INTERFACE /usr/src/googletest/googlemock/include)
else()
  find_package(GTest REQUIRED)
  find_package(GEOS REQUIRED)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(MPFR REQUIRED IMPORTED_TARGET mpfr)
  target_link_libraries(tessara_peers INTERFACE GEOS::geos_c PkgConfig::MPFR)
endif()

include(CheckCXXSourceCompiles)
check_cxx_source_compiles("__int128 wide; int main() {}" TESSARA_HAS_INT128)
# g++ 12 calls a library for them on riscv64.
check_cxx_source_compiles("#include <atomic>
int main() { std::atomic<char> byte{0}; char old = 0; return byte.compare_exchange_strong(old, 1); }" TESSARA_HAS_ATOMIC_BYTES)
if(NOT TESSARA_HAS_ATOMIC_BYTES)
  target_link_libraries(tessara_peers INTERFACE atomic)
endif()
check_cxx_source_compiles("#include <cfloat>
static_assert(LDBL_MANT_DIG > DBL_MANT_DIG); int main() {}" TESSARA_HAS_LONG_DOUBLE)

# A text by which a test shows what it needs, and the variable that says whether it is there.
set(tessara_needs
    "support/exact_functions.h" MPFR_FOUND
    "support/geos_peer.h" GEOS_FOUND
    "__int128" TESSARA_HAS_INT128
    "kernel/reference_forms.h" TESSARA_HAS_LONG_DOUBLE)

# Removes from a list of files the tests that need what isn't there.
function(tessara_leave_out_tests tests)
  set(kept)
  foreach(test IN LISTS ${tests})
    set(is_possible ON)
    set(needs ${tessara_needs})
    while(needs)
      list(POP_FRONT needs text found)
      file(STRINGS ${test} lines REGEX "${text}")
      if(lines AND NOT ${found})
        set(is_possible OFF)
      endif()
    endwhile()
    if(is_possible)
      list(APPEND kept ${test})
    endif()
  endforeach()
  set(${tests} ${kept} PARENT_SCOPE)
endfunction()
