# The client program and its test, shared by the CMake clients beside this file; each has made the
# target oEventTracker::oEventTracker available in its own way before including this.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_executable(oet_consumer ${CMAKE_CURRENT_LIST_DIR}/consumer.cpp)
# One target brings the headers, the product library and the platform library it needs.
target_link_libraries(oet_consumer PRIVATE oEventTracker::oEventTracker)
target_compile_options(oet_consumer PRIVATE -Wall -Wextra -Wpedantic -Werror)
# The version the client's build found, to compare with the headers' version macros: the package's
# version, or the library target's own when the library is built inside the client's build.
if(DEFINED oEventTracker_VERSION)
  set(found_version "${oEventTracker_VERSION}")
else()
  get_target_property(found_version oEventTracker::oEventTracker VERSION)
endif()
target_compile_definitions(oet_consumer PRIVATE OET_PACKAGE_VERSION="${found_version}")

# Windows finds DLLs beside the .exe: copy oEventTracker.dll and oKstPlatform.dll there.
if(WIN32)
  add_custom_command(TARGET oet_consumer POST_BUILD
                     COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_RUNTIME_DLLS:oet_consumer>
                             $<TARGET_FILE_DIR:oet_consumer>
                     COMMAND_EXPAND_LISTS)
endif()

enable_testing()
add_test(NAME oet_consumer COMMAND oet_consumer)
