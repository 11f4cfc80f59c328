// oet-replay: runs a session script of tracking calls and host directives against the recording host
// and prints the telemetry events each call produced. See docs/replay.md.
//
// Exit status: 0 when every line ran and (with --check) the output matched; otherwise the sum of
// 1 (some lines were wrong and skipped), 2 (the output differs from the expected file) and
// 4 (a file could not be read or written).
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "tools/replay/session.h"
#include "tools/replay/text_diff.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#ifndef OET_REPLAY_SAMPLE_SOURCE
#define OET_REPLAY_SAMPLE_SOURCE ""
#endif

namespace {

namespace fs = std::filesystem;

constexpr int kBadLines = 1;
constexpr int kDifferent = 2;
constexpr int kFileProblem = 4;
constexpr char kSampleName[] = "sample-session.jsonl";

fs::path ExecutableDir(const char* argv0) {
#if defined(_WIN32)
  std::vector<wchar_t> buffer(32768);
  const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
  if (length > 0 && length < buffer.size())
    return fs::path(std::wstring(buffer.data(), length)).parent_path();
#else
  std::error_code error;
  const fs::path self = fs::read_symlink("/proc/self/exe", error);
  if (!error) return self.parent_path();
#endif
  return fs::path(argv0 == nullptr ? "" : argv0).parent_path();
}

// The sample session: beside the executable (where the build copies it), else in the source tree the
// tool was built from.
std::string FindSample(const char* argv0) {
  std::error_code error;
  const fs::path beside = ExecutableDir(argv0) / kSampleName;
  if (fs::is_regular_file(beside, error)) return beside.string();
  return OET_REPLAY_SAMPLE_SOURCE;
}

bool ReadFile(const std::string& path, std::string& text) {
  std::ifstream in(fs::u8path(path), std::ios::binary);
  if (!in) return false;
  std::ostringstream content;
  content << in.rdbuf();
  text = content.str();
  return !in.bad();
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "Runs a session script (JSON Lines of tracking calls and host directives) against a recording "
      "telemetry "
      "host and prints, for every call, its result and the events it produced."};
  std::string script_path;
  std::string output_path;
  std::string expected_path;
  bool pretty = false;
  app.add_option("script", script_path,
                 "Session script (.jsonl); '-' reads standard input. Default: the sample session "
                 "(examples/sample-session.jsonl)");
  app.add_flag("--pretty", pretty, "Indent the output, one host call per line");
  app.add_option("-o,--output", output_path, "Write the output to FILE instead of standard output");
  app.add_option(
      "--check", expected_path,
      "Compare the output with the expected file EXPECTED, print the differences and exit non-zero "
      "when they differ");
  CLI11_PARSE(app, argc, argv);

  int status = 0;
  if (script_path.empty()) {
    script_path = FindSample(argc > 0 ? argv[0] : nullptr);
    if (script_path.empty()) {
      std::cerr << "oet-replay: no script given and no sample session found\n";
      return kFileProblem;
    }
  }

  std::ifstream file;
  std::istream* script = &std::cin;
  std::string name = "<stdin>";
  if (script_path != "-") {
    file.open(fs::u8path(script_path), std::ios::binary);
    if (!file) {
      std::cerr << "oet-replay: cannot read " << script_path << "\n";
      return kFileProblem;
    }
    script = &file;
    name = script_path;
  }

  std::ostringstream output;
  oet_replay::SessionOptions options;
  options.pretty = pretty;
  const oet_replay::SessionSummary summary =
      oet_replay::RunSession(*script, name, options, output, std::cerr);
  if (summary.rejected > 0) {
    std::cerr << name << ": " << summary.rejected << (summary.rejected == 1 ? " line was" : " lines were")
              << " wrong and skipped\n";
    status |= kBadLines;
  }

  if (!output_path.empty()) {
    std::ofstream out(fs::u8path(output_path), std::ios::binary);
    out << output.str();
    if (!out.flush()) {
      std::cerr << "oet-replay: cannot write " << output_path << "\n";
      status |= kFileProblem;
    }
  } else if (expected_path.empty()) {
    std::cout << output.str() << std::flush;
  }

  if (!expected_path.empty()) {
    std::string expected;
    if (!ReadFile(expected_path, expected)) {
      std::cerr << "oet-replay: cannot read " << expected_path << "\n";
      return status | kFileProblem;
    }
    const std::string diff = oet_replay::LineDiff(expected, output.str(), expected_path, "output of " + name);
    if (diff.empty()) {
      std::cout << "oet-replay: output of " << name << " matches " << expected_path << "\n";
    } else {
      std::cout << diff;
      status |= kDifferent;
    }
  }
  return status;
}
