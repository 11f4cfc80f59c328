#include "platform/system_info.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>
#include <optional>

#include "platform/kst_convert.h"
#include "platform/kst_number.h"

#if defined(__linux__)
#include <sys/sysinfo.h>
#include <sys/utsname.h>
#endif

namespace {

using KstHost::SystemFact;

// The client version a host program sees unless it overrides it.
constexpr char kDefaultClientVersion[] = "1.0.0";

std::mutex g_mutex;
std::map<SystemFact, std::string> g_overrides;
std::atomic<uint64_t> g_queries{0};

std::optional<std::string> Override(SystemFact fact) {
  if (fact != SystemFact::kCurrentVersion) ++g_queries;
  std::lock_guard<std::mutex> lock(g_mutex);
  const auto it = g_overrides.find(fact);
  if (it == g_overrides.end()) return std::nullopt;
  return it->second;
}

std::string Trimmed(std::string text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  const auto last = text.find_last_not_of(" \t\r\n");
  return text.substr(first, last - first + 1);
}

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

std::string MachineFact(SystemFact fact) {
#if defined(__linux__)
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
    case SystemFact::kTotalRAMGB: {
      struct sysinfo info {};
      if (sysinfo(&info) != 0) return "0";
      const double bytes = static_cast<double>(info.totalram) * info.mem_unit;
      return std::to_string(static_cast<long long>(bytes / (1024.0 * 1024.0 * 1024.0) + 0.5));
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
      break;
  }
#else
  (void)fact;
#endif
  return {};
}

std::string Fact(SystemFact fact) {
  if (auto value = Override(fact)) return *value;
  if (fact == SystemFact::kCurrentVersion) return kDefaultClientVersion;
  return MachineFact(fact);
}

Kst::CStringT<wchar_t> WideFact(SystemFact fact) {
  return Kst::Utf8ToWide(Fact(fact));
}

}  // namespace

namespace Kst {

void GetOSVersion(CStringT<wchar_t>& version, int32_t& build, int32_t /*flags*/) {
  version = WideFact(SystemFact::kOSVersion);
  build = 0;
}
CStringT<wchar_t> GetSystemProductName() {
  return WideFact(SystemFact::kSystemProductName);
}
CStringT<wchar_t> GetSystemManufacturer() {
  return WideFact(SystemFact::kSystemManufacturer);
}
CStringT<wchar_t> GetRegionName() {
  return WideFact(SystemFact::kRegionName);
}
CStringT<wchar_t> GetGPUModel() {
  return WideFact(SystemFact::kGPUModel);
}
CStringT<wchar_t> GetCPUType() {
  return WideFact(SystemFact::kCPUType);
}
CStringT<wchar_t> GetCPUName() {
  return WideFact(SystemFact::kCPUName);
}
int32_t GetTotalRAMGB() {
  uint32_t gigabytes = 0;
  return Kst::StringToUInt(CStringT<char>(Fact(SystemFact::kTotalRAMGB).c_str()), &gigabytes, 10)
             ? static_cast<int32_t>(gigabytes)
             : 0;
}
CStringT<wchar_t> GetScreenSizeIn() {
  return WideFact(SystemFact::kScreenSizeIn);
}
CStringT<wchar_t> GetResolution() {
  return WideFact(SystemFact::kResolution);
}
CStringT<wchar_t> GetNetworkType() {
  return WideFact(SystemFact::kNetworkType);
}
CStringT<wchar_t> GetLanguageSetting() {
  return WideFact(SystemFact::kLanguageSetting);
}
void GetCurrentVersion(CStringT<char>& version) {
  version = Fact(SystemFact::kCurrentVersion).c_str();
}

}  // namespace Kst

namespace KstHost {

void OverrideSystemFact(SystemFact fact, const std::string& utf8_value) {
  std::lock_guard<std::mutex> lock(g_mutex);
  g_overrides[fact] = utf8_value;
}

void ClearSystemFactOverrides() {
  std::lock_guard<std::mutex> lock(g_mutex);
  g_overrides.clear();
}

uint64_t SystemQueryCount() {
  return g_queries.load();
}

}  // namespace KstHost
