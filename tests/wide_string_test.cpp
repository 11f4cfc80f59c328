// Wide text that leaves the library as the same UTF-8 bytes whether wchar_t is UTF-16 (Windows) or
// UTF-32 (Linux): characters outside the Basic Multilingual Plane, ill-formed input and empty strings,
// through the host conversion, the library's own ToUtf8 and a whole event. Every expectation is
// written in UTF-8 bytes, so this one file holds on both platforms; only the number of wide units a
// text takes differs, by design, and is checked per platform.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cwchar>
#include <string>

#include "core/host.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/system_info.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

namespace oet_testing {
namespace {

constexpr bool kUtf16 = WCHAR_MAX <= 0xFFFF;
const std::string kReplacement = "\xEF\xBF\xBD";
const std::string kGrinning = "\xF0\x9F\x98\x80";  // U+1F600, a surrogate pair in UTF-16
const std::string kLastCodePoint = "\xF4\x8F\xBF\xBF";

struct RoundTrip {
  const char* name;
  std::string utf8_in;
  std::string utf8_out;  // after UTF-8 -> wide -> UTF-8
  int utf16_units;       // wide length where wchar_t is 16 bits
  int utf32_units;       // wide length where wchar_t is 32 bits
};

void PrintTo(const RoundTrip& c, std::ostream* os) {
  *os << c.name << " " << oet_test::Quoted(c.utf8_in);
}

class WideRoundTripTest : public testing::TestWithParam<RoundTrip> {};

TEST_P(WideRoundTripTest, SameBytesOnEveryPlatform) {
  const RoundTrip& c = GetParam();
  const Kst::CStringT<wchar_t> wide = Kst::Utf8ToWide(c.utf8_in);
  EXPECT_EQ(wide.GetLength(), kUtf16 ? c.utf16_units : c.utf32_units);
  EXPECT_EQ(Kst::WideToUtf8(wide), c.utf8_out);
  // The library reads host strings up to their first NUL, wide ones as narrow ones.
  EXPECT_EQ(oet::ToUtf8(wide), c.utf8_out.substr(0, c.utf8_out.find('\0')));
  EXPECT_EQ(wide.IsEmpty(), c.utf8_in.empty());
}

INSTANTIATE_TEST_SUITE_P(
    All, WideRoundTripTest,
    testing::Values(
        RoundTrip{"Empty", "", "", 0, 0}, RoundTrip{"Ascii", "switch_tab", "switch_tab", 10, 10},
        RoundTrip{"TwoAndThreeBytes", "caf\xC3\xA9 \xE2\x82\xAC", "caf\xC3\xA9 \xE2\x82\xAC", 6, 6},
        RoundTrip{"LastBmpAndFirstSupplementary", "\xEF\xBF\xBF\xF0\x90\x80\x80",
                  "\xEF\xBF\xBF\xF0\x90\x80\x80", 3, 2},
        RoundTrip{"SupplementaryBetweenAscii", "a" + kGrinning + "b", "a" + kGrinning + "b", 4, 3},
        RoundTrip{"AdjacentPairs", kGrinning + kLastCodePoint, kGrinning + kLastCodePoint, 4, 2},
        RoundTrip{"EmbeddedNul", std::string("a\0", 2) + kGrinning, std::string("a\0", 2) + kGrinning, 4, 3},
        RoundTrip{"EncodedSurrogateHalf", "\xED\xA0\xBD", kReplacement + kReplacement + kReplacement, 3, 3},
        RoundTrip{"SupplementaryCutShortAtEnd", "x\xF0\x9F\x98", "x" + kReplacement, 2, 2},
        RoundTrip{"OverlongAndOutOfRange", "\xC0\x80\xF5", kReplacement + kReplacement + kReplacement, 3, 3}),
    [](const testing::TestParamInfo<RoundTrip>& info) { return std::string(info.param.name); });

// Narrow and wide host strings follow one rule: the text up to the first NUL, whatever its length
// (short texts are converted on the stack, long ones in the result itself).
struct NulCase {
  const char* name;
  std::string utf8;
  std::string sent;
};

void PrintTo(const NulCase& c, std::ostream* os) {
  *os << c.name;
}

class NulRuleTest : public testing::TestWithParam<NulCase> {};

TEST_P(NulRuleTest, NarrowAndWideCutAtTheFirstNul) {
  const NulCase& c = GetParam();
  EXPECT_EQ(oet::TextOf(Kst::CStringT<char>(c.utf8.data(), static_cast<int>(c.utf8.size()))).str(), c.sent);
  EXPECT_EQ(oet::ToUtf8(Kst::Utf8ToWide(c.utf8)), c.sent);
}

const std::string kLong(1000, 'x');
INSTANTIATE_TEST_SUITE_P(
    All, NulRuleTest,
    testing::Values(NulCase{"NoNul", "abc", "abc"}, NulCase{"NulInside", std::string("a\0b", 3), "a"},
                    NulCase{"NulFirst", std::string("\0b", 2), ""},
                    NulCase{"LongWithNulLate", kLong + std::string("\0b", 2), kLong},
                    NulCase{"SupplementaryAtStackEdge", std::string(62, 'y') + "\xF0\x9F\x98\x80z",
                            std::string(62, 'y') + "\xF0\x9F\x98\x80z"},
                    NulCase{"LongSupplementary", kLong + "\xF0\x9F\x98\x80", kLong + "\xF0\x9F\x98\x80"}),
    [](const testing::TestParamInfo<NulCase>& info) { return std::string(info.param.name); });

// Wide units that are not well-formed text: a surrogate without its partner means the same broken
// text on both platforms and becomes one U+FFFD each.
struct BrokenWide {
  const char* name;
  std::wstring wide;
  std::string utf8;
};

void PrintTo(const BrokenWide& c, std::ostream* os) {
  *os << c.name << " " << oet_test::Quoted(c.wide);
}

class BrokenWideTest : public testing::TestWithParam<BrokenWide> {};

TEST_P(BrokenWideTest, LoneSurrogatesBecomeReplacementCharacters) {
  EXPECT_EQ(oet::ToUtf8(Kst::CStringT<wchar_t>(GetParam().wide)), GetParam().utf8);
  EXPECT_EQ(Kst::WideToUtf8(Kst::CStringT<wchar_t>(GetParam().wide)), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(
    All, BrokenWideTest,
    testing::Values(BrokenWide{"HighAtEnd", std::wstring(L"a") + wchar_t(0xD83D), "a" + kReplacement},
                    BrokenWide{"LowAlone", std::wstring(1, wchar_t(0xDE00)) + L"b", kReplacement + "b"},
                    BrokenWide{
                        "PairReversed", {wchar_t(0xDE00), wchar_t(0xD83D)}, kReplacement + kReplacement},
                    BrokenWide{"HighBeforeAscii", {wchar_t(0xD83D), L'x'}, kReplacement + "x"}),
    [](const testing::TestParamInfo<BrokenWide>& info) { return std::string(info.param.name); });

TEST(WideConversion, HostConversionCountsBytesAlike) {
  // "a" + U+1F600: 5 UTF-8 bytes on both platforms, from 3 UTF-16 units or 2 UTF-32 units.
  const Kst::CStringT<wchar_t> wide = Kst::Utf8ToWide("a" + kGrinning);
  char out[8] = {};
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, wide.c_str(), -1, out, sizeof(out)), 5);
  EXPECT_EQ(std::string(out), "a" + kGrinning);
  // Room for "a" and half a pair is not room for the character: it is left out whole.
  EXPECT_EQ(kst_str_convert(KST_CP_UTF8, wide.c_str(), -1, out, 4), 1);
  EXPECT_EQ(std::string(out), "a");
}

// A machine fact travels as wide text from the system-information library into the client entity:
// the event carries the same bytes on both platforms, and an empty fact still takes its field's rule.
using WideEventTest = HostTest;

TEST_F(WideEventTest, SupplementaryAndBrokenFactsReachTheEventUnchanged) {
  KstHost::OverrideSystemFact(KstHost::SystemFact::kSystemProductName, "Caf\xC3\xA9 " + kGrinning);
  KstHost::OverrideSystemFact(KstHost::SystemFact::kGPUModel, "gpu\xF0\x9F\x98");
  KstHost::OverrideSystemFact(KstHost::SystemFact::kRegionName, "");
  OrboPTPAAP::PTInteractInfo_s info;
  info.first_tab = 1;
  info.second_tab = 3;
  ASSERT_EQ(OrboPTPAAP::TrackingPTInteractEvent({}, info), 1);
  EXPECT_THAT(Calls(), testing::IsSupersetOf({
                           "#1 DeviceInfo.1 SetDeviceProduct \"Caf\xC3\xA9 " + kGrinning + "\"",
                           "#1 ClientEntity.2 SetGpuModel \"gpu" + kReplacement + "\"",
                           std::string("#1 ClientEntity.9 ClearRegion"),
                       }));
}

}  // namespace
}  // namespace oet_testing
