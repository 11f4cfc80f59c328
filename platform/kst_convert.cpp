#include "oKstPlatform/kst_convert.h"

#include <climits>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <string_view>

#include "observer.h"

namespace {

constexpr uint32_t kReplacement = 0xFFFD;

// Longest piece the conveniences hand to kst_str_convert at a time, so that int lengths never
// overflow whatever the size of the string.
constexpr int kChunkUnits = 16384;

// One decoded character: its code point (kReplacement for an ill-formed piece) and the number of
// source units it took.
struct Decoded {
  uint32_t code_point;
  int units;
};

bool IsContinuation(unsigned char b) {
  return (b & 0xC0) == 0x80;
}

// Decodes the character at the start of s[0..n), n >= 1. An ill-formed piece is the longest prefix
// of a well-formed sequence, or else the single first byte; it decodes to one kReplacement.
Decoded DecodeUtf8(const unsigned char* s, int n) {
  const unsigned b0 = s[0];
  if (b0 < 0x80) return {b0, 1};
  int trail = 0;
  uint32_t cp = 0;
  // The range allowed for the first trailing byte excludes overlong forms, surrogates and values
  // above U+10FFFF; later trailing bytes may be any continuation byte.
  unsigned lo = 0x80;
  unsigned hi = 0xBF;
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    trail = 1;
    cp = b0 & 0x1F;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    trail = 2;
    cp = b0 & 0x0F;
    if (b0 == 0xE0) lo = 0xA0;
    if (b0 == 0xED) hi = 0x9F;
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    trail = 3;
    cp = b0 & 0x07;
    if (b0 == 0xF0) lo = 0x90;
    if (b0 == 0xF4) hi = 0x8F;
  } else {
    return {kReplacement, 1};  // a stray continuation byte, C0, C1 or F5..FF
  }
  for (int i = 1; i <= trail; ++i) {
    if (i >= n || s[i] < lo || s[i] > hi) return {kReplacement, i};
    cp = (cp << 6) | (s[i] & 0x3Fu);
    lo = 0x80;
    hi = 0xBF;
  }
  return {cp, trail + 1};
}

// Decodes the wide character at the start of s[0..n), n >= 1.
Decoded DecodeWide(const wchar_t* s, int n) {
#if WCHAR_MAX > 0xFFFF
  (void)n;
  const uint32_t cp = static_cast<uint32_t>(s[0]);  // a negative value wraps above 0x10FFFF
  if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) return {kReplacement, 1};
  return {cp, 1};
#else
  const uint32_t u = static_cast<uint32_t>(s[0]) & 0xFFFFu;
  if (u < 0xD800 || u > 0xDFFF) return {u, 1};
  if (u <= 0xDBFF && n >= 2) {
    const uint32_t low = static_cast<uint32_t>(s[1]) & 0xFFFFu;
    if (low >= 0xDC00 && low <= 0xDFFF) return {0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00), 2};
  }
  return {kReplacement, 1};  // a lone high or low surrogate
#endif
}

int EncodeUtf8(uint32_t cp, char* out) {
  if (cp < 0x80) {
    out[0] = static_cast<char>(cp);
    return 1;
  }
  if (cp < 0x800) {
    out[0] = static_cast<char>(0xC0 | (cp >> 6));
    out[1] = static_cast<char>(0x80 | (cp & 0x3F));
    return 2;
  }
  if (cp < 0x10000) {
    out[0] = static_cast<char>(0xE0 | (cp >> 12));
    out[1] = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out[2] = static_cast<char>(0x80 | (cp & 0x3F));
    return 3;
  }
  out[0] = static_cast<char>(0xF0 | (cp >> 18));
  out[1] = static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
  out[2] = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
  out[3] = static_cast<char>(0x80 | (cp & 0x3F));
  return 4;
}

int EncodeWide(uint32_t cp, wchar_t* out) {
#if WCHAR_MAX > 0xFFFF
  out[0] = static_cast<wchar_t>(cp);
  return 1;
#else
  if (cp < 0x10000) {
    out[0] = static_cast<wchar_t>(cp);
    return 1;
  }
  cp -= 0x10000;
  out[0] = static_cast<wchar_t>(0xD800 + (cp >> 10));
  out[1] = static_cast<wchar_t>(0xDC00 + (cp & 0x3FF));
  return 2;
#endif
}

int ClampLength(size_t n) {
  return n > static_cast<size_t>(INT_MAX) ? INT_MAX : static_cast<int>(n);
}

// Checks the common arguments; false (with dst terminated when possible) when there is nothing to do.
template <class Out>
bool Usable(unsigned code_page, const void* src, Out* dst, int dst_capacity) {
  if (dst != nullptr && dst_capacity > 0) dst[0] = Out();
  return code_page == KST_CP_UTF8 && src != nullptr && dst != nullptr && dst_capacity > 0;
}

// The conversions themselves; kst_str_convert reports each call to the observer, the conveniences
// below (the stand-in's own work) call these directly.
int ConvertToUtf8(unsigned code_page, const wchar_t* src, int src_len, char* dst, int dst_capacity) {
  if (!Usable(code_page, src, dst, dst_capacity)) return 0;
  const int n = src_len < 0 ? ClampLength(std::wcslen(src)) : src_len;
  int written = 0;
  for (int i = 0; i < n;) {
    const Decoded d = DecodeWide(src + i, n - i);
    char bytes[4];
    const int len = EncodeUtf8(d.code_point, bytes);
    if (len > dst_capacity - 1 - written) break;
    std::memcpy(dst + written, bytes, static_cast<size_t>(len));
    written += len;
    i += d.units;
  }
  dst[written] = '\0';
  return written;
}

int ConvertToWide(unsigned code_page, const char* src, int src_len, wchar_t* dst, int dst_capacity) {
  if (!Usable(code_page, src, dst, dst_capacity)) return 0;
  const int n = src_len < 0 ? ClampLength(std::strlen(src)) : src_len;
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(src);
  int written = 0;
  for (int i = 0; i < n;) {
    const Decoded d = DecodeUtf8(bytes + i, n - i);
    wchar_t units[2];
    const int len = EncodeWide(d.code_point, units);
    if (len > dst_capacity - 1 - written) break;
    for (int k = 0; k < len; ++k)
      dst[written + k] = units[k];
    written += len;
    i += d.units;
  }
  dst[written] = L'\0';
  return written;
}

}  // namespace

int kst_str_convert(unsigned code_page, const wchar_t* src, int src_len, char* dst, int dst_capacity) {
  const int written = ConvertToUtf8(code_page, src, src_len, dst, dst_capacity);
  kst_observer::Report(KstHost::PlatformFunction::kConvertToUtf8,
                       std::string_view(written > 0 ? dst : "", static_cast<size_t>(written)), src_len);
  return written;
}

int kst_str_convert(unsigned code_page, const char* src, int src_len, wchar_t* dst, int dst_capacity) {
  const int written = ConvertToWide(code_page, src, src_len, dst, dst_capacity);
  if (kst_observer::Current() != nullptr && src != nullptr) {
    const size_t n = src_len < 0 ? std::strlen(src) : static_cast<size_t>(src_len);
    kst_observer::Report(KstHost::PlatformFunction::kConvertToWide, std::string_view(src, n), src_len);
  }
  return written;
}

namespace Kst {

std::string WideToUtf8(const CStringT<wchar_t>& text) {
  const std::wstring& s = text.str();
  std::string out;
  std::string buffer(4 * static_cast<size_t>(kChunkUnits) + 1, '\0');
  size_t start = 0;
  while (start < s.size()) {
    size_t end = s.size() - start > static_cast<size_t>(kChunkUnits) ? start + kChunkUnits : s.size();
#if WCHAR_MAX <= 0xFFFF
    // Keep a surrogate pair in one piece.
    const uint32_t last = static_cast<uint32_t>(s[end - 1]) & 0xFFFFu;
    if (end < s.size() && last >= 0xD800 && last <= 0xDBFF) --end;
#endif
    const int n = ConvertToUtf8(KST_CP_UTF8, s.data() + start, static_cast<int>(end - start), &buffer[0],
                                static_cast<int>(buffer.size()));
    out.append(buffer, 0, static_cast<size_t>(n));
    start = end;
  }
  return out;
}

CStringT<wchar_t> Utf8ToWide(const std::string& text) {
  const unsigned char* s = reinterpret_cast<const unsigned char*>(text.data());
  const size_t size = text.size();
  std::wstring out;
  std::wstring buffer(static_cast<size_t>(kChunkUnits) + 1, L'\0');
  size_t start = 0;
  while (start < size) {
    size_t end = size - start > static_cast<size_t>(kChunkUnits) ? start + kChunkUnits : size;
    // Cut only where no sequence, well-formed or not, runs across the cut: before a byte that is not
    // a continuation byte. A continuation byte with no lead byte in the three before it belongs to no
    // sequence and is a safe cut too.
    if (end < size && IsContinuation(s[end])) {
      for (size_t k = 1; k <= 3 && end - k > start; ++k) {
        if (!IsContinuation(s[end - k])) {
          end -= k;
          break;
        }
      }
    }
    const int n = ConvertToWide(KST_CP_UTF8, text.data() + start, static_cast<int>(end - start), &buffer[0],
                                static_cast<int>(buffer.size()));
    out.append(buffer, 0, static_cast<size_t>(n));
    start = end;
  }
  return CStringT<wchar_t>(out);
}

}  // namespace Kst
