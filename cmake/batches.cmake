# The sources of a folder compiled at once take half the time. The kernel isn't among these targets, since a batch of it
# needs more instructions in some operations: it is left to builds whose speed doesn't matter.
set(TESSARA_BATCHES "tessara_objects;tessara_toolkit;tessara_commands" CACHE STRING "Targets that are compiled in batches")

# Makes a target compile all sources of a folder at once; of these folders if any are named. Names in anonymous namespaces
# have to differ within a folder then.
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
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${name})
  endforeach()
endfunction()

# The same for the targets that are named above, with these sources in one batch: those that include a header that takes
# longer than all that they say themselves. Where no target is named, as in the preset debug, each source has to include what
# it needs, and little is compiled after a change.
function(tessara_batch_if_wanted target)
  if(target IN_LIST TESSARA_BATCHES)
    set_source_files_properties(${ARGN} PROPERTIES UNITY_GROUP together)
    tessara_batch(${target})
  endif()
endfunction()
