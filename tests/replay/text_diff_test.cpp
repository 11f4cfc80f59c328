// The difference printed by --check, and the comparison behind it, which streams: what it holds does
// not grow with the length of the texts.
#include <sstream>

#include <gtest/gtest.h>

#include "tools/replay/text_diff.h"

namespace oet_replay {
namespace {

struct DiffCase {
  const char* name;
  std::string expected;
  std::string actual;
  size_t max_lines;
  std::string diff;
};

void PrintTo(const DiffCase& c, std::ostream* os) {
  *os << c.name;
}

class LineDiffTest : public ::testing::TestWithParam<DiffCase> {};

TEST_P(LineDiffTest, ShowsTheDifferingLinesWithTheirNumbers) {
  const DiffCase& c = GetParam();
  EXPECT_EQ(LineDiff(c.expected, c.actual, "want", "got", c.max_lines), c.diff);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LineDiffTest,
    ::testing::Values(
        DiffCase{"Equal", "a\nb\n", "a\nb\n", 80, ""},
        DiffCase{"LineEndsAndFinalNewlineIgnored", "a\r\nb\r\n", "a\nb", 80, ""},
        DiffCase{"OneChangedLine", "1\n2\n3\n4\n5\n6\n7\n", "1\n2\n3\nX\n5\n6\n7\n", 80,
                 "--- want\n+++ got\n@@ -2,5 +2,5 @@\n 2\n 3\n-4\n+X\n 5\n 6\n"},
        DiffCase{"InsertedAtStart", "b\nc\n", "a\nb\nc\n", 80,
                 "--- want\n+++ got\n@@ -1,2 +1,3 @@\n+a\n b\n c\n"},
        DiffCase{"TwoHunks", "1\n2\n3\n4\n5\n6\n7\n8\n9\n", "X\n2\n3\n4\n5\n6\n7\n8\nY\n", 80,
                 "--- want\n+++ got\n@@ -1,3 +1,3 @@\n-1\n+X\n 2\n 3\n@@ -7,3 +7,3 @@\n 7\n 8\n-9\n+Y\n"},
        DiffCase{"CutAfterMaxLines", "1\n2\n3\n", "a\nb\nc\n", 2,
                 "--- want\n+++ got\n@@ -1,3 +1,3 @@\n-1\n-2\n... and 4 more differing lines\n"},
        DiffCase{"ActualEndsEarly", "1\n2\n3\n4\n", "1\n2\n", 80,
                 "--- want\n+++ got\n@@ -1,4 +1,2 @@\n 1\n 2\n-3\n-4\n"},
        DiffCase{"ExpectedEmpty", "", "a\n", 80, "--- want\n+++ got\n@@ -1,0 +1,1 @@\n+a\n"},
        DiffCase{"LinesMovedApartByInsertedBlock", "1\n2\n3\n4\n5\n6\n7\n8\n",
                 "1\n2\nX\nY\n3\n4\n5\n6\n7\n8\n", 80,
                 "--- want\n+++ got\n@@ -1,4 +1,6 @@\n 1\n 2\n+X\n+Y\n 3\n 4\n"}),
    [](const ::testing::TestParamInfo<DiffCase>& info) { return std::string(info.param.name); });

// Numbered lines "prefix0" ... for long texts.
std::string Numbered(const std::string& prefix, size_t from, size_t to) {
  std::string text;
  for (size_t i = from; i < to; ++i)
    text += prefix + std::to_string(i) + "\n";
  return text;
}

struct Compared {
  std::string report;
  bool equal;
  size_t peak;
};

Compared Compare(const std::string& expected, const std::string& actual) {
  std::istringstream in(expected);
  std::ostringstream report;
  StreamingDiff diff(in, "want", "got", report);
  std::istringstream lines(actual);
  for (std::string line; std::getline(lines, line);)
    diff.Add(line);
  const bool equal = diff.Finish();
  return {report.str(), equal, diff.peak_lines()};
}

TEST(StreamingDiffTest, HoldsAFewLinesWhereTheTextsAgree) {
  const std::string text = Numbered("line ", 0, 200000);
  const Compared same = Compare(text, text);
  EXPECT_TRUE(same.equal);
  EXPECT_EQ(same.report, "");
  EXPECT_LE(same.peak, 8u);
}

TEST(StreamingDiffTest, FindsOneChangedLineFarIntoLongTexts) {
  const std::string expected = Numbered("line ", 0, 100000);
  const std::string actual = Numbered("line ", 0, 70000) + "changed\n" + Numbered("line ", 70001, 100000);
  const Compared result = Compare(expected, actual);
  EXPECT_EQ(result.report,
            "--- want\n+++ got\n@@ -69999,5 +69999,5 @@\n line 69998\n line 69999\n-line 70000\n+changed\n"
            " line 70001\n line 70002\n");
  EXPECT_LE(result.peak, 200u);
}

// A block longer than the first reach ahead: the texts still come back in step after it.
TEST(StreamingDiffTest, ComesBackInStepAfterALongInsertedBlock) {
  const std::string expected = Numbered("line ", 0, 20000);
  const std::string actual =
      Numbered("line ", 0, 5000) + Numbered("new ", 0, 3000) + Numbered("line ", 5000, 20000);
  const Compared result = Compare(expected, actual);
  EXPECT_EQ(result.report.substr(0, result.report.find("+new 2\n")),
            "--- want\n+++ got\n@@ -4999,4 +4999,3004 @@\n line 4998\n line 4999\n+new 0\n+new 1\n");
  EXPECT_NE(result.report.find("... and 2922 more differing lines\n"), std::string::npos) << result.report;
  EXPECT_EQ(result.report.find("-line"), std::string::npos);
}

TEST(StreamingDiffTest, HoldsAtMostAWindowWhereTheTextsNeverAgree) {
  const Compared result = Compare(Numbered("old ", 0, 150000), Numbered("new ", 0, 150000));
  EXPECT_FALSE(result.equal);
  EXPECT_NE(result.report.find("... and 299920 more differing lines\n"), std::string::npos);
  EXPECT_LE(result.peak, 2 * StreamingDiff::kWindowLines + 100);
}

}  // namespace
}  // namespace oet_replay
