# oet_add_gtest(<target>): registers a GoogleTest executable with ctest.
#
# Natively every test case becomes its own ctest test (discovered when the tests run). In the Windows
# cross build the executable is registered as one test that runs all its cases in a single wine
# process: starting wine per case is slow, and listing cases through wine at test time adds a second
# wine start per executable for nothing. Test executables registered with plain gtest_discover_tests
# still work there (through CMAKE_CROSSCOMPILING_EMULATOR), only more slowly.
include(GoogleTest)

function(oet_add_gtest target)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${target} COMMAND ${target} --gtest_brief=1)
  else()
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST)
  endif()
endfunction()
