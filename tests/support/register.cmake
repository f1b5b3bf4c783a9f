include(GoogleTest)

# Makes ctest run the tests of a program: each in a process of its own, or in a few shards with sanitizers, which spend
# most of the time on starting processes. A script runs the tests of a build for another system.
function(tessara_register_tests program shards)
  if(CMAKE_CROSSCOMPILING)
    return()
  endif()
  if(NOT TESSARA_SANITIZE)
    gtest_discover_tests(${program} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 60)
    return()
  endif()
  foreach(shard RANGE 1 ${shards})
    math(EXPR index "${shard} - 1")
    add_test(NAME ${program}_${shard} COMMAND ${program} --gtest_brief=1)
    set_tests_properties(${program}_${shard} PROPERTIES TIMEOUT 900 ENVIRONMENT
                                                        "GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${index}")
  endforeach()
endfunction()
