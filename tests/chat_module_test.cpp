// The chat-module events' rules: a missing header destroys the event, other missing entities are left
// out, the web service must be there while the client-context cache is touched by the first call only,
// and the database's "unknown" goes by the text's length, not its first unit. (Every body's set, clear
// and exceptions: tests/golden/performance_reports.jsonl and event_rules.jsonl; the rate limits:
// tests/rate_limit_test.cpp.)
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/test_support.h"

namespace {

using namespace OrboPTPAAP;

enum Kind { kMessage, kWebService, kDatabase, kFileTransfer, kE2EDecode };
const char* const kKindNames[] = {"MessageModule", "WebService", "Database", "FileTransfer", "E2EDecode"};
const int32_t kBody[] = {124, 131, 113, 123, 122};
const int32_t kHeader[] = {117, 120, 114, 116, 117};

// One call of each event with a body, under an interaction id the event sends (the database's carries
// the tracking info).
using oet_test::CallWith;
int (*const kTrack[])(int32_t) = {
    CallWith<ChatMessageModuleInfo_s, &ChatMessageModuleInfo_s::with_body, TrackingPTChatMessageModuleEvent>,
    CallWith<WebServiceInfo_s, &WebServiceInfo_s::with_body, TrackingPTChatWebServiceModuleEvent>,
    CallWith<ChatDBInteractInfo_s, &ChatDBInteractInfo_s::interaction_id, TrackingPTChatDBInteractEvent>,
    CallWith<ChatFileTransferInteractInfo_s, &ChatFileTransferInteractInfo_s::interaction_id,
             TrackingPTChatFileTransferInteractEvent>,
    CallWith<ChatE2EDecodeInfo_s, &ChatE2EDecodeInfo_s::interaction_id,
             TrackingPTChatE2EDecodeInteractEvent>};
const int32_t kValue[] = {1, 1, 162, 9, 183};

class ChatModule : public oet_test::HostTest, public ::testing::WithParamInterface<Kind> {
 protected:
  // Each call a little over a second after the one before, so that no rate limit drops it.
  int TrackLater() {
    clock_.At(1500 * ++calls_);
    return kTrack[GetParam()](kValue[GetParam()]);
  }
  oet_test::TestClock clock_;
  int calls_ = 0;
};

// The event the library created is never left behind: without a header it is destroyed.
TEST_P(ChatModule, WithoutHeaderDestroysTheEvent) {
  host_.SetCreateEntityFails(kHeader[GetParam()], true);
  EXPECT_EQ(TrackLater(), 0);
  const std::vector<std::string> calls = Calls();
  ASSERT_GE(calls.size(), 2u);
  EXPECT_EQ(calls[calls.size() - 2], "CreateEntity " + std::to_string(kHeader[GetParam()]) + " -> null");
  EXPECT_EQ(calls.back(), "DestroyEvent 1");
  EXPECT_EQ(OnlyEvent().ContextTypes().size(), 4u);
}

// Entities the host does not give are left out; the list goes out even when nothing is left.
TEST_P(ChatModule, LeavesOutMissingEntities) {
  for (const int32_t type : {130, 121, 128, kBody[GetParam()]})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(TrackLater(), 1);
  const std::vector<std::string> calls = Calls();
  EXPECT_NE(std::find(calls.begin(), calls.end(), "AttachEntityList 203 []"), calls.end());
  EXPECT_EQ(Outcomes().rfind("submitted 3 ", 0), 0u) << Outcomes();
}

// The web service only has to be there; the cache is created (and so refreshed) by the first call
// only, even while the web service leaves it unfilled.
TEST_P(ChatModule, NeedsTheWebServiceAndTouchesTheCacheOnce) {
  host_.web_service().SetContextAnswer({"", "", "", ""});
  host_.SetWebServicePresent(false);
  EXPECT_EQ(TrackLater(), 0);
  EXPECT_TRUE(Calls().empty());
  host_.SetWebServicePresent(true);
  EXPECT_EQ(TrackLater() + TrackLater(), 2);
  EXPECT_EQ(Asked(97), 0);  // created while the web service was absent
  oet::ResetClientContextForTesting();
  EXPECT_EQ(TrackLater() + TrackLater(), 2);
  EXPECT_EQ(Asked(97), 1);
}

INSTANTIATE_TEST_SUITE_P(Events, ChatModule,
                         ::testing::Values(kMessage, kWebService, kDatabase, kFileTransfer, kE2EDecode),
                         [](const auto& info) { return std::string(kKindNames[info.param]); });

// An empty second text goes out as "unknown"; one that starts with NUL is not empty to the host.
using ChatDatabase = oet_test::HostTest;

TEST_F(ChatDatabase, SecondTextStartingWithNulIsUnknown) {
  ChatDBInteractInfo_s info;
  info.field2 = Kst::CStringT<wchar_t>(L"\0x", 2);
  EXPECT_EQ(TrackingPTChatDBInteractEvent({}, info), 1);
  EXPECT_NE(OnlyEvent().Ops(113).find("|17=unknown|"), std::string::npos);
}

}  // namespace
