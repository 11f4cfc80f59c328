# Cross-compiling for 64-bit Windows with Debian's MinGW-w64 toolchain (the POSIX-threads variant,
# x86_64-w64-mingw32-g++-posix, which std::thread and std::mutex need).
#
# Every module is linked so that it needs no compiler runtime DLL: -static links libgcc, libstdc++ and
# winpthread statically into each DLL and EXE (only the members a module uses: the whole winpthread
# archive would also bring its own version resource, which would stand in for ours). Our own DLLs are
# linked through their import libraries by full path, which -static leaves alone. What is left to find
# at run time are Windows system DLLs and our own two DLLs (oKstPlatform.dll, oEventTracker.dll).
#
# Programs built here run on Linux through wine (see cmake/wine-run): CMAKE_CROSSCOMPILING_EMULATOR is
# what ctest and gtest discovery put in front of every .exe.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(OET_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${OET_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${OET_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${OET_MINGW_PREFIX}-windres)
set(CMAKE_OBJDUMP ${OET_MINGW_PREFIX}-objdump CACHE FILEPATH "objdump for PE files")

# Look for libraries, headers and packages only in the MinGW sysroot, never in the build machine's
# /usr; programs (cmake helpers, scripts) come from the build machine.
set(CMAKE_FIND_ROOT_PATH /usr/${OET_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(_oet_static_runtime "-static")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${_oet_static_runtime}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${_oet_static_runtime}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${_oet_static_runtime}")
unset(_oet_static_runtime)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine-run)
