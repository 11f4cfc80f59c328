// Reading one script line as JSON.
//
// The reader builds the same ordered JSON value the rest of the tool reads records from (objects keep
// their keys in the order written), but in time linear in the length of the line whatever its shape:
// keys are appended to their object as they come, and a hash set per open object finds a key given
// twice. It is stricter than plain JSON where a script needs it:
//  - a key given twice in one object is reported as a wrong field, `field "info.first_tab": given twice
//    in one object`, with the path of the member (nothing is silently overwritten);
//  - a number beyond the range of a double (1e400) is malformed JSON, reported with its column like
//    every other syntax error;
//  - a NUL byte anywhere in the line is malformed JSON (the parser alone would end the line there);
//  - objects and arrays nest at most kMaxNesting levels deep; a deeper one is reported as a wrong
//    field, `field "a.b[0]": nested deeper than 64 levels`, and stops the reading of the line.
#pragma once

#include <string>

#include "tools/replay/json_binding.h"

namespace oet_replay {

// The deepest nesting of objects and arrays a line may have (a script needs four or five levels).
constexpr int kMaxNesting = 64;

// Parses `text` into `out`. Every problem goes to `issues` ("malformed JSON: ..." for syntax errors,
// one wrong-field message per repeated key); returns whether the line is usable (no issue at all).
bool ParseLine(const std::string& text, Json& out, Issues& issues);

}  // namespace oet_replay
