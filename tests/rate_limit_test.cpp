// The one-second rate limit of every throttled event, through its export: which keys are limited and
// which never are, the thresholds, a dropped call doing nothing at all, a clock moved back, an accepted
// call that fails for want of a service still counting; and the limit's own arithmetic at the clock's
// extremes. (Two threads racing on one key: tests/threads_test.cpp.)
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "core/rate_limit.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "tests/test_support.h"

namespace {

using namespace OrboPTPAAP;

// A record of the performance-metrics event named by the word of index `key`.
OClientPerfMetricsInfo_s Named(int key) {
  OClientPerfMetricsInfo_s r;
  if (key == 0) r.login_event = MetricsLoginEvent::kSignoff;
  if (key == 1) r.platform_event = MetricsPlatformEvent::kWebviewError;
  if (key == 2) r.heartbeat_event = MetricsHeartBeatEvent::kNetworkDisconnect;
  if (key == 3) r.special_event = MetricsSpecialEvent::kTpOnTracking;
  if (key == 4) r.special_event = MetricsSpecialEvent::kTpOnDataIndicate;
  if (key == 5) r.login_event = MetricsLoginEvent::kStart;
  return r;  // 6 and up: no name at all
}

// One throttled event: its call under a key (what the limit goes by), the keys that are limited and
// some that never are.
struct Throttled {
  const char* name;
  int (*call)(int key);
  std::vector<int> limited;
  std::vector<int> free;
};

const Throttled kThrottled[] = {
    {"Chat",
     oet_test::CallWith<ChatInteractInfo_s, &ChatInteractInfo_s::action_type, TrackingPTChatEvent>,
     {174, 185},
     {173, 186, -174, 0}},
    {"PerfMetrics", [](int key) { return TrackingPerfMetricsInfo({}, Named(key)); }, {0, 1, 2, 3, 4}, {5, 6}},
    {"ChatMessageModule", [](int) { return TrackingPTChatMessageModuleEvent({}, {}); }, {0}, {}},
    {"ChatDatabase",
     oet_test::CallWith<ChatDBInteractInfo_s, &ChatDBInteractInfo_s::interaction_id,
                        TrackingPTChatDBInteractEvent>,
     {165},
     {164, 162, 166, 0}},
    {"ChatE2EDecode",
     oet_test::CallWith<ChatE2EDecodeInfo_s, &ChatE2EDecodeInfo_s::interaction_id,
                        TrackingPTChatE2EDecodeInteractEvent>,
     {182, 183, 184},
     {}},
    {"ChatWebServiceModule", [](int) { return TrackingPTChatWebServiceModuleEvent({}, {}); }, {}, {0}},
    {"ChatFileTransfer",
     oet_test::CallWith<ChatFileTransferInteractInfo_s, &ChatFileTransferInteractInfo_s::interaction_id,
                        TrackingPTChatFileTransferInteractEvent>,
     {},
     {165, 182, 0}},
};

class RateLimit : public oet_test::HostTest, public ::testing::WithParamInterface<Throttled> {
 protected:
  // Calls under `key` at `at_ms` from an uncreated client-context cache. A dropped call must have done
  // nothing: no host call, and not even the cache's creation (which would ask the web service).
  void Expect(int key, int64_t at_ms, int result) {
    oet::ResetClientContextForTesting();
    const size_t calls = host_.Log().size();
    const int fills = Asked(97);
    clock_.At(at_ms);
    EXPECT_EQ(GetParam().call(key), result) << "key " << key << " at " << at_ms;
    if (result == 0) {
      EXPECT_EQ(host_.Log().size(), calls) << "key " << key << " at " << at_ms;
      EXPECT_EQ(Asked(97), fills) << "key " << key << " at " << at_ms;
    }
  }
  oet_test::TestClock clock_;
};

// Each step is taken by every limited key in turn, so the keys are shown independent too. A dropped call
// leaves the window where it was (999 is dropped, 1000 accepted); a clock moved back drops the call.
TEST_P(RateLimit, LimitedKeysOnceASecondEachOthersNever) {
  const std::pair<int64_t, int> steps[] = {{0, 1}, {999, 0}, {1000, 1}, {1999, 0}, {500, 0}, {3000, 1}};
  for (const auto& [at_ms, result] : steps) {
    for (const int key : GetParam().limited)
      Expect(key, at_ms, result);
  }
  for (const int key : GetParam().free) {
    Expect(key, 5000, 1);
    Expect(key, 5000, 1);
  }
}

// The time is stored before the services are looked up.
TEST_P(RateLimit, AcceptedCallWithoutWebServiceStillCounts) {
  for (const int key : GetParam().limited) {
    host_.SetWebServicePresent(false);
    clock_.At(0);
    EXPECT_EQ(GetParam().call(key), 0);
    host_.SetWebServicePresent(true);
    Expect(key, 999, 0);
    Expect(key, 1000, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Events, RateLimit, ::testing::ValuesIn(kThrottled),
                         [](const auto& info) { return std::string(info.param.name); });

// The end-to-end decode report takes only its three ids: any other is refused before anything is done.
using E2EDecode = oet_test::HostTest;

TEST_F(E2EDecode, RefusesIdsOutsideItsOwn) {
  for (const int32_t id : {181, 185, 0, -183, std::numeric_limits<int32_t>::min()}) {
    ChatE2EDecodeInfo_s info;
    info.interaction_id = id;
    EXPECT_EQ(TrackingPTChatE2EDecodeInteractEvent({}, info), 0) << id;
  }
  EXPECT_EQ(Calls().size(), 0u);
  EXPECT_EQ(Asked(97), 0);
}

TEST(RateLimitTable, ExtremeClockReadingsNeitherOverflowNorStick) {
  const oet_test::TestClock clock;
  oet::RateLimitTable<int32_t, 1> table(167);
  clock.Set(Kst::Time::FromUnixMicroseconds(std::numeric_limits<int64_t>::max()));
  EXPECT_TRUE(table.Admit(167));
  EXPECT_TRUE(table.Admit(168));  // not a key of the table
  clock.Set(Kst::Time::FromUnixMicroseconds(std::numeric_limits<int64_t>::min() + 1));
  EXPECT_FALSE(table.Admit(167));  // far in the past: a clock moved back
  clock.At(0);
  EXPECT_FALSE(table.Admit(167));
}

}  // namespace
