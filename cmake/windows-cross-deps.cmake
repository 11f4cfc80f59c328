# Third-party packages for the Windows cross build.
#
# The cross build searches only the MinGW sysroot (see cmake/mingw-w64-x86_64.cmake), where Debian
# ships none of our test and tool dependencies. This file makes the ordinary
#   find_package(GTest) / find_package(nlohmann_json) / find_package(CLI11)
# calls anywhere in the tree succeed there anyway, through CMake's package redirects directory
# (CMAKE_FIND_PACKAGE_REDIRECTS_DIR, consulted before any other search):
#  - GoogleTest is built from Debian's sources in /usr/src/googletest with the cross-compiler, and its
#    targets get the usual GTest:: names.
#  - nlohmann-json and CLI11 are header-only: their header folders (only those, not the build
#    machine's /usr/include) are copied into <build>/cross-headers/include and offered as INTERFACE
#    IMPORTED targets nlohmann_json::nlohmann_json and CLI11::CLI11.
# Include it before the project's own warning options so that GoogleTest is built with its own.

set(_oet_redirects "${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}")
set(_oet_headers "${PROJECT_BINARY_DIR}/cross-headers/include")

# Makes find_package(<package>) load `body`; any requested version is accepted, since the build
# machine's copy is the one there is.
function(oet_cross_package_redirect package body)
  string(TOLOWER "${package}" lower)
  file(WRITE "${_oet_redirects}/${lower}-config.cmake" "${body}")
  file(WRITE "${_oet_redirects}/${lower}-config-version.cmake"
       "set(PACKAGE_VERSION_COMPATIBLE TRUE)\nset(PACKAGE_VERSION_EXACT FALSE)\n")
endfunction()

# A header-only package: copy its header folder and write a config file that defines its target.
function(oet_cross_header_package package target probe_header folder)
  find_path(_oet_dir ${probe_header} PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  if(NOT _oet_dir)
    message(STATUS "${package}: ${probe_header} not found on the build machine; find_package(${package}) will fail")
    unset(_oet_dir CACHE)
    return()
  endif()
  file(COPY "${_oet_dir}/${folder}" DESTINATION "${_oet_headers}")
  unset(_oet_dir CACHE)
  string(CONCAT body
    "if(NOT TARGET ${target})\n"
    "  add_library(${target} INTERFACE IMPORTED)\n"
    "  set_target_properties(${target} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES \"${_oet_headers}\")\n"
    "endif()\n")
  oet_cross_package_redirect(${package} "${body}")
endfunction()

oet_cross_header_package(nlohmann_json nlohmann_json::nlohmann_json nlohmann/json.hpp nlohmann)
oet_cross_header_package(CLI11 CLI11::CLI11 CLI/CLI.hpp CLI)

set(OET_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest sources built for the cross build")
if(OET_BUILD_TESTS)
  if(NOT EXISTS "${OET_GOOGLETEST_SOURCE}/CMakeLists.txt")
    message(FATAL_ERROR "GoogleTest sources not found in ${OET_GOOGLETEST_SOURCE} (install googletest)")
  endif()
  set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
  add_subdirectory("${OET_GOOGLETEST_SOURCE}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  foreach(lib gtest gtest_main gmock gmock_main)
    if(NOT TARGET GTest::${lib})
      add_library(GTest::${lib} ALIAS ${lib})
    endif()
  endforeach()
  oet_cross_package_redirect(GTest "# GoogleTest is built in this tree: see cmake/windows-cross-deps.cmake.\n")
endif()

unset(_oet_redirects)
