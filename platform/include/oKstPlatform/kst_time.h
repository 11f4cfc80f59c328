// Host time: a point in time and a span between two, as the host's base library offers them.
//
// A Kst::Time holds microseconds since 1970-01-01 00:00:00 UTC; the value 0 is the "null" time that
// callers use for "not given". The clock behind Kst::Time::Now() is the system clock unless a host
// program (a test, the replay tool) fixes it (oKstPlatform/host_control.h).
#pragma once

#include <cstdint>
#include <limits>

#include "oKstPlatform/kst_export.h"

namespace Kst {

class TimeDelta {
 public:
  constexpr TimeDelta() = default;
  static constexpr TimeDelta FromMicroseconds(int64_t us) { return TimeDelta(us); }
  static constexpr TimeDelta FromMilliseconds(int64_t ms) { return TimeDelta(ms * 1000); }
  constexpr int64_t InMicroseconds() const { return us_; }
  // Whole milliseconds, truncated toward zero.
  constexpr int64_t InMilliseconds() const { return us_ / 1000; }

 private:
  constexpr explicit TimeDelta(int64_t us) : us_(us) {}
  int64_t us_ = 0;
};

class Time {
 public:
  // A time broken down into calendar fields (UTC). month is 1..12, day_of_week 0 (Sunday)..6.
  struct Exploded {
    int year = 0;
    int month = 0;
    int day_of_week = 0;
    int day_of_month = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
  };

  constexpr Time() = default;
  static constexpr Time FromUnixMicroseconds(int64_t us) { return Time(us); }
  static constexpr Time FromUnixMilliseconds(int64_t ms) { return Time(ms * 1000); }
  constexpr int64_t ToUnixMicroseconds() const { return us_; }
  constexpr bool is_null() const { return us_ == 0; }

  KST_API static Time Now();
  // Breaks the time down in UTC (proleptic Gregorian calendar; times before 1970 work too).
  KST_API void UTCExplode(Exploded* exploded) const;

  // The span between two times; it saturates at the largest span either way instead of overflowing.
  constexpr TimeDelta operator-(const Time& other) const {
    constexpr int64_t kMax = std::numeric_limits<int64_t>::max();
    constexpr int64_t kMin = std::numeric_limits<int64_t>::min();
    if (other.us_ < 0 && us_ > kMax + other.us_) return TimeDelta::FromMicroseconds(kMax);
    if (other.us_ > 0 && us_ < kMin + other.us_) return TimeDelta::FromMicroseconds(kMin);
    return TimeDelta::FromMicroseconds(us_ - other.us_);
  }
  constexpr Time operator+(const TimeDelta& delta) const { return Time(us_ + delta.InMicroseconds()); }
  constexpr bool operator==(const Time& other) const { return us_ == other.us_; }
  constexpr bool operator!=(const Time& other) const { return us_ != other.us_; }

 private:
  constexpr explicit Time(int64_t us) : us_(us) {}
  int64_t us_ = 0;
};

}  // namespace Kst
