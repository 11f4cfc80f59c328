// A stretch of host time of its own for a test case that exercises the rate limits. The limits are
// process-wide and outlive each case's host, so every window starts a day after the one before: no time
// stored by an earlier case can drop a later case's calls.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <vector>

#include "core/client_context.h"
#include "oKstPlatform/host_control.h"
#include "testing/recording_host.h"

namespace oet_test {

class ThrottleWindow {
 public:
  ThrottleWindow() : start_ms_(kFirstMs + kDayMs * ++Count()) { At(0); }

  // Sets the host's clock to `ms` milliseconds after the window's start.
  void At(int64_t ms) const { KstHost::SetClock(Kst::Time::FromUnixMilliseconds(start_ms_ + ms)); }

 private:
  static constexpr int64_t kFirstMs = 1772860141042;  // 2026-03-07T05:09:01.042Z
  static constexpr int64_t kDayMs = 86400000;
  static int64_t& Count() {
    static int64_t count = 0;
    return count;
  }
  int64_t start_ms_;
};

// A run of calls of one throttled event: each step's key (what the limit goes by), its time in the
// window and the result it must give.
template <class Key>
struct BurstStep {
  Key key;
  int64_t at_ms;
  int result;
};

template <class Key>
struct Burst {
  const char* name;
  std::vector<BurstStep<Key>> steps;
};

template <class Key>
void PrintTo(const Burst<Key>& burst, std::ostream* os) {
  *os << burst.name;
}

// Makes each step's call (`call(key)`) at its time from an uncreated client-context cache. A dropped
// call must have done nothing: no host call, and not even the cache's creation (which would ask the
// web service to fill it).
template <class Key, class Call>
void RunBurst(oet_testing::RecordingHost& host, const ThrottleWindow& window, const Burst<Key>& burst,
              Call call) {
  for (size_t i = 0; i < burst.steps.size(); ++i) {
    const BurstStep<Key>& step = burst.steps[i];
    oet::ResetClientContextForTesting();
    const size_t calls = host.Log().size();
    const int fills = host.web_service().CallCount(97);
    window.At(step.at_ms);
    EXPECT_EQ(call(step.key), step.result) << "step " << i;
    if (step.result == 0) {
      EXPECT_EQ(host.Log().size(), calls) << "step " << i;
      EXPECT_EQ(host.web_service().CallCount(97), fills) << "step " << i;
    }
  }
}

}  // namespace oet_test
