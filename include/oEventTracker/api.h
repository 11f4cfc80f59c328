// Export macro of oEventTracker. Every exported function is marked with OET_API; everything else in
// the library is hidden.
#pragma once

#if defined(_WIN32)
#if defined(OET_BUILDING_LIBRARY)
#define OET_API __declspec(dllexport)
#else
#define OET_API __declspec(dllimport)
#endif
#else
#define OET_API __attribute__((visibility("default")))
#endif
