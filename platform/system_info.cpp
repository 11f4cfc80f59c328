#include "oKstPlatform/system_info.h"

#include <atomic>
#include <charconv>
#include <map>
#include <mutex>
#include <optional>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/system_info_machine.h"
#include "observer.h"

namespace {

using KstHost::SystemFact;

// The client version a host program sees unless it overrides it.
constexpr char kDefaultClientVersion[] = "1.0.0";

std::mutex g_mutex;
std::atomic<uint64_t> g_queries{0};
std::atomic<uint64_t> g_version_queries{0};

// Never destroyed, so that facts asked for from a client's exit path are still answered.
std::map<SystemFact, std::string>& Overrides() {
  static auto& overrides = *new std::map<SystemFact, std::string>;
  return overrides;
}

std::optional<std::string> Override(SystemFact fact) {
  ++(fact == SystemFact::kCurrentVersion ? g_version_queries : g_queries);
  std::lock_guard<std::mutex> lock(g_mutex);
  const auto it = Overrides().find(fact);
  if (it == Overrides().end()) return std::nullopt;
  return it->second;
}

// Whole gigabytes, rounded to the nearest.
std::string TotalRamGigabytes() {
  const double bytes = static_cast<double>(kst_machine::TotalPhysicalBytes());
  return std::to_string(static_cast<long long>(bytes / (1024.0 * 1024.0 * 1024.0) + 0.5));
}

std::string Fact(SystemFact fact) {
  if (auto value = Override(fact)) return *value;
  if (fact == SystemFact::kCurrentVersion) return kDefaultClientVersion;
  if (fact == SystemFact::kTotalRAMGB) return TotalRamGigabytes();
  return kst_machine::Fact(fact);
}

using KstHost::PlatformFunction;

Kst::CStringT<wchar_t> WideFact(SystemFact fact, PlatformFunction function) {
  const std::string answer = Fact(fact);
  kst_observer::Report(function, answer);
  return Kst::Utf8ToWide(answer);
}

}  // namespace

namespace kst_machine {

std::string Trimmed(std::string text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  const auto last = text.find_last_not_of(" \t\r\n");
  return text.substr(first, last - first + 1);
}

}  // namespace kst_machine

namespace Kst {

// The build number is the machine's (0 on systems without one) unless the host program overrides
// the OS version, whose text then stands alone with build 0.
void GetOSVersion(CStringT<wchar_t>& version, int32_t& build, int32_t flags) {
  std::string answer;
  if (auto value = Override(SystemFact::kOSVersion)) {
    answer = *value;
    build = 0;
  } else {
    answer = kst_machine::Fact(SystemFact::kOSVersion);
    build = kst_machine::OsBuildNumber();
  }
  version = Utf8ToWide(answer);
  kst_observer::Report(PlatformFunction::kGetOSVersion, answer, flags);
}
CStringT<wchar_t> GetSystemProductName() {
  return WideFact(SystemFact::kSystemProductName, PlatformFunction::kGetSystemProductName);
}
CStringT<wchar_t> GetSystemManufacturer() {
  return WideFact(SystemFact::kSystemManufacturer, PlatformFunction::kGetSystemManufacturer);
}
CStringT<wchar_t> GetRegionName() {
  return WideFact(SystemFact::kRegionName, PlatformFunction::kGetRegionName);
}
CStringT<wchar_t> GetGPUModel() {
  return WideFact(SystemFact::kGPUModel, PlatformFunction::kGetGPUModel);
}
CStringT<wchar_t> GetCPUType() {
  return WideFact(SystemFact::kCPUType, PlatformFunction::kGetCPUType);
}
CStringT<wchar_t> GetCPUName() {
  return WideFact(SystemFact::kCPUName, PlatformFunction::kGetCPUName);
}
// The fact's decimal text, signed: a host program that gives a negative count gets it back as such.
// Text that is not a whole 32-bit decimal number answers 0.
int32_t GetTotalRAMGB() {
  const std::string text = Fact(SystemFact::kTotalRAMGB);
  int32_t gigabytes = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), gigabytes);
  if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size()) gigabytes = 0;
  kst_observer::Report(PlatformFunction::kGetTotalRAMGB, {}, gigabytes);
  return gigabytes;
}
CStringT<wchar_t> GetScreenSizeIn() {
  return WideFact(SystemFact::kScreenSizeIn, PlatformFunction::kGetScreenSizeIn);
}
CStringT<wchar_t> GetResolution() {
  return WideFact(SystemFact::kResolution, PlatformFunction::kGetResolution);
}
CStringT<wchar_t> GetNetworkType() {
  return WideFact(SystemFact::kNetworkType, PlatformFunction::kGetNetworkType);
}
CStringT<wchar_t> GetLanguageSetting() {
  return WideFact(SystemFact::kLanguageSetting, PlatformFunction::kGetLanguageSetting);
}
void GetCurrentVersion(CStringT<char>& version) {
  const std::string answer = Fact(SystemFact::kCurrentVersion);
  version = answer.c_str();
  kst_observer::Report(PlatformFunction::kGetCurrentVersion, answer);
}

}  // namespace Kst

namespace KstHost {

void OverrideSystemFact(SystemFact fact, const std::string& utf8_value) {
  std::lock_guard<std::mutex> lock(g_mutex);
  Overrides()[fact] = utf8_value;
}

void ClearSystemFactOverrides() {
  std::lock_guard<std::mutex> lock(g_mutex);
  Overrides().clear();
}

uint64_t SystemQueryCount() {
  return g_queries.load();
}

uint64_t VersionQueryCount() {
  return g_version_queries.load();
}

}  // namespace KstHost
