// The budget of every export: instructions and heap allocations per call through the no-op host, the
// client context filled, with the event catalog's canonical arguments (the replay tool's table of
// exports), checked against bench/budgets.txt.
//
//   oet_budgets --check BUDGETS     measures every export and fails (1) when one costs more than 3%
//                                   above its instruction budget or allocates more than its budget;
//                                   77 (skipped) when valgrind is not installed
//   oet_budgets --write BUDGETS [--table FILE]
//                                   measures and rewrites the budgets (scripts/bench), and writes them
//                                   as a Markdown table
//
// One run of valgrind's callgrind covers all the exports: the program runs itself under callgrind
// (--measure), collection off; every export is called a few times first (filling the client context
// and anything built on first use), then kCalls times with collection switched on around each call
// only (client requests), and the collected counts are dumped under the export's name. An export's
// instructions are the inclusive cost of its own function in its dump, so that the replay tool's
// reading and writing of records around the call are left out. Allocations are counted by the
// program's own operator new while the tool marks the call as inside the export.
#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define OET_HAVE_CALLGRIND 1
#else
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_DUMP_STATS_AT(name)
#define OET_HAVE_CALLGRIND 0
#endif

#include "bench/alloc_counter.h"
#include "bench/reference.h"
#include "oKstPlatform/host_control.h"
#include "tools/replay/catalog.h"
#include "tools/replay/exports.h"

namespace {

constexpr int kWarmUpCalls = 3;
constexpr int kCalls = 10;
// An export may grow by this much (3%, and at least a few instructions, so that the exports that do
// next to nothing do not fail on a moved call) before its budget must be raised on purpose.
constexpr double kInstructionSlack = 1.03;
constexpr double kMinimumSlack = 10;

struct Cost {
  double instructions = 0;
  double allocations = 0;
};
using Costs = std::map<std::string, Cost>;  // by export name

// The function name an export's instructions are read from: its qualified name without the argument
// list the table adds to tell overloads apart.
std::string FunctionOf(const std::string& export_name) {
  return export_name.substr(0, export_name.find('('));
}

// ---- Inside callgrind.

// Calls every export of the table, writes "allocations name" lines to `allocations_file`.
int Measure(const std::string& allocations_file) {
  oet_bench::NoopHost host;
  host.SetWebAnswers(oet_bench::ReferenceRows().front().web);
  std::vector<std::pair<const oet_replay::ExportEntry*, oet_replay::PreparedCall>> calls;
  for (const oet_replay::ExportEntry& entry : oet_replay::Exports()) {
    oet_replay::SampleBuilder samples(oet_replay::kScanTop);
    oet_replay::Issues issues;
    oet_replay::PreparedCall call = entry.prepare(entry.sample(samples), issues);
    if (!call) {
      std::cerr << "oet_budgets: cannot prepare " << entry.name << "\n";
      return 2;
    }
    calls.emplace_back(&entry, std::move(call));
  }
  // The host's clock moves a second on before every call, so that no rate limit drops one.
  const auto tick = [] { KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(1000)); };
  for (auto& [entry, call] : calls) {
    for (int i = 0; i < kWarmUpCalls; ++i) {
      tick();
      call();
    }
  }
  std::ofstream out(allocations_file);
  for (auto& [entry, call] : calls) {
    const uint64_t before = oet_bench::ThreadHeapCounts().allocations_in_export;
    for (int i = 0; i < kCalls; ++i) {
      tick();
      CALLGRIND_TOGGLE_COLLECT;
      call();
      CALLGRIND_TOGGLE_COLLECT;
    }
    CALLGRIND_DUMP_STATS_AT(entry->name.c_str());
    const uint64_t allocations = oet_bench::ThreadHeapCounts().allocations_in_export - before;
    out << static_cast<double>(allocations) / kCalls << " " << entry->name << "\n";
  }
  return out.good() ? 0 : 1;
}

// ---- Outside: running callgrind and reading its dumps.

std::string SelfPath() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
  return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

bool HaveValgrind() {
  return OET_HAVE_CALLGRIND && std::system("valgrind --version >/dev/null 2>&1") == 0;
}

// The inclusive instructions of the export's function in one dump: every cost line of its blocks (its
// own lines and the calls it makes), the largest among functions of that name (an export's inner
// lambda has the same prefix and costs less).
void ReadDump(const std::string& path, Costs& costs) {
  std::ifstream file(path);
  std::string line;
  std::string export_name;
  std::map<std::string, double> inclusive;  // by function
  std::string function;
  while (std::getline(file, line)) {
    if (line.rfind("desc: Trigger: Client Request: ", 0) == 0) {
      export_name = line.substr(31);
    } else if (line.rfind("fn=", 0) == 0) {
      function = line.substr(3);
    } else if (!line.empty() && (std::isdigit(static_cast<unsigned char>(line[0])) || line[0] == '+' ||
                                 line[0] == '-' || line[0] == '*')) {
      const size_t space = line.find_last_of(' ');
      if (space != std::string::npos) inclusive[function] += std::atof(line.c_str() + space + 1);
    }
  }
  if (export_name.empty()) return;
  const std::string prefix = FunctionOf(export_name) + "(";
  double best = 0;
  for (const auto& [name, cost] : inclusive) {
    if (name.rfind(prefix, 0) == 0 && cost > best) best = cost;
  }
  costs[export_name].instructions = best / kCalls;
}

// Measures every export under callgrind; false when the run failed.
bool MeasureAll(Costs& costs) {
  char directory[] = "/tmp/oet_budgets.XXXXXX";
  if (mkdtemp(directory) == nullptr) return false;
  const std::string dir = directory;
  const std::string command =
      "valgrind --tool=callgrind --collect-atstart=no --compress-strings=no "
      "--compress-pos=no --dump-line=no --callgrind-out-file='" +
      dir + "/dump' '" + SelfPath() + "' --measure '" + dir + "/allocations' >'" + dir + "/log' 2>&1";
  const bool ran = std::system(command.c_str()) == 0;
  if (ran) {
    std::ifstream allocations(dir + "/allocations");
    std::string line;
    while (std::getline(allocations, line)) {
      const size_t space = line.find(' ');
      if (space != std::string::npos) costs[line.substr(space + 1)].allocations = std::atof(line.c_str());
    }
    if (DIR* listing = opendir(directory)) {
      while (const dirent* item = readdir(listing)) {
        const std::string name = item->d_name;
        if (name.rfind("dump.", 0) == 0) ReadDump(dir + "/" + name, costs);
      }
      closedir(listing);
    }
  } else {
    std::ifstream log(dir + "/log");
    std::cerr << log.rdbuf();
  }
  std::system(("rm -rf '" + dir + "'").c_str());
  return ran && costs.size() == oet_replay::Exports().size();
}

// Budgets file: "instructions allocations name" per line; '#' starts a comment.
Costs ReadBudgets(const std::string& path) {
  Costs budgets;
  std::ifstream file(path);
  std::string line;
  while (std::getline(file, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    Cost cost;
    std::string name;
    fields >> cost.instructions >> cost.allocations >> std::ws;
    std::getline(fields, name);
    budgets[name] = cost;
  }
  return budgets;
}

std::string Grouped(double value) {
  std::string digits = std::to_string(static_cast<long long>(std::llround(value)));
  for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3)
    digits.insert(static_cast<size_t>(i), ",");
  return digits;
}

std::string Allocations(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

int Write(const std::string& path, const std::string& table, const Costs& costs) {
  std::ofstream out(path);
  out << "# Instructions and heap allocations per call of every export: callgrind through the no-op host,\n"
         "# the client context filled, the event catalog's canonical arguments. Written by scripts/bench;\n"
         "# checked by the ctest test bench_budgets (bench/budgets.cpp): 3% more instructions, or any more\n"
         "# allocations, fail until this file is rewritten on purpose.\n"
         "# instructions allocations export\n";
  for (const oet_replay::ExportEntry& entry : oet_replay::Exports()) {
    const Cost& cost = costs.at(entry.name);
    out << std::llround(cost.instructions) << " " << Allocations(cost.allocations) << " " << entry.name
        << "\n";
  }
  if (!table.empty()) {
    std::ofstream md(table);
    md << "| export | instructions | allocations |\n|---|---:|---:|\n";
    for (const oet_replay::ExportEntry& entry : oet_replay::Exports()) {
      const Cost& cost = costs.at(entry.name);
      md << "| `" << entry.name << "` | " << Grouped(cost.instructions) << " | "
         << Allocations(cost.allocations) << " |\n";
    }
  }
  return out.good() ? 0 : 1;
}

int Check(const std::string& path, const Costs& costs) {
  const Costs budgets = ReadBudgets(path);
  int failures = 0;
  for (const oet_replay::ExportEntry& entry : oet_replay::Exports()) {
    const Cost& cost = costs.at(entry.name);
    const auto budget = budgets.find(entry.name);
    std::string verdict = "ok";
    if (budget == budgets.end()) {
      verdict = "no budget";
    } else if (cost.instructions <= 0 && budget->second.instructions > kMinimumSlack) {
      verdict = "not measured (its function was not found in the profile)";
    } else if (cost.instructions > std::max(budget->second.instructions * kInstructionSlack,
                                            budget->second.instructions + kMinimumSlack)) {
      verdict = "over its instruction budget of " + Grouped(budget->second.instructions);
    } else if (cost.allocations > budget->second.allocations + 0.005) {
      verdict = "over its allocation budget of " + Allocations(budget->second.allocations);
    }
    if (verdict == "ok" && budget != budgets.end() && cost.instructions < budget->second.instructions * 0.9) {
      verdict = "ok, 10% or more below its budget (scripts/bench would lower it)";
    } else if (verdict != "ok") {
      ++failures;
    }
    std::cout << entry.name << ": " << Grouped(cost.instructions) << " instructions, "
              << Allocations(cost.allocations) << " allocations: " << verdict << "\n";
  }
  for (const auto& [name, budget] : budgets) {
    if (costs.count(name) == 0) {
      std::cout << name << ": budget of an export that is gone\n";
      ++failures;
    }
  }
  if (failures != 0) {
    std::cout << failures
              << " export(s) off budget: make them cheaper, or run scripts/bench to raise the "
                 "budgets on purpose\n";
  }
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() == 2 && args[0] == "--measure") return Measure(args[1]);
  const bool check = args.size() == 2 && args[0] == "--check";
  const bool write = (args.size() == 2 || args.size() == 4) && args[0] == "--write" &&
                     (args.size() == 2 || args[2] == "--table");
  if (!check && !write) {
    std::cerr << "usage: oet_budgets --check BUDGETS | --write BUDGETS [--table FILE]\n";
    return 2;
  }
  if (!HaveValgrind()) {
    std::cout << "oet_budgets: valgrind is not installed; skipped\n";
    return 77;
  }
  Costs costs;
  if (!MeasureAll(costs)) {
    std::cerr << "oet_budgets: the callgrind run failed\n";
    return 2;
  }
  return check ? Check(args[1], costs) : Write(args[1], args.size() == 4 ? args[3] : std::string(), costs);
}
