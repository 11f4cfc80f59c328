#include "tools/replay/text_diff.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace oet_replay {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

struct Edit {
  char op;      // ' ', '-' or '+'
  size_t a, b;  // line indexes in expected and actual at this point
  const std::string* text;
};

// The edit script between a and b: common prefix and suffix kept, the middle aligned by a longest
// common subsequence, or replaced whole when it is too large to align cheaply.
std::vector<Edit> Edits(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  size_t prefix = 0;
  while (prefix < a.size() && prefix < b.size() && a[prefix] == b[prefix])
    ++prefix;
  size_t suffix = 0;
  while (suffix < a.size() - prefix && suffix < b.size() - prefix &&
         a[a.size() - 1 - suffix] == b[b.size() - 1 - suffix]) {
    ++suffix;
  }
  const size_t n = a.size() - prefix - suffix;
  const size_t m = b.size() - prefix - suffix;
  std::vector<Edit> edits;
  for (size_t i = 0; i < prefix; ++i)
    edits.push_back({' ', i, i, &a[i]});
  constexpr size_t kMaxCells = 4'000'000;
  if (n > 0 && m > 0 && (n + 1) * (m + 1) <= kMaxCells) {
    // lcs[i][j]: length of the common subsequence of a[prefix + i..] and b[prefix + j..].
    std::vector<std::vector<uint32_t>> lcs(n + 1, std::vector<uint32_t>(m + 1, 0));
    for (size_t i = n; i-- > 0;) {
      for (size_t j = m; j-- > 0;) {
        lcs[i][j] =
            a[prefix + i] == b[prefix + j] ? lcs[i + 1][j + 1] + 1 : std::max(lcs[i + 1][j], lcs[i][j + 1]);
      }
    }
    size_t i = 0;
    size_t j = 0;
    while (i < n || j < m) {
      if (i < n && j < m && a[prefix + i] == b[prefix + j]) {
        edits.push_back({' ', prefix + i, prefix + j, &a[prefix + i]});
        ++i;
        ++j;
      } else if (j == m || (i < n && lcs[i + 1][j] >= lcs[i][j + 1])) {
        edits.push_back({'-', prefix + i, prefix + j, &a[prefix + i]});
        ++i;
      } else {
        edits.push_back({'+', prefix + i, prefix + j, &b[prefix + j]});
        ++j;
      }
    }
  } else {
    for (size_t i = 0; i < n; ++i)
      edits.push_back({'-', prefix + i, prefix, &a[prefix + i]});
    for (size_t j = 0; j < m; ++j)
      edits.push_back({'+', prefix + n, prefix + j, &b[prefix + j]});
  }
  for (size_t k = 0; k < suffix; ++k) {
    edits.push_back({' ', prefix + n + k, prefix + m + k, &a[prefix + n + k]});
  }
  return edits;
}

}  // namespace

std::string LineDiff(const std::string& expected, const std::string& actual, const std::string& expected_name,
                     const std::string& actual_name, size_t max_lines) {
  const std::vector<std::string> a = Lines(expected);
  const std::vector<std::string> b = Lines(actual);
  if (a == b) return "";
  const std::vector<Edit> edits = Edits(a, b);
  constexpr size_t kContext = 2;

  std::string out = "--- " + expected_name + "\n+++ " + actual_name + "\n";
  size_t shown = 0;
  size_t hidden = 0;
  size_t k = 0;
  while (k < edits.size()) {
    if (edits[k].op == ' ') {
      ++k;
      continue;
    }
    // A hunk: from kContext lines before this change to kContext lines after the last change that
    // lies within 2 * kContext lines of the one before it.
    const size_t begin = k >= kContext ? k - kContext : 0;
    size_t end = k;
    size_t last_change = k;
    while (end < edits.size() && end <= last_change + 2 * kContext) {
      if (edits[end].op != ' ') last_change = end;
      ++end;
    }
    end = std::min(edits.size(), last_change + kContext + 1);
    size_t a_count = 0;
    size_t b_count = 0;
    for (size_t e = begin; e < end; ++e) {
      a_count += edits[e].op != '+';
      b_count += edits[e].op != '-';
    }
    const std::string header = "@@ -" + std::to_string(edits[begin].a + 1) + "," + std::to_string(a_count) +
                               " +" + std::to_string(edits[begin].b + 1) + "," + std::to_string(b_count) +
                               " @@\n";
    for (size_t e = begin; e < end; ++e) {
      if (shown >= max_lines) {
        hidden += edits[e].op != ' ';
        continue;
      }
      if (e == begin) out += header;
      out += edits[e].op + *edits[e].text + "\n";
      ++shown;
    }
    k = end;
  }
  if (hidden > 0) out += "... and " + std::to_string(hidden) + " more differing lines\n";
  return out;
}

}  // namespace oet_replay
