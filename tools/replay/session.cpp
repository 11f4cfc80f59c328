#include "tools/replay/session.h"

#include <exception>
#include <istream>
#include <optional>
#include <ostream>

#include "testing/event_json.h"
#include "tools/replay/json_reader.h"
#include "tools/replay/view.h"

namespace oet_replay {
namespace {

bool IsBlankOrComment(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\r\n");
  return first == std::string::npos || text[first] == '#';
}

std::string Printed(const Json& value, OutputFormat format) {
  if (format == OutputFormat::kPretty) return oet_testing::PrettyPrint(value);
  return CompactText(value);
}

}  // namespace

Step ReadStep(const std::string& text, Issues& issues) {
  Step step;
  if (IsBlankOrComment(text)) return step;
  Json line;
  if (!ParseLine(text, line, issues)) return step;
  if (!line.is_object()) {
    issues.Add("a line must be a JSON object, not " + Shown(line));
    return step;
  }
  const bool is_call = line.contains("call");
  const bool is_directive = line.contains("host");
  if (is_call == is_directive) {
    issues.Add(is_call ? "a line is either a call or a host directive, not both"
                       : "a line needs \"call\" (an export) or \"host\" (a directive)");
    return step;
  }
  const Json& name = is_call ? line["call"] : line["host"];
  const char* key = is_call ? "call" : "host";
  if (!name.is_string()) {
    issues.AddField(key, Shown(name) + " is not a string");
    return step;
  }
  if (line.contains("note") && !line["note"].is_string())
    issues.AddField("note", Shown(line["note"]) + " is not a string");
  step.name = name.get<std::string>();
  if (is_call) {
    const ExportEntry* entry = ResolveExport(step.name, line, issues);
    if (entry == nullptr) return step;
    step.name = entry->name;  // an overload by its full name
    step.call = entry->prepare(line, issues);
  } else {
    const DirectiveEntry* entry = FindDirective(step.name);
    if (entry == nullptr) {
      issues.AddField(key, "unknown directive \"" + step.name + "\"");
      return step;
    }
    step.directive = entry->prepare(line, issues);
  }
  if (!issues.empty()) return Step{};
  step.kind = is_call ? Step::Kind::kCall : Step::Kind::kDirective;
  if (line.contains("note")) step.note = line["note"];
  if (!is_call) step.line = std::move(line);
  return step;
}

SessionSummary RunSession(std::istream& script, const std::string& name, const SessionOptions& options,
                          std::ostream& output, std::ostream& errors) {
  SessionSummary summary;
  SessionHost host;
  std::string text;
  for (int number = 1; std::getline(script, text); ++number) {
    if (number == 1 && text.rfind("\xEF\xBB\xBF", 0) == 0) text.erase(0, 3);  // a UTF-8 byte-order mark
    Issues issues;
    try {
      // Reading a line and carrying out a directive are the tool's own work: the host records none of
      // the platform calls they make.
      std::optional<oet_testing::HostBookkeeping> tool_work(std::in_place);
      const Step step = ReadStep(text, issues);
      if (step.kind == Step::Kind::kDirective) {
        const std::string problem = step.directive(host);
        if (!problem.empty()) issues.Add(problem);
        if (problem.empty() && options.format == OutputFormat::kView)
          output << ViewOfDirective(number, step.name, step.note, step.line);
      } else if (step.kind == Step::Kind::kCall) {
        host.recording().TakeEvents();  // nothing before the call belongs to it
        tool_work.reset();
        const CallResult result = step.call();
        tool_work.emplace();
        std::vector<oet_testing::Call> host_calls;
        const std::vector<oet_testing::RecordedEvent> events = host.recording().TakeEvents(&host_calls);
        if (options.format == OutputFormat::kView) {
          output << ViewOfCall(number, step.name, step.note, result, events, host_calls, options.host_calls);
        } else {
          Json out = Json::object();
          out["line"] = number;
          out["call"] = step.name;
          if (!step.note.is_null()) out["note"] = step.note;
          out["result"] = result.result;
          if (!result.filled.empty()) out["filled"] = result.filled;
          out["events"] = oet_testing::ToJson(events);
          Json null_events = Json::array();
          Json listed = Json::array();
          for (const auto& call : host_calls) {
            if (IsNullEvent(call)) null_events.push_back(oet_testing::ToJson(call));
            if (options.host_calls) listed.push_back(oet_testing::ToJson(call));
          }
          if (!null_events.empty()) out["null_events"] = std::move(null_events);
          if (options.host_calls) out["host_calls"] = std::move(listed);
          output << Printed(out, options.format) << "\n";
        }
        ++summary.calls;
      }
    } catch (const std::exception& error) {
      issues.Add(std::string("the line failed: ") + error.what());
    } catch (...) {
      issues.Add("the line failed");
    }
    if (!issues.empty()) host.recording().TakeEvents();  // what a failed line left belongs to no call
    for (const auto& message : issues.messages())
      errors << name << ":" << number << ": " << message << "\n";
    if (!issues.empty()) ++summary.rejected;
  }
  output.flush();
  errors.flush();
  return summary;
}

}  // namespace oet_replay
