# oet_add_gtest(<target> [LABELS <label>...]): registers a GoogleTest executable with ctest, every test
# of it carrying the labels given (ctest -L selects by them: "threads" marks the concurrency tests).
#
# Natively every test case becomes its own ctest test (discovered when the tests run). In the Windows
# cross build the executable is registered as one test that runs all its cases in a single wine
# process: starting wine per case is slow, and listing cases through wine at test time adds a second
# wine start per executable for nothing. Test executables registered with plain gtest_discover_tests
# still work there (through CMAKE_CROSSCOMPILING_EMULATOR), only more slowly.
include(GoogleTest)

function(oet_add_gtest target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LABELS")
  set(properties)
  if(arg_LABELS)
    set(properties PROPERTIES LABELS "${arg_LABELS}")
  endif()
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${target} COMMAND ${target} --gtest_brief=1)
    if(arg_LABELS)
      set_tests_properties(${target} ${properties})
    endif()
  else()
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST ${properties})
  endif()
endfunction()
