// The difference printed by --check.
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
                 "--- want\n+++ got\n@@ -1,3 +1,3 @@\n-1\n-2\n... and 4 more differing lines\n"}),
    [](const ::testing::TestParamInfo<DiffCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace oet_replay
