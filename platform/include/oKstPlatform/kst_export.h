// Export macro of the host platform stand-in (the shared library oKstPlatform).
//
// The real host ships these functions in its own libraries (Kstlib, kstbiz, oNetUtils); the stand-in
// builds them into one shared library so that a process has exactly one service registry, one clock
// and one set of system facts, whoever links it.
#pragma once

#if defined(_WIN32)
#if defined(KST_BUILDING_PLATFORM)
#define KST_API __declspec(dllexport)
#else
#define KST_API __declspec(dllimport)
#endif
#elif defined(__GNUC__) || defined(__clang__)
#define KST_API __attribute__((visibility("default")))
#else
#define KST_API
#endif
