#include "core/timestamp.h"

#include <cstdio>

namespace oet {

std::string FormatUtcTimestamp(const Kst::Time& time) {
  if (time.is_null()) return std::string();
  Kst::Time::Exploded t;
  time.UTCExplode(&t);
  char text[64];
  const int length = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", t.year, t.month,
                                   t.day_of_month, t.hour, t.minute, t.second, t.millisecond);
  return length > 0 ? std::string(text, static_cast<size_t>(length)) : std::string();
}

}  // namespace oet
