#include "core/timestamp.h"

#include <string>

namespace oet {
namespace {

// Padded's rare case: a negative number, or one wider than `width`.
char* PaddedOutOfRange(char* out, int value, int width) {
  char digits[10];
  int count = 0;
  unsigned magnitude = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
  do {
    digits[count++] = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  if (value < 0) {
    *out++ = '-';
    --width;
  }
  for (int i = count; i < width; ++i)
    *out++ = '0';
  while (count > 0)
    *out++ = digits[--count];
  return out;
}

// Writes `value` in decimal, zero-filled on the left to `width` characters (a minus sign counts toward
// the width; a number wider than `width` keeps all its digits), and returns the position after it.
// The usual case (exactly `width` digits) is written in place: inlined with its constant width, it
// takes a few instructions per digit.
#if defined(__GNUC__)
__attribute__((always_inline))
#endif
inline char*
Padded(char* out, int value, int width) {
  static constexpr int kLimit[] = {1, 10, 100, 1000, 10000};
  if (value < 0 || value >= kLimit[width]) return PaddedOutOfRange(out, value, width);
  for (int i = width - 1; i >= 0; --i) {
    out[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  return out + width;
}

}  // namespace

MadeText FormatUtcTimestamp(const Kst::Time& time) {
  return MadeText([&](MadeText& text) { FormatUtcTimestamp(time, text); });
}

void FormatUtcTimestamp(const Kst::Time& time, MadeText& text) {
  if (time.is_null()) {
    text.For(0).clear();
    return;
  }
  Kst::Time::Exploded t;
  time.UTCExplode(&t);
  char digits[96];  // YYYY-MM-DDThh:mm:ss.mmmZ, with room for any int in each field
  char* out = Padded(digits, t.year, 4);
  *out++ = '-';
  out = Padded(out, t.month, 2);
  *out++ = '-';
  out = Padded(out, t.day_of_month, 2);
  *out++ = 'T';
  out = Padded(out, t.hour, 2);
  *out++ = ':';
  out = Padded(out, t.minute, 2);
  *out++ = ':';
  out = Padded(out, t.second, 2);
  *out++ = '.';
  out = Padded(out, t.millisecond, 3);
  *out++ = 'Z';
  text.Assign(digits, static_cast<size_t>(out - digits));
}

}  // namespace oet
