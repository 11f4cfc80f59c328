// Machine facts on Windows, read from the operating system itself.
//
//  - OS version: RtlGetVersion (which, unlike GetVersionEx, is not capped by the program's manifest)
//    as "<major>.<minor>.<build>", e.g. "10.0.22631"; the build number also goes to GetOSVersion's
//    integer output.
//  - Manufacturer and product name: the firmware's SystemManufacturer / SystemProductName under
//    HKLM\HARDWARE\DESCRIPTION\System\BIOS.
//  - CPU name: ProcessorNameString of the first processor under
//    HKLM\HARDWARE\DESCRIPTION\System\CentralProcessor\0, trimmed; CPU type from GetNativeSystemInfo
//    as "x64", "arm64" or "x86".
//  - Total RAM: GlobalMemoryStatusEx.
//  - Region: the ISO country code of the user's home location (GetUserGeoID, GetGeoInfoW), e.g. "US";
//    language: the user's default locale name (GetUserDefaultLocaleName), e.g. "en-US".
//  - Resolution: the primary screen in pixels as "<width>*<height>" (GetSystemMetrics); GPU model: the
//    primary display adapter's name (EnumDisplayDevicesW).
// The screen size in inches and the network type have no cheap source and stay empty.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/system_info_machine.h"

namespace kst_machine {
namespace {

using KstHost::SystemFact;

std::string Utf8(const wchar_t* text) {
  return Kst::WideToUtf8(Kst::CStringT<wchar_t>(text));
}

// A REG_SZ value under HKEY_LOCAL_MACHINE, empty when the key or value is missing.
std::string MachineRegistryText(const wchar_t* key, const wchar_t* value) {
  wchar_t buffer[256] = {};
  DWORD size = sizeof(buffer);
  if (RegGetValueW(HKEY_LOCAL_MACHINE, key, value, RRF_RT_REG_SZ, nullptr, buffer, &size) != ERROR_SUCCESS)
    return {};
  return Trimmed(Utf8(buffer));
}

bool OsVersion(RTL_OSVERSIONINFOW& info) {
  using RtlGetVersionFn = LONG(WINAPI*)(RTL_OSVERSIONINFOW*);
  const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  if (ntdll == nullptr) return false;
  // Through void(*)() so that the cast from FARPROC does not warn about the function type.
  const auto get_version =
      reinterpret_cast<RtlGetVersionFn>(reinterpret_cast<void (*)()>(GetProcAddress(ntdll, "RtlGetVersion")));
  if (get_version == nullptr) return false;
  info = {};
  info.dwOSVersionInfoSize = sizeof(info);
  return get_version(&info) == 0;
}

std::string CpuType() {
  SYSTEM_INFO info{};
  GetNativeSystemInfo(&info);
  switch (info.wProcessorArchitecture) {
    case PROCESSOR_ARCHITECTURE_AMD64:
      return "x64";
    case PROCESSOR_ARCHITECTURE_ARM64:
      return "arm64";
    case PROCESSOR_ARCHITECTURE_INTEL:
      return "x86";
    default:
      return {};
  }
}

std::string RegionName() {
  const GEOID geo = GetUserGeoID(GEOCLASS_NATION);
  if (geo == GEOID_NOT_AVAILABLE) return {};
  wchar_t code[16] = {};
  if (GetGeoInfoW(geo, GEO_ISO2, code, static_cast<int>(sizeof(code) / sizeof(code[0])), 0) <= 0) return {};
  return Utf8(code);
}

std::string LanguageSetting() {
  wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
  if (GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH) <= 0) return {};
  return Utf8(name);
}

std::string Resolution() {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  if (width <= 0 || height <= 0) return {};
  return std::to_string(width) + "*" + std::to_string(height);
}

std::string GpuModel() {
  DISPLAY_DEVICEW device{};
  device.cb = sizeof(device);
  for (DWORD i = 0; EnumDisplayDevicesW(nullptr, i, &device, 0); ++i) {
    if (device.StateFlags & DISPLAY_DEVICE_PRIMARY_DEVICE) return Trimmed(Utf8(device.DeviceString));
    device = {};
    device.cb = sizeof(device);
  }
  return {};
}

}  // namespace

std::string Fact(SystemFact fact) {
  switch (fact) {
    case SystemFact::kOSVersion: {
      RTL_OSVERSIONINFOW info;
      if (!OsVersion(info)) return {};
      return std::to_string(info.dwMajorVersion) + "." + std::to_string(info.dwMinorVersion) + "." +
             std::to_string(info.dwBuildNumber);
    }
    case SystemFact::kSystemProductName:
      return MachineRegistryText(L"HARDWARE\\DESCRIPTION\\System\\BIOS", L"SystemProductName");
    case SystemFact::kSystemManufacturer:
      return MachineRegistryText(L"HARDWARE\\DESCRIPTION\\System\\BIOS", L"SystemManufacturer");
    case SystemFact::kCPUName:
      return MachineRegistryText(L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0",
                                 L"ProcessorNameString");
    case SystemFact::kCPUType:
      return CpuType();
    case SystemFact::kRegionName:
      return RegionName();
    case SystemFact::kLanguageSetting:
      return LanguageSetting();
    case SystemFact::kResolution:
      return Resolution();
    case SystemFact::kGPUModel:
      return GpuModel();
    default:
      return {};
  }
}

int32_t OsBuildNumber() {
  RTL_OSVERSIONINFOW info;
  return OsVersion(info) ? static_cast<int32_t>(info.dwBuildNumber) : 0;
}

uint64_t TotalPhysicalBytes() {
  MEMORYSTATUSEX status{};
  status.dwLength = sizeof(status);
  return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : 0;
}

}  // namespace kst_machine
