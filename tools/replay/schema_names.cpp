#include "tools/replay/schema_names.h"

#include <charconv>
#include <cmath>
#include <map>
#include <type_traits>

#include "testing/event_json.h"

namespace oet_replay {

std::string EntitySchemaName(int32_t type) {
  static const std::map<int32_t, std::string> names{
#define KST_FIELDS(Name)
#define KST_ENTITY(Name, TypeId) {TypeId, #Name},
#define KST_ENTITY_VIA(Name, TypeId, Fields) {TypeId, #Name},
#define KST_OP(Name, N, Kind, OpName)
#define KST_RESERVED(Name, N)
#define KST_END(Name)
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"
  };
  const auto it = names.find(type);
  return it == names.end() ? std::string() : it->second;
}

std::string EntityTitle(int32_t type) {
  const std::string name = EntitySchemaName(type);
  return std::to_string(type) + (name.empty() ? "" : " " + name);
}

namespace {

bool StartsWithWord(const std::string& name, const char* prefix) {
  const std::string word = prefix;
  return name.size() > word.size() && name.compare(0, word.size(), word) == 0 && name[word.size()] >= 'A' &&
         name[word.size()] <= 'Z';
}

}  // namespace

std::string FieldName(const std::string& op_name, oet_testing::OpKind kind) {
  using oet_testing::OpKind;
  if (kind == OpKind::kCall) return op_name;
  const char* prefix = kind == OpKind::kClear ? "Clear" : "Set";
  return StartsWithWord(op_name, prefix) ? op_name.substr(std::char_traits<char>::length(prefix)) : op_name;
}

std::string DoubleText(double value) {
  if (std::isnan(value)) return "NaN";
  char text[64];
  const auto result = std::to_chars(text, text + sizeof text, value);
  return std::string(text, result.ptr);
}

std::string ValueText(const oet_testing::OpValue& value) {
  return std::visit(
      [](const auto& v) -> std::string {
        using T = std::decay_t<decltype(v)>;
        if constexpr (std::is_same_v<T, std::monostate>) {
          return "";
        } else if constexpr (std::is_same_v<T, std::string>) {
          return oet_testing::TextToJson(v).dump();
        } else if constexpr (std::is_same_v<T, bool>) {
          return v ? "true" : "false";
        } else if constexpr (std::is_same_v<T, double>) {
          return DoubleText(v);
        } else {
          return std::to_string(v);
        }
      },
      value);
}

}  // namespace oet_replay
