# Packaging of oEventTracker: one version, the public headers, their self-containment check, the
# install rules and the CMake package. Included at the end of the top-level CMakeLists.txt.
#
# - The project version (project() in CMakeLists.txt) is the one version. The macros of
#   include/oEventTracker/version.h must equal it (checked here); it gives both shared libraries their
#   VERSION and SOVERSION (the Linux SONAME), the Windows DLLs their version resource and the package
#   its version file.
# - The public headers are every header in include/oEventTracker/ and its subfolders, plus the
#   platform headers that they include, found by following their #include "oKstPlatform/..." lines. A
#   public header that includes any other header of this tree (core/, testing/, ...) stops the
#   configuration: it would not be installed.
# - oet_header_check (built with the tests) compiles each public header alone, twice in one file, against the installed
#   layout (include/ and a copy of the platform headers, nothing else of this tree), with the
#   project's warnings as errors. Headers added later are picked up by the glob at the next build.
# - With OET_INSTALL (on by default only when this is the top-level project), `cmake --install`
#   installs the two shared libraries, the public headers and the package oEventTracker: export set
#   oEventTrackerTargets, targets oEventTracker::oEventTracker and oEventTracker::oKstPlatform, and the
#   pkg-config file oEventTracker.pc.
#   Nothing of testing/, tools/, bench/, tests/ or their dependencies is installed.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# ---- The version

file(STRINGS "${PROJECT_SOURCE_DIR}/include/oEventTracker/version.h" oet_version_lines
     REGEX "^#define OET_VERSION_(MAJOR|MINOR|PATCH|STRING) ")
set(oet_header_version "")
foreach(part IN ITEMS MAJOR MINOR PATCH)
  if(NOT oet_version_lines MATCHES "#define OET_VERSION_${part} ([0-9]+)")
    message(FATAL_ERROR "include/oEventTracker/version.h: no OET_VERSION_${part}")
  endif()
  list(APPEND oet_header_version ${CMAKE_MATCH_1})
endforeach()
list(JOIN oet_header_version "." oet_header_version)
if(NOT oet_version_lines MATCHES "#define OET_VERSION_STRING \"([^\"]*)\"")
  message(FATAL_ERROR "include/oEventTracker/version.h: no OET_VERSION_STRING")
endif()
if(NOT oet_header_version VERSION_EQUAL PROJECT_VERSION OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "include/oEventTracker/version.h says ${oet_header_version} (\"${CMAKE_MATCH_1}\"), "
                      "the project is ${PROJECT_VERSION}: bump both together")
endif()

# Until 1.0 a minor release may change the binary interface, so the SONAME and the package
# compatibility follow major.minor; from 1.0 on, the major version alone.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(OET_SOVERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
  set(oet_compatibility SameMinorVersion)
else()
  set(OET_SOVERSION "${PROJECT_VERSION_MAJOR}")
  set(oet_compatibility SameMajorVersion)
endif()
set_target_properties(oEventTracker oKstPlatform PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${OET_SOVERSION})

# Windows: a version resource in each DLL (file and product version, product name, description),
# compiled with the cross windres into an object file that the DLL links.
if(WIN32)
  find_program(OET_WINDRES NAMES ${CMAKE_RC_COMPILER} x86_64-w64-mingw32-windres windres REQUIRED)
  function(oet_version_resource target description)
    set(OET_RC_FILE_NAME "$<TARGET_FILE_NAME:${target}>")
    set(OET_RC_INTERNAL_NAME "${target}")
    set(OET_RC_DESCRIPTION "${description}")
    string(REPLACE "." "," OET_RC_VERSION_COMMAS "${PROJECT_VERSION}.0")
    set(rc "${PROJECT_BINARY_DIR}/generated/${target}_version.rc")
    set(obj "${PROJECT_BINARY_DIR}/generated/${target}_version.res.obj")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${rc}.in" @ONLY)
    file(GENERATE OUTPUT "${rc}" INPUT "${rc}.in")
    add_custom_command(OUTPUT "${obj}"
                       COMMAND ${OET_WINDRES} --input-format=rc --output-format=coff -i "${rc}" -o "${obj}"
                       DEPENDS "${rc}" "${PROJECT_SOURCE_DIR}/cmake/version.rc.in"
                       COMMENT "Version resource of ${target}")
    set_source_files_properties("${obj}" PROPERTIES EXTERNAL_OBJECT TRUE GENERATED TRUE)
    target_sources(${target} PRIVATE "${obj}")
  endfunction()
  oet_version_resource(oEventTracker "oEventTracker product analytics library")
  oet_version_resource(oKstPlatform "oEventTracker host platform library")
endif()

# ---- The public headers

file(GLOB_RECURSE oet_public_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/oEventTracker/*.h")

# Follows the quoted includes of the public headers; sets `out` to the platform files they reach
# (paths relative to platform/include, such as oKstPlatform/kst_string.h).
function(oet_platform_headers_of out)
  set(queue ${ARGN})
  set(found "")
  while(queue)
    list(POP_FRONT queue header)
    # Editing a header may change what it includes: configure again then.
    set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${header}")
    file(STRINGS "${header}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
    foreach(line IN LISTS includes)
      string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*" "\\1" name "${line}")
      if(name MATCHES "^oEventTracker/" AND EXISTS "${PROJECT_SOURCE_DIR}/include/${name}")
        continue()  # a public header, installed anyway
      elseif(name MATCHES "^oKstPlatform/" AND EXISTS "${PROJECT_SOURCE_DIR}/platform/include/${name}")
        if(NOT name IN_LIST found)
          list(APPEND found "${name}")
          list(APPEND queue "${PROJECT_SOURCE_DIR}/platform/include/${name}")
        endif()
      else()
        file(RELATIVE_PATH where "${PROJECT_SOURCE_DIR}" "${header}")
        message(FATAL_ERROR "${where} includes \"${name}\", which is neither a public header "
                            "(include/oEventTracker/) nor a platform header: it would not be installed")
      endif()
    endforeach()
  endwhile()
  list(SORT found)
  set(${out} "${found}" PARENT_SCOPE)
endfunction()
oet_platform_headers_of(oet_installed_platform_files ${oet_public_headers})

# ---- Each public header compiles on its own

if(OET_BUILD_TESTS)
  set(oet_check_dir "${PROJECT_BINARY_DIR}/header-check")
  set(oet_check_sources "")
  # The platform headers as they will be installed, and nothing else from this tree.
  foreach(file IN LISTS oet_installed_platform_files)
    configure_file("${PROJECT_SOURCE_DIR}/platform/include/${file}" "${oet_check_dir}/include/${file}" COPYONLY)
  endforeach()
  set(oet_checked_headers ${oet_installed_platform_files})
  list(FILTER oet_checked_headers INCLUDE REGEX "\\.h$")
  foreach(header IN LISTS oet_public_headers)
    file(RELATIVE_PATH name "${PROJECT_SOURCE_DIR}/include" "${header}")
    list(APPEND oet_checked_headers "${name}")
  endforeach()
  foreach(name IN LISTS oet_checked_headers)
    string(MAKE_C_IDENTIFIER "${name}" stem)
    # Included twice: the second time checks that the header guards itself.
    file(CONFIGURE OUTPUT "${oet_check_dir}/${stem}.cpp"
         CONTENT "#include \"${name}\"\n#include \"${name}\"\n" @ONLY)
    list(APPEND oet_check_sources "${oet_check_dir}/${stem}.cpp")
  endforeach()
  add_library(oet_header_check OBJECT ${oet_check_sources})
  target_include_directories(oet_header_check PRIVATE "${PROJECT_SOURCE_DIR}/include" "${oet_check_dir}/include")
  target_compile_options(oet_header_check PRIVATE -Wall -Wextra -Wpedantic -Werror)
endif()

# ---- Install rules and the CMake package

option(OET_INSTALL "Generate the install rules and the CMake package oEventTracker" ${PROJECT_IS_TOP_LEVEL})
if(OET_INSTALL)
  set(oet_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/oEventTracker")
  # Linux: the product finds its platform library beside it.
  if(NOT WIN32)
    set_target_properties(oEventTracker PROPERTIES INSTALL_RPATH "$ORIGIN")
  endif()
  # Windows: DLLs in bin/, import libraries in lib/. Linux: the .so, its SONAME link and the link for
  # the linker in lib/.
  install(TARGETS oEventTracker oKstPlatform EXPORT oEventTrackerTargets
          RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
          LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  # The whole folder, so that a header added there is installed without an edit here.
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/oEventTracker" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
          FILES_MATCHING PATTERN "*.h")
  list(TRANSFORM oet_installed_platform_files PREPEND "${PROJECT_SOURCE_DIR}/platform/include/"
                 OUTPUT_VARIABLE oet_installed_platform_paths)
  install(FILES ${oet_installed_platform_paths} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/oKstPlatform")
  install(EXPORT oEventTrackerTargets NAMESPACE oEventTracker:: DESTINATION "${oet_package_dir}")
  configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/oEventTrackerConfig.cmake.in"
                                "${PROJECT_BINARY_DIR}/package/oEventTrackerConfig.cmake"
                                INSTALL_DESTINATION "${oet_package_dir}")
  write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/oEventTrackerConfigVersion.cmake"
                                   COMPATIBILITY ${oet_compatibility})
  install(FILES "${PROJECT_BINARY_DIR}/package/oEventTrackerConfig.cmake"
                "${PROJECT_BINARY_DIR}/package/oEventTrackerConfigVersion.cmake"
          DESTINATION "${oet_package_dir}")

  # pkg-config, for builds that do not use CMake: oEventTracker.pc in lib/pkgconfig, beside the CMake
  # package. Its prefix is found from where the file is (${pcfiledir}), so the installed tree can move.
  set(oet_pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  file(RELATIVE_PATH OET_PC_PREFIX_FROM_PCDIR "/prefix/${oet_pc_dir}" "/prefix")
  string(REGEX REPLACE "/$" "" OET_PC_PREFIX_FROM_PCDIR "${OET_PC_PREFIX_FROM_PCDIR}")
  foreach(kind IN ITEMS LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${kind}}")
      set(OET_PC_${kind} "${CMAKE_INSTALL_${kind}}")
    else()
      set(OET_PC_${kind} "\${prefix}/${CMAKE_INSTALL_${kind}}")
    endif()
  endforeach()
  configure_file("${PROJECT_SOURCE_DIR}/cmake/oEventTracker.pc.in" "${PROJECT_BINARY_DIR}/package/oEventTracker.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/package/oEventTracker.pc" DESTINATION "${oet_pc_dir}")
endif()

# ---- Checks run by ctest

if(OET_BUILD_TESTS)
  # The version that the built libraries carry: the SONAME on Linux, the version resource on Windows.
  add_test(NAME version_check
           COMMAND "${PROJECT_SOURCE_DIR}/scripts/check-version" ${PROJECT_VERSION}
                   $<TARGET_FILE:oEventTracker> $<TARGET_FILE:oKstPlatform>)
endif()
