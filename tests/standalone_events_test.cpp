// The standalone events' rules: the meeting event's two gates and its all-or-nothing context list, the
// post-meeting survey and its kept meeting strings (a store during a report included), the client and
// notice events' action class and null entries, and the preferences event without context entities.
// (Every field of these events: tests/golden/standalone_events.jsonl; stores racing reports on other
// threads: tests/threads_test.cpp.)
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "core/post_meeting.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "tests/test_support.h"

namespace {

using namespace OrboPTPAAP;
using oet_test::Types;

// ---- Meeting: values 1, 2, 3 and 5 must not be 0 (4 may be); otherwise the event is destroyed.

class MeetingGate : public oet_test::HostTest, public ::testing::WithParamInterface<int> {};

TEST_P(MeetingGate, SendsOnlyWithItsKeyValues) {
  int32_t v[5] = {1, 2, 3, 4, 5};
  for (int32_t& value : v)
    value = GetParam() < 0 ? -value : value;
  if (GetParam() > 0) v[GetParam() - 1] = 0;
  const bool sent = GetParam() <= 0 || GetParam() == 4;
  EXPECT_EQ(TrackingMeetingInteractEvent({"p", "s"}, {v[0], v[1], v[2], v[3], v[4], L"", 77, "detail"}),
            sent);
  EXPECT_EQ(Outcomes(), sent ? "submitted 3 1" : "destroyed");
  if (!sent) {
    EXPECT_EQ(Calls(), (std::vector<std::string>{"CreateEvent -> event 1", "DestroyEvent 1"}));
  }
}

// -1: every value negative; 0: every value set; n: value n zero.
INSTANTIATE_TEST_SUITE_P(Values, MeetingGate, ::testing::Range(-1, 6), [](const auto& info) {
  return info.param < 0    ? std::string("Negative")
         : info.param == 0 ? "AllSet"
                           : "Zero" + std::to_string(info.param);
});

const MeetingInteractInfo_s kMeeting{1, 2, 3, 4, 5, L"Stand-up", 0, ""};

// The os name is empty only while no refresh has reached a web service: the cache was made while the
// web service was away, and the web service leaves again before the gate's refresh.
TEST_F(MeetingGate, ContextGateDestroysTheEventWhileNoRefreshReachedTheWebService) {
  host_.SetWebServicePresent(false);
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 0);
  host_.SetWebServicePresent(true);
  host_.SetCreateEventHook([this] { host_.SetWebServicePresent(false); });
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 0);
  EXPECT_EQ(Calls(), (std::vector<std::string>{"CreateEvent -> event 1", "DestroyEvent 1"}));
  // A web service that leaves the client-context value empty still lets the refresh set the os name.
  host_.SetCreateEventHook(nullptr);
  host_.SetWebServicePresent(true);
  host_.web_service().SetContextAnswer({"", "", "", ""});
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 1);
}

class MeetingContext : public oet_test::HostTest, public ::testing::WithParamInterface<int32_t> {};

TEST_P(MeetingContext, AttachedOnlyWhenAllThreeEntitiesExist) {
  host_.SetCreateEntityFails(GetParam(), true);
  EXPECT_EQ(TrackingMeetingInteractEvent({}, kMeeting), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (GetParam() == 289 ? Types{283, 304, 297} : Types{}));
  EXPECT_EQ(event.BodyType(), GetParam() == 289 ? 0 : 289);
}

INSTANTIATE_TEST_SUITE_P(Failing, MeetingContext, ::testing::Values(283, 304, 297, 289),
                         [](const auto& info) { return "Type" + std::to_string(info.param); });

// ---- Post-meeting survey: a report empties the meeting's strings as it reads them, even when it then
// fails; a store during a report is kept whole. (A report, then its title only:
// tests/golden/standalone_events.jsonl.)

class PostMeeting : public oet_test::HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    oet::StorePostMeetingStrings({});  // nothing kept, as at start
  }
  static void Store(const char* n) {
    const std::string a = std::string("a") + n, b = std::string("b") + n, d = std::string("d") + n;
    StoreMeetingInfo4PostEvents({a.c_str(), b.c_str(), Kst::Utf8ToWide(std::string("t") + n), d.c_str()});
  }
  // What is kept, as the event reads it (strings 1, 2 and 4 are emptied by the reading).
  static std::string Kept() {
    const auto kept = oet::TakePostMeetingStrings();
    return kept.text1.str() + "," + kept.text2.str() + "," + Kst::WideToUtf8(kept.text3) + "," +
           kept.text4.str();
  }
  static int Survey(int32_t stage, int32_t action) { return TrackingPostMeetingEvent({stage, action}); }
};

// The strings are emptied by the event's reading of them, whatever the submission does afterwards.
TEST_F(PostMeeting, FailedReportStillEmptiesTheStrings) {
  Store("1");
  host_.SetCreateEntityFails(288, true);
  EXPECT_EQ(Survey(2, 2), 0);
  EXPECT_EQ(Outcomes(), "destroyed");
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

// ---- Client and notice: null context entries keep their places; the action class follows the code.

OClientInteractInfo_s Client(int32_t action_code) {
  return {1, 99, 3, action_code, 5, 6, "text", 0, "detail", {"acme", "client", "6.2"}, "prod-1"};
}
ONoticeInteractInfo_s Notice(int32_t action_code) {
  return {1, 2, 99, 4, 5, 6, action_code, "", 0, "n1", "", "n3", 12, 7};
}

using ClientEvents = oet_test::HostTest;

TEST_F(ClientEvents, NullContextEntitiesKeepTheirPlaces) {
  for (const int32_t type : {170, 159, 169, 161, 171, 165})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(TrackingClientInteractEvent({}, Client(0)), 1);
  EXPECT_EQ(OnlyEvent().ContextTypes(), (Types{0, 0, 0, 0, 0}));
  EXPECT_EQ(TrackingNoticeInteractEvent({}, Notice(0)), 1);
  EXPECT_EQ(OnlyEvent().ContextTypes(), (Types{0, 0, 0, 0}));
}

class ActionClass : public oet_test::HostTest,
                    public ::testing::WithParamInterface<std::tuple<int32_t, bool>> {};

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

// ---- Preferences: without its context entities, the body goes out alone.

TEST_F(ClientEvents, PreferencesWithoutContextEntitiesAttachesTheBodyAlone) {
  for (const int32_t type : {170, 159, 169, 158})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(TrackingPreferencesInteractEvent({}, {}), 1);
  const auto calls = Calls();
  EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                          [](const std::string& c) { return c.rfind("Attach", 0) == 0; }),
            1);
}

}  // namespace
