// The one-second rate limit of the throttled events (the chat event's action types 174 and 185, the
// noisy performance-metrics names, three of the chat-module events).
//
// Each throttled event owns one RateLimitTable of fixed keys; each key keeps the host time of its last
// accepted call. A call under a key of the table takes the host's clock (Kst::Time::Now) and is dropped
// when the signed difference from the last accepted time, in whole milliseconds
// (Kst::TimeDelta::InMilliseconds), is under 1000: a clock that moved back drops the call too. A dropped
// call leaves the stored time as it was, so a burst is measured from the last accepted call; an
// accepted call stores its time before the event does anything else, so it counts even when the
// event then fails for want of a service. Keys outside the table are never limited and never read
// the clock.
//
// Safe for several threads without a lock (one atomic time per key): of two calls that race on one
// key inside the window, exactly one is accepted. The tables are constant-initialised and never
// destroyed, so a call from a client's exit path still finds them.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "oKstPlatform/kst_time.h"

namespace oet {

inline constexpr int64_t kRateLimitMilliseconds = 1000;

// The last accepted time of one key.
class RateLimit {
 public:
  constexpr RateLimit() = default;

  // True when a call at `now` is accepted (its time is then stored); false when it is dropped.
  bool Admit(Kst::Time now) {
    int64_t last = last_us_.load(std::memory_order_acquire);
    for (;;) {
      if (last != kNone &&
          (now - Kst::Time::FromUnixMicroseconds(last)).InMilliseconds() < kRateLimitMilliseconds)
        return false;
      if (last_us_.compare_exchange_weak(last, now.ToUnixMicroseconds(), std::memory_order_acq_rel,
                                         std::memory_order_acquire))
        return true;
    }
  }

 private:
  // No call accepted yet. (A clock reading of this very value, the earliest representable time, is
  // taken as no time at all.)
  static constexpr int64_t kNone = std::numeric_limits<int64_t>::min();
  std::atomic<int64_t> last_us_{kNone};
};

// The limits of one event: one per fixed key. Key is an integer type or std::string_view.
template <class Key, size_t N>
class RateLimitTable {
 public:
  template <class... Keys>
  constexpr explicit RateLimitTable(Keys... keys) : keys_{keys...} {}

  // True when the call may go on: its key is not one of the table's, or its limit accepts it now.
  bool Admit(const Key& key) {
    for (size_t i = 0; i < N; ++i) {
      if (keys_[i] == key) return limits_[i].Admit(Kst::Time::Now());
    }
    return true;
  }

 private:
  Key keys_[N];
  RateLimit limits_[N];
};

template <class Key, class... Keys>
RateLimitTable(Key, Keys...) -> RateLimitTable<Key, 1 + sizeof...(Keys)>;

}  // namespace oet
