// A readable, line-oriented difference between an expected text and an actual one, in the unified
// style: hunks headed "@@ -LINE,COUNT +LINE,COUNT @@" with two lines of context, "-" for expected lines
// that are missing and "+" for actual lines that are new. Line ends "\r\n" and "\n" compare equal, and
// so do texts that differ only in a final line end.
//
// The comparison streams: actual lines are handed over one at a time as they are produced, expected
// lines are read as they are needed, and what is held at once is bounded by a window (kWindowLines
// lines, kWindowBytes bytes of each side), not by the length of the texts. Where the texts agree,
// lines are compared one to one and nothing is kept but the two lines of context. Where they part,
// both sides are read ahead (64 lines, then twice as many, up to the window) until five equal lines
// in a row put them back in step: the run that needs the fewest lines skipped on both sides together.
// The lines before it are aligned by a longest common subsequence (or shown as replaced where that
// would be too large). A difference longer than the window is shown half a window at a time. At most
// `max_lines` lines of hunks are shown; the differing lines after that are only counted
// ("... and N more differing lines").
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
  static constexpr size_t kWindowLines = size_t{1} << 16;
  static constexpr size_t kWindowBytes = size_t{16} << 20;

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
  void Advance(bool final);
  bool WindowFull() const;
  bool Realign(bool final, bool forced);
  void EmitAligned(size_t n, size_t m);
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
  size_t a_bytes_ = 0;                 // the text held in a_pending_
  size_t b_bytes_ = 0;
  size_t a_next_ = 0;  // number of expected lines matched so far
  size_t b_next_ = 0;
  bool expected_done_ = false;
  bool diverged_ = false;
  size_t reach_ = 0;  // lines of each side read ahead while apart

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
