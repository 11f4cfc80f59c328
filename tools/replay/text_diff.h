// A readable, line-oriented difference between an expected text and an actual one, in the unified
// style: hunks headed "@@ -LINE,COUNT +LINE,COUNT @@" with two lines of context, "-" for expected lines
// that are missing and "+" for actual lines that are new. Line ends "\r\n" and "\n" compare equal, and
// so do texts that differ only in a final line end.
//
// The comparison streams: actual lines are handed over one at a time as they are produced, expected
// lines are read as they are needed, and what is held at once is bounded by a window of lines, not by
// the length of the texts. Where the texts agree, lines are compared one to one and nothing is kept
// but the two lines of context. Where they part, up to a window of lines of each side is aligned by a
// longest common subsequence; the texts are back in step at the first run of five equal lines, and a
// difference longer than the window is shown window by window. At most `max_lines` lines of hunks are
// shown; the differing lines after that are only counted ("... and N more differing lines").
#pragma once

#include <cstddef>
#include <deque>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace oet_replay {

class StreamingDiff {
 public:
  // Lines aligned at once while the difference is still being shown, and once only counted.
  static constexpr size_t kShowWindow = 1024;
  static constexpr size_t kCountWindow = 64;

  // Compares against the text read from `expected`; the difference goes to `report`, starting with the
  // "--- EXPECTED_NAME" and "+++ ACTUAL_NAME" lines at the first difference.
  StreamingDiff(std::istream& expected, std::string expected_name, std::string actual_name,
                std::ostream& report, size_t max_lines = 80);

  // The next actual line, without its line end.
  void Add(std::string line);
  // Ends the actual text; the expected lines left are missing ones. Returns whether the texts are equal.
  bool Finish();

  // The most lines held at once so far (both sides, hunk text included).
  size_t peak_lines() const { return peak_lines_; }

 private:
  struct Edit {
    char op;      // ' ', '-' or '+'
    size_t a, b;  // 0-based line numbers in expected and actual at this point
    std::string text;
  };

  bool ReadExpected(std::string& line);
  bool NextExpected(std::string& line);
  size_t Window() const;
  void Advance(bool final);
  void AlignWindow(bool final);
  void Emit(Edit edit);
  void AddToHunk(Edit edit);
  void CloseHunk();
  void ShowFileHeader();
  void NoteHeld();

  std::istream& expected_;
  std::string expected_name_;
  std::string actual_name_;
  std::ostream& report_;
  size_t max_lines_;

  // Producing edits.
  std::deque<std::string> a_pending_;  // expected lines read but not yet matched
  std::deque<std::string> b_pending_;  // actual lines handed over but not yet matched
  size_t a_next_ = 0;                  // number of expected lines matched so far
  size_t b_next_ = 0;
  bool expected_done_ = false;
  bool diverged_ = false;

  // Turning edits into hunks.
  std::deque<Edit> before_;     // up to two equal lines before the next change
  std::vector<Edit> trailing_;  // equal lines after the last change of the open hunk
  bool hunk_open_ = false;
  size_t hunk_a_ = 0, hunk_b_ = 0, hunk_a_count_ = 0, hunk_b_count_ = 0;
  std::vector<std::string> hunk_text_;  // the lines of the open hunk that are shown
  bool hunk_header_shown_ = false;      // its first line is within the shown lines
  size_t shown_ = 0;
  size_t hidden_ = 0;
  bool differs_ = false;
  bool file_header_shown_ = false;
  size_t peak_lines_ = 0;
};

// The difference of two whole texts; empty when they are equal.
std::string LineDiff(const std::string& expected, const std::string& actual, const std::string& expected_name,
                     const std::string& actual_name, size_t max_lines = 80);

}  // namespace oet_replay
