// The performance-metrics event: which of the nine event members names it, and each measurement's
// presence rule. (Every measurement's field: tests/golden/event_rules.jsonl; the one-second limit of
// the five noisy names: tests/rate_limit_test.cpp.)
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/test_support.h"

namespace {

using OrboPTPAAP::OClientPerfMetricsInfo_s;
using Record = OClientPerfMetricsInfo_s;

// A clock of each case's own, so that the limit of a noisy name never drops its one call.
class PerfMetrics : public oet_test::HostTest {
 protected:
  static int Report(const Record& info) { return OrboPTPAAP::TrackingPerfMetricsInfo({}, info); }
  oet_test::TestClock clock_;
};

// The categories in the order that names the event, each set to its value 1 by `set`.
struct Category {
  const char* word1;  // the word of value 1
  void (*set)(Record&);
};
const Category kCategories[] = {
    {"fetch_contacts", [](Record& r) { r.fetch_event = MetricsFetchEvent::kContacts; }},
    {"fetch_handler_parse", [](Record& r) { r.fetch_handler_event = MetricsFetchHandlerEvent::kParse; }},
    {"file_upload", [](Record& r) { r.file_event = MetricsFileEvent::kUpload; }},
    {"heartbeat_sent", [](Record& r) { r.heartbeat_event = MetricsHeartBeatEvent::kSent; }},
    {"login_start", [](Record& r) { r.login_event = MetricsLoginEvent::kStart; }},
    {"message_send", [](Record& r) { r.message_event = MetricsMessageEvent::kSend; }},
    {"message_handler_queue",
     [](Record& r) { r.message_handler_event = MetricsMessageHandlerEvent::kQueue; }},
    {"app_launch", [](Record& r) { r.platform_event = MetricsPlatformEvent::kAppLaunch; }},
    {"tp_on_tracking", [](Record& r) { r.special_event = MetricsSpecialEvent::kTpOnTracking; }},
};

class EventName : public PerfMetrics, public ::testing::WithParamInterface<size_t> {};

// With category k and every category after it set, category k names the event.
TEST_P(EventName, ComesFromTheFirstCategorySetInNameOrder) {
  Record info;
  for (size_t k = GetParam(); k < std::size(kCategories); ++k)
    kCategories[k].set(info);
  EXPECT_EQ(Report(info), 1);
  const std::string body = OnlyEvent().Ops(134);
  EXPECT_EQ(body.substr(0, body.find('|')), std::string("24=") + kCategories[GetParam()].word1);
}

INSTANTIATE_TEST_SUITE_P(Categories, EventName, ::testing::Range<size_t>(0, std::size(kCategories)),
                         [](const auto& info) { return std::string(kCategories[info.param].word1); });

struct Presence {
  const char* name;
  void (*set)(Record&);
  const char* ops;  // entity 133
};

class Measurements : public PerfMetrics, public ::testing::WithParamInterface<Presence> {};

TEST_P(Measurements, AreSetOnlyWhenTheyCarryAValue) {
  Record info;
  GetParam().set(info);
  EXPECT_EQ(Report(info), 1);
  EXPECT_EQ(OnlyEvent().Ops(133), GetParam().ops);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, Measurements,
    ::testing::Values(
        Presence{"NoneButTheAlwaysSet", [](Record&) {}, "28=|15=0|32=false"},
        Presence{"M1TwoBytes", [](Record& r) { r.text_m1 = "ab"; }, "28=|15=0|32=false"},
        Presence{"M1OneCharOfTwoBytes", [](Record& r) { r.text_m1 = "\xc3\xa9"; }, "28=|15=0|32=false"},
        Presence{"M1ThreeBytes", [](Record& r) { r.text_m1 = "abc"; }, "28=|15=0|12=abc|32=false"},
        Presence{"M21TwoCharsOfFourBytes", [](Record& r) { r.text_m21 = "\xc3\xa9\xc3\xa9"; },
                 "28=|15=0|32=false|4=\xc3\xa9\xc3\xa9"},
        Presence{"M10OneByte", [](Record& r) { r.text_m10 = "x"; }, "28=|15=0|32=false|10=x"},
        Presence{"FlagsOtherThanOne",
                 [](Record& r) {
                   r.flag_m4 = 7, r.flag_m9 = -1, r.flag_m18 = std::numeric_limits<int32_t>::min();
                 },
                 "28=|15=0|25=true|32=true|30=true"},
        Presence{"NegativeCountsWidened",
                 [](Record& r) { r.count_m19 = -5, r.count_m20 = std::numeric_limits<int32_t>::min(); },
                 "28=|15=0|32=false|36=-5|42=-2147483648"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
