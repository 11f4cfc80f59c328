#include "oKstPlatform/system_info.h"

#include <atomic>
#include <charconv>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/system_info_machine.h"
#include "observer.h"

namespace {

using KstHost::SystemFact;

// The client version a host program sees unless it overrides it.
constexpr char kDefaultClientVersion[] = "1.0.0";

// The host program's overrides, read without a lock and without writing anything: one pointer per
// fact to an override text, null for none. The texts are kept for the whole process, each distinct
// text once (a reader may still hold a text a writer has just replaced), so that setting the same
// facts again and again, as every recording host does, costs no memory. Writers take g_mutex among
// themselves.
constexpr size_t kFactCount = static_cast<size_t>(SystemFact::kCurrentVersion) + 1;
std::atomic<const std::string*> g_overrides[kFactCount];
std::mutex g_mutex;

// Never destroyed, so that facts asked for from a client's exit path are still answered.
std::set<std::string>& OverrideTexts() {
  static auto& texts = *new std::set<std::string>;
  return texts;
}

std::optional<std::string> Override(SystemFact fact) {
  const auto index = static_cast<size_t>(fact);
  const std::string* text = index < kFactCount ? g_overrides[index].load(std::memory_order_acquire) : nullptr;
  if (text == nullptr) return std::nullopt;
  return *text;
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
  const auto index = static_cast<size_t>(fact);
  if (index >= kFactCount) return;
  std::lock_guard<std::mutex> lock(g_mutex);
  g_overrides[index].store(&*OverrideTexts().insert(utf8_value).first, std::memory_order_release);
}

void ClearSystemFactOverrides() {
  for (auto& slot : g_overrides)
    slot.store(nullptr, std::memory_order_release);
}

}  // namespace KstHost
