// The performance reports' rules: each entity of the shared shape missing in turn, the device entity's
// facts at the edges of their rules, the texts' NUL rule, and the MetricKit samples' values bit for bit.
// (Every report's full event: tests/golden/performance_reports.jsonl.)
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/test_support.h"

namespace {

using namespace OrboPTPAAP;
using oet_test::Types;

// Every report with its default record (one default sample for the sample list), and its own entity.
struct Report {
  const char* name;
  int (*track)();
  int32_t body;
};

const Report kReports[] = {
    {"IOSLaunch", [] { return TrackingApmIOSLaunchEvent({}); }, 644},
    {"MacLaunch", [] { return TrackingApmMacLaunchEvent({}); }, 649},
    {"MacRuntime", [] { return TrackingApmMacRuntimeEvent({}); }, 650},
    {"MacFreeze", [] { return TrackingApmMacFreezeEvent({}); }, 648},
    {"AndroidLaunch", [] { return TrackingApmAndroidLaunchEvent({}); }, 639},
    {"AndroidPage", [] { return TrackingApmAndroidPageEvent({}); }, 640},
    {"IOSMetricKit", [] { return TrackingApmIOSMetricKitEvent({}); }, 645},
    {"MetricKitData", [] { return TrackingApmIOSMetricKitDataEvent({{}}); }, 646},
    {"Crash", [] { return TrackingApmClientCrashEvent({}); }, 641},
};

// Each entity of the skeleton missing in turn (device 643, marker 652, the report's own, header 642):
// the event is destroyed, the list attached only when the header is what is missing. The crash report
// asks for no device entity, and a missing sample is only left out.
class ApmReportMissing : public oet_test::HostTest,
                         public ::testing::WithParamInterface<std::tuple<Report, int32_t>> {};

TEST_P(ApmReportMissing, DestroysTheEvent) {
  const auto& [r, missing] = GetParam();
  const int32_t type = missing == 0 ? r.body : missing;
  host_.SetCreateEntityFails(type, true);
  const bool crash = r.body == 641;
  const bool sent = (crash && type == 643) || type == 646;
  EXPECT_EQ(r.track(), sent ? 1 : 0);
  EXPECT_EQ(Outcomes(), sent ? "submitted 3 1" : "destroyed");
  if (sent) return;
  const std::vector<std::string> calls = Calls();
  EXPECT_EQ(calls[calls.size() - 2], "CreateEntity " + std::to_string(type) + " -> null");
  EXPECT_EQ(OnlyEvent().ContextTypes().size(), type == 642 ? (crash ? 2u : 3u) : 0u);
}

INSTANTIATE_TEST_SUITE_P(Reports, ApmReportMissing,
                         ::testing::Combine(::testing::ValuesIn(kReports),
                                            ::testing::Values(643, 652, 0, 642)),
                         [](const auto& info) {
                           const int32_t missing = std::get<1>(info.param);
                           return std::string(std::get<0>(info.param).name) + "_Missing" +
                                  (missing == 0 ? std::string("Body") : std::to_string(missing));
                         });

// The device entity (643) after the cached facts: RAM only from 1 to the int32 maximum, the product and
// the manufacturer "unknown" when empty, the other facts left unset when empty.
struct DeviceCase {
  const char* name;
  std::vector<std::pair<KstHost::SystemFact, std::string>> facts;
  std::string ops;
};

class ApmDevice : public oet_test::HostTest, public ::testing::WithParamInterface<DeviceCase> {};

TEST_P(ApmDevice, CarriesTheCachedFacts) {
  for (const auto& [fact, value] : GetParam().facts)
    KstHost::OverrideSystemFact(fact, value);
  EXPECT_EQ(TrackingApmMacLaunchEvent({}), 1);
  EXPECT_EQ(OnlyEvent().Ops(643), GetParam().ops);
}

using KstHost::SystemFact;
const std::string kOs =
    "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows|DeviceInfo.3=10.0.22631";
const std::string kFacts =
    kOs + "|4=Example CPU 8 cores @ 2.40GHz|2=Example Graphics 620|8=1920*1080|10=Example Computers";

INSTANTIATE_TEST_SUITE_P(
    Facts, ApmDevice,
    ::testing::Values(
        DeviceCase{"RamZero", {{SystemFact::kTotalRAMGB, "0"}}, kFacts},
        DeviceCase{"RamNegative", {{SystemFact::kTotalRAMGB, "4294967295"}}, kFacts},
        DeviceCase{"RamLowest", {{SystemFact::kTotalRAMGB, "2147483648"}}, kFacts},
        DeviceCase{"RamMaximal", {{SystemFact::kTotalRAMGB, "2147483647"}}, kFacts + "|6=2147483647"},
        DeviceCase{"EmptyFacts",
                   {{SystemFact::kCPUName, ""},
                    {SystemFact::kGPUModel, ""},
                    {SystemFact::kResolution, ""},
                    {SystemFact::kSystemProductName, ""},
                    {SystemFact::kSystemManufacturer, ""}},
                   "DeviceInfo.2=ws-value|DeviceInfo.1=unknown|DeviceInfo.4=windows"
                   "|DeviceInfo.3=10.0.22631|10=unknown|6=16"},
        // A gpu model that starts with NUL is empty as it would go out: not set.
        DeviceCase{"GpuStartsWithNul",
                   {{SystemFact::kGPUModel, std::string("\0gpu", 4)}},
                   kOs + "|4=Example CPU 8 cores @ 2.40GHz|8=1920*1080|10=Example Computers|6=16"}),
    [](const auto& info) { return std::string(info.param.name); });

// Texts are read up to their first NUL, and their gates look at them so: one that starts with NUL is
// left unset like an empty one (and the crash report's first text is sent as "0").
using ApmTexts = oet_test::HostTest;

TEST_F(ApmTexts, CutAtTheFirstNul) {
  EXPECT_EQ(TrackingApmMacRuntimeEvent({Kst::CStringT<char>("a\0b", 3), Kst::CStringT<char>("\0b", 2)}), 1);
  EXPECT_EQ(OnlyEvent().Ops(650), "1=a");
  EXPECT_EQ(TrackingApmClientCrashEvent({0, Kst::CStringT<char>("\0x", 2), {}, "c", {}}), 1);
  EXPECT_EQ(OnlyEvent().Ops(641), "1=0|5=c");
}

uint64_t Bits(double value) {
  uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

// Each value reaches the host bit for bit, NaN payloads and the sign of zero included.
TEST_F(ApmTexts, MetricKitSamplesKeepEveryBitOfTheirValues) {
  const uint64_t payload_nan = 0xFFF0000000000123;
  double odd_nan = 0;
  std::memcpy(&odd_nan, &payload_nan, sizeof odd_nan);
  const double values[] = {
      std::numeric_limits<double>::quiet_NaN(), odd_nan, std::numeric_limits<double>::infinity(),
      -std::numeric_limits<double>::infinity(), -0.0,    0.0,
      std::numeric_limits<double>::denorm_min()};
  std::vector<OApmIOSMetricKitDataInfo_s> samples;
  std::vector<uint64_t> given;
  for (const double value : values) {
    samples.push_back({1, {}, value});
    given.push_back(Bits(value));
  }
  EXPECT_EQ(TrackingApmIOSMetricKitDataEvent(samples), 1);
  std::vector<uint64_t> sent;
  for (const oet_testing::Call& call : host_.Log()) {
    if (const auto* value = std::get_if<double>(&call.value)) sent.push_back(Bits(*value));
  }
  EXPECT_EQ(sent, given);
  EXPECT_EQ(OnlyEvent().ContextTypes(), Types({643, 652, 646, 646, 646, 646, 646, 646, 646}));
}

}  // namespace
