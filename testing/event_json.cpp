#include "testing/event_json.h"

#include <cmath>

namespace oet_testing {
namespace {

const char* FnName(Call::Fn fn) {
  switch (fn) {
    case Call::Fn::kCreateEvent:
      return "CreateEvent";
    case Call::Fn::kCreateEntity:
      return "CreateEntity";
    case Call::Fn::kEntityOp:
      return "op";
    case Call::Fn::kAttachEntityList:
      return "AttachEntityList";
    case Call::Fn::kAttachEntity:
      return "AttachEntity";
    case Call::Fn::kSubmitEvent:
      return "SubmitEvent";
    case Call::Fn::kDestroyEvent:
      return "DestroyEvent";
    case Call::Fn::kHostCall:
      return "";  // named by the call itself
  }
  return "";
}

const char* OutcomeName(RecordedEvent::Outcome outcome) {
  switch (outcome) {
    case RecordedEvent::Outcome::kOpen:
      return "open";
    case RecordedEvent::Outcome::kSubmitted:
      return "submitted";
    case RecordedEvent::Outcome::kDestroyed:
      return "destroyed";
  }
  return "";
}

// An entity reference: its number, null, or "unknown" for a pointer the host never handed out.
Json EntityRef(int number) {
  if (number == 0) return nullptr;
  if (number < 0) return "unknown";
  return number;
}

bool IsCall(const Json& value) {
  return value.is_object() && value.contains("fn");
}

void Pretty(const Json& value, int indent, std::string& out) {
  const std::string pad(static_cast<size_t>(indent) * 2, ' ');
  const std::string inner(static_cast<size_t>(indent + 1) * 2, ' ');
  if (IsCall(value) || value.empty() || !value.is_structured()) {
    out += value.dump(-1, ' ', false, Json::error_handler_t::replace);  // never throws on a cut UTF-8 text
    return;
  }
  const bool object = value.is_object();
  out += object ? "{\n" : "[\n";
  size_t i = 0;
  for (auto it = value.begin(); it != value.end(); ++it, ++i) {
    out += inner;
    if (object) out += Json(it.key()).dump() + ": ";
    Pretty(*it, indent + 1, out);
    out += i + 1 < value.size() ? ",\n" : "\n";
  }
  out += pad + (object ? "}" : "]");
}

}  // namespace

const char* KindName(OpKind kind) {
  switch (kind) {
    case OpKind::kClear:
      return "clear";
    case OpKind::kCall:
      return "call";
    case OpKind::kString:
      return "string";
    case OpKind::kInt32:
      return "int32";
    case OpKind::kInt64:
      return "int64";
    case OpKind::kUInt64:
      return "uint64";
    case OpKind::kBool:
      return "bool";
    case OpKind::kDouble:
      return "double";
  }
  return "";
}

Json DoubleToJson(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
  return value;
}

size_t Utf8SequenceAt(const std::string& text, size_t at) {
  const auto byte = [&text](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const unsigned lead = byte(at);
  if (lead < 0x80) return at < text.size() ? 1 : 0;
  // The range of the second byte depends on the lead (no overlong forms, no surrogates, nothing above
  // U+10FFFF); later bytes are 80..BF.
  size_t length = 0;
  unsigned low = 0x80;
  unsigned high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    low = lead == 0xE0 ? 0xA0 : 0x80;
    high = lead == 0xED ? 0x9F : 0xBF;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    low = lead == 0xF0 ? 0x90 : 0x80;
    high = lead == 0xF4 ? 0x8F : 0xBF;
  } else {
    return 0;
  }
  if (byte(at + 1) < low || byte(at + 1) > high) return 0;
  for (size_t i = 2; i < length; ++i) {
    if (byte(at + i) < 0x80 || byte(at + i) > 0xBF) return 0;
  }
  return length;
}

bool IsUtf8(const std::string& text) {
  for (size_t at = 0; at < text.size();) {
    const size_t length = Utf8SequenceAt(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::string HexBytes(const std::string& text) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (!hex.empty()) hex += ' ';
    hex += kDigits[byte >> 4];
    hex += kDigits[byte & 0xF];
  }
  return hex;
}

Json TextToJson(const std::string& text) {
  if (IsUtf8(text)) return text;
  Json out = Json::object();
  out["bytes"] = HexBytes(text);
  return out;
}

// A value of an operation or a host call; std::monostate (no value, or a null object) as null.
static Json ValueJson(const OpValue& value) {
  return std::visit(
      [](const auto& v) -> Json {
        using T = std::decay_t<decltype(v)>;
        if constexpr (std::is_same_v<T, double>) {
          return DoubleToJson(v);
        } else if constexpr (std::is_same_v<T, std::monostate>) {
          return nullptr;
        } else if constexpr (std::is_same_v<T, std::string>) {
          return TextToJson(v);
        } else {
          return v;
        }
      },
      value);
}

Json ToJson(const Call& call) {
  Json out = Json::object();
  out["fn"] = call.fn == Call::Fn::kHostCall ? call.name : FnName(call.fn);
  switch (call.fn) {
    case Call::Fn::kCreateEvent:
      out["event"] = call.event == 0 ? Json(nullptr) : Json(call.event);
      break;
    case Call::Fn::kCreateEntity:
      out["type"] = call.type;
      out["entity"] = EntityRef(call.entity);
      break;
    case Call::Fn::kEntityOp:
      out["entity"] = EntityRef(call.entity);
      out["type"] = call.type;
      out["iface"] = call.iface;
      out["op"] = call.op;
      out["name"] = call.name;
      out["kind"] = KindName(call.kind);
      if (call.value.index() != 0) out["value"] = ValueJson(call.value);
      break;
    case Call::Fn::kAttachEntityList: {
      out["id"] = call.attachment_id;
      Json entities = Json::array();
      for (const int number : call.entities)
        entities.push_back(EntityRef(number));
      out["entities"] = entities;
      break;
    }
    case Call::Fn::kAttachEntity:
      out["id"] = call.attachment_id;
      out["entity"] = EntityRef(call.entity);
      break;
    case Call::Fn::kSubmitEvent:
      out["codes"] = {call.first_code, call.second_code};
      out["params"] = call.params;
      break;
    case Call::Fn::kDestroyEvent:
      out["arg"] = call.first_code;
      break;
    case Call::Fn::kHostCall:
      if (!call.args.empty()) {
        Json args = Json::array();
        for (const auto& arg : call.args)
          args.push_back(ValueJson(arg));
        out["args"] = args;
      }
      if (call.answered) out["answer"] = ValueJson(call.answer);
      break;
  }
  if (call.threw) out["threw"] = true;
  return out;
}

Json ToJson(const RecordedEvent& event) {
  Json calls = Json::array();
  for (const auto& call : event.calls)
    calls.push_back(ToJson(call));
  Json out = Json::object();
  out["event"] = event.number;
  out["outcome"] = OutcomeName(event.outcome);
  out["calls"] = calls;
  return out;
}

Json ToJson(const std::vector<RecordedEvent>& events) {
  Json out = Json::array();
  for (const auto& event : events)
    out.push_back(ToJson(event));
  return out;
}

std::string PrettyPrint(const Json& value) {
  std::string out;
  Pretty(value, 0, out);
  return out;
}

}  // namespace oet_testing
