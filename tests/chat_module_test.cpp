// The chat-module events: each body's set, clear and deliberate exceptions, the context lists and
// headers, a missing header, and the rate limits per key (ids never limited, ids rejected before
// anything).
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "platform/kst_time.h"
#include "tests/recorded_event_view.h"

namespace {

using namespace OrboPTPAAP;
using Types = std::vector<int32_t>;

const PTTrackingInfo_s kTracking{"p1", "p2"};

ChatMessageModuleInfo_s FullMessageModule() {
  return {1,      2,      3,      0,      5,      6,      7,  L"s8", L"s9", L"s10",
          L"s11", L"s12", L"s13", L"s14", L"s15", L"s16", 17, 18,    1};
}

WebServiceInfo_s FullWebService() {
  WebServiceInfo_s info;
  info.field1 = L"s1", info.field2 = L"s2", info.field3 = 3, info.field4 = 4, info.field5 = 5,
  info.field6 = 6;
  info.field7 = 7, info.field8 = 8, info.field9 = 9, info.field10 = L"s10", info.with_body = 1;
  return info;
}

ChatDBInteractInfo_s FullDatabase(int32_t id) {
  ChatDBInteractInfo_s i;
  i.field1 = L"s1", i.field2 = L"s2", i.field3 = L"s3", i.field4 = 4, i.field5 = 5, i.field6 = 6,
  i.field7 = 7;
  i.field8 = 8, i.field9 = 9, i.field10 = 10, i.field11 = 11, i.field12 = 12, i.field13 = 13, i.field14 = 14;
  i.field15 = 15, i.field16 = 16, i.field17 = 17, i.interaction_id = id;
  return i;
}

ChatFileTransferInteractInfo_s FullFileTransfer() {
  ChatFileTransferInteractInfo_s i;
  i.field1 = 1, i.field2 = 2, i.field3 = 3, i.field4 = L"s4", i.field5 = L"s5", i.field6 = 6, i.field7 = 7;
  i.field8 = 8, i.field9 = L"s9", i.field10 = 10, i.field11 = L"s11", i.field12 = L"s12", i.field13 = L"s13";
  i.field14 = 14, i.field15 = 15, i.field16 = 16, i.field17 = 17, i.field18 = 18, i.field19 = 19,
  i.field20 = 20;
  i.field21 = 21, i.field22 = L"s22", i.field23 = 23, i.field24 = L"s24", i.field25 = L"s25", i.field26 = 26;
  i.field27 = 27, i.field28 = 28, i.field29 = 29, i.field30 = L"s30", i.field31 = L"s31", i.field32 = 32;
  i.field33 = 33, i.field34 = L"s34", i.field35 = 35, i.field36 = 36, i.field37 = 37, i.field38 = L"s38";
  i.field39 = 39, i.field40 = 40, i.field41 = 41, i.interaction_id = 9;
  return i;
}

ChatE2EDecodeInfo_s FullE2EDecode() {
  return {1, L"s2", L"s3", L"s4", 5, L"s6", L"s7", L"s8", 9, 0, 183};
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
  int (*track)();
  Types context;
  int32_t body;
  const char* body_ops;
  int32_t header;
  const char* header_ops;
  const char* submit;
};

void PrintTo(const BodyCase& c, std::ostream* os) {
  *os << c.name;
}

class ChatModuleBody : public ChatModuleTest, public ::testing::WithParamInterface<BodyCase> {};

TEST_P(ChatModuleBody, FillsBodyHeaderAndList) {
  const BodyCase& c = GetParam();
  EXPECT_EQ(c.track(), 1);
  EXPECT_EQ(Describe(host_.Log()).back(), c.submit);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), c.context);
  EXPECT_EQ(event.Ops(130), c.context.front() == 130 ? "TrackingValues.2=p1|TrackingValues.1=p2" : "");
  EXPECT_EQ(event.Ops(c.body), c.body_ops);
  EXPECT_EQ(event.BodyType(), c.header);
  EXPECT_EQ(event.Ops(c.header), c.header_ops);
}

constexpr char kStandard[] = "SubmitEvent 3 1 params=0";
constexpr char kStorage[] = "SubmitEvent 3 2 params=0";

INSTANTIATE_TEST_SUITE_P(
    Events, ChatModuleBody,
    ::testing::Values(
        BodyCase{
            "MessageModule",
            [] { return TrackingPTChatMessageModuleEvent(kTracking, FullMessageModule()); },
            {130, 121, 128, 124},
            124,
            "30=5|24=6|29=18|20=s8|10=s9|22=7|12=true|16=false|4=s10|14=s11|18=s12|6=s13|33=17|26=s14|2=s15"
            "|8=s16",
            117,
            "2=1|4=2",
            kStandard},
        // Empty texts are set, as the empty text.
        BodyCase{"MessageModuleEmpty",
                 [] {
                   ChatMessageModuleInfo_s info;
                   info.with_body = -1;
                   return TrackingPTChatMessageModuleEvent(kTracking, info);
                 },
                 {130, 121, 128, 124},
                 124,
                 "30=0|24=0|29=0|20=|10=|22=0|12=false|16=false|4=|14=|18=|6=|33=0|26=|2=|8=",
                 117,
                 "2=0|4=0",
                 kStandard},
        BodyCase{"MessageModuleWithoutBody",
                 [] {
                   ChatMessageModuleInfo_s info = FullMessageModule();
                   info.with_body = 0;
                   return TrackingPTChatMessageModuleEvent(kTracking, info);
                 },
                 {130, 121, 128},
                 124,
                 "",
                 117,
                 "2=1|4=2",
                 kStandard},
        // Field 9 goes before field 8.
        BodyCase{"WebService",
                 [] { return TrackingPTChatWebServiceModuleEvent(kTracking, FullWebService()); },
                 {130, 121, 128, 131},
                 131,
                 "8=s1|1=s2|20=3|16=4|22=5|12=6|10=true|18=9|3=8|5=s10",
                 120,
                 "2=168",
                 kStandard},
        BodyCase{"WebServiceWithoutBody",
                 [] { return TrackingPTChatWebServiceModuleEvent(kTracking, {}); },
                 {130, 121, 128},
                 131,
                 "",
                 120,
                 "2=168",
                 kStandard},
        // Fields 1 to 4, 14 to 17, 5 to 13; only id 162 carries the tracking info.
        BodyCase{
            "Database162",
            [] { return TrackingPTChatDBInteractEvent(kTracking, FullDatabase(162)); },
            {130, 121, 128, 113},
            113,
            "12=s1|17=s2|14=s3|32=4|6=14|23=15|36=16|27=17|34=5|29=6|4=7|25=8|8=9|21=10|2=11|16=12|19=13",
            114,
            "2=162",
            kStorage},
        // An empty second text goes out as "unknown", a fourth field of 0 as 6, 64-bit zeros clear.
        BodyCase{
            "Database163WithoutTrackingInfo",
            [] { return TrackingPTChatDBInteractEvent(kTracking, FullDatabase(163)); },
            {121, 128, 113},
            113,
            "12=s1|17=s2|14=s3|32=4|6=14|23=15|36=16|27=17|34=5|29=6|4=7|25=8|8=9|21=10|2=11|16=12|19=13",
            114,
            "2=163",
            kStorage},
        BodyCase{"DatabaseZero",
                 [] { return TrackingPTChatDBInteractEvent(kTracking, {}); },
                 {121, 128, 113},
                 113,
                 "11~|17=unknown|13~|32=6|5~|22~|35~|26~|33~|28~|3~|24~|7~|20~|1~|15~|18~",
                 114,
                 "",
                 kStorage},
        BodyCase{
            "FileTransfer",
            [] { return TrackingPTChatFileTransferInteractEvent(kTracking, FullFileTransfer()); },
            {130, 121, 128, 123},
            123,
            "35=1|77=true|57=true|12=s4|21=s5|87=true|59=7|33=8|25=s9|39=true|51=s11|65=s12|43=s13|61=true"
            "|20=15|47=true|4=true|18=true|6=true|41=true|49=true|69=s22|67=23|2=s24|79=s25|55=26|27=27"
            "|8=true|16=true|71=s30|37=s31|63=32|45=true|10=s34|83=35|29=36|31=37|23=s38|75=39|81=40|53=41",
            116,
            "2=9",
            kStorage},
        // Fields 2, 3 and 5 send nothing when 0 or empty; field 38 is cleared by operation 19.
        BodyCase{
            "FileTransferEmpty",
            [] { return TrackingPTChatFileTransferInteractEvent(kTracking, {}); },
            {130, 121, 128, 123},
            123,
            "35=0|11~|87=false|58~|33=0|24~|39=false|50~|64~|42~|61=false|20=0|47=false|4=false|18=false"
            "|6=false|41=false|49=false|68~|67=0|1~|78~|55=0|26~|8=false|16=false|70~|36~|63=0|45=false|9~"
            "|82~|28~|31=0|19~|75=0|81=0|53=0",
            116,
            "",
            kStorage},
        BodyCase{"E2EDecode",
                 [] { return TrackingPTChatE2EDecodeInteractEvent(kTracking, FullE2EDecode()); },
                 {130, 121, 128, 122},
                 122,
                 "1=1|7=s2|13=s3|11=s4|9=5|17=s6|5=s7|3=s8|15=true|19=false",
                 117,
                 "2=183",
                 kStorage},
        BodyCase{"E2EDecodeEmpty",
                 [] {
                   ChatE2EDecodeInfo_s info;
                   info.interaction_id = 184;
                   return TrackingPTChatE2EDecodeInteractEvent(kTracking, info);
                 },
                 {130, 121, 128, 122},
                 122,
                 "1=0|6~|12~|10~|9=0|16~|4~|2~|15=false|19=false",
                 117,
                 "2=184",
                 kStorage}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChatModuleTest, DatabaseSecondTextStartingWithNulIsNotUnknown) {
  ChatDBInteractInfo_s info = FullDatabase(164);
  info.field2 = Kst::CStringT<wchar_t>(L"\0x", 2);
  EXPECT_EQ(TrackingPTChatDBInteractEvent(kTracking, info), 1);
  EXPECT_NE(OnlyEvent().Ops(113).find("|17=|"), std::string::npos);
}

struct Export {
  const char* name;
  int (*track)();
  int32_t header;
};

void PrintTo(const Export& e, std::ostream* os) {
  *os << e.name;
}

const Export kExports[] = {
    {"MessageModule", [] { return TrackingPTChatMessageModuleEvent(kTracking, FullMessageModule()); }, 117},
    {"WebService", [] { return TrackingPTChatWebServiceModuleEvent(kTracking, FullWebService()); }, 120},
    {"Database", [] { return TrackingPTChatDBInteractEvent(kTracking, FullDatabase(162)); }, 114},
    {"FileTransfer", [] { return TrackingPTChatFileTransferInteractEvent(kTracking, FullFileTransfer()); },
     116},
    {"E2EDecode", [] { return TrackingPTChatE2EDecodeInteractEvent(kTracking, FullE2EDecode()); }, 117},
};

class ChatModuleExport : public ChatModuleTest, public ::testing::WithParamInterface<Export> {};

// The event the library created is never left behind: without a header it is destroyed.
TEST_P(ChatModuleExport, WithoutHeaderDestroysTheEvent) {
  host_.SetCreateEntityFails(GetParam().header, true);
  EXPECT_EQ(GetParam().track(), 0);
  const std::vector<std::string> calls = Describe(host_.Log());
  EXPECT_EQ(calls.back(), "DestroyEvent 1");
  EXPECT_EQ(calls[calls.size() - 2], "CreateEntity " + std::to_string(GetParam().header) + " -> null");
  EXPECT_EQ(OnlyEvent().ContextTypes().size(), 4u);
}

// Entities the host does not give are left out; the list goes out even when nothing is left.
TEST_P(ChatModuleExport, LeavesOutMissingEntities) {
  for (const int32_t type : {130, 121, 128, 124, 131, 113, 123, 122})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(GetParam().track(), 1);
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
  EXPECT_EQ(GetParam().track(), 0);
  EXPECT_TRUE(host_.Log().empty());
  host_.SetWebServicePresent(true);
  At(10000);
  EXPECT_EQ(GetParam().track(), 1);
  At(20000);
  EXPECT_EQ(GetParam().track(), 1);
  EXPECT_EQ(host_.web_service().CallCount(97), 0);  // created while the web service was absent
  oet::ResetClientContextForTesting();
  At(30000);
  EXPECT_EQ(GetParam().track(), 1);
  At(40000);
  EXPECT_EQ(GetParam().track(), 1);
  EXPECT_EQ(host_.web_service().CallCount(97), 1);
}

INSTANTIATE_TEST_SUITE_P(Exports, ChatModuleExport, ::testing::ValuesIn(kExports),
                         [](const auto& info) { return std::string(info.param.name); });

enum class Kind { kMessage, kWebService, kDatabase, kFileTransfer, kE2EDecode };

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

int Track(const Step& step) {
  switch (step.kind) {
    case Kind::kMessage:
      return TrackingPTChatMessageModuleEvent(kTracking, {});
    case Kind::kWebService:
      return TrackingPTChatWebServiceModuleEvent(kTracking, {});
    case Kind::kDatabase: {
      ChatDBInteractInfo_s info;
      info.interaction_id = step.id;
      return TrackingPTChatDBInteractEvent(kTracking, info);
    }
    case Kind::kFileTransfer: {
      ChatFileTransferInteractInfo_s info;
      info.interaction_id = step.id;
      return TrackingPTChatFileTransferInteractEvent(kTracking, info);
    }
    case Kind::kE2EDecode: {
      ChatE2EDecodeInfo_s info;
      info.interaction_id = step.id;
      return TrackingPTChatE2EDecodeInteractEvent(kTracking, info);
    }
  }
  return -1;
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
    EXPECT_EQ(Track(step), step.result) << "step " << i;
    if (step.result == 0 && step.web_service) {
      EXPECT_EQ(host_.Log().size(), calls) << "step " << i;
      EXPECT_EQ(host_.web_service().CallCount(97), fills) << "step " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, ChatModuleLimit,
    ::testing::Values(
        LimitCase{"Message500Dropped1000Admitted",
                  {{Kind::kMessage, 0, 0, 1}, {Kind::kMessage, 0, 500, 0}, {Kind::kMessage, 0, 1000, 1}}},
        LimitCase{"Message999Dropped", {{Kind::kMessage, 0, 0, 1}, {Kind::kMessage, 0, 999, 0}}},
        LimitCase{"MessageClockMovedBack", {{Kind::kMessage, 0, 5000, 1}, {Kind::kMessage, 0, 4000, 0}}},
        // The time is stored before the services are looked up.
        LimitCase{
            "MessageAcceptedWithoutWebServiceCounts",
            {{Kind::kMessage, 0, 0, 0, false}, {Kind::kMessage, 0, 999, 0}, {Kind::kMessage, 0, 1000, 1}}},
        LimitCase{
            "Database165Limited",
            {{Kind::kDatabase, 165, 0, 1}, {Kind::kDatabase, 165, 999, 0}, {Kind::kDatabase, 165, 1000, 1}}},
        LimitCase{"DatabaseOtherIdsNeverLimited",
                  {{Kind::kDatabase, 164, 0, 1},
                   {Kind::kDatabase, 164, 0, 1},
                   {Kind::kDatabase, 162, 0, 1},
                   {Kind::kDatabase, 162, 0, 1},
                   {Kind::kDatabase, 0, 0, 1},
                   {Kind::kDatabase, 0, 0, 1}}},
        LimitCase{"E2EIdsIndependent",
                  {{Kind::kE2EDecode, 182, 0, 1},
                   {Kind::kE2EDecode, 183, 0, 1},
                   {Kind::kE2EDecode, 182, 500, 0},
                   {Kind::kE2EDecode, 184, 500, 1},
                   {Kind::kE2EDecode, 183, 999, 0},
                   {Kind::kE2EDecode, 182, 1000, 1}}},
        LimitCase{"E2EOutsideIdsRejected",
                  {{Kind::kE2EDecode, 181, 0, 0},
                   {Kind::kE2EDecode, 185, 0, 0},
                   {Kind::kE2EDecode, 0, 0, 0},
                   {Kind::kE2EDecode, -183, 0, 0},
                   {Kind::kE2EDecode, 182, 0, 1}}},
        LimitCase{"WebServiceAndFileTransferNeverLimited",
                  {{Kind::kWebService, 0, 0, 1},
                   {Kind::kWebService, 0, 0, 1},
                   {Kind::kFileTransfer, 165, 0, 1},
                   {Kind::kFileTransfer, 182, 0, 1}}},
        LimitCase{"EventsLimitedIndependently",
                  {{Kind::kMessage, 0, 0, 1}, {Kind::kDatabase, 165, 0, 1}, {Kind::kE2EDecode, 182, 0, 1}}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
