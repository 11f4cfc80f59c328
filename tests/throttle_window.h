// A stretch of host time of its own for a test case that exercises the rate limits. The limits are
// process-wide and outlive each case's host, so every window starts a day after the one before: no time
// stored by an earlier case can drop a later case's calls.
#pragma once

#include <cstdint>

#include "platform/kst_time.h"

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

}  // namespace oet_test
