// Export macro of oEventTracker. Every exported function is marked with OET_API; everything else in
// the library is hidden. Including any public header also gives the version macros (version.h).
//
// OET_API has three states:
//   - building the shared library (OET_BUILDING_LIBRARY, set by the build): exported from the DLL
//     (dllexport) or given default visibility in the .so;
//   - using the shared library (nothing defined, what every client sees): imported from the DLL
//     (dllimport) or default visibility;
//   - the library's objects linked straight into a program, as the unit tests link them (OET_STATIC,
//     set by the build for the users of oet_static): nothing, so that calls bind to the linked-in
//     definitions instead of a DLL import. The installed package has no static library; clients never
//     define OET_STATIC.
#pragma once

#include "oEventTracker/version.h"

#if defined(OET_STATIC)
#define OET_API
#elif defined(_WIN32)
#if defined(OET_BUILDING_LIBRARY)
#define OET_API __declspec(dllexport)
#else
#define OET_API __declspec(dllimport)
#endif
#elif defined(__GNUC__) || defined(__clang__)
#define OET_API __attribute__((visibility("default")))
#else
#define OET_API
#endif
