// Version of oEventTracker, for clients that need to know at compile time which release they build
// against. The build checks that these numbers equal the project version in CMakeLists.txt (which
// also names the shared library's SONAME, the Windows DLLs' version resource and the CMake package
// version), so bump both together.
#pragma once

#define OET_VERSION_MAJOR 0
#define OET_VERSION_MINOR 1
#define OET_VERSION_PATCH 0
#define OET_VERSION_STRING "0.1.0"
// One number that grows with every release, for #if comparisons: major * 10000 + minor * 100 + patch.
#define OET_VERSION (OET_VERSION_MAJOR * 10000 + OET_VERSION_MINOR * 100 + OET_VERSION_PATCH)
