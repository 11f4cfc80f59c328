#include "oKstPlatform/kst_time.h"

#include "oKstPlatform/host_control.h"

#include <atomic>
#include <chrono>

#include "observer.h"

namespace {

std::atomic<bool> g_fixed{false};
std::atomic<int64_t> g_fixed_us{0};

int64_t FloorDiv(int64_t a, int64_t b) {
  return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

// The clock's reading in Unix microseconds: the fixed time while a host program fixes it, else the
// system clock.
int64_t NowUs() {
  if (g_fixed.load()) return g_fixed_us.load();
  const auto since_epoch = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(since_epoch).count();
}

}  // namespace

namespace Kst {

Time Time::Now() {
  const int64_t us = NowUs();
  kst_observer::Report(KstHost::PlatformFunction::kTimeNow, {}, us);
  return Time(us);
}

void Time::UTCExplode(Exploded* exploded) const {
  kst_observer::Report(KstHost::PlatformFunction::kUtcExplode, {}, us_);
  if (exploded == nullptr) return;
  const int64_t ms_total = FloorDiv(us_, 1000);
  const int64_t days = FloorDiv(ms_total, 86400000);
  const int64_t ms_of_day = ms_total - days * 86400000;

  // Civil date from a day count since 1970-01-01, in 400-year eras starting on March 1st.
  const int64_t z = days + 719468;
  const int64_t era = FloorDiv(z, 146097);
  const int64_t doe = z - era * 146097;
  const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const int64_t mp = (5 * doy + 2) / 153;
  const int64_t day = doy - (153 * mp + 2) / 5 + 1;
  const int64_t month = mp < 10 ? mp + 3 : mp - 9;
  const int64_t year = yoe + era * 400 + (month <= 2 ? 1 : 0);

  exploded->year = static_cast<int>(year);
  exploded->month = static_cast<int>(month);
  exploded->day_of_month = static_cast<int>(day);
  exploded->day_of_week =
      static_cast<int>(FloorDiv(days + 4, 7) * -7 + days + 4);  // 1970-01-01 was a Thursday
  exploded->hour = static_cast<int>(ms_of_day / 3600000);
  exploded->minute = static_cast<int>(ms_of_day / 60000 % 60);
  exploded->second = static_cast<int>(ms_of_day / 1000 % 60);
  exploded->millisecond = static_cast<int>(ms_of_day % 1000);
}

}  // namespace Kst

namespace KstHost {

void SetClock(Kst::Time now) {
  g_fixed_us.store(now.ToUnixMicroseconds());
  g_fixed.store(true);
}

void AdvanceClock(Kst::TimeDelta delta) {
  if (!g_fixed.load()) SetClock(Kst::Time::FromUnixMicroseconds(NowUs()));
  g_fixed_us.fetch_add(delta.InMicroseconds());
}

void UseSystemClock() {
  g_fixed.store(false);
}

}  // namespace KstHost
