// oet-replay: runs a session script of tracking calls and host directives against the recording host
// and prints the telemetry events each call produced. See docs/replay.md.
//
// Exit status: 0 when every line ran and (with --check) the output matched; otherwise the sum of
// 1 (some lines were wrong and skipped), 2 (the output differs from the expected file) and
// 4 (a file could not be read or written, standard output included); see tools/replay/replay.h.
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "tools/replay/replay.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#ifndef OET_REPLAY_SAMPLE_SOURCE
#define OET_REPLAY_SAMPLE_SOURCE ""
#endif

namespace {

namespace fs = std::filesystem;

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

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  CLI::App app{
      "Runs a session script (JSON Lines of tracking calls and host directives) against a recording "
      "telemetry host and prints, for every call, its result and the events it produced."};
  oet_replay::ReplayOptions options;
  bool pretty = false;
  bool view = false;
  auto* script = app.add_option("script", options.script,
                                "Session script (.jsonl); '-' reads standard input. Default: the sample "
                                "session (examples/sample-session.jsonl)");
  auto* pretty_flag = app.add_flag("--pretty", pretty, "Indent the JSON output, one host call per line");
  app.add_flag("--view", view, "Print the readable view of the events instead of JSON")
      ->excludes(pretty_flag);
  app.add_flag("--host-calls", options.host_calls,
               "List under every call all its host calls in order (registry, web service, URL utilities, "
               "system facts, clock, text conversion, telemetry)");
  app.add_option("-o,--output", options.output, "Write the output to FILE instead of standard output");
  app.add_option("--check", options.expected,
                 "Compare the output with the expected file EXPECTED, print the differences and exit "
                 "non-zero when they differ");
  app.add_flag("--catalog", options.catalog,
               "Write the event catalog (docs/events.md) instead of running a script")
      ->excludes(script);
  CLI11_PARSE(app, argc, argv);

  options.format = view     ? oet_replay::OutputFormat::kView
                   : pretty ? oet_replay::OutputFormat::kPretty
                            : oet_replay::OutputFormat::kJson;
  if (!options.catalog && options.script.empty()) {
    options.script = FindSample(argc > 0 ? argv[0] : nullptr);
    if (options.script.empty()) {
      std::cerr << "oet-replay: no script given and no sample session found\n";
      return oet_replay::kFileProblem;
    }
  }
  return oet_replay::Replay(options, std::cin, std::cout, std::cerr);
}
