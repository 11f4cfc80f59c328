// Member values for the event catalog (catalog.h): setting and reading a member of a call's arguments
// by its path ("info.items[].text", "[]" standing for every entry of a list), and the words the page
// uses for values and sets of values.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tools/replay/record_samples.h"

namespace oet_replay {
namespace catalog {

// "info.items[].text" -> {"info", "items[]", "text"}.
std::vector<std::string> Segments(const std::string& path);
// Sets the member at `segments` (from `i`; "[]": in every entry) to `value`; a discarded value leaves
// it out.
void SetAt(Json& node, const std::vector<std::string>& segments, size_t i, const Json& value);
// The member's value at `path` (the first entry for "[]"), or NoSample().
Json GetAt(const Json& node, const std::string& path);

// `text` as Markdown code, "|" escaped for tables.
std::string Code(const std::string& text);
// "1..5, 7, 9" from a set of integers.
std::string IntegerList(std::vector<Json> values);
// How the page names a member's default value: "0", "empty", "false", "null" or "left out".
std::string NoneWord(const SampleLeaf& leaf);

// The values of a member tried, each with what a call with it showed.
using Tries = std::vector<std::pair<const Json*, const std::string*>>;
// The values of `leaf`, among those tried, for which the outcome was `want`: "`info.kind` in 1..5".
std::string ValuesWhere(const SampleLeaf& leaf, const Tries& tried, const std::string& want);
// "a, b or c" (with `last` "or").
std::string Alternately(const std::vector<std::string>& parts, const char* last);

}  // namespace catalog
}  // namespace oet_replay
