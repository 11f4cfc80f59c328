#include "tools/replay/view.h"

#include <map>
#include <set>

#include "tools/replay/schema_names.h"

namespace oet_replay {
namespace {

using oet_testing::Call;
using oet_testing::OpKind;
using oet_testing::RecordedEvent;

std::string Indent(int depth) {
  return std::string(static_cast<size_t>(depth) * 2, ' ');
}

std::string CallLine(int line, const std::string& head, const Json& note) {
  std::string out = "line " + std::to_string(line) + "  " + head;
  if (note.is_string()) out += "  # " + note.get<std::string>();
  return out + "\n";
}

// Every member of a filled record as `path = value`, nested records flattened with dots.
void FilledMembers(const Json& value, const std::string& path, int depth, std::string& out) {
  if (value.is_object() && !value.empty() && !IsTextForm(value)) {
    for (auto it = value.begin(); it != value.end(); ++it)
      FilledMembers(*it, MemberPath(path, it.key()), depth, out);
    return;
  }
  out += Indent(depth) + path + " = " + CompactText(value) + "\n";
}

std::string OpLine(const Call& call) {
  std::string text;
  switch (call.kind) {
    case OpKind::kCall:
      text = call.name + "()";
      break;
    case OpKind::kClear:
      text = FieldName(call.name, call.kind) + " cleared";
      break;
    default:
      text = FieldName(call.name, call.kind) + " = " + ValueText(call.value);
      break;
  }
  return call.threw ? text + "  (threw)" : text;
}

class EventTree {
 public:
  explicit EventTree(const RecordedEvent& event) : event_(event) {
    for (const auto& call : event.calls) {
      if (call.fn == Call::Fn::kCreateEntity) {
        if (call.entity > 0) {
          entities_[call.entity].type = call.type;
        } else {
          not_given_.push_back(call.type);
        }
      } else if (call.fn == Call::Fn::kEntityOp && call.entity > 0) {
        Entity& entity = entities_[call.entity];
        entity.type = call.type;
        entity.ops.push_back(&call);
      }
    }
  }

  void Write(std::string& out) {
    out += Indent(1) + "event " + std::to_string(event_.number) + "  " + Outcome() + "\n";
    for (const auto& call : event_.calls) {
      if (call.fn == Call::Fn::kAttachEntityList) {
        out += Indent(2) + (call.attachment_id == 203 ? "context " : "list ") +
               std::to_string(call.attachment_id) + "\n";
        for (const int number : call.entities)
          WriteEntity(number, out);
      } else if (call.fn == Call::Fn::kAttachEntity) {
        out += Indent(2) + (call.attachment_id == 201 ? "body " : "entity ") +
               std::to_string(call.attachment_id) + "\n";
        WriteEntity(call.entity, out);
      }
    }
    bool header = false;
    for (const auto& [number, entity] : entities_) {
      if (shown_.count(number) != 0) continue;
      if (!header) out += Indent(2) + "not attached\n";
      header = true;
      WriteEntity(number, out);
    }
    for (const int32_t type : not_given_)
      out += Indent(2) + "no entity given for " + EntityTitle(type) + "\n";
    for (const auto& call : event_.calls) {
      if (!call.threw || call.fn == Call::Fn::kEntityOp) continue;
      Call shown = call;
      shown.threw = false;  // said in words already
      out += Indent(2) + "threw at " + Describe(shown) + "\n";
    }
  }

 private:
  struct Entity {
    int32_t type = 0;
    std::vector<const Call*> ops;
  };

  // The outcome the host recorded: a DestroyEvent or SubmitEvent that threw left the event open.
  std::string Outcome() const {
    for (const auto& call : event_.calls) {
      if (call.fn == Call::Fn::kSubmitEvent && event_.outcome == RecordedEvent::Outcome::kSubmitted) {
        std::string text =
            "submitted  codes " + std::to_string(call.first_code) + " " + std::to_string(call.second_code);
        if (call.params != 0)
          text += call.params < 0 ? "  no params" : "  params " + std::to_string(call.params);
        return text;
      }
      if (call.fn == Call::Fn::kDestroyEvent && event_.outcome == RecordedEvent::Outcome::kDestroyed)
        return "destroyed (" + std::to_string(call.first_code) + ")";
    }
    return "open";
  }

  void WriteEntity(int number, std::string& out) {
    if (number == 0) {
      out += Indent(3) + "null\n";
      return;
    }
    const auto it = entities_.find(number);
    if (number < 0 || it == entities_.end()) {
      out += Indent(3) + "unknown\n";
      return;
    }
    std::string title = "#" + std::to_string(number) + " " + EntityTitle(it->second.type);
    if (!shown_.insert(number).second) {
      out += Indent(3) + title + "  (as above)\n";
      return;
    }
    out += Indent(3) + title + "\n";
    for (const Call* op : it->second.ops)
      out += Indent(4) + OpLine(*op) + "\n";
  }

  const RecordedEvent& event_;
  std::map<int, Entity> entities_;
  std::vector<int32_t> not_given_;
  std::set<int> shown_;
};

// A value of a host call; std::monostate stands for a null object.
std::string HostValueText(const oet_testing::OpValue& value) {
  return value.index() == 0 ? "null" : ValueText(value);
}

// One host call on one line: telemetry calls as oet_testing::Describe writes them (texts as ValueText
// shows them), the others as `Name(arguments) -> answer`.
std::string HostCallLine(const Call& call) {
  std::string text;
  if (call.fn == Call::Fn::kHostCall) {
    text = call.name + "(";
    for (size_t i = 0; i < call.args.size(); ++i)
      text += (i == 0 ? "" : ", ") + HostValueText(call.args[i]);
    text += ")";
    if (call.answered) text += " -> " + HostValueText(call.answer);
    return call.threw ? text + "  (threw)" : text;
  }
  if (call.fn == Call::Fn::kEntityOp) {
    Call shown = call;
    shown.value = std::monostate();
    shown.threw = false;
    text = oet_testing::Describe(shown);
    if (call.value.index() != 0) text += " " + ValueText(call.value);
    return call.threw ? text + "  (threw)" : text;
  }
  return oet_testing::Describe(call);
}

}  // namespace

std::string ViewOfCall(int line, const std::string& name, const Json& note, const CallResult& result,
                       const std::vector<RecordedEvent>& events, const std::vector<Call>& host_calls,
                       bool list_host_calls) {
  std::string out =
      CallLine(line, result.result.is_null() ? name : name + " -> " + CompactText(result.result), note);
  bool block = !events.empty() || !result.filled.empty();
  for (const Call& call : host_calls) {
    if (!IsNullEvent(call)) continue;
    out += Indent(1) + HostCallLine(call) + "\n";
    block = true;
  }
  for (auto it = result.filled.begin(); it != result.filled.end(); ++it) {
    out += Indent(1) + "filled " + it.key() + "\n";
    FilledMembers(*it, "", 2, out);
  }
  for (const auto& event : events)
    EventTree(event).Write(out);
  if (list_host_calls && !host_calls.empty()) {
    out += Indent(1) + "host calls\n";
    for (const Call& call : host_calls)
      out += Indent(2) + HostCallLine(call) + "\n";
    block = true;
  }
  if (block) out += "\n";  // a blank line after a block
  return out;
}

std::string ViewOfDirective(int line, const std::string& name, const Json& note, const Json& fields) {
  std::string head = "host " + name;
  std::string separator = "  ";
  for (auto it = fields.begin(); it != fields.end(); ++it) {
    if (it.key() == "host" || it.key() == "note") continue;
    head += separator + it.key() + " = " + CompactText(*it);
    separator = ", ";
  }
  return CallLine(line, head, note);
}

}  // namespace oet_replay
