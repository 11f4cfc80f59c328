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

Json ToJson(const Call& call);
Json ToJson(const RecordedEvent& event);
Json ToJson(const std::vector<RecordedEvent>& events);

// Indented output in which every object that describes one host call stays on one line, so that a
// difference between two outputs reads as a difference of calls.
std::string PrettyPrint(const Json& value);

}  // namespace oet_testing
