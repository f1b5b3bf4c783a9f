# Several sources of a folder compiled at once, which takes half the time.
option(TESSARA_BATCHES "Compile the sources of the library, the toolkit and the program in batches" OFF)

# Makes a target compile these sources at once: those that include a header that takes longer than all that they say
# themselves.
function(tessara_compile_together target)
  set_source_files_properties(${ARGN} PROPERTIES UNITY_GROUP together)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# Makes a target compile eight sources of a folder at a time; of these folders if any are named. Names in anonymous
# namespaces have to differ within a folder then.
function(tessara_batch target)
  get_target_property(sources ${target} SOURCES)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source OUTPUT_VARIABLE folder)
    cmake_path(GET folder PARENT_PATH folder)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    if(ARGN AND NOT folder IN_LIST ARGN)
      continue()
    endif()
    get_source_file_property(group ${source} UNITY_GROUP)
    if(group)
      continue()
    endif()
    string(MAKE_C_IDENTIFIER "${folder}" name)
    math(EXPR count_${name} "${count_${name}} + 1")
    math(EXPR batch "(${count_${name}} - 1) / 8")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${name}_${batch})
  endforeach()
endfunction()

# The same where a preset asks for it: one that builds everything from nothing to check it, and not one that people work
# with, in which each source has to include what it needs.
function(tessara_batch_sources)
  if(TESSARA_BATCHES)
    foreach(target IN LISTS ARGN)
      tessara_batch(${target})
    endforeach()
  endif()
endfunction()
