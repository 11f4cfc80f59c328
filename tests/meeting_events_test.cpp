// The meeting-side events: the join-meeting, settings and clips events with their gates, the in-meeting
// meeting event's context list at the edges of every rule, its marking pass, mode and start time, the
// OUI-framework events of both sides, the hidden meeting identity, and the inert legacy functions.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/event.h"
#include "events/meeting/meeting_identity.h"
#include "oEventTracker/EventTrack.h"
#include "oEventTracker/OrboClipsPAAP.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"
#include "oKstPlatform/service_registry.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"

namespace {

using Types = std::vector<int32_t>;
using oet_test::EventView;
using oet_testing::Call;

class MeetingSide : public oet_test::RecordedEventTest {
 protected:
  std::vector<std::string> Calls() const { return oet_testing::Describe(host_.Log()); }
  // Outcome and codes of the only event: "submitted 4 1", "destroyed", or "none".
  std::string Outcome() {
    const auto events = host_.Events();
    if (events.empty()) return "none";
    if (events.front().outcome == oet_testing::RecordedEvent::Outcome::kDestroyed) return "destroyed";
    const Call& last = events.front().calls.back();
    return "submitted " + std::to_string(last.first_code) + " " + std::to_string(last.second_code);
  }
  // How many recorded calls have this operation name and value.
  int Count(const std::string& name, int32_t value) const {
    int n = 0;
    for (const Call& call : host_.Log())
      n += call.name == name && call.value == oet_testing::OpValue(value);
    return n;
  }
};

// ---- Join meeting.

TEST_F(MeetingSide, JoinMeetingSendsTheParsedTextOnTheHomeTabEntity) {
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent(Kst::CStringT<char>(""), {}), 0);
  EXPECT_TRUE(host_.Log().empty());
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent("button_clicked|cancel|1|0", {"p", "s"}),
            1);
  EXPECT_EQ(Outcome(), "submitted 3 1");
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{283, 304}));
  EXPECT_EQ(event.Ops(304), "");
  EXPECT_EQ(event.Ops(285),
            "2=true|15=join_meeting|8=cancel|5=button_clicked|10=false|12=false|14=false|4=false");
  // Flags the text does not reach count as 0; an empty action word clears, an empty interaction word is set.
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent("|", {}), 1);
  EXPECT_EQ(OnlyEvent().Ops(285), "2=false|15=join_meeting|7~|5=|10=false|12=false|14=false|4=false");
  host_.SetWebServicePresent(false);
  EXPECT_EQ(PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent("a|b", {}), 0);
  EXPECT_EQ(Outcome(), "none");
}

// ---- Settings.

struct SettingGateCase {
  const char* text;
  const char* outcome;
};

class SettingGate : public MeetingSide, public ::testing::WithParamInterface<SettingGateCase> {};

TEST_P(SettingGate, RequiresEveryCodeButTheFourth) {
  const bool sent = std::string(GetParam().outcome) != "destroyed";
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent(GetParam().text, {}), sent ? 1 : 0);
  EXPECT_EQ(Outcome(), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(Codes, SettingGate,
                         ::testing::Values(SettingGateCase{"1,1,1,0,1", "submitted 3 1"},
                                           SettingGateCase{"0,1,1,1,1", "destroyed"},
                                           SettingGateCase{"1,0,1,1,1", "destroyed"},
                                           SettingGateCase{"1,1,0,1,1", "destroyed"},
                                           SettingGateCase{"1,1,1,1,0", "destroyed"},
                                           SettingGateCase{"1,1,1,1", "destroyed"},  // no fifth piece: 0
                                           SettingGateCase{"-1,1,1,1,1", "destroyed"}),
                         [](const auto& info) { return oet_test::NameOf(std::string(info.param.text)); });

struct SettingIdentityCase {
  const char* tracking_text;
  uint64_t tracking_number;
  Types context;
};

class SettingIdentity : public MeetingSide, public ::testing::WithParamInterface<SettingIdentityCase> {};

TEST_P(SettingIdentity, IsSentOnlyWhenTextAndNumberAreGiven) {
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent(
                "3,12,1,0,7,night", {GetParam().tracking_text, GetParam().tracking_number}),
            1);
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), GetParam().context);
  EXPECT_EQ(event.Ops(161),
            GetParam().context.size() == 4 ? "MeetingIdentityFields.1=m-1|MeetingIdentityFields.2=5" : "");
  EXPECT_EQ(event.Ops(157), "13=3|7=3|2=12|15=1|5=0|17=7|9=night");
}

INSTANTIATE_TEST_SUITE_P(Tracking, SettingIdentity,
                         ::testing::Values(SettingIdentityCase{"m-1", 5, {159, 170, 161, 169}},
                                           SettingIdentityCase{"", 5, {159, 170, 169}},
                                           SettingIdentityCase{"m-1", 0, {159, 170, 169}}),
                         [](const auto& info) {
                           return oet_test::NameOf(info.param.tracking_text) + "_" +
                                  std::to_string(info.param.tracking_number);
                         });

TEST_F(MeetingSide, SettingWithoutTextLeavesTextAAlone) {
  EXPECT_EQ(OrboSettingPAAP::TrackingSettingInteractEvent("1,1,1,1,1", {}), 1);
  EXPECT_EQ(OnlyEvent().Ops(157), "13=3|7=1|2=1|15=1|5=1|17=1");
}

// ---- Clips.

struct ClipsCase {
  OrboClipsPAAP::ClipsRecordInteractInfo_s info;
  const char* outcome;
};

class ClipsGate : public MeetingSide, public ::testing::WithParamInterface<ClipsCase> {};

TEST_P(ClipsGate, RequiresEveryCodeButTheFourthAndAsksOnlyTheTelemetryService) {
  const uint64_t requests = KstHost::RegistryQueries(nullptr).registry;
  const bool sent = std::string(GetParam().outcome) != "destroyed";
  EXPECT_EQ(OrboClipsPAAP::TrackingClipsInteractEvent(GetParam().info, {}, {}), sent ? 1 : 0);
  EXPECT_EQ(Outcome(), GetParam().outcome);
  EXPECT_EQ(KstHost::RegistryQueries(nullptr).registry - requests,
            1u);                                    // the telemetry service, nothing else
  EXPECT_EQ(host_.web_service().CallCount(97), 0);  // the client-context cache was not created
}

INSTANTIATE_TEST_SUITE_P(Codes, ClipsGate,
                         ::testing::Values(ClipsCase{{1, 1, 1, 0, 1, ""}, "submitted 3 1"},
                                           ClipsCase{{1, 1, 1, 1, 0, ""}, "destroyed"},
                                           ClipsCase{{0, 1, 1, 1, 1, ""}, "destroyed"},
                                           ClipsCase{{1, 0, 1, 1, 1, ""}, "destroyed"},
                                           ClipsCase{{1, 1, 0, 1, 1, ""}, "destroyed"}),
                         [](const auto& info) {
                           const auto& i = info.param.info;
                           return "Codes" + std::to_string(i.first_code) + std::to_string(i.second_code) +
                                  std::to_string(i.third_code) + std::to_string(i.fourth_code) +
                                  std::to_string(i.fifth_code);
                         });

TEST_F(MeetingSide, ClipsFillsTheConfigurationAndTheBodyInOrder) {
  OrboClipsPAAP::ClipsRecordConfigInfo_s config{"t1", 1, 2, 3, "", 4, 5, 6, "t3", "t4", 7, 8, 9, 10};
  EXPECT_EQ(OrboClipsPAAP::TrackingClipsInteractEvent({11, 12, 13, 14, 15, ""}, config, {"u", "a"}), 1);
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{190, 192, 191, 188}));
  EXPECT_EQ(event.Ops(188), "11=t1|14=1|12=2|6=3|8=|5=4|13=5|7=6|3=t3|1=t4|2=7|9=8|4=9|10=10");
  EXPECT_EQ(event.Ops(189), "2=1|6=11|3=12|1=13|4=14|5=15|7=");
}

// ---- In-meeting meeting event: the context list.

enum Gate : unsigned {
  kReference = 1,
  kReferenceNoText = 2,
  kMeetingText = 4,
  kShare = 8,
  kShareTextOnly = 16,
  kPair = 32,
  kPairHalf = 64,
  kExtra = 128,
  kItem = 256,
  kOption = 512,
  kOptionNoText = 1024
};

struct ListCase {
  const char* name;
  int32_t kind;
  int32_t kind_569_value;
  unsigned gates;
  Types added;  // after 304, 283, 297, 287, 298
};

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

class InMeetingList : public InMeeting, public ::testing::WithParamInterface<ListCase> {};

TEST_P(InMeetingList, HoldsTheEntitiesTheRecordsCallFor) {
  const unsigned g = GetParam().gates;
  OrboPAAP::MeetingTrackingInfo_s tracking;
  OrboPAAP::MeetingInteractInfo_s info = Interaction(GetParam().kind);
  info.kind_569_value = GetParam().kind_569_value;
  if (g & (kReference | kReferenceNoText)) info.reference_a = 1, info.reference_b = 2, info.reference_c = 3;
  if (g & kReference) info.reference_text = "ref";
  if (g & (kMeetingText | kOption)) tracking.meeting_text = "topic";
  if (g & (kShare | kShareTextOnly)) tracking.share_text = "share";
  if (g & kShare) tracking.share_number = 2;
  if (g & (kPair | kPairHalf)) info.pair_gate_a = 1;
  if (g & kPair) info.pair_gate_b = -1;
  if (g & kExtra) info.extra_gate = 4;
  if (g & kItem) info.item_text = "item";
  if (g & (kOption | kOptionNoText)) info.option_value = 6;
  EXPECT_EQ(Track(tracking, info), 1);
  Types expected{304, 283, 297, 287, 298};
  expected.insert(expected.end(), GetParam().added.begin(), GetParam().added.end());
  EXPECT_EQ(OnlyEvent().ContextTypes(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, InMeetingList,
    ::testing::Values(ListCase{"Kind1", 1, 0, 0, {}}, ListCase{"Kind428", 428, 0, 0, {}},
                      ListCase{"Kind429", 429, 0, 0, {302}}, ListCase{"Kind430", 430, 0, 0, {}},
                      ListCase{"Kind493", 493, 0, 0, {}}, ListCase{"Kind494", 494, 0, 0, {300}},
                      ListCase{"Kind500", 500, 0, 0, {300}}, ListCase{"Kind502", 502, 0, 0, {300}},
                      ListCase{"Kind503", 503, 0, 0, {}}, ListCase{"Kind504", 504, 0, 0, {}},
                      ListCase{"Kind505", 505, 0, 0, {300}}, ListCase{"Kind506", 506, 0, 0, {}},
                      ListCase{"Kind507", 507, 0, 0, {301}}, ListCase{"Kind508", 508, 0, 0, {300}},
                      ListCase{"Kind509", 509, 0, 0, {}}, ListCase{"Kind510", 510, 0, 0, {300}},
                      ListCase{"Kind511", 511, 0, 0, {300}}, ListCase{"Kind512", 512, 0, 0, {}},
                      ListCase{"Kind513", 513, 0, 0, {302}}, ListCase{"Kind514", 514, 0, 0, {300}},
                      ListCase{"Kind516", 516, 0, 0, {300}}, ListCase{"Kind517", 517, 0, 0, {}},
                      ListCase{"Kind518", 518, 0, 0, {}}, ListCase{"Kind519", 519, 0, 0, {301}},
                      ListCase{"Kind533", 533, 0, 0, {301}}, ListCase{"Kind534", 534, 0, 0, {300}},
                      ListCase{"Kind536", 536, 0, 0, {300}}, ListCase{"Kind537", 537, 0, 0, {}},
                      ListCase{"Kind660", 660, 0, 0, {}}, ListCase{"Kind661", 661, 0, 0, {301}},
                      ListCase{"Kind662", 662, 0, 0, {}}, ListCase{"Kind569Value0", 569, 0, 0, {}},
                      ListCase{"Kind569Value4", 569, 4, 0, {286}}, ListCase{"Kind570Value4", 570, 4, 0, {}},
                      ListCase{"Reference", 1, 0, kReference, {281}},
                      ListCase{"ReferenceWithoutText", 1, 0, kReferenceNoText, {}},
                      ListCase{"MeetingText", 1, 0, kMeetingText, {277}},
                      ListCase{"Share", 1, 0, kShare, {296}},
                      ListCase{"ShareTextOnly", 1, 0, kShareTextOnly, {}},
                      ListCase{"Pair", 1, 0, kPair, {292}}, ListCase{"PairHalf", 1, 0, kPairHalf, {}},
                      ListCase{"Extra", 1, 0, kExtra, {293}}, ListCase{"Item", 1, 0, kItem, {294}},
                      ListCase{"Option", 1, 0, kOption, {277, 303}},
                      ListCase{"OptionWithoutMeetingText", 1, 0, kOptionNoText, {}},
                      ListCase{"EverythingKind513",
                               513,
                               4,
                               0x3FF & ~(kReferenceNoText | kShareTextOnly | kPairHalf),
                               {281, 277, 296, 292, 293, 294, 303, 302}}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- In-meeting meeting event: gates, marking, mode, start time, body.

struct InMeetingGateCase {
  // 1..4: first, second, third code, interaction kind set to 0; 5: fourth code 0; 6: a web service that
  // leaves the cache's value empty (the refresh still sets the os name, so the context gate lets it pass)
  int which;
  const char* outcome;
};

class InMeetingGate : public InMeeting, public ::testing::WithParamInterface<InMeetingGateCase> {};

TEST_P(InMeetingGate, DestroysTheEventForAZeroCode) {
  OrboPAAP::MeetingInteractInfo_s info = Interaction(1);
  int32_t* fields[] = {&info.first_code, &info.second_code, &info.third_code, &info.interaction_kind,
                       &info.fourth_code};
  if (GetParam().which <= 5) *fields[GetParam().which - 1] = 0;
  if (GetParam().which == 6) host_.web_service().SetContextAnswer({"", "", "", ""});
  const bool sent = std::string(GetParam().outcome) != "destroyed";
  EXPECT_EQ(Track({}, info), sent ? 1 : 0);
  EXPECT_EQ(Outcome(), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Gates, InMeetingGate,
    ::testing::Values(InMeetingGateCase{1, "destroyed"}, InMeetingGateCase{2, "destroyed"},
                      InMeetingGateCase{3, "destroyed"}, InMeetingGateCase{4, "destroyed"},
                      InMeetingGateCase{5, "submitted 4 1"}, InMeetingGateCase{6, "submitted 4 1"}),
    [](const auto& info) { return "Case" + std::to_string(info.param.which); });

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
  const auto events = host_.TakeEvents();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].outcome, oet_testing::RecordedEvent::Outcome::kDestroyed);
  EXPECT_EQ(events[1].outcome, oet_testing::RecordedEvent::Outcome::kSubmitted);
}

struct MarkingCase {
  int32_t tier;
  bool holders;
  int marked;  // entities whose holder got 3
};

class InMeetingMarking : public InMeeting, public ::testing::WithParamInterface<MarkingCase> {};

TEST_P(InMeetingMarking, MarksEveryEntityAndTheBodyOnlyForTier3) {
  host_.SetAttributeHoldersPresent(GetParam().holders);
  OrboPAAP::MeetingInteractInfo_s info = Interaction(513);
  info.tier = GetParam().tier;
  EXPECT_EQ(Track({}, info), 1);
  EXPECT_EQ(Count("GetAttributeHolder", -3), 7);  // 304, 283, 297, 287, 298, 302 and the body
  EXPECT_EQ(Count("SetValue", 3), GetParam().marked);
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

TEST_F(InMeeting, MarksTheListAfterBuildingItAndBeforeAttachingIt) {
  OrboPAAP::MeetingInteractInfo_s info = Interaction(1);
  info.tier = 3;
  EXPECT_EQ(Track({}, info), 1);
  const std::vector<std::string> calls = Calls();
  size_t first_mark = 0;
  size_t last_create = 0;
  size_t attach = 0;
  for (size_t i = 0; i < calls.size(); ++i) {
    if (first_mark == 0 && calls[i].find("GetAttributeHolder") != std::string::npos) first_mark = i;
    if (calls[i].rfind("CreateEntity 298", 0) == 0) last_create = i;
    if (calls[i].rfind("AttachEntityList", 0) == 0) attach = i;
  }
  EXPECT_LT(last_create, first_mark);
  EXPECT_LT(first_mark, attach);
}

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

TEST_F(InMeeting, FillsTheBodyWithTheStartTimeText) {
  host_.SetAttributeHoldersPresent(false);
  OrboPAAP::MeetingTrackingInfo_s tracking;
  tracking.body_number = 9;
  tracking.start_time = Kst::Time::FromUnixMilliseconds(1704067200005);  // 2024-01-01 00:00:00.005 UTC
  OrboPAAP::MeetingInteractInfo_s info = Interaction(1);
  info.fourth_code = 4, info.sixth_code = 6, info.seventh_code = 7, info.mode = 8, info.body_flag = -2;
  info.label = L"L\u00e4", info.detail = "d";
  EXPECT_EQ(Track(tracking, info), 1);
  EXPECT_EQ(OnlyEvent().Ops(289),
            "EntityBase.1=-3|32=8|5=1|24=2|16=3|3=4|36=1|19=6|22=7|14=d|30=L\xC3\xA4|9=true|12=9|"
            "34=2024-01-01T00:00:00.005Z");
  // Without label, body number and start time: the label and number are left alone, the time cleared.
  EXPECT_EQ(Track({}, Interaction(1)), 1);
  EXPECT_EQ(OnlyEvent().Ops(289), "EntityBase.1=-3|32=1|5=1|24=2|16=3|3=0|36=1|19=0|22=0|14=|9=false|33~");
}

// ---- OUI framework, main window and in meeting.

const char kOuiBody[] =
    "OuiBodyFields.11=3|OuiBodyFields.15=1|OuiBodyFields.6=-2|OuiBodyFields.8=5|OuiBodyFields.4=4|"
    "OuiBodyFields.13=6|OuiBodyFields.16~|OuiBodyFields.1~";

TEST_F(MeetingSide, OuiEventWithoutWebServiceCarriesTrackingAndEmptyDevice) {
  host_.SetWebServicePresent(false);
  EXPECT_EQ(OrboPTPAAP::TrackingOUIFrameworkInteract({"p", ""}, {1, -2, 3, 4, 5, 6}), 1);
  EXPECT_EQ(Outcome(), "submitted 3 1");
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{187, 182}));
  EXPECT_EQ(event.Ops(187), "OuiTrackingFields.2=p|OuiTrackingFields.4=");
  EXPECT_EQ(event.Ops(182), "OuiDeviceFields.6=|OuiDeviceFields.1=|OuiDeviceFields.9=");
  EXPECT_EQ(event.Ops(183), kOuiBody);
}

TEST_F(MeetingSide, OuiEventAsksForLabelAndUrlEveryTime) {
  host_.web_service().SetAccountDomain("acme");
  EXPECT_EQ(OrboPTPAAP::TrackingOUIFrameworkInteract({}, {}), 1);
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{187, 182, 186}));
  EXPECT_EQ(event.Ops(182),
            "OuiDeviceFields.6=Example Book 14|OuiDeviceFields.1=windows|OuiDeviceFields.9=10.0.22631");
  EXPECT_EQ(event.Ops(186), "OuiProductFields.8=1|OuiProductFields.13=6.2.10.4512|OuiProductFields.2=acme");
  EXPECT_EQ(host_.web_service().CallCount(35), 1);
  EXPECT_EQ(host_.web_service().CallCount(37), 1);
}

TEST_F(MeetingSide, InMeetingOuiEventHasTheSameBodyAndEmptyContext) {
  OrboPAAP::MeetingTrackingInfo_s tracking;
  tracking.meeting_id = "ignored";
  EXPECT_EQ(OrboPAAP::TrackingOUIFrameworkInteract(tracking, {1, -2, 3, 4, 5, 6}), 1);
  EXPECT_EQ(Outcome(), "submitted 4 1");
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{187, 182, 186}));
  EXPECT_EQ(event.Ops(187) + event.Ops(182) + event.Ops(186), "");
  EXPECT_EQ(event.Ops(183), kOuiBody);
  for (const int32_t type : {187, 182, 186, 183})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(OrboPAAP::TrackingOUIFrameworkInteract({}, {}), 1);
  EXPECT_EQ(Calls(), (std::vector<std::string>{"CreateEvent -> event 2", "CreateEntity 187 -> null",
                                               "CreateEntity 182 -> null", "CreateEntity 186 -> null",
                                               "CreateEntity 183 -> null", "SubmitEvent 4 1 params=0"}));
  host_.SetWebServicePresent(false);
  EXPECT_EQ(OrboPAAP::TrackingOUIFrameworkInteract({}, {}), 0);
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

TEST_F(MeetingSide, NoticeAndClientFillTheirEntitiesAndBodies) {
  EXPECT_EQ(OrboPAAP::TrackingNoticeInteractEvent({}, {}), 1);
  EXPECT_EQ(Outcome(), "submitted 4 1");
  EventView notice = OnlyEvent();
  EXPECT_EQ(notice.ContextTypes(), (Types{170, 159, 169, 165, 161}));
  EXPECT_EQ(notice.Ops(165), "8=|4=|2=|10=0");
  EXPECT_EQ(notice.Ops(157), "13=0|7=0|2=0|5=0|15=0|17=0|8~");
  OrboPAAP::OClientInteractInfo_s client;
  client.client_value1 = 1, client.client_value2 = 2, client.client_value3 = 3;
  client.client_value4 = 4, client.client_value5 = 5, client.client_value6 = 6;
  EXPECT_EQ(OrboPAAP::TrackingClientInteractEvent({}, client), 1);
  EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{170, 159, 169, 161, 171}));
  EXPECT_EQ(event.Ops(171), "ProductStringFields.1=|ProductStringFields.5=1");
  EXPECT_EQ(event.Ops(157), "13=2|7=3|2=4|5=5|15=1|17=6|11=|8~");  // a=3 b=5 c=1 d=6 e=4 f=2
}

// ---- Legacy functions.

TEST_F(MeetingSide, LegacyFunctionsDoNothing) {
  using namespace ns_orbo_telemetry;
  OrboLogTagMap tags{{static_cast<OrboLogTagName>(3), "x"}, {static_cast<OrboLogTagName>(-9), ""}};
  const OrboLogTagMap before = tags;
  const uint64_t requests = KstHost::RegistryQueries(nullptr).registry;
  const auto event = static_cast<OrboLogEvent>(-99999);
  const auto sub_event = static_cast<OrboLogSubEvent>(INT32_MAX);
  EXPECT_EQ(EventTrack::AddEventTrackingLog("a", "b", "c", "d", tags, static_cast<LogPriority>(7)), 0);
  EXPECT_EQ(EventTrack::AddEventTrackingLog(OrboLogClientType{}, OrboLogLocation{}, event, sub_event), 0);
  EXPECT_EQ(EventTrack::AddEventTrackingLog(static_cast<OrboLogClientType>(5), OrboLogLocation{}, event,
                                            sub_event, tags, LogPriority{}),
            0);
  EXPECT_EQ(EventTrack::AddInMeetingEventTrackingLog(event, sub_event, tags), 0);
  EXPECT_EQ(tags, before);
  EXPECT_EQ(KstHost::RegistryQueries(nullptr).registry, requests);
  EXPECT_TRUE(host_.Log().empty());
  EXPECT_EQ(host_.web_service().CallCount(97), 0);
}

}  // namespace
