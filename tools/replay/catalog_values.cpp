#include "tools/replay/catalog_values.h"

#include <algorithm>

namespace oet_replay {
namespace catalog {

// ---- Values at member paths ----

std::vector<std::string> Segments(const std::string& path) {
  std::vector<std::string> segments;
  size_t start = 0;
  for (;;) {
    const size_t dot = path.find('.', start);
    segments.push_back(path.substr(start, dot - start));
    if (dot == std::string::npos) return segments;
    start = dot + 1;
  }
}

bool EveryEntry(std::string& segment) {
  if (segment.size() < 2 || segment.compare(segment.size() - 2, 2, "[]") != 0) return false;
  segment.resize(segment.size() - 2);
  return true;
}

// Sets the member at `path` ("[]": in every entry) to `value`; a discarded value leaves it out.
void SetAt(Json& node, const std::vector<std::string>& segments, size_t i, const Json& value) {
  std::string key = segments[i];
  const bool every = EveryEntry(key);
  if (!node.is_object()) return;
  const bool last = i + 1 == segments.size();
  if (last && !every) {
    if (value.is_discarded()) {
      node.erase(key);
    } else {
      node[key] = value;
    }
    return;
  }
  Json& child = node[key];
  if (!every) {
    SetAt(child, segments, i + 1, value);
    return;
  }
  for (auto& entry : child) {
    if (last) {
      entry = value;
    } else {
      SetAt(entry, segments, i + 1, value);
    }
  }
}

// The member's value at `path` (the first entry for "[]").
Json GetAt(const Json& node, const std::string& path) {
  const Json* at = &node;
  for (std::string segment : Segments(path)) {
    const bool every = EveryEntry(segment);
    if (!at->is_object() || !at->contains(segment)) return NoSample();
    at = &(*at)[segment];
    if (every) {
      if (!at->is_array() || at->empty()) return NoSample();
      at = &(*at)[0];
    }
  }
  return *at;
}

// ---- Describing sets of values ----

std::string Code(const std::string& text) {
  std::string escaped;
  for (const char c : text)
    escaped += c == '|' ? std::string("\\|") : std::string(1, c);
  return "`" + escaped + "`";
}

// Integers in order: negative ones first (largest magnitude first), then the rest.
struct IntKey {
  bool negative;
  uint64_t magnitude;
  bool operator<(const IntKey& other) const {
    if (negative != other.negative) return negative;
    return negative ? magnitude > other.magnitude : magnitude < other.magnitude;
  }
  bool operator==(const IntKey& other) const {
    return negative == other.negative && magnitude == other.magnitude;
  }
  IntKey Next() const {
    if (!negative) return {false, magnitude + 1};
    return magnitude == 1 ? IntKey{false, 0} : IntKey{true, magnitude - 1};
  }
};

IntKey KeyOf(const Json& value) {
  if (value.is_number_unsigned()) return {false, value.get<uint64_t>()};
  const auto number = value.get<int64_t>();
  return number < 0 ? IntKey{true, 0 - static_cast<uint64_t>(number)}
                    : IntKey{false, static_cast<uint64_t>(number)};
}

// "1..5, 7, 9" from a set of integers.
std::string IntegerList(std::vector<Json> values) {
  std::sort(values.begin(), values.end(), [](const Json& a, const Json& b) { return KeyOf(a) < KeyOf(b); });
  std::string text;
  for (size_t i = 0; i < values.size();) {
    size_t j = i;
    while (j + 1 < values.size() && KeyOf(values[j + 1]) == KeyOf(values[j]).Next())
      ++j;
    text += text.empty() ? "" : ", ";
    if (j >= i + 2) {
      text += CompactText(values[i]) + ".." + CompactText(values[j]);
    } else {
      for (size_t k = i; k <= j; ++k)
        text += (k == i ? "" : ", ") + CompactText(values[k]);
    }
    i = j + 1;
  }
  return text;
}

std::string NoneWord(const SampleLeaf& leaf) {
  if (leaf.none.is_discarded()) return "left out";
  if (leaf.type == "bool") return "false";
  if (leaf.type == "time") return "null";
  if (leaf.none.is_number()) return "0";
  return "empty";
}

// The values of `leaf`, among those tried, for which the outcome was `want`.
using Tries = std::vector<std::pair<const Json*, const std::string*>>;

std::string ValuesWhere(const SampleLeaf& leaf, const Tries& tried, const std::string& want) {
  std::vector<Json> yes;
  std::vector<Json> no;
  for (const auto& [value, outcome] : tried) {
    auto& side = *outcome == want ? yes : no;
    if (std::find(side.begin(), side.end(), *value) == side.end()) side.push_back(*value);
  }
  const std::string name = Code(leaf.path);
  if (!leaf.scan.empty()) {
    if (yes.size() <= no.size()) return name + (yes.size() == 1 ? " is " : " in ") + IntegerList(yes);
    return name + (no.size() == 1 ? " is not " : " not in ") + IntegerList(no);
  }
  if (leaf.type == "bool" && yes.size() == 1) return name + " is " + CompactText(yes.front());
  if (no.size() == 1 && no.front() == leaf.none) return name + " is not " + NoneWord(leaf);
  if (yes.size() == 1 && yes.front() == leaf.none) return name + " is " + NoneWord(leaf);
  std::string text;
  for (const auto& value : yes)
    text += (text.empty() ? "" : " or ") + (value == leaf.none ? NoneWord(leaf) : Code(CompactText(value)));
  return name + " is " + text;
}

// "a, b or c".
std::string Alternately(const std::vector<std::string>& parts, const char* last) {
  std::string text;
  for (size_t i = 0; i < parts.size(); ++i)
    text += (i == 0                  ? ""
             : i + 1 == parts.size() ? std::string(" ") + last + " "
                                     : std::string(", ")) +
            parts[i];
  return text;
}

}  // namespace catalog
}  // namespace oet_replay
