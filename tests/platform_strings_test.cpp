// The host stand-in's strings: Kst::CStringT, the UTF-8 <-> wide conversions and the number helpers.
// Every expectation is written in UTF-8 or code points so that the same file holds on 16-bit and
// 32-bit wchar_t.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

#include "platform/kst_convert.h"
#include "platform/kst_number.h"
#include "platform/kst_string.h"

namespace {

using Kst::CStringT;

constexpr bool kWide16 = WCHAR_MAX <= 0xFFFF;
const std::string kFffd = "\xEF\xBF\xBD";

// Code points as wide text: a surrogate pair for each one above U+FFFF on 16-bit wchar_t.
std::wstring Wide(const std::vector<uint32_t>& cps) {
  std::wstring out;
  for (uint32_t cp : cps) {
    if (kWide16 && cp > 0xFFFF) {
      out += static_cast<wchar_t>(0xD800 + ((cp - 0x10000) >> 10));
      out += static_cast<wchar_t>(0xDC00 + ((cp - 0x10000) & 0x3FF));
    } else {
      out += static_cast<wchar_t>(cp);
    }
  }
  return out;
}

std::wstring ToWide(const std::string& s, int capacity = -1) {
  std::wstring buf(capacity < 0 ? s.size() + 1 : static_cast<size_t>(capacity) + 1, L'#');
  const int n = kst_str_convert(KST_CP_UTF8, s.data(), static_cast<int>(s.size()), &buf[0],
                                capacity < 0 ? static_cast<int>(buf.size()) : capacity);
  return buf.substr(0, static_cast<size_t>(n));
}

std::string ToUtf8(const std::wstring& s) {
  std::string buf(4 * s.size() + 1, '#');
  const int n = kst_str_convert(KST_CP_UTF8, s.data(), static_cast<int>(s.size()), &buf[0],
                                static_cast<int>(buf.size()));
  EXPECT_EQ(buf[static_cast<size_t>(n)], '\0');
  return buf.substr(0, static_cast<size_t>(n));
}

struct DecodeCase {
  std::string utf8;
  std::vector<uint32_t> cps;
};

class Utf8ToWideTest : public testing::TestWithParam<DecodeCase> {};

TEST_P(Utf8ToWideTest, DecodesWithMaximalSubpartReplacement) {
  EXPECT_EQ(ToWide(GetParam().utf8), Wide(GetParam().cps));
  EXPECT_EQ(Kst::Utf8ToWide(GetParam().utf8).str(), Wide(GetParam().cps));
}

constexpr uint32_t R = 0xFFFD;
INSTANTIATE_TEST_SUITE_P(
    All, Utf8ToWideTest,
    testing::Values(DecodeCase{"", {}}, DecodeCase{"A\xC3\xA9\xE2\x82\xAC", {0x41, 0xE9, 0x20AC}},
                    DecodeCase{"\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF", {0x1F600, 0x10FFFF}},
                    DecodeCase{std::string("a\0b", 3), {0x61, 0, 0x62}}, DecodeCase{"\xED\x9F\xBF", {0xD7FF}},
                    // overlong forms
                    DecodeCase{"\xC0\xAF", {R, R}}, DecodeCase{"\xC1\xBF", {R, R}},
                    DecodeCase{"\xE0\x80\xAF", {R, R, R}}, DecodeCase{"\xF0\x8F\xBF\xBF", {R, R, R, R}},
                    // truncated sequences: one replacement for the whole prefix
                    DecodeCase{"\xC3", {R}}, DecodeCase{"\xE2\x82", {R}}, DecodeCase{"\xF0\x9F\x98", {R}},
                    DecodeCase{"\xE2\x82"
                               "A",
                               {R, 0x41}},
                    DecodeCase{"\xF0\x9F\x98\xE2\x82\xAC", {R, 0x20AC}},
                    // stray continuation bytes
                    DecodeCase{"\x80", {R}},
                    DecodeCase{"A\x80\xBF"
                               "B",
                               {0x41, R, R, 0x42}},
                    // encoded surrogates, values above U+10FFFF, F5..FF
                    DecodeCase{"\xED\xA0\x80", {R, R, R}}, DecodeCase{"\xED\xBF\xBF", {R, R, R}},
                    DecodeCase{"\xF4\x90\x80\x80", {R, R, R, R}},
                    DecodeCase{"\xF5\x80\x80\x80", {R, R, R, R}}, DecodeCase{"\xFE\xFF", {R, R}},
                    DecodeCase{"a\xF1\x80\x80\xE1\x80\xC2"
                               "b\x80"
                               "c\x80\xBF"
                               "d",
                               {0x61, R, R, R, 0x62, R, 0x63, R, R, 0x64}}));

struct EncodeCase {
  std::wstring wide;
  std::string utf8;
};

class WideToUtf8Test : public testing::TestWithParam<EncodeCase> {};

TEST_P(WideToUtf8Test, EncodesAndReplacesInvalidUnits) {
  EXPECT_EQ(ToUtf8(GetParam().wide), GetParam().utf8);
  EXPECT_EQ(Kst::WideToUtf8(CStringT<wchar_t>(GetParam().wide)), GetParam().utf8);
}

std::vector<EncodeCase> EncodeCases() {
  const wchar_t hi = static_cast<wchar_t>(0xD83D);
  const wchar_t lo = static_cast<wchar_t>(0xDE00);
  std::vector<EncodeCase> cases = {
      {L"", ""},
      {L"A\u00E9\u20AC\uFFFF", "A\xC3\xA9\xE2\x82\xAC\xEF\xBF\xBF"},
      {Wide({0x1F600, 0x10FFFF}), "\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF"},
      {std::wstring(L"a\0b", 3), std::string("a\0b", 3)},
      {{hi}, kFffd},
      {{L'a', lo, L'b'}, "a" + kFffd + "b"},
      {{lo, hi}, kFffd + kFffd},
  };
#if WCHAR_MAX <= 0xFFFF
  cases.push_back({{hi, hi, lo}, kFffd + "\xF0\x9F\x98\x80"});
  cases.push_back({{L'a', hi}, "a" + kFffd});
#else
  cases.push_back({{hi, lo}, kFffd + kFffd});  // the halves of a pair are two lone surrogates here
  cases.push_back({{static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)}, kFffd + kFffd});
#endif
  return cases;
}

INSTANTIATE_TEST_SUITE_P(All, WideToUtf8Test, testing::ValuesIn(EncodeCases()));

TEST(KstStrConvert, BadArgumentsGiveZeroAndTerminate) {
  char out[8] = "xxxxxxx";
  wchar_t wout[8] = L"xxxxxxx";
  const char* null_s = nullptr;
  const wchar_t* null_w = nullptr;
  EXPECT_EQ(kst_str_convert(1252, L"abc", 3, out, 8), 0);
  EXPECT_EQ(out[0], '\0');
  EXPECT_EQ(kst_str_convert(1252, "abc", 3, wout, 8), 0);
  EXPECT_EQ(wout[0], L'\0');
  out[0] = 'x';
  wout[0] = L'x';
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, null_w, 3, out, 8), 0);
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, null_s, 3, wout, 8), 0);
  EXPECT_EQ(out[0], '\0');
  EXPECT_EQ(wout[0], L'\0');
  out[0] = 'x';
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, L"abc", 3, out, -1), 0);
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, L"abc", 3, out, 0), 0);
  EXPECT_EQ(out[0], 'x');
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, L"abc", 3, static_cast<char*>(nullptr), 8), 0);
  // -1 stops at the first NUL.
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, L"ab\0c", -1, out, 8), 2);
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, "ab\0c", -1, wout, 8), 2);
  EXPECT_EQ(std::wstring(wout), L"ab");
}

// For every capacity: the output is a terminated prefix of the full conversion that ends on a
// character boundary, nothing past the capacity is touched, and the next character would not fit.
TEST(KstStrConvert, CapacityNeverSplitsACharacter) {
  const std::string utf8 =
      "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"
      "b\xE2\x82\xF0\x9F\x98\x80";
  const std::wstring wide = ToWide(utf8);
  const std::string full = ToUtf8(wide);
  for (int cap = 0; cap <= static_cast<int>(full.size()) + 2; ++cap) {
    SCOPED_TRACE(cap);
    std::string out(static_cast<size_t>(cap) + 4, '#');
    const int n = kst_str_convert(KST_CP_UTF8, wide.data(), static_cast<int>(wide.size()), &out[0], cap);
    EXPECT_EQ(out.substr(static_cast<size_t>(cap)), "####");
    if (cap == 0) continue;
    ASSERT_LT(n, cap);
    EXPECT_EQ(out.substr(0, static_cast<size_t>(n)), full.substr(0, static_cast<size_t>(n)));
    EXPECT_EQ(out[static_cast<size_t>(n)], '\0');
    if (static_cast<size_t>(n) < full.size()) {
      const unsigned char next = static_cast<unsigned char>(full[static_cast<size_t>(n)]);
      EXPECT_NE(next & 0xC0, 0x80) << "split inside a character";
      const int next_len = next < 0x80 ? 1 : next < 0xE0 ? 2 : next < 0xF0 ? 3 : 4;
      EXPECT_GT(n + next_len + 1, cap) << "stopped although the next character fits";
    }
  }
  for (int cap = 0; cap <= static_cast<int>(wide.size()) + 2; ++cap) {
    SCOPED_TRACE(cap);
    std::wstring out(static_cast<size_t>(cap) + 4, L'#');
    const int n = kst_str_convert(KST_CP_UTF8, utf8.data(), static_cast<int>(utf8.size()), &out[0], cap);
    EXPECT_EQ(out.substr(static_cast<size_t>(cap)), L"####");
    if (cap == 0) continue;
    ASSERT_LT(n, cap);
    EXPECT_EQ(out.substr(0, static_cast<size_t>(n)), wide.substr(0, static_cast<size_t>(n)));
    EXPECT_EQ(out[static_cast<size_t>(n)], L'\0');
    if (static_cast<size_t>(n) < wide.size()) {
      const uint32_t next = static_cast<uint32_t>(wide[static_cast<size_t>(n)]);
      EXPECT_FALSE(next >= 0xDC00 && next <= 0xDFFF) << "split inside a surrogate pair";
      const int next_len = (next >= 0xD800 && next <= 0xDBFF) ? 2 : 1;
      EXPECT_GT(n + next_len + 1, cap) << "stopped although the next character fits";
    }
  }
}

TEST(KstStrConvert, RoundTripsEveryKindOfCodePoint) {
  std::vector<uint32_t> cps = {0,      0x7F,   0x80,   0x7FF,   0x800,   0xD7FF,
                               0xE000, 0xFFFD, 0xFFFF, 0x10000, 0x10FFFF};
  for (uint32_t cp = 1; cp <= 0x10FFFF; cp += 997) {
    if (cp < 0xD800 || cp > 0xDFFF) cps.push_back(cp);
  }
  const std::wstring wide = Wide(cps);
  const std::string utf8 = Kst::WideToUtf8(CStringT<wchar_t>(wide));
  EXPECT_EQ(Kst::Utf8ToWide(utf8).str(), wide);
  EXPECT_EQ(ToUtf8(ToWide(utf8)), utf8);
}

// Long texts give the same result as one direct conversion wherever their characters fall.
TEST(KstStrConvert, LongTextsConvertAsAWhole) {
  const std::vector<std::string> pieces = {"\xF0\x9F\x98\x80",
                                           "\xE2\x82\xAC"
                                           "a",
                                           "\xF0\x9F\x98", "\xE2\x82\x80\x80\x80"};
  for (const std::string& piece : pieces) {
    for (size_t pad = 0; pad < 4; ++pad) {
      std::string utf8(pad, 'x');
      while (utf8.size() < 100000)
        utf8 += piece;
      const std::wstring wide = ToWide(utf8);
      EXPECT_EQ(Kst::Utf8ToWide(utf8).str(), wide) << pad;
      EXPECT_EQ(Kst::WideToUtf8(CStringT<wchar_t>(wide)), ToUtf8(wide)) << pad;
    }
  }
}

struct UIntCase {
  std::string text;
  int base;
  bool ok;
  uint32_t value;
};

class StringToUIntTest : public testing::TestWithParam<UIntCase> {};

TEST_P(StringToUIntTest, AcceptsOnlyWholeDigitRunsThatFit) {
  const UIntCase& c = GetParam();
  uint32_t narrow = 12345;
  uint32_t wide = 12345;
  EXPECT_EQ(Kst::StringToUInt(CStringT<char>(c.text.c_str()), &narrow, c.base), c.ok);
  EXPECT_EQ(Kst::StringToUInt(CStringT<wchar_t>(std::wstring(c.text.begin(), c.text.end())), &wide, c.base),
            c.ok);
  EXPECT_EQ(narrow, c.ok ? c.value : 12345u);
  EXPECT_EQ(wide, c.ok ? c.value : 12345u);
}

INSTANTIATE_TEST_SUITE_P(
    All, StringToUIntTest,
    testing::Values(UIntCase{"0", 10, true, 0}, UIntCase{"4294967295", 10, true, UINT32_MAX},
                    UIntCase{"0004294967295", 10, true, UINT32_MAX}, UIntCase{"4294967296", 10, false, 0},
                    UIntCase{"99999999999", 10, false, 0}, UIntCase{"", 10, true, 0},
                    UIntCase{"-1", 10, false, 0}, UIntCase{"+1", 10, false, 0}, UIntCase{" 1", 10, false, 0},
                    UIntCase{"1 ", 10, false, 0}, UIntCase{"ff", 16, true, 255},
                    UIntCase{"FF", 16, true, 255}, UIntCase{"ff", 10, false, 0},
                    UIntCase{"0x10", 16, false, 0}, UIntCase{"ffffffff", 16, true, UINT32_MAX},
                    UIntCase{"100000000", 16, false, 0}, UIntCase{"101", 2, true, 5},
                    UIntCase{"2", 2, false, 0}, UIntCase{"Zz", 36, true, 1295}, UIntCase{"1", 1, false, 0},
                    UIntCase{"1", 37, false, 0}, UIntCase{"\xB1", 10, false, 0}));

TEST(StringToUInt, RejectsNullAndNonAsciiWideDigits) {
  uint32_t v = 7;
  EXPECT_FALSE(Kst::StringToUInt(CStringT<char>("1"), nullptr, 10));
  // U+0131 and U+FF11 (fullwidth 1) must not pass for '1' by their low bits.
  EXPECT_FALSE(Kst::StringToUInt(CStringT<wchar_t>(L"\u0131"), &v, 10));
  EXPECT_FALSE(Kst::StringToUInt(CStringT<wchar_t>(L"\uFF11"), &v, 10));
  EXPECT_EQ(v, 7u);
}

TEST(Int64ToString, FormatsTheWholeRange) {
  const std::vector<std::pair<int64_t, const char*>> cases = {{0, "0"},
                                                              {7, "7"},
                                                              {-7, "-7"},
                                                              {1000000, "1000000"},
                                                              {INT64_MAX, "9223372036854775807"},
                                                              {INT64_MIN, "-9223372036854775808"}};
  for (const auto& c : cases)
    EXPECT_EQ(Kst::Int64ToString(c.first), c.second);
}

TEST(CStringT, ConstructionAndComparison) {
  const char* null_s = nullptr;
  EXPECT_TRUE(CStringT<char>(null_s).IsEmpty());
  EXPECT_STREQ(CStringT<char>(null_s).c_str(), "");
  EXPECT_TRUE(CStringT<char>(null_s, 5).IsEmpty());
  EXPECT_EQ(CStringT<char>("a\0b", 3).GetLength(), 3);
  EXPECT_EQ(CStringT<char>("ab\0c", -1), "ab");
  EXPECT_TRUE(CStringT<char>() == null_s);
  EXPECT_TRUE(CStringT<char>("x") != null_s);
  EXPECT_TRUE("x" == CStringT<char>("x"));
  EXPECT_TRUE(CStringT<char>("a\0b", 3) != CStringT<char>("a\0c", 3));
  CStringT<wchar_t> w;
  w = L"wide";
  EXPECT_TRUE(w == L"wide");
  w = static_cast<const wchar_t*>(nullptr);
  EXPECT_TRUE(w.IsEmpty());
}

TEST(CStringT, FindAndRfind) {
  const CStringT<char> s("abcabc");
  const struct {
    const char* needle;
    int start;
    int found;
  } cases[] = {{"bc", 0, 1},  {"bc", 2, 4}, {"bc", -5, 1}, {"x", 0, -1},    {"abc", 4, -1},
               {"c", 99, -1}, {"", 6, 6},   {"", 7, -1},   {nullptr, 0, -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(s.find(c.needle, c.start), c.found) << (c.needle ? c.needle : "null") << " " << c.start;
    if (c.needle) {
      EXPECT_EQ(s.find(CStringT<char>(c.needle), c.start), c.found);
    }
  }
  EXPECT_EQ(s.rfind("bc"), 4);
  EXPECT_EQ(s.rfind(CStringT<char>("ab")), 3);
  EXPECT_EQ(s.rfind("abcabcd"), -1);
  EXPECT_EQ(s.rfind(static_cast<const char*>(nullptr)), -1);
  EXPECT_EQ(CStringT<wchar_t>(L"x\u00E9y\u00E9").rfind(L"\u00E9"), 3);
}

TEST(CStringT, SubstrAndTrim) {
  const CStringT<char> s("hello");
  const struct {
    int pos, count;
    const char* want;
  } subs[] = {{1, 3, "ell"}, {1, -1, "ello"}, {2, 99, "llo"}, {-3, 2, "he"},
              {0, 0, ""},    {5, 1, ""},      {99, 2, ""}};
  for (const auto& c : subs)
    EXPECT_EQ(s.substr(c.pos, c.count), c.want) << c.pos << "," << c.count;
  const struct {
    const char* in;
    const char* want;
  } trims[] = {{" \t\r\n\v\fa b\f\v\n\r\t ", "a b"}, {" \t\n ", ""}, {"", ""}, {"x", "x"}, {"\n x", "x"}};
  for (const auto& c : trims) {
    CStringT<char> t(c.in);
    EXPECT_EQ(t.Trim(), c.want) << "[" << c.in << "]";
  }
  CStringT<wchar_t> w(L"\t w \r\n");
  EXPECT_EQ(w.Trim(), L"w");
}

TEST(CStringT, GetBufferAndSetLength) {
  CStringT<char> s("ab");
  char* p = s.GetBuffer(6);
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(std::string(p, 2), "ab");
  std::memcpy(p + 2, "cdef", 5);  // four units and the terminator, at index minLength
  s.SetLength(99);                // clamped to the buffer
  EXPECT_EQ(s, "abcdef");
  s.SetLength(3);
  EXPECT_EQ(s, "abc");
  EXPECT_EQ(s.c_str()[3], '\0');
  s.SetLength(-1);
  EXPECT_TRUE(s.IsEmpty());
  p = s.GetBuffer(0);
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(p[0], '\0');
  CStringT<wchar_t> w(L"hello");
  EXPECT_EQ(std::wstring(w.GetBuffer(2)), L"hello");  // a smaller request keeps the contents
  w.SetLength(w.GetLength());
  EXPECT_EQ(w, L"hello");
}

}  // namespace
