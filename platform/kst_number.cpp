#include "oKstPlatform/kst_number.h"

#include "oKstPlatform/kst_convert.h"
#include "observer.h"

namespace {

// The value of the digit `c` in any base up to 36, or 36 for a character that is no digit. Only
// ASCII digits and letters count, whatever the width of T.
template <class T>
unsigned DigitValue(T c) {
  if (c >= T('0') && c <= T('9')) return static_cast<unsigned>(c - T('0'));
  if (c >= T('a') && c <= T('z')) return static_cast<unsigned>(c - T('a')) + 10;
  if (c >= T('A') && c <= T('Z')) return static_cast<unsigned>(c - T('A')) + 10;
  return 36;
}

template <class T>
bool ParseUInt(const Kst::CStringT<T>& text, uint32_t* value, int base) {
  if (value == nullptr || base < 2 || base > 36 || text.IsEmpty()) return false;
  const unsigned radix = static_cast<unsigned>(base);
  uint64_t result = 0;
  for (T c : text.str()) {
    const unsigned digit = DigitValue(c);
    if (digit >= radix) return false;
    result = result * radix + digit;
    if (result > UINT32_MAX) return false;
  }
  *value = static_cast<uint32_t>(result);
  return true;
}

}  // namespace

namespace Kst {

bool StringToUInt(const CStringT<char>& text, uint32_t* value, int base) {
  const bool parsed = ParseUInt(text, value, base);
  kst_observer::Report(KstHost::PlatformFunction::kStringToUInt, text.str(),
                       parsed ? static_cast<int64_t>(*value) : -1);
  return parsed;
}

bool StringToUInt(const CStringT<wchar_t>& text, uint32_t* value, int base) {
  const bool parsed = ParseUInt(text, value, base);
  if (kst_observer::Current() != nullptr)
    kst_observer::Report(KstHost::PlatformFunction::kStringToUInt, WideToUtf8(text),
                         parsed ? static_cast<int64_t>(*value) : -1);
  return parsed;
}

CStringT<char> Int64ToString(int64_t value) {
  // The magnitude in unsigned arithmetic, so that INT64_MIN needs no special case.
  uint64_t magnitude = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
  char digits[21];  // 19 digits of INT64_MIN, its sign and the terminator
  char* p = digits + sizeof(digits);
  *--p = '\0';
  do {
    *--p = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  if (value < 0) *--p = '-';
  kst_observer::Report(KstHost::PlatformFunction::kInt64ToString, p, value);
  return CStringT<char>(p);
}

}  // namespace Kst
