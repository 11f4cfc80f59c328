// The operating system's side of the system-information library: each platform answers the machine
// facts in its own file (system_info_linux.cpp, system_info_windows.cpp); system_info.cpp puts the
// host program's overrides in front of them.
#pragma once

#include <cstdint>
#include <string>

#include "oKstPlatform/system_info.h"

namespace kst_machine {

// The machine's own value of `fact` as UTF-8, or empty where the operating system does not give it
// cheaply. Not asked for kTotalRAMGB (see TotalPhysicalBytes) or kCurrentVersion.
std::string Fact(KstHost::SystemFact fact);
// The OS build number, 0 where the system has none.
int32_t OsBuildNumber();
// Installed physical memory in bytes, 0 when unknown.
uint64_t TotalPhysicalBytes();

// `text` without leading and trailing blanks and line ends (shared by the platform files).
std::string Trimmed(std::string text);

}  // namespace kst_machine
