// The machine's own facts as the operating system gives them, and the host program's overrides in
// front of them.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "oKstPlatform/kst_convert.h"
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

  KstHost::ClearSystemFactOverrides();
  Kst::GetOSVersion(version, build, 1);
  EXPECT_EQ(version, machine_version);
  EXPECT_EQ(build, machine_build);
  EXPECT_EQ(Kst::WideToUtf8(Kst::GetCPUName()), machine_cpu);
}

}  // namespace
