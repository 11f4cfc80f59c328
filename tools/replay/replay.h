// The oet-replay command (docs/replay.md) without its command line: runs a session script, or writes
// the event catalog, into standard output or a file, and compares the result with an expected file.
//
// Everything streams: the script is read line by line, the output is written call by call, and the
// comparison with an expected file reads that file as it goes (text_diff.h), so memory does not grow
// with the length of the session, whether the output is printed, written to a file or checked.
//
// Exit status: 0 when every line ran and (with a check) the output matched; otherwise the sum of
// kBadLines (some lines were wrong and skipped), kDifferent (the output differs from the expected
// file) and kFileProblem (a file could not be read or written: a missing or unreadable script or
// expected file, a directory given as either, an output file that cannot be written, or standard
// output failing to take the output).
#pragma once

#include <iosfwd>
#include <string>

#include "tools/replay/session.h"

namespace oet_replay {

constexpr int kBadLines = 1;
constexpr int kDifferent = 2;
constexpr int kFileProblem = 4;

struct ReplayOptions {
  std::string script;    // the session script; "-" reads `standard_input`
  std::string output;    // write the output to this file; empty: standard output (unless checking)
  std::string expected;  // compare the output with this file; the difference goes to standard output
  OutputFormat format = OutputFormat::kJson;
  bool catalog = false;     // write the event catalog (catalog.h) instead of running `script`
  bool host_calls = false;  // list every host call of every call (SessionOptions::host_calls)
};

int Replay(const ReplayOptions& options, std::istream& standard_input, std::ostream& standard_output,
           std::ostream& errors);

}  // namespace oet_replay
