// Text as the host stand-in and the library handle it: Kst::CStringT, the UTF-8 <-> wide conversions
// (ill-formed input, capacities, every kind of code point), the library's reading of host strings up to
// their first NUL, and the number helpers. Expectations are written in UTF-8 or code points, so the same
// file holds on 16-bit (Windows) and 32-bit (Linux) wchar_t.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

#include "core/host.h"
#include "core/timestamp.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_number.h"
#include "oKstPlatform/kst_string.h"
#include "tests/param_names.h"

namespace {

using Kst::CStringT;

const std::string kFffd = "\xEF\xBF\xBD";
const std::string kGrin = "\xF0\x9F\x98\x80";  // U+1F600, a surrogate pair in UTF-16
constexpr uint32_t R = 0xFFFD;

// Code points as wide text: a surrogate pair for each one above U+FFFF on 16-bit wchar_t.
std::wstring Wide(const std::vector<uint32_t>& cps) {
  std::wstring out;
  for (uint32_t cp : cps) {
    if (WCHAR_MAX <= 0xFFFF && cp > 0xFFFF) {
      out += static_cast<wchar_t>(0xD800 + ((cp - 0x10000) >> 10));
      out += static_cast<wchar_t>(0xDC00 + ((cp - 0x10000) & 0x3FF));
    } else {
      out += static_cast<wchar_t>(cp);
    }
  }
  return out;
}

// Converts with a buffer of the documented sufficient size.
template <class Out, class In>
std::basic_string<Out> Convert(const std::basic_string<In>& s) {
  std::basic_string<Out> buf((sizeof(Out) == 1 ? 4 : 1) * s.size() + 1, Out('#'));
  const int n = kst_str_convert(KST_CP_UTF8, s.data(), static_cast<int>(s.size()), &buf[0],
                                static_cast<int>(buf.size()));
  EXPECT_EQ(buf[static_cast<size_t>(n)], Out());
  return buf.substr(0, static_cast<size_t>(n));
}

struct DecodeCase {
  std::string utf8;
  std::vector<uint32_t> cps;
};
class Utf8ToWide : public testing::TestWithParam<DecodeCase> {};

TEST_P(Utf8ToWide, ReplacesEachMaximalIllFormedSubpart) {
  EXPECT_EQ(Convert<wchar_t>(GetParam().utf8), Wide(GetParam().cps));
  EXPECT_EQ(Kst::Utf8ToWide(GetParam().utf8).str(), Wide(GetParam().cps));
}

INSTANTIATE_TEST_SUITE_P(
    All, Utf8ToWide,
    testing::ValuesIn(std::vector<DecodeCase>{
        {"", {}},
        {"\x41\xC3\xA9\xE2\x82\xAC\xED\x9F\xBF", {0x41, 0xE9, 0x20AC, 0xD7FF}},
        {"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEE\x80\x80", {0x7F, 0x80, 0x7FF, 0x800, 0xE000}},
        {"\xEF\xBF\xBF\xF0\x90\x80\x80", {0xFFFF, 0x10000}},
        {"a" + kGrin + "\xF4\x8F\xBF\xBF", {0x61, 0x1F600, 0x10FFFF}},
        {std::string("a\0b", 3), {0x61, 0, 0x62}},
        {"\xC0\xAF\xC1\xBF", {R, R, R, R}},  // overlong
        {"\xE0\x80\xAF", {R, R, R}},
        {"\xF0\x8F\xBF\xBF", {R, R, R, R}},
        {"\xC3", {R}},  // truncated: one replacement for the whole prefix
        {"x\xF0\x9F\x98", {0x78, R}},
        {"\xE2\x82\x41", {R, 0x41}},
        {"\xF0\x9F\x98\xE2\x82\xAC", {R, 0x20AC}},
        {"\x41\x80\xBF\x42", {0x41, R, R, 0x42}},          // stray continuation bytes
        {"\xED\xA0\x80\xED\xBF\xBF", {R, R, R, R, R, R}},  // encoded surrogates
        {"\xF4\x90\x80\x80", {R, R, R, R}},                // above U+10FFFF
        {"\xC0\x80\xF5\x80\x80\x80\xFE\xFF", {R, R, R, R, R, R, R, R}},
        {"\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64", {0x61, R, R, R, 0x62, R, 0x63, R, R, 0x64}},
    }),
    [](const auto& info) { return oet_test::NameOf(info.param.utf8); });

// The host's conversion and the library's ToUtf8 give the same bytes; the library stops at the first NUL.
struct EncodeCase {
  std::wstring wide;
  std::string utf8;
};
class WideToUtf8 : public testing::TestWithParam<EncodeCase> {};

TEST_P(WideToUtf8, EncodesAndReplacesLoneSurrogates) {
  EXPECT_EQ(Convert<char>(GetParam().wide), GetParam().utf8);
  EXPECT_EQ(Kst::WideToUtf8(CStringT<wchar_t>(GetParam().wide)), GetParam().utf8);
  EXPECT_EQ(oet::ToUtf8(CStringT<wchar_t>(GetParam().wide)).str(),
            GetParam().utf8.substr(0, GetParam().utf8.find('\0')));
}

std::vector<EncodeCase> EncodeCases() {
  const wchar_t hi = static_cast<wchar_t>(0xD83D);
  const wchar_t lo = static_cast<wchar_t>(0xDE00);
  std::vector<EncodeCase> cases = {
      {L"", ""},
      {L"A\u00E9\u20AC\uFFFF", "A\xC3\xA9\xE2\x82\xAC\xEF\xBF\xBF"},
      {Wide({0x1F600, 0x10FFFF}), kGrin + "\xF4\x8F\xBF\xBF"},
      {std::wstring(L"a\0b", 3), std::string("a\0b", 3)},
      {{L'a', hi}, "a" + kFffd},
      {{L'a', lo, L'b'}, "a" + kFffd + "b"},
      {{lo, lo, hi, L'x'}, kFffd + kFffd + kFffd + "x"},
  };
#if WCHAR_MAX <= 0xFFFF
  cases.push_back({{hi, hi, lo, L'a', hi}, kFffd + kGrin + "a" + kFffd});
#else
  cases.push_back({{hi, lo}, kFffd + kFffd});  // the halves of a pair are two lone surrogates here
  cases.push_back({{static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)}, kFffd + kFffd});
#endif
  return cases;
}
INSTANTIATE_TEST_SUITE_P(All, WideToUtf8, testing::ValuesIn(EncodeCases()),
                         [](const auto& info) { return oet_test::NameOf(info.param.wide); });

// Narrow and wide host strings follow one rule: the text up to the first NUL, whatever its length
// (short texts are converted on the stack, long ones in the result itself).
TEST(HostText, NarrowAndWideCutAtTheFirstNul) {
  const std::string long_text(1000, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {"abc", "abc"},
      {std::string("a\0b", 3), "a"},
      {std::string("\0b", 2), ""},
      {long_text + std::string("\0b", 2), long_text},
      {std::string(62, 'y') + kGrin + "z", std::string(62, 'y') + kGrin + "z"},  // at the stack's edge
      {long_text + kGrin, long_text + kGrin}};
  for (const auto& [text, sent] : cases) {
    EXPECT_EQ(oet::TextOf(CStringT<char>(text.data(), static_cast<int>(text.size()))).str(), sent);
    EXPECT_EQ(oet::ToUtf8(Kst::Utf8ToWide(text)).str(), sent);
  }
}

// Texts the library makes share one buffer per thread, one text at a time: texts alive together (two in
// one call's arguments, a host calling back into the library from inside an entity operation) each keep
// their own, short and long, on the stack or past it, and past the size the buffer keeps.
TEST(MadeText, TextsAliveTogetherKeepTheirOwn) {
  const auto utf8 = [](const std::string& text) { return oet::ToUtf8(Kst::Utf8ToWide(text)); };
  const std::string texts[] = {std::string(20, 'a'), std::string(300, 'b'), "short", std::string(5000, 'c'),
                               std::string(16, 'd')};
  for (const std::string& first : texts) {
    const auto& outer = utf8(first);
    for (const std::string& second : texts) {
      const auto& inner = utf8(second);
      oet::MadeText time;
      oet::FormatUtcTimestamp(Kst::Time::FromUnixMicroseconds(1709210096007000), time);
      EXPECT_EQ(inner.str(), second);
      EXPECT_EQ(time.str(), "2024-02-29T12:34:56.007Z");
      EXPECT_EQ(outer.str(), first);
    }
    // The buffer is free again once the inner texts are gone: the next long text is whole.
    EXPECT_EQ(utf8(first + "!").str(), first + "!");
  }
}

TEST(KstStrConvert, BadArgumentsGiveZeroAndTerminate) {
  char out[4] = "xxx";
  wchar_t wout[4] = L"xxx";
  EXPECT_EQ(kst_str_convert(1252, L"abc", 3, out, 4) + kst_str_convert(1252, "abc", 3, wout, 4), 0);
  EXPECT_TRUE(out[0] == '\0' && wout[0] == L'\0');
  out[0] = 'x';
  wout[0] = L'x';
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, static_cast<const wchar_t*>(nullptr), 3, out, 4), 0);
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, static_cast<const char*>(nullptr), 3, wout, 4), 0);
  EXPECT_TRUE(out[0] == '\0' && wout[0] == L'\0');
  out[0] = 'x';
  EXPECT_EQ(
      kst_str_convert(KST_CP_UTF8, L"abc", 3, out, -1) + kst_str_convert(KST_CP_UTF8, L"abc", 3, out, 0), 0);
  EXPECT_EQ(out[0], 'x');
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, L"abc", 3, static_cast<char*>(nullptr), 4), 0);
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, L"a\0c", -1, out, 4), 1);  // -1 stops at the first NUL
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, "a\0c", -1, wout, 4), 1);
}

// For every capacity: a terminated prefix of the full result, nothing written past the capacity, no
// character split, and the next character really does not fit. `char_len` gives the length of the
// character starting at a unit of the full result (0 for a unit inside a character).
template <class Out, class In>
void CheckCapacities(const std::basic_string<In>& src, const std::function<int(uint32_t)>& char_len) {
  const std::basic_string<Out> full = Convert<Out>(src);
  for (int cap = 0; cap <= static_cast<int>(full.size()) + 2; ++cap) {
    SCOPED_TRACE(cap);
    std::basic_string<Out> out(static_cast<size_t>(cap) + 2, Out('#'));
    const int n = kst_str_convert(KST_CP_UTF8, src.data(), static_cast<int>(src.size()), &out[0], cap);
    EXPECT_EQ(out.substr(static_cast<size_t>(cap)), std::basic_string<Out>(2, Out('#')));
    if (cap == 0) continue;
    ASSERT_LT(n, cap);
    EXPECT_EQ(out.substr(0, static_cast<size_t>(n) + 1), full.substr(0, static_cast<size_t>(n)) + Out());
    if (static_cast<size_t>(n) == full.size()) continue;
    const int next =
        char_len(static_cast<uint32_t>(full[static_cast<size_t>(n)]) & (sizeof(Out) == 1 ? 0xFF : ~0u));
    EXPECT_NE(next, 0) << "split inside a character";
    EXPECT_GT(n + next + 1, cap) << "stopped although the next character fits";
  }
}

TEST(KstStrConvert, CapacityNeverSplitsACharacter) {
  const std::string utf8 = "\x61\xC3\xA9\xE2\x82\xAC" + kGrin + "\x62\xE2\x82" + kGrin;
  CheckCapacities<wchar_t>(utf8, [](uint32_t u) {
    return u >= 0xDC00 && u <= 0xDFFF ? 0 : u >= 0xD800 && u <= 0xDBFF ? 2 : 1;
  });
  CheckCapacities<char>(Convert<wchar_t>(utf8), [](uint32_t b) {
    return b < 0x80 ? 1 : b < 0xC0 ? 0 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
  });
}

// Long texts convert as one piece wherever their characters, whole or broken, fall.
TEST(KstStrConvert, LongTextsConvertAsAWhole) {
  for (const char* piece : {"\xF0\x9F\x98\x80", "\xE2\x82\xAC\x61", "\xF0\x9F\x98", "\xE2\x82\x80\x80\x80"}) {
    for (size_t pad = 0; pad < 4; ++pad) {
      std::string utf8(pad, 'x');
      while (utf8.size() < 100000)
        utf8 += piece;
      const std::wstring wide = Convert<wchar_t>(utf8);
      EXPECT_EQ(Kst::Utf8ToWide(utf8).str(), wide) << pad;
      EXPECT_EQ(Kst::WideToUtf8(CStringT<wchar_t>(wide)), Convert<char>(wide)) << pad;
    }
  }
}

// The host's number reader, narrow and wide alike (the settings reader uses it on wide text, base 10).
// A value that is not taken leaves the output as it was.
struct UIntCase {
  std::string text;  // UTF-8
  int base;
  bool ok;
  uint32_t value;
};
class StringToUInt : public testing::TestWithParam<UIntCase> {};

TEST_P(StringToUInt, AcceptsOnlyWholeAsciiDigitRunsThatFit) {
  const UIntCase& c = GetParam();
  uint32_t narrow = 12345, wide = 12345;
  EXPECT_EQ(Kst::StringToUInt(CStringT<char>(c.text.c_str()), &narrow, c.base), c.ok);
  EXPECT_EQ(Kst::StringToUInt(Kst::Utf8ToWide(c.text), &wide, c.base), c.ok);
  EXPECT_EQ(narrow, c.ok ? c.value : 12345u);
  EXPECT_EQ(wide, c.ok ? c.value : 12345u);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, StringToUInt, testing::ValuesIn(std::vector<UIntCase>{
    {"0", 10, true, 0},           {"4294967295", 10, true, UINT32_MAX}, {"04294967295", 10, true, UINT32_MAX},
    {"4294967296", 10, false, 0}, {"99999999999", 10, false, 0},        {"", 10, false, 0},
    {"-1", 10, false, 0},         {"-0", 10, false, 0},                 {"+1", 10, false, 0},
    {" 1", 10, false, 0},         {"1 ", 10, false, 0},                 {"7a", 10, false, 0},
    {"ff", 16, true, 255},        {"FF", 16, true, 255},                {"ff", 10, false, 0},
    {"0x10", 16, false, 0},       {"ffffffff", 16, true, UINT32_MAX},   {"100000000", 16, false, 0},
    {"101", 2, true, 5},          {"2", 2, false, 0},                   {"Zz", 36, true, 1295},
    {"1", 1, false, 0},           {"1", 37, false, 0},                  {"\xB1", 10, false, 0},
    {"\xC4\xB1", 10, false, 0} /* U+0131: not '1' by its low bits */,
    {"\xEF\xBC\x91", 10, false, 0} /* fullwidth 1 */, {"\xD9\xA3", 10, false, 0} /* Arabic-Indic 3 */}),
    [](const auto& info) {
      return oet_test::NameOf(info.param.text) + "_Base" + std::to_string(info.param.base);
    });
// clang-format on

TEST(KstNumber, NullOutputAndTheWholeInt64Range) {
  EXPECT_FALSE(Kst::StringToUInt(CStringT<char>("1"), nullptr, 10));
  EXPECT_EQ(Kst::Int64ToString(0), "0");
  EXPECT_EQ(Kst::Int64ToString(-1), "-1");
  EXPECT_EQ(Kst::Int64ToString(1000000), "1000000");
  EXPECT_EQ(Kst::Int64ToString(INT64_MAX), "9223372036854775807");
  EXPECT_EQ(Kst::Int64ToString(INT64_MIN), "-9223372036854775808");
}

TEST(CStringT, ConstructionAndComparison) {
  const char* null_s = nullptr;
  EXPECT_STREQ(CStringT<char>(null_s).c_str(), "");
  EXPECT_TRUE(CStringT<char>(null_s, 5).IsEmpty());
  EXPECT_EQ(CStringT<char>("a\0b", 3).GetLength(), 3);
  EXPECT_EQ(CStringT<char>("ab\0c", -1), "ab");
  EXPECT_TRUE(CStringT<char>() == null_s && CStringT<char>("x") != null_s && "x" == CStringT<char>("x"));
  EXPECT_NE(CStringT<char>("a\0b", 3), CStringT<char>("a\0c", 3));
  CStringT<wchar_t> w;
  w = L"wide";
  EXPECT_EQ(w, L"wide");
  w = static_cast<const wchar_t*>(nullptr);
  EXPECT_TRUE(w.IsEmpty());
}

TEST(CStringT, FindAndRfind) {
  const CStringT<char> s("abcabc");
  const struct {
    const char* needle;
    int start, found;
  } cases[] = {{"bc", 0, 1},  {"bc", 2, 4}, {"bc", -5, 1}, {"x", 0, -1},    {"abc", 4, -1},
               {"c", 99, -1}, {"", 6, 6},   {"", 7, -1},   {nullptr, 0, -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(s.find(c.needle, c.start), c.found) << (c.needle ? c.needle : "null") << " " << c.start;
    if (!c.needle) continue;
    EXPECT_EQ(s.find(CStringT<char>(c.needle), c.start), c.found) << c.needle;
  }
  EXPECT_EQ(s.rfind("bc"), 4);
  EXPECT_EQ(s.rfind(CStringT<char>("ab")), 3);
  EXPECT_EQ(s.rfind("abcabcd"), -1);
  EXPECT_EQ(s.rfind(static_cast<const char*>(nullptr)), -1);
  EXPECT_EQ(CStringT<wchar_t>(L"x\u00E9y\u00E9").rfind(L"\u00E9"), 3);
}

TEST(CStringT, SubstrAndTrim) {
  const struct {
    int pos, count;
    const char* want;
  } subs[] = {{1, 3, "ell"}, {1, -1, "ello"}, {2, 99, "llo"}, {-3, 2, "he"},
              {0, 0, ""},    {5, 1, ""},      {99, 2, ""}};
  for (const auto& c : subs)
    EXPECT_EQ(CStringT<char>("hello").substr(c.pos, c.count), c.want) << c.pos;
  const struct {
    const char* in;
    const char* want;
  } trims[] = {{" \t\r\n\v\fa b\f\v\n\r\t ", "a b"}, {" \t\n ", ""}, {"", ""}, {"x", "x"}, {"\n x", "x"}};
  for (const auto& c : trims)
    EXPECT_EQ(CStringT<char>(c.in).Trim(), c.want) << "[" << c.in << "]";
  EXPECT_EQ(CStringT<wchar_t>(L"\t w \r\n").Trim(), L"w");
}

TEST(CStringT, GetBufferAndSetLength) {
  CStringT<char> s("ab");
  char* p = s.GetBuffer(6);
  EXPECT_EQ(std::string(p, 2), "ab");
  std::memcpy(p + 2, "cdef", 5);  // four units and the terminator, at index minLength
  s.SetLength(99);                // clamped to the buffer
  EXPECT_EQ(s, "abcdef");
  s.SetLength(3);
  EXPECT_TRUE(s == "abc" && s.c_str()[3] == '\0');
  s.SetLength(-1);
  EXPECT_TRUE(s.IsEmpty());
  EXPECT_EQ(s.GetBuffer(0)[0], '\0');
  CStringT<wchar_t> w(L"hello");
  EXPECT_EQ(std::wstring(w.GetBuffer(2)), L"hello");  // a smaller request keeps the contents
  w.SetLength(w.GetLength());
  EXPECT_EQ(w, L"hello");
}

}  // namespace
