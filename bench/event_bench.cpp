// What a tracking call costs the caller's thread, export by export, against the hand-written floor of
// its host calls (bench/floor_table.h), through the no-op host (bench/noop_host.h).
//
//   oet_bench [Google Benchmark flags]
//       nanoseconds per call (CPU time) of every export and floor at 1, 2 and 4 threads
//   oet_bench --oet_report=FILE [--oet_callgrind_dir=DIR] [--oet_replay=PATH] [--oet_calls=N]
//             [--oet_long_calls=N] [--oet_replay_max_lines=N] [Google Benchmark flags]
//       the same, then per row the instructions per call (a run of N calls under
//       valgrind --tool=callgrind, collection toggled around the loop; skipped when valgrind is
//       missing), the heap allocations per call and the ratios to the floor; the long-session check
//       (resident memory and live heap blocks over 10^5 calls of every benchmarked row, then of every
//       export of the replay tool's table); and the replay tool's
//       cost per script line from 10^2 lines up. Writes the tables to FILE as Markdown (scripts/bench
//       puts them into docs/performance.md).
//   oet_bench --oet_measure=ROW:SIDE --oet_calls=N
//       runs N calls of one row's library or floor side in oet_bench_measured_loop (what the report
//       runs under callgrind).
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "bench/alloc_counter.h"
#include "bench/floor_table.h"
#include "bench/noop_host.h"
#include "oKstPlatform/host_control.h"
#include "tools/replay/catalog.h"
#include "tools/replay/exports.h"
#include "tools/replay/json_binding.h"

extern char** environ;

using oet_bench::FloorRow;
using oet_bench::Run;

// The loop that callgrind collects: `calls` calls of one side of a row, nothing else (for a
// rate-limited row, each after the host's clock has moved a second on).
extern "C" __attribute__((noinline)) long oet_bench_measured_loop(const FloorRow* row, Run run, long calls) {
  long sum = 0;
  for (long i = 0; i < calls; ++i)
    sum += oet_bench::CallRow(*row, run, nullptr);
  return sum;
}

namespace {

enum class Side { kLibrary, kFloor };
constexpr Side kSides[] = {Side::kLibrary, Side::kFloor};
constexpr int kThreadCounts[] = {1, 2, 4};

const char* NameOf(Side side) {
  return side == Side::kLibrary ? "library" : "floor";
}

Run RunOf(const FloorRow& row, Side side) {
  return side == Side::kLibrary ? row.library : row.floor;
}

struct Options {
  std::string measure;  // ROW:SIDE
  long calls = 1000;
  std::string report;
  std::string callgrind_dir;
  std::string replay;
  long long_calls = 100000;
  long replay_max_lines = 1000000;
};

// Takes this program's own flags out of argv, leaving Google Benchmark's.
Options TakeOptions(int& argc, char** argv) {
  Options options;
  const std::map<std::string, std::string*> texts = {{"--oet_measure=", &options.measure},
                                                     {"--oet_report=", &options.report},
                                                     {"--oet_callgrind_dir=", &options.callgrind_dir},
                                                     {"--oet_replay=", &options.replay}};
  const std::map<std::string, long*> numbers = {{"--oet_calls=", &options.calls},
                                                {"--oet_long_calls=", &options.long_calls},
                                                {"--oet_replay_max_lines=", &options.replay_max_lines}};
  int kept = 1;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    bool taken = false;
    for (const auto& flag : texts) {
      if (arg.rfind(flag.first, 0) != 0) continue;
      *flag.second = arg.substr(flag.first.size());
      taken = true;
    }
    for (const auto& flag : numbers) {
      if (arg.rfind(flag.first, 0) != 0) continue;
      *flag.second = std::atol(arg.c_str() + flag.first.size());
      taken = true;
    }
    if (!taken) argv[kept++] = argv[i];
  }
  argc = kept;
  return options;
}

std::string SelfPath() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
  return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

std::string DirectoryOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash);
}

// "12,345" for 12345.4.
std::string Grouped(double value) {
  std::string digits = std::to_string(static_cast<long long>(value + 0.5));
  for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3)
    digits.insert(static_cast<size_t>(i), ",");
  return digits;
}

std::string Fixed(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

// ---- Nanoseconds: Google Benchmark.

// CPU nanoseconds per call, by benchmark ("ROW/SIDE") and thread count.
using Timings = std::map<std::string, std::map<int64_t, double>>;

class CollectingReporter : public benchmark::ConsoleReporter {
 public:
  explicit CollectingReporter(Timings& timings) : timings_(timings) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && !run.error_occurred)
        timings_[run.run_name.function_name][run.threads] = run.GetAdjustedCPUTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }

 private:
  Timings& timings_;
};

void RegisterBenchmarks(oet_bench::NoopHost& host) {
  for (const FloorRow& row : oet_bench::FloorRows()) {
    for (const Side side : kSides) {
      const std::string name = std::string(row.name) + "/" + NameOf(side);
      auto* benchmark =
          benchmark::RegisterBenchmark(name.c_str(), [&host, &row, side](benchmark::State& state) {
            const Run run = RunOf(row, side);
            if (state.thread_index() == 0) {
              host.SetWebAnswers(row.web);
              oet_bench::CallRow(row, run, nullptr);  // the client context filled before the timing starts
            }
            for (auto _ : state)
              benchmark::DoNotOptimize(oet_bench::CallRow(row, run, nullptr));
          });
      // A rate limit holds for the whole process: threads calling at once would drop each other's calls.
      for (const int threads : kThreadCounts) {
        if (threads == 1 || !row.rate_limited) benchmark->Threads(threads);
      }
    }
  }
}

// ---- Instructions: callgrind.

int MeasureOneSide(const Options& options) {
  const size_t colon = options.measure.find(':');
  const FloorRow* row = oet_bench::FindFloorRow(options.measure.substr(0, colon));
  if (row == nullptr || colon == std::string::npos) {
    std::cerr << "oet_bench: no row " << options.measure << "\n";
    return 2;
  }
  const Side side = options.measure.substr(colon + 1) == "floor" ? Side::kFloor : Side::kLibrary;
  oet_bench::NoopHost host;
  host.SetWebAnswers(row->web);
  const Run run = RunOf(*row, side);
  for (int i = 0; i < 3; ++i)
    oet_bench::CallRow(*row, run, nullptr);  // filled client context, resolved symbols, first-use statics
  return oet_bench_measured_loop(row, run, options.calls) == options.calls ? 0 : 1;
}

bool HaveValgrind() {
  return std::system("valgrind --version >/dev/null 2>&1") == 0;
}

// Instructions per call of one side of a row, or nothing when callgrind could not run.
std::optional<double> InstructionsPerCall(const Options& options, const FloorRow& row, Side side) {
  const std::string out = options.callgrind_dir + "/" + row.name + "." + NameOf(side) + ".callgrind";
  const std::string command = "valgrind --tool=callgrind --callgrind-out-file='" + out +
                              "' --collect-atstart=no --toggle-collect=oet_bench_measured_loop '" +
                              SelfPath() + "' --oet_measure=" + row.name + ":" + NameOf(side) +
                              " --oet_calls=" + std::to_string(options.calls) + " >/dev/null 2>&1";
  if (std::system(command.c_str()) != 0) return std::nullopt;
  std::ifstream file(out);
  std::string line;
  std::optional<double> total;
  while (std::getline(file, line)) {
    for (const char* key : {"summary: ", "totals: "}) {
      if (line.rfind(key, 0) == 0) total = std::atof(line.c_str() + std::string(key).size());
    }
  }
  if (!total) return std::nullopt;
  return *total / static_cast<double>(options.calls);
}

// ---- Heap allocations.

double AllocationsPerCall(const FloorRow& row, Side side, long calls) {
  const Run run = RunOf(row, side);
  for (int i = 0; i < 3; ++i)
    oet_bench::CallRow(row, run, nullptr);
  const oet_bench::HeapCounts before = oet_bench::ThreadHeapCounts();
  for (long i = 0; i < calls; ++i)
    oet_bench::CallRow(row, run, nullptr);
  const oet_bench::HeapCounts after = oet_bench::ThreadHeapCounts();
  return static_cast<double>(after.allocations - before.allocations) / static_cast<double>(calls);
}

// ---- Long sessions.

// Read with plain system calls, so that reading allocates nothing.
long ResidentKiB() {
  char text[128] = {};
  const int fd = open("/proc/self/statm", O_RDONLY);
  if (fd < 0) return 0;
  const ssize_t length = read(fd, text, sizeof text - 1);
  close(fd);
  long size = 0;
  long resident = 0;
  if (length <= 0 || std::sscanf(text, "%ld %ld", &size, &resident) != 2) return 0;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long long LiveBlocks() {
  const oet_bench::HeapCounts counts = oet_bench::ThreadHeapCounts();
  return static_cast<long long>(counts.allocations) - static_cast<long long>(counts.frees);
}

// Runs `one_call` `calls` times and writes a row of the resident memory and the thread's live heap
// blocks after 0, 1,000, 10,000, ... calls. Figures are kept in fixed arrays while the calls run, so
// that keeping them allocates nothing.
template <class OneCall>
void WriteLongSession(std::ostream& out, const std::string& title, long calls, OneCall one_call) {
  one_call();  // the first call builds what every later call reuses
  constexpr int kMaxCheckpoints = 12;
  long resident[kMaxCheckpoints];
  long long live[kMaxCheckpoints];
  int checkpoints = 0;
  const long long live_at_start = LiveBlocks();
  long done = 0;
  for (long checkpoint = 0; checkpoint <= calls && checkpoints < kMaxCheckpoints;
       checkpoint = checkpoint == 0 ? 1000 : checkpoint * 10) {
    for (; done < checkpoint; ++done)
      one_call();
    resident[checkpoints] = ResidentKiB();
    live[checkpoints++] = LiveBlocks() - live_at_start;
  }
  out << "| " << title << " |";
  for (int i = 0; i < checkpoints; ++i)
    out << (i == 0 ? " " : " / ") << Grouped(static_cast<double>(resident[i]));
  out << " |";
  for (int i = 0; i < checkpoints; ++i)
    out << (i == 0 ? " " : " / ") << live[i];
  out << " |\n";
}

// ---- The replay tool.

struct ReplayRun {
  bool ok = false;
  double cpu_seconds = 0;
  long max_rss_kib = 0;
};

// Runs the replay tool on a script of the header lines and `calls` call lines (cycling), fed through a
// pipe, its output thrown away; its CPU time and peak resident memory.
ReplayRun RunReplay(const std::string& replay, const std::string& header,
                    const std::vector<std::string>& calls, long call_lines) {
  ReplayRun result;
  int pipe_fds[2];
  if (pipe(pipe_fds) != 0) return result;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipe_fds[0], 0);
  posix_spawn_file_actions_addclose(&actions, pipe_fds[1]);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  const std::string dash = "-";
  const std::string output_flag = "-o";
  const std::string null_device = "/dev/null";
  char* argv[] = {const_cast<char*>(replay.c_str()), const_cast<char*>(dash.c_str()),
                  const_cast<char*>(output_flag.c_str()), const_cast<char*>(null_device.c_str()), nullptr};
  pid_t pid = 0;
  const int spawned = posix_spawn(&pid, replay.c_str(), &actions, nullptr, argv, environ);
  posix_spawn_file_actions_destroy(&actions);
  close(pipe_fds[0]);
  if (spawned != 0) {
    close(pipe_fds[1]);
    return result;
  }
  FILE* script = fdopen(pipe_fds[1], "w");
  std::fputs(header.c_str(), script);
  for (long i = 0; i < call_lines; ++i) {
    const std::string& line = calls[static_cast<size_t>(i) % calls.size()];
    std::fwrite(line.data(), 1, line.size(), script);
  }
  std::fclose(script);
  int status = 0;
  struct rusage usage {};
  if (wait4(pid, &status, 0, &usage) != pid) return result;
  result.ok = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  result.cpu_seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                       static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
  result.max_rss_kib = usage.ru_maxrss;
  return result;
}

// The sample session's set-up (its leading host directives) and its call lines, each with its newline.
bool ReadSample(const std::string& path, std::string& header, std::vector<std::string>& calls) {
  std::ifstream sample(path);
  std::string line;
  while (std::getline(sample, line)) {
    if (line.rfind("{\"call\"", 0) == 0) {
      calls.push_back(line + "\n");
    } else if (line.rfind("{\"host\"", 0) == 0 && calls.empty()) {
      header += line + "\n";
    }
  }
  return !calls.empty();
}

// ---- The report.

void WriteReport(Options options, oet_bench::NoopHost& host, const Timings& timings, std::ostream& out) {
  const auto& rows = oet_bench::FloorRows();
  const bool valgrind = HaveValgrind();
  if (valgrind && options.callgrind_dir.empty()) {
    char directory[] = "/tmp/oet_bench.XXXXXX";
    if (mkdtemp(directory) != nullptr) options.callgrind_dir = directory;
  }
  std::error_code error;
  if (valgrind) std::filesystem::create_directories(options.callgrind_dir, error);

  out << "### Instructions and heap allocations per call\n\n"
      << "Through the no-op host, client context filled. Instructions: " << options.calls
      << " calls under callgrind (n/a without valgrind); allocations: as many calls counted by the "
         "benchmark's "
         "operator new, the platform's included.\n\n"
      << "| row | export | library instructions | floor instructions | library / floor | library allocations "
         "| "
         "floor allocations |\n"
      << "|---|---|---:|---:|---:|---:|---:|\n";
  for (const FloorRow& row : rows) {
    std::cerr << "oet_bench: measuring " << row.name << "\n";
    host.SetWebAnswers(row.web);
    std::optional<double> instructions[2];
    double allocations[2];
    for (const Side side : kSides) {
      const int i = side == Side::kLibrary ? 0 : 1;
      if (valgrind) instructions[i] = InstructionsPerCall(options, row, side);
      allocations[i] = AllocationsPerCall(row, side, options.calls);
    }
    out << "| " << row.title << " | `" << row.export_name << "` | "
        << (instructions[0] ? Grouped(*instructions[0]) : "n/a") << " | "
        << (instructions[1] ? Grouped(*instructions[1]) : "n/a") << " | "
        << (instructions[0] && instructions[1] ? Fixed(*instructions[0] / *instructions[1], 2) : "n/a")
        << " | " << Fixed(allocations[0], 1) << " | " << Fixed(allocations[1], 1) << " |\n";
  }

  out << "\n### Time per call\n\n"
      << "CPU nanoseconds per call (Google Benchmark), library / floor, by number of threads calling at "
         "once. "
         "On a shared machine these move from run to run; the instruction counts above do not.\n\n"
      << "| row |";
  for (const int threads : kThreadCounts)
    out << " " << threads << (threads == 1 ? " thread" : " threads") << " |";
  out << "\n|---|";
  for (size_t i = 0; i < sizeof kThreadCounts / sizeof kThreadCounts[0]; ++i)
    out << "---:|";
  out << "\n";
  for (const FloorRow& row : rows) {
    out << "| " << row.title << " |";
    for (const int threads : kThreadCounts) {
      std::string cell;
      for (const Side side : kSides) {
        const auto bench = timings.find(std::string(row.name) + "/" + NameOf(side));
        const bool found = bench != timings.end() && bench->second.count(threads) != 0;
        cell += (side == Side::kFloor ? " / " : "") + (found ? Grouped(bench->second.at(threads)) : "n/a");
      }
      out << " " << cell << " |";
    }
    out << "\n";
  }

  out << "\n### Long sessions\n\n"
      << Grouped(static_cast<double>(options.long_calls))
      << " calls of each export through the no-op host, one export after the other in one process: resident "
         "memory of the process and live heap blocks of the calling thread (allocated and not yet freed, "
         "counted from the row's start), after 0, 1,000, 10,000, ... calls.\n\n"
      << "| row | resident KiB | live heap blocks |\n|---|---|---|\n";
  for (const FloorRow& row : rows) {
    host.SetWebAnswers(row.web);
    WriteLongSession(out, row.title, options.long_calls,
                     [&row] { oet_bench::CallRow(row, row.library, nullptr); });
  }

  // Every export, through the replay tool's table with the event catalog's canonical arguments (every
  // member of every record set); the clock moves a second before each call, so that no rate limit
  // drops it. The live blocks include the tool's own reading of the records after each call.
  out << "\nEvery export the same way, with the event catalog's canonical arguments (every member set), the "
         "host's clock a second on before each call:\n\n"
      << "| export | resident KiB | live heap blocks |\n|---|---|---|\n";
  host.SetWebAnswers(rows.front().web);
  for (const oet_replay::ExportEntry& entry : oet_replay::Exports()) {
    oet_replay::SampleBuilder samples(oet_replay::kScanTop);
    oet_replay::Issues issues;
    const oet_replay::PreparedCall call = entry.prepare(entry.sample(samples), issues);
    const std::string title = "`" + entry.name + "`";
    if (!call) {
      out << "| " << title << " | not prepared | |\n";
      continue;
    }
    WriteLongSession(out, title, options.long_calls, [&call] {
      KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(1000));
      call();
    });
  }

  out << "\n### The replay tool\n\n";
  std::string header;
  std::vector<std::string> calls;
  const std::string replay =
      options.replay.empty() ? DirectoryOf(SelfPath()) + "/oet-replay" : options.replay;
  if (!ReadSample(DirectoryOf(replay) + "/sample-session.jsonl", header, calls)) {
    out << "Not measured: no oet-replay with its sample session at " << replay << ".\n";
    return;
  }
  out << "`oet-replay` on scripts of the sample session's set-up and its " << calls.size()
      << " calls repeated, fed through a pipe, output thrown away. CPU time of the whole process; the cost "
         "per "
         "line leaves out the start-up (a run with no call line).\n\n"
      << "| script lines | CPU seconds | microseconds per line | lines per second | peak resident MiB |\n"
      << "|---:|---:|---:|---:|---:|\n";
  // Short runs are repeated and the fastest kept, so that start-up noise does not swamp them.
  const auto fastest = [&](long lines) {
    ReplayRun best;
    for (int i = 0; i < (lines <= 10000 ? 5 : 1); ++i) {
      const ReplayRun run = RunReplay(replay, header, calls, lines);
      if (run.ok && (!best.ok || run.cpu_seconds < best.cpu_seconds)) best = run;
    }
    return best;
  };
  const ReplayRun start_up = fastest(0);
  for (long lines = 100; lines <= options.replay_max_lines; lines *= 10) {
    std::cerr << "oet_bench: replaying " << lines << " lines\n";
    const ReplayRun run = fastest(lines);
    if (!run.ok || !start_up.ok) {
      out << "| " << Grouped(static_cast<double>(lines)) << " | failed | | | |\n";
      continue;
    }
    const double per_line = (run.cpu_seconds - start_up.cpu_seconds) / static_cast<double>(lines);
    out << "| " << Grouped(static_cast<double>(lines)) << " | " << Fixed(run.cpu_seconds, 3) << " | "
        << Fixed(per_line * 1e6, 1) << " | " << (per_line > 0 ? Grouped(1.0 / per_line) : "n/a") << " | "
        << Fixed(static_cast<double>(run.max_rss_kib) / 1024.0, 1) << " |\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = TakeOptions(argc, argv);
  if (!options.measure.empty()) return MeasureOneSide(options);

  oet_bench::NoopHost host;
  RegisterBenchmarks(host);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  Timings timings;
  CollectingReporter reporter(timings);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  if (options.report.empty()) return 0;

  std::ofstream report(options.report);
  WriteReport(options, host, timings, report);
  return report.good() ? 0 : 1;
}
