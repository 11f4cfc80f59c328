// The machine's own facts as the operating system gives them, and the host program's overrides in
// front of them.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "oKstPlatform/chat_metrics.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_number.h"
#include "tests/test_support.h"

namespace {

using KstHost::SystemFact;

class SystemInfoTest : public testing::Test {
 protected:
  void SetUp() override { KstHost::ClearSystemFactOverrides(); }
  void TearDown() override { KstHost::ClearSystemFactOverrides(); }
};

TEST_F(SystemInfoTest, MachineFactsComeFromTheOperatingSystem) {
  Kst::CStringT<wchar_t> version;
  int32_t build = -1;
  Kst::GetOSVersion(version, build, 1);
  const std::string os = Kst::WideToUtf8(version);
  EXPECT_GT(Kst::GetTotalRAMGB(), 0);
  EXPECT_FALSE(Kst::GetCPUType().IsEmpty());
#if defined(_WIN32)
  EXPECT_TRUE(std::regex_match(os, std::regex(R"(\d+\.\d+\.(\d+))"))) << os;
  EXPECT_EQ(os.substr(os.rfind('.') + 1), std::to_string(build));
  EXPECT_GT(build, 0);
  EXPECT_EQ(Kst::WideToUtf8(Kst::GetCPUType()), "x64");
  EXPECT_TRUE(std::regex_match(Kst::WideToUtf8(Kst::GetResolution()), std::regex(R"(\d+\*\d+)")));
  EXPECT_TRUE(
      std::regex_match(Kst::WideToUtf8(Kst::GetLanguageSetting()), std::regex(R"([a-z]{2,3}(-.+)?)")));
#else
  EXPECT_EQ(os.rfind("Linux ", 0), 0u) << os;
  EXPECT_EQ(build, 0);
#endif
}

TEST_F(SystemInfoTest, OverridesWinUntilCleared) {
  Kst::CStringT<wchar_t> machine_version;
  int32_t machine_build = 0;
  Kst::GetOSVersion(machine_version, machine_build, 1);
  const std::string machine_cpu = Kst::WideToUtf8(Kst::GetCPUName());

  KstHost::OverrideSystemFact(SystemFact::kOSVersion, "10.0.22631");
  KstHost::OverrideSystemFact(SystemFact::kCPUName, "");
  KstHost::OverrideSystemFact(SystemFact::kTotalRAMGB, "not a number");
  Kst::CStringT<wchar_t> version;
  int32_t build = -1;
  Kst::GetOSVersion(version, build, 1);
  EXPECT_EQ(Kst::WideToUtf8(version), "10.0.22631");
  EXPECT_EQ(build, 0);  // an overridden version has no build of its own
  EXPECT_TRUE(Kst::GetCPUName().IsEmpty());
  EXPECT_EQ(Kst::GetTotalRAMGB(), 0);
  KstHost::OverrideSystemFact(SystemFact::kTotalRAMGB, "-4");  // signed facts stay signed
  EXPECT_EQ(Kst::GetTotalRAMGB(), -4);

  KstHost::ClearSystemFactOverrides();
  Kst::GetOSVersion(version, build, 1);
  EXPECT_EQ(version, machine_version);
  EXPECT_EQ(build, machine_build);
  EXPECT_EQ(Kst::WideToUtf8(Kst::GetCPUName()), machine_cpu);
}

// Every call into the stand-in reaches the observer, after it answered, with its salient argument or
// answer; the stand-in's own conversions do not.
std::vector<std::string> g_seen;

TEST_F(SystemInfoTest, TheObserverSeesEveryCallIntoTheStandIn) {
  KstHost::OverrideSystemFact(SystemFact::kRegionName, "US");
  KstHost::OverrideSystemFact(SystemFact::kTotalRAMGB, "16");
  g_seen.clear();
  KstHost::SetPlatformObserver([](const KstHost::PlatformCall& call) {
    g_seen.push_back(std::string(KstHost::PlatformFunctionName(call.function)) + " \"" +
                     std::string(call.text) + "\" " + std::to_string(call.number) +
                     (call.object != nullptr ? " object" : ""));
  });
  IServiceRegistry* registry = KstMQ_GetService();
  registry->GetModule("no.such.module");
  Kst::GetRegionName();
  Kst::GetTotalRAMGB();
  char utf8[8];
  kst_str_convert(KST_CP_UTF8, L"h\u00e9", -1, utf8, sizeof utf8);
  uint32_t value = 0;
  Kst::StringToUInt(Kst::CStringT<char>("42"), &value, 10);
  MetricsLoginEventToString(MetricsLoginEvent::kStart);
  (void)Kst::WideToUtf8(Kst::CStringT<wchar_t>(L"own work"));
  KstHost::SetPlatformObserver(nullptr);
  Kst::GetRegionName();
  EXPECT_EQ(g_seen, (std::vector<std::string>{
                        "KstMQ_GetService \"\" 0 object", "IServiceRegistry::GetModule \"no.such.module\" 0",
                        "Kst::GetRegionName \"US\" 0", "Kst::GetTotalRAMGB \"\" 16",
                        "kst_str_convert \"h\xC3\xA9\" -1", "Kst::StringToUInt \"42\" 42",
                        "MetricsLoginEventToString \"login_start\" 1"}));
}

}  // namespace
