// The chat-module events: each body's set, clear and deliberate exceptions, the context lists and
// headers, a missing header, and the rate limits per key (ids never limited, ids rejected before
// anything).
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/host_control.h"
#include "tests/recorded_event_view.h"

namespace {

using namespace OrboPTPAAP;

const PTTrackingInfo_s kTracking{"p1", "p2"};

// Records with every member given: numbers by their field's number, texts "s" and the number; field 4
// of the message module 0 and its field 11 empty (a bool sent as false, an empty text set as "").
ChatMessageModuleInfo_s FullMessageModule() {
  return {1, 2, 3, 0, 5, 6, 7, L"s8", L"s9", L"s10", L"", L"s12", L"s13", L"s14", L"s15", L"s16", 17, 18, 1};
}
WebServiceInfo_s FullWebService() {
  return {L"s1", L"s2", 3, 4, 5, 6, {}, 7, 8, 9, L"s10", {}, 1};
}
ChatDBInteractInfo_s FullDatabase() {
  return {L"s1", L"s2", L"s3", 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, {}, 162};
}
ChatFileTransferInteractInfo_s FullFileTransfer() {
  return {1,      2,      3,      L"s4",  L"s5", 6,      7,  8,  {},     L"s9",  10,
          L"s11", L"s12", L"s13", 14,     15,    16,     17, 18, 19,     20,     21,
          L"s22", 23,     L"s24", L"s25", 26,    27,     28, 29, L"s30", L"s31", 32,
          33,     L"s34", 35,     36,     37,    L"s38", 39, {}, 40,     41,     9};
}
ChatE2EDecodeInfo_s FullE2EDecode() {
  return {1, L"s2", L"s3", L"s4", 5, L"s6", L"s7", L"s8", 9, 0, 183};
}

enum Kind { kMessage, kWebService, kDatabase, kFileTransfer, kE2EDecode };
const char* const kKindNames[] = {"MessageModule", "WebService", "Database", "FileTransfer", "E2EDecode"};
const int32_t kBody[] = {124, 131, 113, 123, 122};
const int32_t kHeader[] = {117, 120, 114, 116, 117};
const char* const kSubmit[] = {"SubmitEvent 3 1 params=0", "SubmitEvent 3 1 params=0",
                               "SubmitEvent 3 2 params=0", "SubmitEvent 3 2 params=0",
                               "SubmitEvent 3 2 params=0"};

// One call of an event: the record with every member given (`full`) or the default record, under the
// interaction id `id` where the record has one.
int Track(Kind kind, int32_t id, bool full) {
  switch (kind) {
    case kMessage:
      return TrackingPTChatMessageModuleEvent(kTracking,
                                              full ? FullMessageModule() : ChatMessageModuleInfo_s{});
    case kWebService:
      return TrackingPTChatWebServiceModuleEvent(kTracking, full ? FullWebService() : WebServiceInfo_s{});
    case kDatabase: {
      ChatDBInteractInfo_s info = full ? FullDatabase() : ChatDBInteractInfo_s{};
      info.interaction_id = id;
      return TrackingPTChatDBInteractEvent(kTracking, info);
    }
    case kFileTransfer: {
      ChatFileTransferInteractInfo_s info = full ? FullFileTransfer() : ChatFileTransferInteractInfo_s{};
      info.interaction_id = id;
      return TrackingPTChatFileTransferInteractEvent(kTracking, info);
    }
    case kE2EDecode: {
      ChatE2EDecodeInfo_s info = full ? FullE2EDecode() : ChatE2EDecodeInfo_s{};
      info.interaction_id = id;
      return TrackingPTChatE2EDecodeInteractEvent(kTracking, info);
    }
  }
  return -1;
}

std::string Joined(const std::vector<int32_t>& types) {
  std::string text;
  for (const int32_t type : types)
    text += (text.empty() ? "" : " ") + std::to_string(type);
  return text;
}

// The clock starts at a new hour for every case, so that the rate limits, which live as long as the
// process, never carry a call over from another case.
class ChatModuleTest : public oet_test::RecordedEventTest {
 protected:
  void SetUp() override {
    RecordedEventTest::SetUp();
    static int64_t hours = 0;
    KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(++hours * 3600 * 1000));
    start_ = Kst::Time::Now();
  }
  void At(int64_t ms) { KstHost::SetClock(start_ + Kst::TimeDelta::FromMilliseconds(ms)); }

  Kst::Time start_;
};

struct BodyCase {
  const char* name;
  Kind kind;
  int32_t id;
  bool full;
  const char* context;
  const char* body_ops;
  const char* header_ops;
};

void PrintTo(const BodyCase& c, std::ostream* os) {
  *os << c.name;
}

class ChatModuleBody : public ChatModuleTest, public ::testing::WithParamInterface<BodyCase> {};

TEST_P(ChatModuleBody, FillsBodyHeaderAndList) {
  const BodyCase& c = GetParam();
  EXPECT_EQ(Track(c.kind, c.id, c.full), 1);
  EXPECT_EQ(Describe(host_.Log()).back(), kSubmit[c.kind]);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(Joined(event.ContextTypes()), c.context);
  EXPECT_EQ(event.Ops(130),
            std::string(c.context).rfind("130", 0) == 0 ? "TrackingValues.2=p1|TrackingValues.1=p2" : "");
  EXPECT_EQ(event.Ops(kBody[c.kind]), c.body_ops);
  EXPECT_EQ(event.BodyType(), kHeader[c.kind]);
  EXPECT_EQ(event.Ops(kHeader[c.kind]), c.header_ops);
}

INSTANTIATE_TEST_SUITE_P(
    Events, ChatModuleBody,
    ::testing::Values(
        BodyCase{"MessageModule", kMessage, 0, true, "130 121 128 124",
                 "30=5|24=6|29=18|20=s8|10=s9|22=7|12=true|16=false|4=s10|14=|18=s12|6=s13|33=17|26=s14|2="
                 "s15|8=s16",
                 "2=1|4=2"},
        BodyCase{"MessageModuleWithoutBody", kMessage, 0, false, "130 121 128", "", "2=0|4=0"},
        // Field 9 goes before field 8.
        BodyCase{"WebService", kWebService, 0, true, "130 121 128 131",
                 "8=s1|1=s2|20=3|16=4|22=5|12=6|10=true|18=9|3=8|5=s10", "2=168"},
        BodyCase{"WebServiceWithoutBody", kWebService, 0, false, "130 121 128", "", "2=168"},
        // Fields 1 to 4, 14 to 17, 5 to 13; only id 162 carries the tracking info.
        BodyCase{
            "Database162", kDatabase, 162, true, "130 121 128 113",
            "12=s1|17=s2|14=s3|32=4|6=14|23=15|36=16|27=17|34=5|29=6|4=7|25=8|8=9|21=10|2=11|16=12|19=13",
            "2=162"},
        // An empty second text goes out as "unknown", a fourth field of 0 as 6, 64-bit zeros clear; id 0
        // sets no header field.
        BodyCase{"DatabaseZero", kDatabase, 0, false, "121 128 113",
                 "11~|17=unknown|13~|32=6|5~|22~|35~|26~|33~|28~|3~|24~|7~|20~|1~|15~|18~", ""},
        BodyCase{
            "FileTransfer", kFileTransfer, 9, true, "130 121 128 123",
            "35=1|77=true|57=true|12=s4|21=s5|87=true|59=7|33=8|25=s9|39=true|51=s11|65=s12|43=s13|61=true"
            "|20=15|47=true|4=true|18=true|6=true|41=true|49=true|69=s22|67=23|2=s24|79=s25|55=26|27=27"
            "|8=true|16=true|71=s30|37=s31|63=32|45=true|10=s34|83=35|29=36|31=37|23=s38|75=39|81=40|53=41",
            "2=9"},
        // Fields 2, 3 and 5 send nothing when 0 or empty; field 38 is cleared by operation 19.
        BodyCase{
            "FileTransferEmpty", kFileTransfer, 0, false, "130 121 128 123",
            "35=0|11~|87=false|58~|33=0|24~|39=false|50~|64~|42~|61=false|20=0|47=false|4=false|18=false"
            "|6=false|41=false|49=false|68~|67=0|1~|78~|55=0|26~|8=false|16=false|70~|36~|63=0|45=false|9~"
            "|82~|28~|31=0|19~|75=0|81=0|53=0",
            ""},
        BodyCase{"E2EDecode", kE2EDecode, 183, true, "130 121 128 122",
                 "1=1|7=s2|13=s3|11=s4|9=5|17=s6|5=s7|3=s8|15=true|19=false", "2=183"},
        BodyCase{"E2EDecodeEmpty", kE2EDecode, 184, false, "130 121 128 122",
                 "1=0|6~|12~|10~|9=0|16~|4~|2~|15=false|19=false", "2=184"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChatModuleTest, DatabaseSecondTextStartingWithNulIsUnknown) {
  ChatDBInteractInfo_s info = FullDatabase();
  info.field2 = Kst::CStringT<wchar_t>(L"\0x", 2);
  EXPECT_EQ(TrackingPTChatDBInteractEvent(kTracking, info), 1);
  EXPECT_NE(OnlyEvent().Ops(113).find("|17=unknown|"), std::string::npos);
}

class ChatModuleExport : public ChatModuleTest, public ::testing::WithParamInterface<Kind> {
 protected:
  int TrackFull() {
    const int32_t ids[] = {0, 0, 162, 9, 183};
    return Track(GetParam(), ids[GetParam()], true);
  }
};

// The event the library created is never left behind: without a header it is destroyed.
TEST_P(ChatModuleExport, WithoutHeaderDestroysTheEvent) {
  host_.SetCreateEntityFails(kHeader[GetParam()], true);
  EXPECT_EQ(TrackFull(), 0);
  const std::vector<std::string> calls = Describe(host_.Log());
  EXPECT_EQ(calls.back(), "DestroyEvent 1");
  EXPECT_EQ(calls[calls.size() - 2], "CreateEntity " + std::to_string(kHeader[GetParam()]) + " -> null");
  EXPECT_EQ(OnlyEvent().ContextTypes().size(), 4u);
}

// Entities the host does not give are left out; the list goes out even when nothing is left.
TEST_P(ChatModuleExport, LeavesOutMissingEntities) {
  for (const int32_t type : {130, 121, 128, kBody[GetParam()]})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(TrackFull(), 1);
  const std::vector<std::string> calls = Describe(host_.Log());
  EXPECT_NE(std::find(calls.begin(), calls.end(), "AttachEntityList 203 []"), calls.end());
  EXPECT_TRUE(OnlyEvent().submitted());
}

// The web service only has to be there; the cache is created (and so refreshed) by the first call
// only, even while the web service leaves it unfilled.
TEST_P(ChatModuleExport, NeedsTheWebServiceAndTouchesTheCacheOnce) {
  oet_testing::WebServiceFake::ContextAnswer unfilled;
  unfilled.value = "";
  host_.web_service().SetContextAnswer(unfilled);
  host_.SetWebServicePresent(false);
  EXPECT_EQ(TrackFull(), 0);
  EXPECT_TRUE(host_.Log().empty());
  host_.SetWebServicePresent(true);
  for (const int64_t at : {10000, 20000}) {
    At(at);
    EXPECT_EQ(TrackFull(), 1);
  }
  EXPECT_EQ(host_.web_service().CallCount(97), 0);  // created while the web service was absent
  oet::ResetClientContextForTesting();
  for (const int64_t at : {30000, 40000}) {
    At(at);
    EXPECT_EQ(TrackFull(), 1);
  }
  EXPECT_EQ(host_.web_service().CallCount(97), 1);
}

INSTANTIATE_TEST_SUITE_P(Exports, ChatModuleExport,
                         ::testing::Values(kMessage, kWebService, kDatabase, kFileTransfer, kE2EDecode),
                         [](const auto& info) { return std::string(kKindNames[info.param]); });

struct Step {
  Kind kind;
  int32_t id;  // interaction id (database, file transfer, end-to-end)
  int64_t at_ms;
  int result;
  bool web_service = true;
};

struct LimitCase {
  const char* name;
  std::vector<Step> steps;
};

void PrintTo(const LimitCase& c, std::ostream* os) {
  *os << c.name;
}

class ChatModuleLimit : public ChatModuleTest, public ::testing::WithParamInterface<LimitCase> {};

// A dropped or rejected call asks nothing of the host and leaves the cache uncreated.
TEST_P(ChatModuleLimit, AdmitsOncePerSecondPerKey) {
  for (size_t i = 0; i < GetParam().steps.size(); ++i) {
    const Step& step = GetParam().steps[i];
    At(step.at_ms);
    host_.SetWebServicePresent(step.web_service);
    const size_t calls = host_.Log().size();
    const int fills = host_.web_service().CallCount(97);
    EXPECT_EQ(Track(step.kind, step.id, false), step.result) << "step " << i;
    if (step.result == 0 && step.web_service) {
      EXPECT_EQ(host_.Log().size(), calls) << "step " << i;
      EXPECT_EQ(host_.web_service().CallCount(97), fills) << "step " << i;
    }
  }
}

constexpr Kind M = kMessage, W = kWebService, D = kDatabase, F = kFileTransfer, E = kE2EDecode;

INSTANTIATE_TEST_SUITE_P(
    Sequences, ChatModuleLimit,
    ::testing::Values(
        LimitCase{"Message500Dropped1000Admitted", {{M, 0, 0, 1}, {M, 0, 500, 0}, {M, 0, 1000, 1}}},
        LimitCase{"Message999Dropped", {{M, 0, 0, 1}, {M, 0, 999, 0}}},
        LimitCase{"MessageClockMovedBack", {{M, 0, 5000, 1}, {M, 0, 4000, 0}}},
        // The time is stored before the services are looked up.
        LimitCase{"MessageAcceptedWithoutWebServiceCounts",
                  {{M, 0, 0, 0, false}, {M, 0, 999, 0}, {M, 0, 1000, 1}}},
        LimitCase{"Database165Limited", {{D, 165, 0, 1}, {D, 165, 999, 0}, {D, 165, 1000, 1}}},
        LimitCase{
            "DatabaseOtherIdsNeverLimited",
            {{D, 164, 0, 1}, {D, 164, 0, 1}, {D, 162, 0, 1}, {D, 162, 0, 1}, {D, 0, 0, 1}, {D, 0, 0, 1}}},
        LimitCase{"E2EIdsIndependent",
                  {{E, 182, 0, 1},
                   {E, 183, 0, 1},
                   {E, 182, 500, 0},
                   {E, 184, 500, 1},
                   {E, 183, 999, 0},
                   {E, 182, 1000, 1}}},
        LimitCase{"E2EOutsideIdsRejected",
                  {{E, 181, 0, 0}, {E, 185, 0, 0}, {E, 0, 0, 0}, {E, -183, 0, 0}, {E, 182, 0, 1}}},
        LimitCase{"WebServiceAndFileTransferNeverLimited",
                  {{W, 0, 0, 1}, {W, 0, 0, 1}, {F, 165, 0, 1}, {F, 182, 0, 1}}},
        LimitCase{"EventsLimitedIndependently", {{M, 0, 0, 1}, {D, 165, 0, 1}, {E, 182, 0, 1}}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
