// The one-second rate limit shared by the throttled events: its thresholds, its keys, and two threads
// racing on one key.
#include <gtest/gtest.h>

#include <atomic>
#include <string_view>
#include <thread>
#include <vector>

#include "core/rate_limit.h"
#include "oKstPlatform/host_control.h"
#include "tests/param_names.h"

namespace {

constexpr int64_t kStart = 1772860141042;  // ms

struct Step {
  int32_t key;
  int64_t at_ms;  // clock reading, relative to kStart
  bool admitted;
};

struct Sequence {
  const char* name;
  std::vector<Step> steps;
};

void PrintTo(const Sequence& s, std::ostream* os) {
  *os << s.name;
}

class RateLimitTest : public ::testing::TestWithParam<Sequence> {
 protected:
  void TearDown() override { KstHost::UseSystemClock(); }
};

TEST_P(RateLimitTest, AdmitsOncePerSecondPerKey) {
  oet::RateLimitTable<int32_t, 2> table(174, 185);
  for (size_t i = 0; i < GetParam().steps.size(); ++i) {
    const Step& step = GetParam().steps[i];
    KstHost::SetClock(Kst::Time::FromUnixMilliseconds(kStart + step.at_ms));
    EXPECT_EQ(table.Admit(step.key), step.admitted) << "step " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, RateLimitTest,
    ::testing::Values(
        Sequence{"FirstCallAdmitted", {{174, 0, true}}},
        Sequence{"Within999Dropped", {{174, 0, true}, {174, 999, false}}},
        Sequence{"At1000Admitted",
                 {{174, 0, true}, {174, 1000, true}, {174, 1999, false}, {174, 2000, true}}},
        // A dropped call does not move the stored time: 1000 after the accepted one is admitted.
        Sequence{"DropDoesNotMoveTheWindow", {{174, 0, true}, {174, 900, false}, {174, 1000, true}}},
        Sequence{"ClockMovedBackDropped", {{174, 5000, true}, {174, 4000, false}, {174, 6000, true}}},
        Sequence{"KeysIndependent", {{174, 0, true}, {185, 0, true}, {185, 1, false}, {174, 1, false}}},
        Sequence{"OtherKeysNeverLimited", {{11, 0, true}, {11, 0, true}, {-174, 0, true}, {0, 0, true}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(RateLimitTable, KeysOutsideTheTableNeverReadTheClock) {
  // A clock at the earliest time would poison a key's state; an unknown key must not even look at it.
  oet::RateLimitTable<std::string_view, 2> table("signoff", "webview_error");
  KstHost::SetClock(Kst::Time::FromUnixMilliseconds(kStart));
  EXPECT_TRUE(table.Admit("signoff"));
  EXPECT_TRUE(table.Admit("sign_off"));
  EXPECT_TRUE(table.Admit(""));
  EXPECT_FALSE(table.Admit("signoff"));
  EXPECT_TRUE(table.Admit("webview_error"));
  KstHost::UseSystemClock();
}

TEST(RateLimitTable, ExtremeClockReadingsNeitherOverflowNorStick) {
  oet::RateLimitTable<int32_t, 1> table(167);
  KstHost::SetClock(Kst::Time::FromUnixMicroseconds(std::numeric_limits<int64_t>::max()));
  EXPECT_TRUE(table.Admit(167));
  KstHost::SetClock(Kst::Time::FromUnixMicroseconds(std::numeric_limits<int64_t>::min() + 1));
  EXPECT_FALSE(table.Admit(167));  // far in the past: a clock moved back
  KstHost::UseSystemClock();
}

// Two threads racing on one key inside one window: exactly one call is accepted, however they
// interleave (run under ThreadSanitizer in the test command's tsan leg).
TEST(RateLimitTable, RacingThreadsAcceptExactlyOne) {
  KstHost::SetClock(Kst::Time::FromUnixMilliseconds(kStart));
  for (int round = 0; round < 200; ++round) {
    oet::RateLimitTable<int32_t, 1> table(165);
    std::atomic<int> admitted{0};
    std::atomic<bool> go{false};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
      threads.emplace_back([&] {
        while (!go.load()) {
        }
        admitted += table.Admit(165) ? 1 : 0;
      });
    }
    go = true;
    for (auto& thread : threads)
      thread.join();
    ASSERT_EQ(admitted.load(), 1) << "round " << round;
  }
  KstHost::UseSystemClock();
}

}  // namespace
