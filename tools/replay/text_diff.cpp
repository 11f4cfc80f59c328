#include "tools/replay/text_diff.h"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <utility>

namespace oet_replay {
namespace {

constexpr size_t kContext = 2;
// Equal lines in a row after a difference that put the texts back in step.
constexpr size_t kResync = 2 * kContext + 1;

void DropCarriageReturn(std::string& line) {
  if (!line.empty() && line.back() == '\r') line.pop_back();
}

// The edit script between a[0, n) and b[0, m) by a longest common subsequence: ' ' keeps a line of
// both, '-' drops a line of a, '+' adds a line of b.
std::vector<char> Align(const std::deque<std::string>& a, size_t n, const std::deque<std::string>& b,
                        size_t m) {
  // lcs[i * (m + 1) + j]: length of the common subsequence of a[i, n) and b[j, m).
  std::vector<uint32_t> lcs((n + 1) * (m + 1), 0);
  const auto at = [m](size_t i, size_t j) { return i * (m + 1) + j; };
  for (size_t i = n; i-- > 0;) {
    for (size_t j = m; j-- > 0;)
      lcs[at(i, j)] =
          a[i] == b[j] ? lcs[at(i + 1, j + 1)] + 1 : std::max(lcs[at(i + 1, j)], lcs[at(i, j + 1)]);
  }
  std::vector<char> ops;
  size_t i = 0;
  size_t j = 0;
  while (i < n || j < m) {
    if (i < n && j < m && a[i] == b[j]) {
      ops.push_back(' ');
      ++i;
      ++j;
    } else if (j == m || (i < n && lcs[at(i + 1, j)] >= lcs[at(i, j + 1)])) {
      ops.push_back('-');
      ++i;
    } else {
      ops.push_back('+');
      ++j;
    }
  }
  return ops;
}

}  // namespace

StreamingDiff::StreamingDiff(std::istream& expected, std::string expected_name, std::string actual_name,
                             std::ostream& report, size_t max_lines)
    : expected_(expected),
      expected_name_(std::move(expected_name)),
      actual_name_(std::move(actual_name)),
      report_(report),
      max_lines_(max_lines) {}

void StreamingDiff::Add(std::string line) {
  DropCarriageReturn(line);
  b_pending_.push_back(std::move(line));
  NoteHeld();
  Advance(false);
}

bool StreamingDiff::Finish() {
  Advance(true);
  if (hunk_open_) CloseHunk();
  if (differs_ && !file_header_shown_) ShowFileHeader();
  if (hidden_ > 0) report_ << "... and " << hidden_ << " more differing lines\n";
  return !differs_;
}

bool StreamingDiff::ReadExpected(std::string& line) {
  if (expected_done_ || !std::getline(expected_, line)) {
    expected_done_ = true;
    return false;
  }
  DropCarriageReturn(line);
  return true;
}

bool StreamingDiff::NextExpected(std::string& line) {
  if (a_pending_.empty()) return ReadExpected(line);
  line = std::move(a_pending_.front());
  a_pending_.pop_front();
  return true;
}

void StreamingDiff::Advance(bool final) {
  for (;;) {
    if (!diverged_) {
      // In step: one line of each side at a time.
      std::string line;
      while (!b_pending_.empty()) {
        if (!NextExpected(line)) {
          diverged_ = true;
          break;
        }
        if (line != b_pending_.front()) {
          a_pending_.push_front(std::move(line));
          diverged_ = true;
          break;
        }
        b_pending_.pop_front();
        Emit({' ', a_next_++, b_next_++, std::move(line)});
      }
      if (!diverged_) {
        if (!final || !NextExpected(line)) return;
        a_pending_.push_front(std::move(line));  // expected lines beyond the end of the actual text
        diverged_ = true;
      }
    }
    const size_t window = Window();
    if (!final && b_pending_.size() < window) return;  // wait for a window of actual lines
    std::string line;
    while (a_pending_.size() < window && ReadExpected(line))
      a_pending_.push_back(std::move(line));
    NoteHeld();
    if (a_pending_.empty() && b_pending_.empty()) return;
    AlignWindow(final);
  }
}

size_t StreamingDiff::Window() const {
  return shown_ < max_lines_ ? kShowWindow : kCountWindow;
}

void StreamingDiff::AlignWindow(bool final) {
  const size_t window = Window();
  const size_t n = std::min(window, a_pending_.size());
  const size_t m = std::min(window, b_pending_.size());
  std::vector<char> ops;
  if (n == 0 || m == 0) {
    ops.assign(n + m, n == 0 ? '+' : '-');  // one side has ended: the rest of the other differs
  } else {
    ops = Align(a_pending_, n, b_pending_, m);
  }
  // Emit up to the first run of kResync equal lines after a change and go back to comparing line by
  // line there; without such a run, emit all of a window that holds the rest of both texts, else the
  // first half of the window and align again from there.
  const bool rest_of_both = final && expected_done_ && n == a_pending_.size() && m == b_pending_.size();
  size_t cut = ops.size();
  bool in_step = rest_of_both;
  bool changed = false;
  size_t run = 0;
  for (size_t k = 0; k < ops.size(); ++k) {
    if (ops[k] != ' ') {
      changed = true;
      run = 0;
    } else if (changed && ++run == kResync) {
      cut = k + 1 - kResync;
      in_step = true;
      break;
    }
  }
  if (!in_step) {
    size_t a = 0;
    size_t b = 0;
    for (cut = 0; cut < ops.size() && (cut == 0 || (a < (n + 1) / 2 && b < (m + 1) / 2)); ++cut) {
      a += ops[cut] != '+';
      b += ops[cut] != '-';
    }
  }
  for (size_t k = 0; k < cut; ++k) {
    if (ops[k] == '+') {
      Emit({'+', a_next_, b_next_++, std::move(b_pending_.front())});
      b_pending_.pop_front();
    } else {
      Emit({ops[k], a_next_++, ops[k] == ' ' ? b_next_++ : b_next_, std::move(a_pending_.front())});
      a_pending_.pop_front();
      if (ops[k] == ' ') b_pending_.pop_front();
    }
  }
  diverged_ = !in_step;
}

void StreamingDiff::Emit(Edit edit) {
  if (edit.op == ' ') {
    if (hunk_open_) {
      trailing_.push_back(std::move(edit));
      if (trailing_.size() == 2 * kContext) CloseHunk();
    } else {
      before_.push_back(std::move(edit));
      if (before_.size() > kContext) before_.pop_front();
    }
    return;
  }
  differs_ = true;
  if (!hunk_open_) {
    hunk_open_ = true;
    hunk_a_ = before_.empty() ? edit.a : before_.front().a;
    hunk_b_ = before_.empty() ? edit.b : before_.front().b;
    hunk_a_count_ = 0;
    hunk_b_count_ = 0;
    hunk_text_.clear();
    hunk_header_shown_ = shown_ < max_lines_;
    for (auto& context : before_)
      AddToHunk(std::move(context));
    before_.clear();
  } else {
    for (auto& context : trailing_)
      AddToHunk(std::move(context));
    trailing_.clear();
  }
  AddToHunk(std::move(edit));
  NoteHeld();
}

void StreamingDiff::AddToHunk(Edit edit) {
  hunk_a_count_ += edit.op != '+';
  hunk_b_count_ += edit.op != '-';
  if (shown_ < max_lines_) {
    hunk_text_.push_back(edit.op + edit.text);
    ++shown_;
  } else if (edit.op != ' ') {
    ++hidden_;
  }
}

void StreamingDiff::CloseHunk() {
  // The first lines after the last change end the hunk; the last ones are the context of the next.
  const size_t ending = std::min(kContext, trailing_.size());
  for (size_t i = 0; i < ending; ++i)
    AddToHunk(std::move(trailing_[i]));
  for (size_t i = std::max(ending, trailing_.size() - std::min(kContext, trailing_.size()));
       i < trailing_.size(); ++i) {
    before_.push_back(std::move(trailing_[i]));
  }
  trailing_.clear();
  hunk_open_ = false;
  if (!file_header_shown_) ShowFileHeader();
  if (hunk_header_shown_) {
    report_ << "@@ -" << hunk_a_ + 1 << "," << hunk_a_count_ << " +" << hunk_b_ + 1 << "," << hunk_b_count_
            << " @@\n";
  }
  for (const auto& text : hunk_text_)
    report_ << text << "\n";
  hunk_text_.clear();
}

void StreamingDiff::ShowFileHeader() {
  report_ << "--- " << expected_name_ << "\n+++ " << actual_name_ << "\n";
  file_header_shown_ = true;
}

void StreamingDiff::NoteHeld() {
  peak_lines_ = std::max(peak_lines_, a_pending_.size() + b_pending_.size() + before_.size() +
                                          trailing_.size() + hunk_text_.size());
}

std::string LineDiff(const std::string& expected, const std::string& actual, const std::string& expected_name,
                     const std::string& actual_name, size_t max_lines) {
  std::istringstream in(expected);
  std::ostringstream report;
  StreamingDiff diff(in, expected_name, actual_name, report, max_lines);
  size_t start = 0;
  while (start < actual.size()) {
    size_t end = actual.find('\n', start);
    if (end == std::string::npos) end = actual.size();
    diff.Add(actual.substr(start, end - start));
    start = end + 1;
  }
  diff.Finish();
  return report.str();
}

}  // namespace oet_replay
