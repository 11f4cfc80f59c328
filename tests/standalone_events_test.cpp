// The meeting event's two gates, the post-meeting survey and its kept meeting strings (a store racing a
// report included), the client and notice events' action class and null entries, and the preferences
// event without context entities. Every field of these events: tests/golden/standalone_events.jsonl.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "core/post_meeting.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"

namespace {

using namespace OrboPTPAAP;
using Types = std::vector<int32_t>;
using MeetingEvent = oet_test::RecordedEventTest;
using PreferencesEvent = oet_test::RecordedEventTest;

// ---- Meeting.

struct GateCase {
  const char* name;
  int32_t values[5];
  int result;
};

void PrintTo(const GateCase& c, std::ostream* os) {
  *os << c.name;
}

class MeetingGate : public oet_test::RecordedEventTest, public ::testing::WithParamInterface<GateCase> {};

TEST_P(MeetingGate, SendsOnlyWithItsKeyValuesAndDestroysTheEventOtherwise) {
  const int32_t* v = GetParam().values;
  const MeetingInteractInfo_s info{v[0], v[1], v[2], v[3], v[4], L"", 77, "detail"};
  EXPECT_EQ(TrackingMeetingInteractEvent({"p", "s"}, info), GetParam().result);
  if (GetParam().result == 0) {
    EXPECT_EQ(oet_testing::Describe(host_.Log()),
              (std::vector<std::string>{"CreateEvent -> event 1", "DestroyEvent 1"}));
    return;
  }
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{283, 304, 297}));
  EXPECT_EQ(event.Ops(289), "31=meeting|5=" + std::to_string(v[0]) + "|24=" + std::to_string(v[1]) +
                                "|16=" + std::to_string(v[2]) + "|3=" + std::to_string(v[3]) +
                                "|36=" + std::to_string(v[4]) + "|14=detail|29~");
}

INSTANTIATE_TEST_SUITE_P(
    KeyValues, MeetingGate,
    ::testing::Values(GateCase{"AllSet", {1, 2, 3, 4, 5}, 1}, GateCase{"Value4Zero", {1, 2, 3, 0, 5}, 1},
                      GateCase{"Negative", {-1, -2, -3, -4, -5}, 1},
                      GateCase{"Value1Zero", {0, 2, 3, 4, 5}, 0}, GateCase{"Value2Zero", {1, 0, 3, 4, 5}, 0},
                      GateCase{"Value3Zero", {1, 2, 0, 4, 5}, 0}, GateCase{"Value5Zero", {1, 2, 3, 4, 0}, 0}),
    [](const auto& info) { return std::string(info.param.name); });

const MeetingInteractInfo_s kMeeting{1, 2, 3, 4, 5, L"Stand-up", 0, ""};

// The os name is empty only while no refresh has reached a web service: the cache was made while the
// web service was away, and the web service leaves again before the gate's refresh.
TEST_F(MeetingEvent, ContextGateDestroysTheEventWhileNoRefreshReachedTheWebService) {
  host_.SetWebServicePresent(false);
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 0);
  host_.SetWebServicePresent(true);
  host_.SetCreateEventHook([this] { host_.SetWebServicePresent(false); });
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 0);
  EXPECT_EQ(oet_testing::Describe(host_.Log()),
            (std::vector<std::string>{"CreateEvent -> event 1", "DestroyEvent 1"}));
  // A web service that leaves the client-context value empty still lets the refresh set the os name.
  host_.SetCreateEventHook(nullptr);
  host_.SetWebServicePresent(true);
  host_.web_service().SetContextAnswer({"", "", "", ""});
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 1);
}

class MeetingContext : public oet_test::RecordedEventTest, public ::testing::WithParamInterface<int32_t> {};

TEST_P(MeetingContext, AttachedOnlyWhenAllThreeEntitiesExist) {
  host_.SetCreateEntityFails(GetParam(), true);
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (GetParam() == 289 ? Types{283, 304, 297} : Types{}));
  EXPECT_EQ(event.BodyType(), GetParam() == 289 ? 0 : 289);
}

INSTANTIATE_TEST_SUITE_P(Failing, MeetingContext, ::testing::Values(283, 304, 297, 289),
                         [](const auto& info) { return "Type" + std::to_string(info.param); });

// ---- Post-meeting survey.

class PostMeeting : public oet_test::RecordedEventTest {
 protected:
  void SetUp() override {
    RecordedEventTest::SetUp();
    oet::StorePostMeetingStrings({});  // nothing kept, as at start
  }
  static void Store(const char* n) {
    const std::string a = std::string("a") + n, b = std::string("b") + n, d = std::string("d") + n;
    StoreMeetingInfo4PostEvents({a.c_str(), b.c_str(), Kst::Utf8ToWide(std::string("t") + n), d.c_str()});
  }
  // What is kept (as the event reads it: strings 1, 2 and 4 are emptied by the reading).
  static std::string Kept() {
    const auto kept = oet::TakePostMeetingStrings();
    return kept.text1.str() + "," + kept.text2.str() + "," + Kst::WideToUtf8(kept.text3) + "," +
           kept.text4.str();
  }
  static int Survey(int32_t stage, int32_t action) { return TrackingPostMeetingEvent({stage, action}); }
};

// (The event's fields in full: tests/golden/standalone_events.jsonl.)
TEST_F(PostMeeting, ReportsTheKeptMeetingThenItsTitleOnly) {
  EXPECT_EQ(Survey(1, 1), 0);  // nothing kept yet
  Store("1");
  EXPECT_EQ(Survey(1, 4), 1);
  EXPECT_EQ(host_.TakeEvents().size(), 2u);
  EXPECT_EQ(Kept(), ",,t1,");
  EXPECT_EQ(Survey(7, 0), 1);
  EXPECT_EQ(OnlyEvent().Ops(288).substr(0, 6), "3=|5=|");
}

// The strings are emptied by the event's reading of them, whatever the submission does afterwards.
TEST_F(PostMeeting, FailedReportStillEmptiesTheStrings) {
  Store("1");
  host_.SetCreateEntityFails(288, true);
  EXPECT_EQ(Survey(2, 2), 0);
  EXPECT_EQ(OnlyEvent().submitted(), false);
  EXPECT_EQ(Kept(), ",,t1,");
  host_.SetCreateEntityFails(288, false);
  Store("2");
  host_.ThrowAtCall(15);  // SubmitEvent, after the event, the body, its 11 fields and its attachment
  EXPECT_EQ(Survey(2, 2), 0);
  EXPECT_EQ(Kept(), ",,t2,");
}

// A store that lands after the report's read of the strings (here from inside the report's
// client-context refresh) is neither mixed into the report nor cleared by it.
TEST_F(PostMeeting, StoreDuringAReportIsKeptWhole) {
  host_.web_service().SetContextAnswer({"", "", "", ""});  // every refresh asks the web service again
  Store("1");
  host_.web_service().SetFillHook([] { Store("2"); });
  EXPECT_EQ(Survey(2, 5), 1);
  host_.web_service().SetFillHook(nullptr);
  EXPECT_EQ(OnlyEvent().Ops(288).substr(0, 10), "3=a1|5=b1|");
  EXPECT_EQ(Kept(), "a2,b2,t2,d2");
}

// Stores racing reports on other threads (run under ThreadSanitizer by the tsan leg): every report
// carries one meeting's strings or none, and a meeting whose strings were cleared was reported.
TEST_F(PostMeeting, ThreadsStoringWhileOthersReport) {
  constexpr int kStores = 100;
  std::atomic<bool> storing{true};
  std::atomic<int> reporting{0};
  std::thread store([&] {
    while (reporting.load() < 2) {
    }
    for (int n = 1; n <= kStores; ++n) {
      Store(std::to_string(n).c_str());
      std::this_thread::yield();
    }
    storing = false;
  });
  std::vector<std::thread> reports;
  for (int t = 0; t < 2; ++t) {
    reports.emplace_back([&] {
      ++reporting;
      while (storing.load())
        Survey(2, 1);
    });
  }
  store.join();
  for (auto& thread : reports)
    thread.join();
  std::set<std::string> reported;
  for (const auto& recorded : host_.TakeEvents()) {
    const oet_test::EventView event(recorded);
    if (!event.submitted()) continue;  // before the first store
    const std::string ops = event.Ops(288);
    const std::string text1 = ops.substr(2, ops.find('|') - 2);
    const size_t b = ops.find("|5=") + 3;
    const std::string text2 = ops.substr(b, ops.find('|', b) - b);
    ASSERT_EQ(text1.empty() ? "" : text1.substr(1), text2.empty() ? "" : text2.substr(1)) << ops;
    reported.insert(text1);
  }
  const std::string last = std::to_string(kStores);
  const std::string kept = Kept();
  EXPECT_TRUE(kept == "a" + last + ",b" + last + ",t" + last + ",d" + last ||
              (kept == ",,t" + last + "," && reported.count("a" + last) == 1))
      << kept;
}

// ---- Client and notice.

class ClientEvents : public oet_test::RecordedEventTest {
 protected:
  static OClientInteractInfo_s Client(int32_t action_code) {
    OClientInteractInfo_s info{
        1, 99, 3, action_code, 5, 6, "text", 0, "detail", {"acme", "client", "6.2"}, "prod-1"};
    return info;
  }
  static ONoticeInteractInfo_s Notice(int32_t action_code) {
    return ONoticeInteractInfo_s{1, 2, 99, 4, 5, 6, action_code, "", 0, "n1", "", "n3", 12, 7};
  }
};

TEST_F(ClientEvents, NullContextEntitiesKeepTheirPlaces) {
  for (const int32_t type : {170, 159, 169, 161, 171, 165})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(TrackingClientInteractEvent({}, Client(0)), 1);
  EXPECT_EQ(OnlyEvent().ContextTypes(), (Types{0, 0, 0, 0, 0}));
  EXPECT_EQ(TrackingNoticeInteractEvent({}, Notice(0)), 1);
  EXPECT_EQ(OnlyEvent().ContextTypes(), (Types{0, 0, 0, 0}));
}

class ActionClass : public ClientEvents, public ::testing::WithParamInterface<std::tuple<int32_t, bool>> {};

TEST_P(ActionClass, FollowsTheActionCode) {
  const auto [code, notice] = GetParam();
  EXPECT_EQ(
      notice ? TrackingNoticeInteractEvent({}, Notice(code)) : TrackingClientInteractEvent({}, Client(code)),
      1);
  const std::string ops = OnlyEvent().Ops(157);
  const size_t at = ops.find("|InteractionClassFields.15=");
  const std::string expected = code == 93 ? "3" : code == 94 || code == 95 ? "1" : "none";
  EXPECT_EQ(at == std::string::npos ? "none" : ops.substr(at + 27), expected);
}

INSTANTIATE_TEST_SUITE_P(Codes, ActionClass, ::testing::Combine(::testing::Range(92, 97), ::testing::Bool()),
                         [](const auto& info) {
                           return std::to_string(std::get<0>(info.param)) +
                                  (std::get<1>(info.param) ? "_Notice" : "_Client");
                         });

// ---- Preferences.

TEST_F(PreferencesEvent, WithoutContextEntitiesAttachesTheBodyAlone) {
  for (const int32_t type : {170, 159, 169, 158})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(TrackingPreferencesInteractEvent({}, {}), 1);
  const auto calls = oet_testing::Describe(host_.Log());
  EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                          [](const std::string& c) { return c.rfind("Attach", 0) == 0; }),
            1);
}

}  // namespace
