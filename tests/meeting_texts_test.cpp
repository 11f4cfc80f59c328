// The two text encodings of the meeting side, as exact texts: what the writers produce and what the
// readers make of any text (short, long, trimmed, odd bytes, separators inside values). Records are
// shown as "a/b/c/..." so that one row is one line. (The host's number reader that the settings reader
// relies on: tests/strings_test.cpp.)
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <utility>

#include "oEventTracker/OrboSettingPAAP.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"

namespace {

using Setting = OrboSettingPAAP::SettingInteractInfo_s;

Setting MakeSetting(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e, const std::string& text) {
  Setting info;
  info.first_code = a, info.second_code = b, info.third_code = c, info.fourth_code = d, info.fifth_code = e;
  info.text = Kst::CStringT<char>(text);
  return info;
}

std::string Shown(const Setting& s) {
  return std::to_string(s.first_code) + "/" + std::to_string(s.second_code) + "/" +
         std::to_string(s.third_code) + "/" + std::to_string(s.fourth_code) + "/" +
         std::to_string(s.fifth_code) + "/" + s.text.str();
}

// What the join-meeting reader makes of `text`, its outputs starting as "old", "old", 7, 7 so that
// untouched ones show.
std::string ParsedJoinMeeting(const std::string& text) {
  Kst::CStringT<char> interaction_word = "old";
  Kst::CStringT<char> action_word = "old";
  int first_flag = 7;
  int second_flag = 7;
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(interaction_word, action_word, first_flag,
                                                             second_flag, Kst::CStringT<char>(text));
  return interaction_word.str() + "/" + action_word.str() + "/" + std::to_string(first_flag) + "/" +
         std::to_string(second_flag);
}

TEST(JoinMeetingText, WritesFourPieces) {
  const std::pair<PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s, const char*> cases[] = {
      {{1, 3, 1, 0}, "button_clicked|cancel|1|0"},
      {{7, 2, 0, 0}, "||0|0"},
      {{2, 1, -5, 1}, "screen_displayed|screen_displayed|1|1"},
      {{0, 0, 0, INT32_MIN}, "||0|1"},
      {{3, 4, 2, 2}, "||1|1"}};
  for (const auto& [info, text] : cases)
    EXPECT_EQ(PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString(info).str(), text);
}

TEST(JoinMeetingText, ReadsWhatTheTextReaches) {
  const std::pair<std::string, std::string> cases[] = {
      {"screen_displayed|cancel|1|1", "screen_displayed/cancel/1/1"},
      {"button_clicked| | 1 |yes", "button_clicked//1/0"},  // trimmed, strict "1"
      {"a|b|1 1|01", "a/b/0/0"},
      {"\t w \r\n|\vx\f", "w/x/7/7"},
      {"", "old/old/7/7"},
      {"a", "a/old/7/7"},
      {"a|b", "a/b/7/7"},
      {"a|b|1|", "a/b/1/7"},  // the trailing separator ends the text
      {"|x", "/x/7/7"},
      {"|", "/old/7/7"},
      {"||||", "//0/0"},
      {"2|1|1|1", "2/1/1/1"},
      {"a|b|0|1|p|q|1|1", "a/b/0/1"},  // pieces past the fourth are dropped
      {"\xC3\xA4\xF0\x9F\x98\x80|\xFF\xC3|1|1", "\xC3\xA4\xF0\x9F\x98\x80/\xFF\xC3/1/1"},
      {std::string("a\0|b", 4), "a/old/7/7"},  // read up to the first NUL
      {std::string("\0a", 2), "old/old/7/7"}};
  for (const auto& [text, parsed] : cases)
    EXPECT_EQ(ParsedJoinMeeting(text), parsed) << text;
}

TEST(JoinMeetingText, ReadsATextThatIsAlsoAnOutput) {
  Kst::CStringT<char> words = "first|second|1|1";
  int first_flag = 0;
  int second_flag = 0;
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(words, words, first_flag, second_flag, words);
  EXPECT_EQ(words.str(), "second");  // both words were read before either output was written
  EXPECT_EQ(first_flag + second_flag, 2);
}

TEST(SettingText, WritesCodesThenText) {
  const std::pair<Setting, const char*> cases[] = {
      {MakeSetting(3, 12, 1, 0, 7, "night"), "3,12,1,0,7,night"},
      {MakeSetting(-1, INT32_MIN, 0, INT32_MAX, 5, ""), "-1,-2147483648,0,2147483647,5,"},
      {MakeSetting(1, 1, 1, 1, 1, "x,y"), "1,1,1,1,1,x,y"},
      {MakeSetting(1, 1, 1, 1, 1, std::string("a\0b", 3)), "1,1,1,1,1,a"}};
  for (const auto& [info, text] : cases)
    EXPECT_EQ(OrboSettingPAAP::FormatSettingInteractInfoAsString(info).str(), text);
}

// The record starts as 9, 9, 9, 9, 9, "old" so that untouched fields show.
TEST(SettingText, ReadsWhatTheTextReaches) {
  const std::pair<std::string, std::string> cases[] = {
      {"3,12,1,0,7,night", "3/12/1/0/7/night"},
      {"3,12,1,0,7", "3/12/1/0/7/old"},
      {"3,12,1,0,7,", "3/12/1/0/7/old"},  // an empty text is never reached
      {"1,2", "1/2/9/9/9/old"},
      {"", "9/9/9/9/9/old"},
      {",,,,,", "0/0/0/0/0/old"},
      {" 4 ,\t5\t,6,7,8,  two words  ", "4/5/6/7/8/two words"},
      {"1,2,3,4,5,a,b,c", "1/2/3/4/5/a"},  // a comma in the text cuts it
      {"-1,+2,4294967295,4294967296,7a,x", "0/0/-1/0/0/x"},
      {"007,1 2,0x7,\xEF\xBC\x97,1,x", "7/0/0/0/1/x"},
      {"1,1,1,1,1,\xC3\xBCn\xC3\xAF\xF0\x9F\x98\x80", "1/1/1/1/1/\xC3\xBCn\xC3\xAF\xF0\x9F\x98\x80"},
      {"1,1,1,1,1,a\xFF\xE2\x82", "1/1/1/1/1/a\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"1,\xC0\xAC,1,1,1,x", "1/0/1/1/1/x"},  // an overlong comma is no comma
      {std::string("1,1,1,1,1,x\0,y", 14), "1/1/1/1/1/x"}};
  for (const auto& [text, parsed] : cases) {
    Setting info = MakeSetting(9, 9, 9, 9, 9, "old");
    OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, Kst::CStringT<char>(text));
    EXPECT_EQ(Shown(info), parsed) << text;
  }
}

TEST(SettingText, ReadsATextThatIsTheRecordsOwn) {
  Setting info = MakeSetting(0, 0, 0, 0, 0, "1,2,3,4,5,six");
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, info.text);
  EXPECT_EQ(Shown(info), "1/2/3/4/5/six");
}

// The writer gives back codes the reader takes, and texts without commas.
TEST(SettingText, RoundTrips) {
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
