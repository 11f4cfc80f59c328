// The performance reports: the shared shape (device, marker, body, header), the device entity from an
// unfilled and a filled client context, the events destroyed when an entity is missing, the body
// mappings, the MetricKit sample list with its doubles, and the crash report's exceptions.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "events/performance/apm_report.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/system_info.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"

namespace {

using namespace OrboPTPAAP;
using Types = std::vector<int32_t>;

// Every report with its default record (one default sample for the sample list).
struct Report {
  const char* name;
  int (*track)();
  int32_t body;            // the report's own entity type
  const char* body_ops;    // an untouched body but for the sample and the crash report's "0"
  const char* header_ops;  // entity 642: category, then code
};

void PrintTo(const Report& r, std::ostream* os) {
  *os << r.name;
}

const Report kReports[] = {
    {"IOSLaunch", [] { return TrackingApmIOSLaunchEvent({}); }, 644, "", "4=1|2=1"},
    {"MacLaunch", [] { return TrackingApmMacLaunchEvent({}); }, 649, "", "4=1|2=3"},
    {"MacRuntime", [] { return TrackingApmMacRuntimeEvent({}); }, 650, "", "4=2|2=4"},
    {"MacFreeze", [] { return TrackingApmMacFreezeEvent({}); }, 648, "", "4=3|2=5"},
    {"AndroidLaunch", [] { return TrackingApmAndroidLaunchEvent({}); }, 639, "", "4=1|2=6"},
    {"AndroidPage", [] { return TrackingApmAndroidPageEvent({}); }, 640, "", "4=7|2=7"},
    {"IOSMetricKit", [] { return TrackingApmIOSMetricKitEvent({}); }, 645, "", "4=5|2=2"},
    {"MetricKitData", [] { return TrackingApmIOSMetricKitDataEvent({{}}); }, 646, "3=0|6=0", "4=5|2=10"},
    {"Crash", [] { return TrackingApmClientCrashEvent({}); }, 641, "1=0", "4=8|2=0"},
};

constexpr char kFilledDevice[] =
    "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows|DeviceInfo.3=10.0.22631"
    "|4=Example CPU 8 cores @ 2.40GHz|2=Example Graphics 620|8=1920*1080|10=Example Computers|6=16";

class ApmReport : public oet_test::RecordedEventTest, public ::testing::WithParamInterface<Report> {};

TEST_P(ApmReport, SendsDeviceMarkerBodyAndHeader) {
  const Report& r = GetParam();
  EXPECT_EQ(r.track(), 1);
  const bool crash = r.body == 641;
  EXPECT_EQ(Describe(host_.Log()).back(), "SubmitEvent 3 1 params=0");
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), crash ? Types({652, 641}) : Types({643, 652, r.body}));
  EXPECT_EQ(event.Ops(643), crash ? "" : kFilledDevice);
  EXPECT_EQ(event.Ops(r.body), r.body_ops);
  EXPECT_EQ(event.BodyType(), 642);
  EXPECT_EQ(event.Ops(642), r.header_ops);
  EXPECT_EQ(host_.web_service().CallCount(97), crash ? 0 : 1);  // the crash report leaves the cache alone
}

INSTANTIATE_TEST_SUITE_P(Reports, ApmReport, ::testing::ValuesIn(kReports),
                         [](const auto& info) { return std::string(info.param.name); });

// Each entity of the skeleton missing in turn: the event is destroyed; only a missing header comes
// after the list was attached. The crash report asks for no device entity and goes out without it.
class ApmReportMissing : public oet_test::RecordedEventTest,
                         public ::testing::WithParamInterface<std::tuple<Report, int32_t>> {};

TEST_P(ApmReportMissing, DestroysTheEvent) {
  const auto& [r, missing] = GetParam();
  const int32_t type = missing == 0 ? r.body : missing;
  host_.SetCreateEntityFails(type, true);
  const bool crash_device = r.body == 641 && type == 643;
  const bool sample = type == 646;  // a missing sample is only left out
  EXPECT_EQ(r.track(), crash_device || sample ? 1 : 0);
  const std::vector<std::string> calls = Describe(host_.Log());
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.submitted(), crash_device || sample);
  if (crash_device || sample) return;
  EXPECT_EQ(calls.back(), "DestroyEvent 1");
  EXPECT_EQ(calls[calls.size() - 2], "CreateEntity " + std::to_string(type) + " -> null");
  EXPECT_EQ(event.ContextTypes().size(), type == 642 ? (r.body == 641 ? 2u : 3u) : 0u);
}

INSTANTIATE_TEST_SUITE_P(Reports, ApmReportMissing,
                         ::testing::Combine(::testing::ValuesIn(kReports),
                                            ::testing::Values(643, 652, 0, 642)),
                         [](const auto& info) {
                           const int32_t missing = std::get<1>(info.param);
                           return std::string(std::get<0>(info.param).name) + "_Missing" +
                                  (missing == 0 ? std::string("Body") : std::to_string(missing));
                         });

struct DeviceCase {
  const char* name;
  bool web_service;
  const char* ram;         // the machine's total RAM (decimal text); null: the standard 16
  bool facts_empty;        // cpu name, gpu model, resolution, product and manufacturer empty
  const char* gpu;         // null: the standard one
  std::string device_ops;  // entity 643
};

void PrintTo(const DeviceCase& c, std::ostream* os) {
  *os << c.name;
}

class ApmDevice : public oet_test::RecordedEventTest, public ::testing::WithParamInterface<DeviceCase> {};

TEST_P(ApmDevice, CarriesTheCachedFacts) {
  const DeviceCase& c = GetParam();
  host_.SetWebServicePresent(c.web_service);
  using KstHost::SystemFact;
  if (c.ram != nullptr) KstHost::OverrideSystemFact(SystemFact::kTotalRAMGB, c.ram);
  if (c.gpu != nullptr) KstHost::OverrideSystemFact(SystemFact::kGPUModel, std::string(c.gpu, 4));
  if (c.facts_empty) {
    for (const SystemFact fact : {SystemFact::kCPUName, SystemFact::kGPUModel, SystemFact::kResolution,
                                  SystemFact::kSystemProductName, SystemFact::kSystemManufacturer})
      KstHost::OverrideSystemFact(fact, "");
  }
  EXPECT_EQ(TrackingApmMacLaunchEvent({}), 1);
  EXPECT_EQ(OnlyEvent().Ops(643), c.device_ops);
}

constexpr char kFilledShared[] =
    "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows|DeviceInfo.3=10.0.22631"
    "|4=Example CPU 8 cores @ 2.40GHz|2=Example Graphics 620|8=1920*1080|10=Example Computers";

INSTANTIATE_TEST_SUITE_P(
    Facts, ApmDevice,
    ::testing::Values(
        DeviceCase{"Unfilled", false, nullptr, false, nullptr,
                   "DeviceInfo.2=|DeviceInfo.1=|DeviceInfo.4=|DeviceInfo.3="},
        DeviceCase{"Filled", true, nullptr, false, nullptr, kFilledDevice},
        DeviceCase{"RamZero", true, "0", false, nullptr, kFilledShared},
        DeviceCase{"RamNegative", true, "4294967295", false, nullptr, kFilledShared},
        DeviceCase{"RamLowest", true, "2147483648", false, nullptr, kFilledShared},
        DeviceCase{"RamMaximal", true, "2147483647", false, nullptr,
                   std::string(kFilledShared) + "|6=2147483647"},
        DeviceCase{"EmptyFacts", true, nullptr, true, nullptr,
                   "DeviceInfo.2=ws-value|DeviceInfo.1=unknown|DeviceInfo.4=windows|DeviceInfo.3=10.0.22631"
                   "|10=unknown|6=16"},
        // A gpu model that starts with NUL is empty as it would go out: not set.
        DeviceCase{"GpuStartsWithNul", true, nullptr, false, "\0gpu",
                   "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows"
                   "|DeviceInfo.3=10.0.22631|4=Example CPU 8 cores @ 2.40GHz|8=1920*1080"
                   "|10=Example Computers|6=16"}),
    [](const auto& info) { return std::string(info.param.name); });

struct TextCase {
  const char* name;
  int (*track)();
  int32_t body;
  const char* body_ops;
};

void PrintTo(const TextCase& c, std::ostream* os) {
  *os << c.name;
}

class ApmReportTexts : public oet_test::RecordedEventTest, public ::testing::WithParamInterface<TextCase> {};

TEST_P(ApmReportTexts, SetOnlyTextsThatAreNotEmpty) {
  EXPECT_EQ(GetParam().track(), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.Ops(GetParam().body), GetParam().body_ops);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ApmReportTexts,
    ::testing::Values(
        // text4 goes after text7.
        TextCase{"IOSLaunchCallOrder",
                 [] {
                   return TrackingApmIOSLaunchEvent({"t1", "t2", "t3", "t4", "t5", "t6", "t7", "t8"});
                 },
                 644, "7=t1|6=t2|3=t3|1=t5|4=t6|8=t7|2=t4|5=t8"},
        TextCase{"IOSLaunchSome",
                 [] {
                   return TrackingApmIOSLaunchEvent({"", "b", {}, "d", {}, {}, "g", {}});
                 },
                 644, "6=b|8=g|2=d"},
        TextCase{"AndroidLaunch",
                 [] {
                   return TrackingApmAndroidLaunchEvent({"t1", "t2", "t3", "t4", "t5", "t6"});
                 },
                 639, "5=t1|2=t2|4=t3|6=t4|3=t5|1=t6"},
        TextCase{"MacRuntimeCutAtNul",
                 [] {
                   return TrackingApmMacRuntimeEvent(
                       {Kst::CStringT<char>("a\0b", 3), Kst::CStringT<char>("\0b", 2)});
                 },
                 650, "1=a"},
        TextCase{"Crash",
                 [] {
                   return TrackingApmClientCrashEvent({-5, "t1", "t2", "t3", "t4"});
                 },
                 641, "1=t1|3=t2|5=t3|7=t4"},
        TextCase{"CrashFirstTextStartsWithNul",
                 [] {
                   return TrackingApmClientCrashEvent({0, Kst::CStringT<char>("\0x", 2), {}, "c", {}});
                 },
                 641, "1=0|5=c"}),
    [](const auto& info) { return std::string(info.param.name); });

uint64_t Bits(double value) {
  uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}
double FromBits(uint64_t bits) {
  double value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

struct SampleCase {
  const char* name;
  std::vector<OApmIOSMetricKitDataInfo_s> samples;
  bool samples_missing;  // the host gives no sample entity
  Types context;
  const char* sample_ops;  // every sample entity's operations; values other than doubles
};

void PrintTo(const SampleCase& c, std::ostream* os) {
  *os << c.name;
}

class MetricKitSamples : public oet_test::RecordedEventTest,
                         public ::testing::WithParamInterface<SampleCase> {};

// Each value reaches the host bit for bit, NaN payloads and the sign of zero included.
TEST_P(MetricKitSamples, OneEntityPerSampleWithTheExactValue) {
  const SampleCase& c = GetParam();
  host_.SetCreateEntityFails(646, c.samples_missing);
  EXPECT_EQ(TrackingApmIOSMetricKitDataEvent(c.samples), 1);
  std::vector<uint64_t> sent;
  for (const oet_testing::Call& call : host_.Log()) {
    if (const auto* value = std::get_if<double>(&call.value)) sent.push_back(Bits(*value));
  }
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), c.context);
  std::string ops = event.Ops(646);
  std::vector<uint64_t> given;
  for (const auto& sample : c.samples)
    given.push_back(Bits(sample.value));
  EXPECT_EQ(sent, c.samples_missing ? std::vector<uint64_t>() : given);
  EXPECT_EQ(ops.substr(0, std::strlen(c.sample_ops)), c.sample_ops);
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Lists, MetricKitSamples,
    ::testing::Values(SampleCase{"Empty", {}, false, {643, 652}, ""},
                      SampleCase{"TextOnlyWhenNotEmpty",
                                 {{1, "", 0.5}, {-2, "b", -3.25}},
                                 false,
                                 {643, 652, 646, 646},
                                 "3=1|6=0.5|3=-2|6=-3.25|1=b"},
                      SampleCase{"NaNInfinitiesAndNegativeZero",
                                 {{1, {}, kNaN},
                                  {2, {}, FromBits(0xFFF0000000000123)},
                                  {3, {}, kInf},
                                  {4, {}, -kInf},
                                  {5, {}, -0.0},
                                  {6, {}, 0.0},
                                  {7, {}, std::numeric_limits<double>::denorm_min()}},
                                 false,
                                 {643, 652, 646, 646, 646, 646, 646, 646, 646},
                                 "3=1|6="},
                      SampleCase{
                          "SampleEntitiesMissing", {{1, "a", 1.0}, {2, "b", 2.0}}, true, {643, 652}, ""}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
