# Links libraries that `target` tests, their objects ahead of its own. What tests is compiled at another level, and of the
# copies of an inline function the linker keeps the first: it has to be the library's, which is quick and under test.
function(tessara_link_tested target)
  target_link_libraries(${target} PRIVATE ${ARGN})
  foreach(library IN LISTS ARGN)
    # The linker takes an archive last, and object libraries come first as they are.
    get_target_property(type ${library} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
      target_sources(${target} PRIVATE $<TARGET_OBJECTS:${library}>)
    endif()
  endforeach()
endfunction()
