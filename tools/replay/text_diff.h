// A readable, line-oriented difference between an expected text and an actual one, in the unified
// style: hunks headed "@@ -LINE,COUNT +LINE,COUNT @@" with two lines of context, "-" for expected lines
// that are missing and "+" for actual lines that are new. Line ends "\r\n" and "\n" compare equal, and
// so do texts that differ only in a final line end.
#pragma once

#include <cstddef>
#include <string>

namespace oet_replay {

// Empty when the texts are equal. At most `max_lines` lines of hunks are shown; the rest is counted.
std::string LineDiff(const std::string& expected, const std::string& actual, const std::string& expected_name,
                     const std::string& actual_name, size_t max_lines = 80);

}  // namespace oet_replay
