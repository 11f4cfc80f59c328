// The two text encodings of the meeting side, as exact texts: what the writers produce and what the
// readers make of any text (short, long, trimmed, odd bytes, separators inside values). The host's number
// reader that the settings reader relies on: tests/strings_test.cpp.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>

#include "oEventTracker/OrboSettingPAAP.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"
#include "tests/param_names.h"

namespace {

Kst::CStringT<char> Text(const std::string& bytes) {
  return Kst::CStringT<char>(bytes);
}

// ---- Join meeting: writer.

struct JoinFormatCase {
  PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s info;
  const char* text;
};

class JoinMeetingFormat : public ::testing::TestWithParam<JoinFormatCase> {};

TEST_P(JoinMeetingFormat, WritesFourPieces) {
  EXPECT_EQ(PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString(GetParam().info).str(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, JoinMeetingFormat,
    ::testing::Values(JoinFormatCase{{1, 3, 1, 0}, "button_clicked|cancel|1|0"},
                      JoinFormatCase{{7, 2, 0, 0}, "||0|0"},
                      JoinFormatCase{{2, 1, -5, 1}, "screen_displayed|screen_displayed|1|1"},
                      JoinFormatCase{{0, 0, 0, INT32_MIN}, "||0|1"}, JoinFormatCase{{3, 4, 2, 2}, "||1|1"}),
    [](const auto& info) { return oet_test::NameOf(std::string(info.param.text)); });

// ---- Join meeting: reader. Outputs start as "old", "old", 7, 7 so that untouched ones show.

struct JoinParseCase {
  std::string text;
  const char* interaction_word;
  const char* action_word;
  int first_flag;
  int second_flag;
};

class JoinMeetingParse : public ::testing::TestWithParam<JoinParseCase> {};

TEST_P(JoinMeetingParse, WritesWhatTheTextReaches) {
  Kst::CStringT<char> interaction_word = "old";
  Kst::CStringT<char> action_word = "old";
  int first_flag = 7;
  int second_flag = 7;
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(interaction_word, action_word, first_flag,
                                                             second_flag, Text(GetParam().text));
  EXPECT_EQ(interaction_word.str(), GetParam().interaction_word);
  EXPECT_EQ(action_word.str(), GetParam().action_word);
  EXPECT_EQ(first_flag, GetParam().first_flag);
  EXPECT_EQ(second_flag, GetParam().second_flag);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, JoinMeetingParse,
    ::testing::Values(
        JoinParseCase{"screen_displayed|cancel|1|1", "screen_displayed", "cancel", 1, 1},
        JoinParseCase{"button_clicked| | 1 |yes", "button_clicked", "", 1, 0},  // trimmed, strict "1"
        JoinParseCase{"a|b|1 1|01", "a", "b", 0, 0}, JoinParseCase{"\t w \r\n|\vx\f", "w", "x", 7, 7},
        JoinParseCase{"", "old", "old", 7, 7}, JoinParseCase{"a", "a", "old", 7, 7},
        JoinParseCase{"a|b", "a", "b", 7, 7},
        JoinParseCase{"a|b|1|", "a", "b", 1, 7},  // the trailing separator ends the text
        JoinParseCase{"|x", "", "x", 7, 7}, JoinParseCase{"|", "", "old", 7, 7},
        JoinParseCase{"||||", "", "", 0, 0}, JoinParseCase{"2|1|1|1", "2", "1", 1, 1},
        JoinParseCase{"a|b|0|1|p|q|1|1", "a", "b", 0, 1},  // pieces past the fourth are dropped
        JoinParseCase{"\xC3\xA4\xF0\x9F\x98\x80|\xFF\xC3|1|1", "\xC3\xA4\xF0\x9F\x98\x80", "\xFF\xC3", 1, 1},
        JoinParseCase{std::string("a\0|b", 4), "a", "old", 7, 7},  // read up to the first NUL
        JoinParseCase{std::string("\0a", 2), "old", "old", 7, 7}),
    [](const auto& info) { return oet_test::NameOf(info.param.text); });

TEST(JoinMeetingParse, ReadsATextThatIsAlsoAnOutput) {
  Kst::CStringT<char> words = "first|second|1|1";
  int first_flag = 0;
  int second_flag = 0;
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(words, words, first_flag, second_flag, words);
  EXPECT_EQ(words.str(), "second");  // both words were read before either output was written
  EXPECT_EQ(first_flag + second_flag, 2);
}

// ---- Settings: writer.

using Setting = OrboSettingPAAP::SettingInteractInfo_s;

Setting MakeSetting(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e, const std::string& text) {
  Setting info;
  info.first_code = a, info.second_code = b, info.third_code = c, info.fourth_code = d, info.fifth_code = e;
  info.text = Text(text);
  return info;
}

std::string Shown(const Setting& s) {
  return std::to_string(s.first_code) + "/" + std::to_string(s.second_code) + "/" +
         std::to_string(s.third_code) + "/" + std::to_string(s.fourth_code) + "/" +
         std::to_string(s.fifth_code) + "/" + oet_test::Quoted(s.text.str());
}

struct SettingFormatCase {
  Setting info;
  const char* text;
};

class SettingFormat : public ::testing::TestWithParam<SettingFormatCase> {};

TEST_P(SettingFormat, WritesCodesThenText) {
  EXPECT_EQ(OrboSettingPAAP::FormatSettingInteractInfoAsString(GetParam().info).str(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SettingFormat,
    ::testing::Values(SettingFormatCase{MakeSetting(3, 12, 1, 0, 7, "night"), "3,12,1,0,7,night"},
                      SettingFormatCase{MakeSetting(-1, INT32_MIN, 0, INT32_MAX, 5, ""),
                                        "-1,-2147483648,0,2147483647,5,"},
                      SettingFormatCase{MakeSetting(1, 1, 1, 1, 1, "x,y"), "1,1,1,1,1,x,y"},
                      SettingFormatCase{MakeSetting(1, 1, 1, 1, 1, std::string("a\0b", 3)), "1,1,1,1,1,a"}),
    [](const auto& info) { return oet_test::NameOf(std::string(info.param.text)); });

// ---- Settings: reader. The record starts as 9, 9, 9, 9, 9, "old" so that untouched fields show.

struct SettingParseCase {
  std::string text;
  Setting expected;
};

class SettingParse : public ::testing::TestWithParam<SettingParseCase> {};

TEST_P(SettingParse, WritesWhatTheTextReaches) {
  Setting info = MakeSetting(9, 9, 9, 9, 9, "old");
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, Text(GetParam().text));
  EXPECT_EQ(Shown(info), Shown(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SettingParse,
    ::testing::Values(
        SettingParseCase{"3,12,1,0,7,night", MakeSetting(3, 12, 1, 0, 7, "night")},
        SettingParseCase{"3,12,1,0,7", MakeSetting(3, 12, 1, 0, 7, "old")},
        SettingParseCase{"3,12,1,0,7,",
                         MakeSetting(3, 12, 1, 0, 7, "old")},  // an empty text is never reached
        SettingParseCase{"1,2", MakeSetting(1, 2, 9, 9, 9, "old")},
        SettingParseCase{"", MakeSetting(9, 9, 9, 9, 9, "old")},
        SettingParseCase{",,,,,", MakeSetting(0, 0, 0, 0, 0, "old")},
        SettingParseCase{" 4 ,\t5\t,6,7,8,  two words  ", MakeSetting(4, 5, 6, 7, 8, "two words")},
        SettingParseCase{"1,2,3,4,5,a,b,c", MakeSetting(1, 2, 3, 4, 5, "a")},  // a comma in the text cuts it
        SettingParseCase{"-1,+2,4294967295,4294967296,7a,x", MakeSetting(0, 0, -1, 0, 0, "x")},
        SettingParseCase{"007,1 2,0x7,\xEF\xBC\x97,1,x", MakeSetting(7, 0, 0, 0, 1, "x")},
        SettingParseCase{"1,1,1,1,1,\xC3\xBCn\xC3\xAF\xF0\x9F\x98\x80",
                         MakeSetting(1, 1, 1, 1, 1, "\xC3\xBCn\xC3\xAF\xF0\x9F\x98\x80")},
        SettingParseCase{"1,1,1,1,1,a\xFF\xE2\x82", MakeSetting(1, 1, 1, 1, 1, "a\xEF\xBF\xBD\xEF\xBF\xBD")},
        SettingParseCase{"1,\xC0\xAC,1,1,1,x",
                         MakeSetting(1, 0, 1, 1, 1, "x")},  // an overlong comma is no comma
        SettingParseCase{std::string("1,1,1,1,1,x\0,y", 14), MakeSetting(1, 1, 1, 1, 1, "x")}),
    [](const auto& info) { return oet_test::NameOf(info.param.text); });

TEST(SettingParse, ReadsATextThatIsTheRecordsOwn) {
  Setting info = MakeSetting(0, 0, 0, 0, 0, "1,2,3,4,5,six");
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, info.text);
  EXPECT_EQ(Shown(info), Shown(MakeSetting(1, 2, 3, 4, 5, "six")));
}

TEST(SettingRoundTrip, GivesBackCodesTheReaderTakesAndTextsWithoutCommas) {
  for (const Setting& info :
       {MakeSetting(3, 12, 1, 0, 7, "night"), MakeSetting(INT32_MAX, 1, 0, 0, 2, "\xE6\x97\xA5 x"),
        MakeSetting(0, 0, 0, 0, 0, "")}) {
    Setting back;
    OrboSettingPAAP::ParseSettingInterfactInfoFromString(
        back, OrboSettingPAAP::FormatSettingInteractInfoAsString(info));
    EXPECT_EQ(Shown(back), Shown(info));
  }
}

}  // namespace
