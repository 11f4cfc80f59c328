// The meeting-side events' rules: the join-meeting, settings and clips gates, the in-meeting meeting
// event's context list at the edges of every rule, its gates, marking pass and mode, the OUI-framework
// events' lookups, the hidden meeting identity, and the inert legacy functions. (Every field of these
// events: tests/golden/meeting_side.jsonl.)
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "oEventTracker/EventTrack.h"
#include "oEventTracker/OrboClipsPAAP.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

namespace {

using oet_test::EventView;
using oet_test::Types;

class MeetingSide : public oet_test::HostTest {
 protected:
  // How many recorded calls have this operation name and value.
  int Count(const std::string& name, int32_t value) const {
    int n = 0;
    for (const oet_testing::Call& call : host_.Log())
      n += call.name == name && call.value == oet_testing::OpValue(value);
    return n;
  }
};

// ---- Join meeting.

// Flags the text does not reach count as 0; an empty action word clears, an empty interaction word is set.
TEST_F(MeetingSide, JoinMeetingNeedsATextAndTheWebService) {
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent(Kst::CStringT<char>(""), {}), 0);
  EXPECT_EQ(Outcomes(), "none");
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent("|", {}), 1);
  EXPECT_EQ(OnlyEvent().Ops(285), "2=false|15=join_meeting|7~|5=|10=false|12=false|14=false|4=false");
  host_.SetWebServicePresent(false);
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent("a|b", {}), 0);
  EXPECT_EQ(Outcomes(), "none");
}

// ---- Settings and clips: codes 1, 2, 3 and 5 must not be 0 (4 may be); otherwise the event is
// destroyed. The clips event asks the host for the telemetry service alone.

class CodeGate : public MeetingSide, public ::testing::WithParamInterface<int> {};

TEST_P(CodeGate, RequiresEveryCodeButTheFourth) {
  int32_t c[5] = {1, 1, 1, 1, 1};
  if (GetParam() > 0) c[GetParam() - 1] = 0;
  const bool sent = GetParam() == 0 || GetParam() == 4;
  const int requests = host_.HostCallCount("KstMQ_GetService");
  EXPECT_EQ(OrboClipsPAAP::TrackingClipsInteractEvent({c[0], c[1], c[2], c[3], c[4], ""}, {}, {}), sent);
  EXPECT_EQ(Outcomes(), sent ? "submitted 3 1" : "destroyed");
  EXPECT_EQ(host_.HostCallCount("KstMQ_GetService") - requests, 1);
  EXPECT_EQ(Asked(97), 0);  // the client-context cache was not created
  host_.TakeEvents();
  std::string text = std::to_string(c[0]);
  for (int k = 1; k < 5; ++k)
    text += "," + std::to_string(c[k]);
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent(text.c_str(), {}), sent);
  EXPECT_EQ(Outcomes(), sent ? "submitted 3 1" : "destroyed");
}

INSTANTIATE_TEST_SUITE_P(Codes, CodeGate, ::testing::Range(0, 6), [](const auto& info) {
  return info.param == 0 ? std::string("AllSet") : "Zero" + std::to_string(info.param);
});

// The settings text's codes are unsigned numbers: a sign, or a fifth piece missing, reads as 0.
TEST_F(MeetingSide, SettingCodesReadAsUnsignedNumbers) {
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent("1,1,1,1", {}), 0);
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent("-1,1,1,1,1", {}), 0);
  EXPECT_EQ(Outcomes(), "destroyed, destroyed");
}

// The meeting identity (161) goes with the settings event only when both its text and number are given.
TEST_F(MeetingSide, SettingIdentityOnlyWithTextAndNumber) {
  const OrboSettingPAAP::SettingTrackingInfo_s cases[] = {{"m-1", 5}, {"", 5}, {"m-1", 0}};
  for (const auto& tracking : cases) {
    EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent("3,12,1,0,7,night", tracking), 1);
    const bool sent = !tracking.tracking_text.IsEmpty() && tracking.tracking_number != 0;
    EventView event = OnlyEvent();
    EXPECT_EQ(event.ContextTypes(), sent ? Types({159, 170, 161, 169}) : Types({159, 170, 169}));
    EXPECT_EQ(event.Ops(161), sent ? "MeetingIdentityFields.1=m-1|MeetingIdentityFields.2=5" : "");
  }
}

TEST_F(MeetingSide, SettingWithoutTextLeavesTextAAlone) {
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent("1,1,1,1,1", {}), 1);
  EXPECT_EQ(OnlyEvent().Ops(157), "13=3|7=1|2=1|15=1|5=1|17=1");
}

// ---- In-meeting meeting event: the context list.

OrboPAAP::MeetingInteractInfo_s Interaction(int32_t kind) {
  OrboPAAP::MeetingInteractInfo_s info;
  info.first_code = 1, info.second_code = 2, info.third_code = 3, info.interaction_kind = kind;
  return info;
}

class InMeeting : public MeetingSide {
 protected:
  int Track(const OrboPAAP::MeetingTrackingInfo_s& tracking, const OrboPAAP::MeetingInteractInfo_s& info) {
    return OrboPAAP::TrackingMeetingInteractEvent(tracking, info);
  }
};

using Records = void (*)(OrboPAAP::MeetingTrackingInfo_s&, OrboPAAP::MeetingInteractInfo_s&);

struct ListCase {
  std::string name;
  int32_t kind;
  Records records;  // what the case gives beyond the three codes and the kind
  Types added;      // after 304, 283, 297, 287, 298
};

class InMeetingList : public InMeeting, public ::testing::WithParamInterface<ListCase> {};

TEST_P(InMeetingList, HoldsTheEntitiesTheRecordsCallFor) {
  OrboPAAP::MeetingTrackingInfo_s tracking;
  OrboPAAP::MeetingInteractInfo_s info = Interaction(GetParam().kind);
  GetParam().records(tracking, info);
  EXPECT_EQ(Track(tracking, info), 1);
  Types expected{304, 283, 297, 287, 298};
  expected.insert(expected.end(), GetParam().added.begin(), GetParam().added.end());
  EXPECT_EQ(OnlyEvent().ContextTypes(), expected);
}

// The interaction kinds that add a part of their own and some that add none, then each optional part
// at the edge of its rule.
std::vector<ListCase> ListCases() {
  using T = OrboPAAP::MeetingTrackingInfo_s;
  using I = OrboPAAP::MeetingInteractInfo_s;
  const std::pair<Types, Types> kinds[] = {
      {{1, 428, 430, 493, 503, 504, 506, 509, 512, 517, 518, 537, 660, 662}, {}},
      {{494, 500, 502, 505, 508, 510, 511, 514, 516, 534, 536}, {300}},
      {{507, 519, 533, 661}, {301}},
      {{429, 513}, {302}}};
  std::vector<ListCase> cases;
  for (const auto& [list, added] : kinds) {
    for (const int32_t kind : list)
      cases.push_back({"Kind" + std::to_string(kind), kind, [](T&, I&) {}, added});
  }
  const std::vector<ListCase> rules = {
      {"Kind569Value0", 569, [](T&, I&) {}, {}},
      {"Kind569Value4", 569, [](T&, I& i) { i.kind_569_value = 4; }, {286}},
      {"Kind570Value4", 570, [](T&, I& i) { i.kind_569_value = 4; }, {}},
      {"Reference",
       1,
       [](T&, I& i) { i.reference_a = i.reference_b = i.reference_c = 1, i.reference_text = "r"; },
       {281}},
      {"ReferenceWithoutText", 1, [](T&, I& i) { i.reference_a = i.reference_b = i.reference_c = 1; }, {}},
      {"MeetingText", 1, [](T& t, I&) { t.meeting_text = "topic"; }, {277}},
      {"Share", 1, [](T& t, I&) { t.share_text = "share", t.share_number = 2; }, {296}},
      {"ShareTextOnly", 1, [](T& t, I&) { t.share_text = "share"; }, {}},
      {"Pair", 1, [](T&, I& i) { i.pair_gate_a = 1, i.pair_gate_b = -1; }, {292}},
      {"PairHalf", 1, [](T&, I& i) { i.pair_gate_a = 1; }, {}},
      {"Extra", 1, [](T&, I& i) { i.extra_gate = 4; }, {293}},
      {"Item", 1, [](T&, I& i) { i.item_text = "item"; }, {294}},
      {"Option", 1, [](T& t, I& i) { t.meeting_text = "topic", i.option_value = 6; }, {277, 303}},
      {"OptionWithoutMeetingText", 1, [](T&, I& i) { i.option_value = 6; }, {}},
      {"EverythingKind513",
       513,
       [](T& t, I& i) {
         i.kind_569_value = 4, i.reference_a = i.reference_b = i.reference_c = 1, i.reference_text = "r";
         t.meeting_text = "topic", t.share_text = "share", t.share_number = 2, i.pair_gate_a = 1;
         i.pair_gate_b = -1, i.extra_gate = 4, i.item_text = "item", i.option_value = 6;
       },
       {281, 277, 296, 292, 293, 294, 303, 302}}};
  cases.insert(cases.end(), rules.begin(), rules.end());
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Rules, InMeetingList, ::testing::ValuesIn(ListCases()),
                         [](const auto& info) { return info.param.name; });

// ---- In-meeting meeting event: gates, marking, mode.

// 1 to 4: the first, second or third code or the interaction kind 0 (destroyed); 5: the fourth code 0;
// 6: a web service that leaves the cache's value empty (the refresh still sets the os name, so the
// context gate lets the event pass).
class InMeetingGate : public InMeeting, public ::testing::WithParamInterface<int> {};

TEST_P(InMeetingGate, DestroysTheEventForAZeroCode) {
  OrboPAAP::MeetingInteractInfo_s info = Interaction(1);
  int32_t* fields[] = {&info.first_code, &info.second_code, &info.third_code, &info.interaction_kind,
                       &info.fourth_code};
  if (GetParam() <= 5) *fields[GetParam() - 1] = 0;
  if (GetParam() == 6) host_.web_service().SetContextAnswer({"", "", "", ""});
  EXPECT_EQ(Track({}, info), GetParam() >= 5);
  EXPECT_EQ(Outcomes(), GetParam() >= 5 ? "submitted 4 1" : "destroyed");
}

INSTANTIATE_TEST_SUITE_P(Gates, InMeetingGate, ::testing::Range(1, 7),
                         [](const auto& info) { return "Case" + std::to_string(info.param); });

// A host that reports a meeting action while it fills the client context (a call back into the library
// during the fill) finds the cache unfilled: that event is destroyed; the outer one goes out.
TEST_F(InMeeting, DestroysTheEventWhileTheCacheIsUnfilled) {
  int nested = -1;
  host_.web_service().SetFillHook([&] {
    if (nested == -1) nested = Track({}, Interaction(1));
  });
  EXPECT_EQ(Track({}, Interaction(1)), 1);
  host_.web_service().SetFillHook(nullptr);
  EXPECT_EQ(nested, 0);
  EXPECT_EQ(Outcomes(), "destroyed, submitted 4 1");
}

struct MarkingCase {
  int32_t tier;
  bool holders;
  int marked;  // entities whose holder got 3
};

class InMeetingMarking : public InMeeting, public ::testing::WithParamInterface<MarkingCase> {};

// The marking pass runs once the list is built (after its last entity) and before it is attached.
TEST_P(InMeetingMarking, MarksEveryEntityAndTheBodyOnlyForTier3) {
  host_.SetAttributeHoldersPresent(GetParam().holders);
  OrboPAAP::MeetingInteractInfo_s info = Interaction(513);
  info.tier = GetParam().tier;
  EXPECT_EQ(Track({}, info), 1);
  EXPECT_EQ(Count("GetAttributeHolder", -3), 7);  // 304, 283, 297, 287, 298, 302 and the body
  EXPECT_EQ(Count("SetValue", 3), GetParam().marked);
  const std::vector<std::string> calls = Calls();
  const auto first = [&calls](const char* text) {
    return std::find_if(calls.begin(), calls.end(),
                        [text](const std::string& c) { return c.find(text) != std::string::npos; });
  };
  EXPECT_LT(first("CreateEntity 302"), first("GetAttributeHolder"));
  EXPECT_LT(first("GetAttributeHolder"), first("AttachEntityList"));
  EventView event = OnlyEvent();
  const std::string mark = GetParam().marked > 0 ? "EntityBase.1=-3|AttributeHolder.1=3" : "EntityBase.1=-3";
  EXPECT_EQ(event.Ops(297), mark);  // no fields of its own: the marking alone
  EXPECT_EQ(event.Ops(289).rfind(mark + "|32=", 0), 0u) << event.Ops(289);  // before any body field
}

INSTANTIATE_TEST_SUITE_P(Tiers, InMeetingMarking,
                         ::testing::Values(MarkingCase{3, true, 7}, MarkingCase{2, true, 0},
                                           MarkingCase{0, true, 0}, MarkingCase{3, false, 0}),
                         [](const auto& info) {
                           return "Tier" + oet_test::NameOf(info.param.tier) +
                                  (info.param.holders ? "" : "NoHolder");
                         });

struct ModeCase {
  int32_t mode;
  int32_t role;
  int32_t sent;
};

class InMeetingMode : public InMeeting, public ::testing::WithParamInterface<ModeCase> {};

TEST_P(InMeetingMode, IsTheRecordsOrDerivedFromTheRole) {
  OrboPAAP::MeetingTrackingInfo_s tracking;
  tracking.meeting_role = GetParam().role;
  OrboPAAP::MeetingInteractInfo_s info = Interaction(1);
  info.mode = GetParam().mode;
  EXPECT_EQ(Track(tracking, info), 1);
  EXPECT_EQ(Count("SetMode", GetParam().sent), 1);
}

INSTANTIATE_TEST_SUITE_P(Modes, InMeetingMode,
                         ::testing::Values(ModeCase{0, 3, 2}, ModeCase{0, 1, 1}, ModeCase{0, 0, 1},
                                           ModeCase{0, 4, 1}, ModeCase{5, 3, 5}, ModeCase{5, 1, 5},
                                           ModeCase{-1, 3, -1}),
                         [](const auto& info) {
                           return "Mode" + oet_test::NameOf(info.param.mode) + "Role" +
                                  oet_test::NameOf(info.param.role);
                         });

// ---- OUI framework, main window and in meeting.

// The main window's event asks the web service for the account's label and URL at every event, never
// from a cache. (Its fields, and the in-meeting event's: tests/golden/meeting_side.jsonl.)
TEST_F(MeetingSide, OuiEventAsksForLabelAndUrlEveryTime) {
  host_.web_service().SetAccountDomain("acme");
  EXPECT_EQ(OrboPTPAAP::TrackingOUIFrameworkInteract({}, {}), 1);
  EXPECT_EQ(OrboPTPAAP::TrackingOUIFrameworkInteract({}, {}), 1);
  EXPECT_EQ(Asked(35), 2);
  EXPECT_EQ(Asked(37), 2);
}

// ---- Notice and client events: the hidden meeting identity.

struct IdentityCase {
  const char* meeting_id;
  uint64_t number;
  const char* text;  // the text the hidden identity sends
};

class HiddenIdentity : public MeetingSide, public ::testing::WithParamInterface<IdentityCase> {};

TEST_P(HiddenIdentity, SendsOnlyTheShortKeyAndNoNumber) {
  host_.web_service().SetShortKey("m-1", "key-of-m-1-is-longer-than-16");
  host_.web_service().SetShortKey("42", "key-42");
  OrboPAAP::MeetingTrackingInfo_s tracking;
  tracking.meeting_id = GetParam().meeting_id;
  tracking.meeting_number = GetParam().number;
  EXPECT_EQ(OrboPAAP::TrackingNoticeInteractEvent(tracking, {}), 1);
  const std::string hidden = "MeetingIdentityFields.2=18446744073709551615|MeetingIdentityFields.1=";
  EXPECT_EQ(OnlyEvent().Ops(161), hidden + GetParam().text);
  EXPECT_EQ(OrboPAAP::TrackingClientInteractEvent(tracking, {}), 1);
  EXPECT_EQ(OnlyEvent().Ops(161), hidden + GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Identities, HiddenIdentity,
    ::testing::Values(IdentityCase{"m-1", 42, "key-of-m-1-is-lo"},
                      IdentityCase{"m-1", OrboPAAP::kNoMeetingNumber, "key-of-m-1-is-lo"},
                      IdentityCase{"", 42, "key-42"}, IdentityCase{"", OrboPAAP::kNoMeetingNumber, ""},
                      IdentityCase{"unknown", 42, ""}),
    [](const auto& info) {
      return oet_test::NameOf(info.param.meeting_id) + "_" +
             (info.param.number == OrboPAAP::kNoMeetingNumber ? "None" : "42");
    });

// ---- Legacy functions.

TEST_F(MeetingSide, LegacyFunctionsDoNothing) {
  using namespace ns_orbo_telemetry;
  OrboLogTagMap tags{{static_cast<OrboLogTagName>(3), "x"}, {static_cast<OrboLogTagName>(-9), ""}};
  const OrboLogTagMap before = tags;
  const int requests = host_.HostCallCount("KstMQ_GetService");
  const auto event = static_cast<OrboLogEvent>(-99999);
  const auto sub_event = static_cast<OrboLogSubEvent>(INT32_MAX);
  EXPECT_EQ(EventTrack::AddEventTrackingLog("a", "b", "c", "d", tags, static_cast<LogPriority>(7)), 0);
  EXPECT_EQ(EventTrack::AddEventTrackingLog(OrboLogClientType{}, OrboLogLocation{}, event, sub_event), 0);
  EXPECT_EQ(EventTrack::AddEventTrackingLog(static_cast<OrboLogClientType>(5), OrboLogLocation{}, event,
                                            sub_event, tags, LogPriority{}),
            0);
  EXPECT_EQ(EventTrack::AddInMeetingEventTrackingLog(event, sub_event, tags), 0);
  EXPECT_EQ(tags, before);
  EXPECT_EQ(host_.HostCallCount("KstMQ_GetService"), requests);
  EXPECT_TRUE(host_.Log().empty());
  EXPECT_EQ(Asked(97), 0);
}

}  // namespace
