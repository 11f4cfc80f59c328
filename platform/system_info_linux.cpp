// Machine facts on Linux: uname, sysinfo, the DMI files under /sys and the locale environment.
//
// Formats: OS version "Linux <kernel release>", CPU type the kernel's machine name ("x86_64"),
// region the country of the locale ("US" from LANG=en_US.UTF-8), language the locale with a dash
// ("en-US"). There is no cheap source for the GPU, the screen or the network: those stay empty.
#include <sys/sysinfo.h>
#include <sys/utsname.h>

#include <cstdlib>
#include <fstream>

#include "oKstPlatform/system_info_machine.h"

namespace kst_machine {
namespace {

using KstHost::SystemFact;

std::string FirstLineOf(const char* path) {
  std::ifstream in(path);
  std::string line;
  std::getline(in, line);
  return Trimmed(line);
}

// The locale name the process runs under, as "ll_CC" (empty when none is set).
std::string LocaleName() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') {
      std::string locale(value);
      locale = locale.substr(0, locale.find_first_of(".@"));
      return locale == "C" || locale == "POSIX" ? std::string() : locale;
    }
  }
  return {};
}

}  // namespace

std::string Fact(SystemFact fact) {
  struct utsname uts {};
  const bool have_uts = uname(&uts) == 0;
  switch (fact) {
    case SystemFact::kOSVersion:
      return have_uts ? std::string(uts.sysname) + " " + uts.release : std::string();
    case SystemFact::kSystemProductName:
      return FirstLineOf("/sys/class/dmi/id/product_name");
    case SystemFact::kSystemManufacturer:
      return FirstLineOf("/sys/class/dmi/id/sys_vendor");
    case SystemFact::kCPUType:
      return have_uts ? std::string(uts.machine) : std::string();
    case SystemFact::kCPUName: {
      std::ifstream in("/proc/cpuinfo");
      for (std::string line; std::getline(in, line);) {
        if (line.rfind("model name", 0) == 0) return Trimmed(line.substr(line.find(':') + 1));
      }
      return {};
    }
    case SystemFact::kRegionName: {
      const std::string locale = LocaleName();
      const auto underscore = locale.find('_');
      return underscore == std::string::npos ? std::string() : locale.substr(underscore + 1);
    }
    case SystemFact::kLanguageSetting: {
      std::string locale = LocaleName();
      for (char& c : locale) {
        if (c == '_') c = '-';
      }
      return locale;
    }
    default:
      return {};
  }
}

int32_t OsBuildNumber() {
  return 0;
}

uint64_t TotalPhysicalBytes() {
  struct sysinfo info {};
  if (sysinfo(&info) != 0) return 0;
  return static_cast<uint64_t>(info.totalram) * info.mem_unit;
}

}  // namespace kst_machine
