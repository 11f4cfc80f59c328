// The performance-metrics event: which of the nine event members names it, each measurement's
// presence rule, and the one-second limit of the five noisy names.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/recorded_event_view.h"
#include "tests/throttle_window.h"

namespace {

using OrboPTPAAP::OClientPerfMetricsInfo_s;
using Record = OClientPerfMetricsInfo_s;

class PerfMetrics : public oet_test::RecordedEventTest {
 protected:
  static int Report(const Record& info) { return OrboPTPAAP::TrackingPerfMetricsInfo({}, info); }
  oet_test::ThrottleWindow window_;
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

void PrintTo(const Presence& p, std::ostream* os) {
  *os << p.name;
}

class Measurements : public PerfMetrics, public ::testing::WithParamInterface<Presence> {};

TEST_P(Measurements, AreSetOnlyWhenTheyCarryAValue) {
  Record info;
  GetParam().set(info);
  EXPECT_EQ(Report(info), 1);
  EXPECT_EQ(OnlyEvent().Ops(133), GetParam().ops);
}

void SetEvery(Record& r) {
  r.text_m1 = "m01", r.text_m2 = "m2", r.count_m3 = 3, r.flag_m4 = 1, r.value_m5 = 5, r.value_m6 = 6;
  r.value_m7 = 7, r.value_m8 = 8, r.flag_m9 = 1, r.text_m10 = "m", r.value_m11 = 11, r.value_m12 = -12;
  r.count_m13 = 13, r.flag_m14 = 1, r.count_m15 = 15, r.flag_m16 = 1, r.flag_m17 = 1, r.flag_m18 = 1;
  r.count_m19 = 19, r.count_m20 = 20, r.text_m21 = "m21";
}

INSTANTIATE_TEST_SUITE_P(
    Rules, Measurements,
    ::testing::Values(
        Presence{"NoneButTheAlwaysSet", [](Record&) {}, "28=|15=0|32=false"},
        Presence{"Every", SetEvery,
                 "28=m2|15=8|12=m01|14=3|25=true|6=5|21=6|2=7|32=true|10=m|27=11|19=-12|38=13|17=true|34=15"
                 "|40=true|8=true|30=true|36=19|42=20|4=m21"},
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

// A record named by `word` (one of the words below).
Record Named(const std::string& word) {
  Record r;
  if (word == "signoff") r.login_event = MetricsLoginEvent::kSignoff;
  if (word == "webview_error") r.platform_event = MetricsPlatformEvent::kWebviewError;
  if (word == "network_disconnect") r.heartbeat_event = MetricsHeartBeatEvent::kNetworkDisconnect;
  if (word == "tp_on_tracking") r.special_event = MetricsSpecialEvent::kTpOnTracking;
  if (word == "tp_on_data_indicate") r.special_event = MetricsSpecialEvent::kTpOnDataIndicate;
  if (word == "login_start") r.login_event = MetricsLoginEvent::kStart;
  return r;
}

using NameBurst = oet_test::Burst<const char*>;

class NoisyNames : public PerfMetrics, public ::testing::WithParamInterface<NameBurst> {};

TEST_P(NoisyNames, AreSentAtMostOnceASecondEach) {
  oet_test::RunBurst(host_, window_, GetParam(), [](const char* word) { return Report(Named(word)); });
}

INSTANTIATE_TEST_SUITE_P(
    Bursts, NoisyNames,
    ::testing::Values(NameBurst{"Signoff500Dropped",
                                {{"signoff", 0, 1}, {"signoff", 500, 0}, {"signoff", 1000, 1}}},
                      NameBurst{"NamesIndependent",
                                {{"signoff", 0, 1},
                                 {"webview_error", 0, 1},
                                 {"network_disconnect", 0, 1},
                                 {"tp_on_tracking", 0, 1},
                                 {"tp_on_data_indicate", 0, 1},
                                 {"tp_on_tracking", 999, 0},
                                 {"network_disconnect", 999, 0}}},
                      NameBurst{"ClockMovedBackDropped",
                                {{"tp_on_data_indicate", 5000, 1}, {"tp_on_data_indicate", 4000, 0}}},
                      NameBurst{"QuietNamesNeverDropped",
                                {{"login_start", 0, 1}, {"login_start", 0, 1}, {"", 0, 1}, {"", 0, 1}}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
