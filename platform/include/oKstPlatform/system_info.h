// The host's system-information library (kstbiz): facts about the machine and the client build.
//
// Each function answers the machine's own fact where the operating system gives it cheaply, and an
// empty string (or 0) where it does not. A host program can override any fact, which is how tests and
// the replay tool make the facts of a given machine.
#pragma once

#include <cstdint>
#include <string>

#include "oKstPlatform/kst_export.h"
#include "oKstPlatform/kst_string.h"

namespace Kst {

// The OS version text; `build` receives a build number. `flags` selects the detailed form (1).
KST_API void GetOSVersion(CStringT<wchar_t>& version, int32_t& build, int32_t flags);
KST_API CStringT<wchar_t> GetSystemProductName();
KST_API CStringT<wchar_t> GetSystemManufacturer();
KST_API CStringT<wchar_t> GetRegionName();
KST_API CStringT<wchar_t> GetGPUModel();
KST_API CStringT<wchar_t> GetCPUType();
KST_API CStringT<wchar_t> GetCPUName();
// Total physical memory in whole gigabytes (signed, as the host keeps it).
KST_API int32_t GetTotalRAMGB();
// Diagonal of the main screen in inches, as text.
KST_API CStringT<wchar_t> GetScreenSizeIn();
KST_API CStringT<wchar_t> GetResolution();
KST_API CStringT<wchar_t> GetNetworkType();
KST_API CStringT<wchar_t> GetLanguageSetting();
// The client's version, UTF-8.
KST_API void GetCurrentVersion(CStringT<char>& version);

}  // namespace Kst

// Host-program side.
namespace KstHost {

enum class SystemFact {
  kOSVersion,
  kSystemProductName,
  kSystemManufacturer,
  kRegionName,
  kGPUModel,
  kCPUType,
  kCPUName,
  kTotalRAMGB,  // decimal text, signed
  kScreenSizeIn,
  kResolution,
  kNetworkType,
  kLanguageSetting,
  kCurrentVersion,
};

// Makes the fact answer `utf8_value` until cleared (kTotalRAMGB: its decimal text, which may be
// negative). The queries read the overrides without a lock and write nothing; a host program that
// wants to see them watches them through the platform observer (oKstPlatform/host_control.h).
KST_API void OverrideSystemFact(SystemFact fact, const std::string& utf8_value);
KST_API void ClearSystemFactOverrides();

}  // namespace KstHost
