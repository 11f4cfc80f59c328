// The script line reader: keys in the order written, a key given twice reported by its path, numbers
// beyond a double reported as malformed JSON, and objects of any size read in one pass.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/replay/json_reader.h"

namespace oet_replay {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using namespace std::string_literals;

struct LineCase {
  const char* name;
  std::string line;
  std::vector<std::string> messages;
};

void PrintTo(const LineCase& c, std::ostream* os) {
  *os << c.line;
}

class ParseLineTest : public ::testing::TestWithParam<LineCase> {};

TEST_P(ParseLineTest, ReportsEveryProblemOfTheLine) {
  Json value;
  Issues issues;
  EXPECT_EQ(ParseLine(GetParam().line, value, issues), GetParam().messages.empty());
  EXPECT_THAT(issues.messages(), ElementsAreArray(GetParam().messages));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ParseLineTest,
    ::testing::Values(
        LineCase{"Valid", R"({"call": "x", "info": {"a": [1, {"b": 2}], "c": -0.5e3}})", {}},
        LineCase{"SameKeyInOtherObjects", R"({"a": {"k": 1}, "b": {"k": 2}, "k": [{"k": 3}, {"k": 4}]})", {}},
        LineCase{"TopLevelKeyTwice",
                 R"({"call": "x", "call": "y"})",
                 {"field \"call\": given twice in one object"}},
        LineCase{"NestedKeyTwice",
                 R"({"info": {"first_tab": 1, "second_tab": 2, "first_tab": 3}})",
                 {"field \"info.first_tab\": given twice in one object"}},
        LineCase{"KeyTwiceInAListEntry",
                 R"({"info": {"list": [{"n": 1}, {"n": 2, "n": 3}]}})",
                 {"field \"info.list[1].n\": given twice in one object"}},
        LineCase{"KeyThreeTimes",
                 R"({"a": 1, "a": 2, "a": 3})",
                 {"field \"a\": given twice in one object", "field \"a\": given twice in one object"}},
        LineCase{"NumberBeyondADouble",
                 R"({"info": {"x": 1e400}})",
                 {"malformed JSON: number out of range at line 1, column 20: 1e400"}},
        LineCase{"NegativeNumberBeyondADouble",
                 R"([-2e308])",
                 {"malformed JSON: number out of range at line 1, column 7: -2e308"}},
        LineCase{
            "SyntaxError",
            R"({"a": })",
            {"malformed JSON: parse error at line 1, column 7: syntax error while parsing value - unexpected "
             "'}'; expected '[', '{', or a literal"}},
        // A NUL byte is a wrong line wherever it stands, not the end of the line.
        LineCase{
            "NulAfterAValue", "{\"a\": 1}\0garbage"s, {"malformed JSON: a NUL byte at line 1, column 9"}},
        LineCase{
            "NulInsideAString", "{\"a\": \"x\0y\"}"s, {"malformed JSON: a NUL byte at line 1, column 9"}},
        // Ill-formed bytes in a message are escaped, so that the error stream stays UTF-8.
        LineCase{
            "IllFormedBytesEscaped",
            "{\"a\": \"\xC3\x28\"}",
            {"malformed JSON: parse error at line 1, column 9: syntax error while parsing value - invalid "
             "string: ill-formed UTF-8 byte; last read: '\"\\xC3('"}},
        LineCase{
            "TrailingText",
            R"({} {})",
            {"malformed JSON: parse error at line 1, column 4: syntax error while parsing value - unexpected "
             "'{'; expected end of input"}}),
    [](const ::testing::TestParamInfo<LineCase>& info) { return std::string(info.param.name); });

// Nesting is refused past kMaxNesting levels, at the member that goes deeper, so that a line of
// brackets cannot make the reader take memory without end.
TEST(ParseLineTest, RefusesNestingPastTheLimit) {
  const auto nested = [](int levels) {
    std::string line;
    for (int i = 0; i < levels; ++i)
      line += i == 0 ? "{\"a\": " : i % 2 == 1 ? "[" : "{\"a\": ";
    line += "1";
    for (int i = levels - 1; i >= 0; --i)
      line += i % 2 == 1 ? "]" : "}";
    return line;
  };
  Json value;
  Issues issues;
  EXPECT_TRUE(ParseLine(nested(kMaxNesting), value, issues));
  EXPECT_FALSE(ParseLine(nested(kMaxNesting + 1), value, issues));
  std::string path = "a";
  for (int i = 1; i < kMaxNesting; ++i)
    path += i % 2 == 1 ? "[0]" : ".a";
  EXPECT_THAT(issues.messages(), ElementsAre("field \"" + path + "\": nested deeper than 64 levels"));
}

TEST(ParseLineTest, KeepsKeysInTheOrderWritten) {
  Json value;
  Issues issues;
  ASSERT_TRUE(ParseLine(R"({"z": 1, "a": {"y": true, "b": null}, "m": [3, "t"]})", value, issues));
  std::vector<std::string> keys;
  for (auto it = value.begin(); it != value.end(); ++it)
    keys.push_back(it.key());
  EXPECT_THAT(keys, ElementsAre("z", "a", "m"));
  EXPECT_EQ(value.dump(), R"({"z":1,"a":{"y":true,"b":null},"m":[3,"t"]})");
}

// Half a million keys in one object: read in one pass (an insertion that searched the keys already
// read would take minutes; ctest's time limit for this suite catches that).
TEST(ParseLineTest, ReadsAnObjectWithHalfAMillionKeys) {
  constexpr int kKeys = 500000;
  std::string line = "{\"host\": \"short_keys\", \"table\": {";
  for (int i = 0; i < kKeys; ++i)
    line += (i == 0 ? "\"k" : ", \"k") + std::to_string(i) + "\": \"v" + std::to_string(i) + "\"";
  line += "}}";
  Json value;
  Issues issues;
  ASSERT_TRUE(ParseLine(line, value, issues));
  const Json& table = value["table"];
  ASSERT_EQ(table.size(), static_cast<size_t>(kKeys));
  EXPECT_EQ(table.begin().key(), "k0");
  EXPECT_EQ((--table.end()).key(), "k499999");
  EXPECT_EQ((--table.end()).value(), "v499999");
  EXPECT_THAT(issues.messages(), IsEmpty());
}

}  // namespace
}  // namespace oet_replay
