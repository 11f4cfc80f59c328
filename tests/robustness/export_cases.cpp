#include "tests/robustness/export_cases.h"

#include <fstream>
#include <map>

#include "tools/replay/session.h"

namespace oet_robustness {
namespace {

// Script files whose call lines give inputs beyond the default records.
const char* const kScripts[] = {
#include "tests/robustness/session_scripts.inc"
};

}  // namespace

std::vector<std::string> ExportNames() {
  std::vector<std::string> names;
  for (const auto& entry : oet_replay::Exports())
    names.push_back(entry.name);
  return names;
}

std::vector<ExportCase> AllExportCases(size_t max_inputs_per_export) {
  std::vector<ExportCase> cases;
  std::map<std::string, size_t> index;
  for (const auto& entry : oet_replay::Exports()) {
    // Default records, each given as an empty object where the argument is a record, so that the
    // binding of every record is built now rather than at the first call (which may come at exit).
    oet_replay::Json line = oet_replay::Json::object();
    for (const auto& argument : entry.arguments)
      line[argument] = oet_replay::Json::object();
    oet_replay::Issues issues;
    oet_replay::PreparedCall call = entry.prepare(line, issues);
    if (!call) {
      oet_replay::Issues plain;
      call = entry.prepare(oet_replay::Json::object(), plain);
    }
    index[entry.name] = cases.size();
    cases.push_back(ExportCase{entry.name, {std::move(call)}});
  }
  for (const char* script : kScripts) {
    std::ifstream in(script);
    std::string text;
    while (std::getline(in, text)) {
      oet_replay::Issues issues;
      oet_replay::Step step = oet_replay::ReadStep(text, issues);
      if (step.kind != oet_replay::Step::Kind::kCall || !issues.empty()) continue;
      ExportCase& c = cases[index.at(step.name)];
      if (c.inputs.size() < max_inputs_per_export) c.inputs.push_back(std::move(step.call));
    }
  }
  return cases;
}

}  // namespace oet_robustness
