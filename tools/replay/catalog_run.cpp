#include "tools/replay/catalog_run.h"

#include <stdexcept>

#include "testing/event_json.h"
#include "tools/replay/schema_names.h"
#include "tools/replay/session.h"

namespace oet_replay {
namespace catalog {

using oet_testing::Call;
using oet_testing::RecordedEvent;

std::string Ordinal(int n) {
  const int last = n % 10;
  const bool teen = n % 100 >= 11 && n % 100 <= 13;
  const char* suffix = teen ? "th" : last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th";
  return std::to_string(n) + suffix;
}

namespace {

std::string Gate(const Seen& seen) {
  return (seen.result == "null" ? std::string("returns nothing") : "returns " + seen.result) +
         (seen.sent ? "" : " and sends nothing");
}

std::string Events(const Seen& seen) {
  if (seen.outcomes.empty()) return "no event";
  std::string text =
      seen.outcomes.size() == 1 ? "one event, " : std::to_string(seen.outcomes.size()) + " events: ";
  for (size_t i = 0; i < seen.outcomes.size(); ++i)
    text += (i == 0 ? "" : "; ") + seen.outcomes[i];
  return text;
}

void Flatten(const Json& value, const std::string& path,
             std::vector<std::pair<std::string, std::string>>& out) {
  if (value.is_object() && (!value.empty() || path.empty()) && !IsTextForm(value)) {
    for (auto it = value.begin(); it != value.end(); ++it)
      Flatten(*it, MemberPath(path, it.key()), out);
    return;
  }
  out.emplace_back(path, CompactText(value));
}

}  // namespace

Seen Observer::Observe(const CallResult& result, const std::vector<RecordedEvent>& events) {
  Seen seen;
  seen.result = CompactText(result.result);
  Flatten(result.filled, "", seen.filled);
  for (size_t e = 0; e < events.size(); ++e) {
    const int event = static_cast<int>(e) + 1;
    std::map<int, size_t> by_number;
    std::map<int32_t, int> occurrences;
    std::map<size_t, std::map<std::string, int>> op_counts;
    std::map<size_t, std::vector<std::string>> placements;
    const size_t first = seen.entities.size();
    std::string outcome = "left open";
    for (const Call& call : events[e].calls) {
      switch (call.fn) {
        case Call::Fn::kCreateEntity: {
          EntitySeen entity;
          const int occurrence = ++occurrences[call.type];
          entity.key =
              std::to_string(event) + ":" + std::to_string(call.type) + "#" + std::to_string(occurrence);
          entity.given = call.entity > 0;
          entities.emplace(entity.key, EntityInfo{call.type, event, occurrence});
          if (entity.given) by_number[call.entity] = seen.entities.size();
          seen.entities.push_back(std::move(entity));
          break;
        }
        case Call::Fn::kEntityOp: {
          const auto it = by_number.find(call.entity);
          if (it == by_number.end()) break;
          EntitySeen& entity = seen.entities[it->second];
          const std::string op = call.iface + "." + std::to_string(call.op);
          const int count = ++op_counts[it->second][op];
          OpSeen seen_op{op + "#" + std::to_string(count), ValueText(call.value)};
          std::string key = entity.key + "|" + seen_op.key;
          if (ops.find(key) == ops.end()) {
            std::string label = "`" + op + " " + call.name + "`";
            if (count > 1) label += " (" + Ordinal(count) + " call)";
            ops.emplace(std::move(key), OpInfo{std::move(label), oet_testing::KindName(call.kind)});
          }
          entity.ops.push_back(std::move(seen_op));
          break;
        }
        case Call::Fn::kAttachEntityList:
          for (size_t i = 0; i < call.entities.size(); ++i) {
            const auto it = by_number.find(call.entities[i]);
            if (call.entities[i] == 0) ++seen.null_entries;
            if (it == by_number.end()) continue;
            placements[it->second].push_back((call.attachment_id == 203 ? "context " : "list ") +
                                             std::to_string(call.attachment_id) + ", entry " +
                                             std::to_string(i + 1));
          }
          break;
        case Call::Fn::kAttachEntity: {
          const auto it = by_number.find(call.entity);
          if (it != by_number.end()) {
            placements[it->second].push_back((call.attachment_id == 201 ? "body " : "entity ") +
                                             std::to_string(call.attachment_id));
          }
          break;
        }
        case Call::Fn::kSubmitEvent:
          if (events[e].outcome == RecordedEvent::Outcome::kSubmitted) {
            outcome = "submitted with the codes " + std::to_string(call.first_code) + " " +
                      std::to_string(call.second_code);
            if (call.params != 0) outcome += call.params < 0 ? " and no parameter map" : " and parameters";
            seen.sent = true;
          }
          break;
        case Call::Fn::kDestroyEvent:
          outcome = "destroyed (" + std::to_string(call.first_code) + ")";
          break;
        case Call::Fn::kCreateEvent:
        case Call::Fn::kHostCall:  // events hold telemetry calls only
          break;
      }
    }
    for (size_t i = first; i < seen.entities.size(); ++i) {
      std::string placement;
      for (const auto& place : placements[i])
        placement += (placement.empty() ? "" : "; ") + place;
      if (placement.empty()) placement = seen.entities[i].given ? "not attached" : "none given";
      seen.entities[i].placement = placement;
    }
    seen.outcomes.push_back(outcome);
  }
  seen.gate = Gate(seen);
  seen.events = Events(seen);
  return seen;
}

void Runner::Directive(const std::string& line) {
  Issues issues;
  const Step step = ReadStep(line, issues);
  if (step.kind != Step::Kind::kDirective) throw std::logic_error("catalog directive does not read: " + line);
  const std::string problem = step.directive(*host_);
  if (!problem.empty()) throw std::logic_error(problem);
}

Seen Runner::Call(const ExportEntry& entry, const Json& arguments, bool repeat) {
  Issues issues;
  const PreparedCall call = entry.prepare(arguments, issues);
  if (!call) {
    throw std::logic_error(entry.name + ": a catalog record does not read back: " +
                           (issues.empty() ? std::string() : issues.messages().front()));
  }
  const CallResult result = call();
  Seen seen = observer.Observe(result, host_->recording().TakeEvents());
  if (repeat && seen.sent) {
    call();
    bool sent = false;
    for (const auto& event : host_->recording().TakeEvents())
      sent = sent || event.outcome == RecordedEvent::Outcome::kSubmitted;
    seen.repeat_dropped = !sent;
  }
  return seen;
}

}  // namespace catalog
}  // namespace oet_replay
