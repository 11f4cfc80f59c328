#include "tools/replay/text_diff.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <sstream>
#include <unordered_map>
#include <utility>

namespace oet_replay {
namespace {

constexpr size_t kContext = 2;
// Equal lines in a row that put the texts back in step.
constexpr size_t kResync = 2 * kContext + 1;
// Lines read ahead at first when the texts part.
constexpr size_t kFirstReach = 64;
// The largest alignment by longest common subsequence (cells of its table).
constexpr size_t kMostCells = 4'000'000;

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
  b_bytes_ += line.size();
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
  a_bytes_ -= line.size();
  return true;
}

bool StreamingDiff::WindowFull() const {
  return b_pending_.size() >= kWindowLines || b_bytes_ >= kWindowBytes;
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
          a_bytes_ += line.size();
          a_pending_.push_front(std::move(line));
          diverged_ = true;
          break;
        }
        b_bytes_ -= b_pending_.front().size();
        b_pending_.pop_front();
        Emit({' ', a_next_++, b_next_++, std::move(line)});
      }
      if (!diverged_) {
        if (!final || !NextExpected(line)) return;
        a_bytes_ += line.size();
        a_pending_.push_front(std::move(line));  // expected lines beyond the end of the actual text
        diverged_ = true;
      }
      reach_ = kFirstReach;
    }
    // Apart: read ahead until the texts can be put back in step.
    const bool full = WindowFull();
    if (!final && !full && b_pending_.size() < reach_) return;
    std::string line;
    while (a_pending_.size() < std::max(reach_, b_pending_.size()) && a_pending_.size() < kWindowLines &&
           a_bytes_ < kWindowBytes && ReadExpected(line)) {
      a_bytes_ += line.size();
      a_pending_.push_back(std::move(line));
    }
    NoteHeld();
    if (a_pending_.empty() && b_pending_.empty()) return;
    const bool ahead_done = expected_done_ || a_pending_.size() >= kWindowLines || a_bytes_ >= kWindowBytes;
    const bool nothing_to_match = expected_done_ && a_pending_.empty();
    const bool forced = full || nothing_to_match || (final && (ahead_done || reach_ >= kWindowLines));
    if (!Realign(final, forced)) {
      reach_ = std::min(reach_ * 2, kWindowLines);
      if (!final) return;
    }
  }
}

bool StreamingDiff::Realign(bool final, bool forced) {
  const size_t n = a_pending_.size();
  const size_t m = b_pending_.size();
  // The run of kResync equal lines at a[i], b[j] with the least i + j.
  if (n >= kResync && m >= kResync) {
    const auto hash_at = [](const std::deque<std::string>& lines, size_t at) {
      size_t hash = 0;
      for (size_t k = at; k < at + kResync; ++k)
        hash = hash * 1000003u ^ std::hash<std::string>()(lines[k]);
      return hash;
    };
    std::unordered_map<size_t, std::vector<size_t>> runs;
    for (size_t i = 0; i + kResync <= n; ++i)
      runs[hash_at(a_pending_, i)].push_back(i);
    size_t best_i = n;
    size_t best_j = m;
    for (size_t j = 0; j + kResync <= m && j < best_i + best_j; ++j) {
      const auto found = runs.find(hash_at(b_pending_, j));
      if (found == runs.end()) continue;
      for (const size_t i : found->second) {
        if (i + j >= best_i + best_j) break;
        if (std::equal(a_pending_.begin() + static_cast<std::ptrdiff_t>(i),
                       a_pending_.begin() + static_cast<std::ptrdiff_t>(i + kResync),
                       b_pending_.begin() + static_cast<std::ptrdiff_t>(j))) {
          best_i = i;
          best_j = j;
          break;
        }
      }
    }
    if (best_i < n) {
      EmitAligned(best_i, best_j);
      diverged_ = false;
      return true;
    }
  }
  if (!forced) return false;
  if (n == 0 || (final && expected_done_)) {
    EmitAligned(n, m);  // the rest of both texts (or every actual line, with nothing left to match)
    diverged_ = false;
  } else {
    EmitAligned((n + 1) / 2, (m + 1) / 2);
  }
  reach_ = kFirstReach;
  return true;
}

void StreamingDiff::EmitAligned(size_t n, size_t m) {
  std::vector<char> ops;
  if (n > 0 && m > 0 && (n + 1) * (m + 1) <= kMostCells) {
    ops = Align(a_pending_, n, b_pending_, m);
  } else {
    ops.assign(n, '-');
    ops.insert(ops.end(), m, '+');
  }
  for (const char op : ops) {
    if (op == '+') {
      b_bytes_ -= b_pending_.front().size();
      Emit({'+', a_next_, b_next_++, std::move(b_pending_.front())});
      b_pending_.pop_front();
    } else {
      a_bytes_ -= a_pending_.front().size();
      Emit({op, a_next_++, op == ' ' ? b_next_++ : b_next_, std::move(a_pending_.front())});
      a_pending_.pop_front();
      if (op == ' ') {
        b_bytes_ -= b_pending_.front().size();
        b_pending_.pop_front();
      }
    }
  }
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
