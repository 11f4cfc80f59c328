// The JSON form of recorded events (see docs/event-format.md): what the replay tool prints and what
// golden sessions compare.
#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "testing/recording_host.h"

namespace oet_testing {

// Objects keep their keys in the order written, so that output reads in a fixed, natural order.
using Json = nlohmann::ordered_json;

// The word of an operation kind ("clear", "call", "string", "int32", ...), as "kind" holds it.
const char* KindName(OpKind kind);

// A double exactly: a JSON number (the shortest text that reads back as the same double, -0.0 with
// its sign) when finite, else the string "NaN", "Infinity" or "-Infinity", which JSON numbers cannot
// express.
Json DoubleToJson(double value);

// The length (1 to 4) of the well-formed UTF-8 sequence that starts at text[at], or 0 when the bytes
// there do not start one (a stray continuation byte, a cut, overlong or surrogate form, a value above
// U+10FFFF, bytes C0, C1 and F5..FF).
size_t Utf8SequenceAt(const std::string& text, size_t at);
bool IsUtf8(const std::string& text);

// A text as the library passed it, byte for byte: the JSON string itself when it is valid UTF-8, and
// otherwise {"bytes": "61 62 E2 82"}, every byte as two upper-case hex digits, one space between
// bytes. Session scripts write texts that are not UTF-8 in the same form.
Json TextToJson(const std::string& text);
// "61 62 E2 82".
std::string HexBytes(const std::string& text);

Json ToJson(const Call& call);
Json ToJson(const RecordedEvent& event);
Json ToJson(const std::vector<RecordedEvent>& events);

// Indented output in which every object that describes one host call stays on one line, so that a
// difference between two outputs reads as a difference of calls.
std::string PrettyPrint(const Json& value);

}  // namespace oet_testing
