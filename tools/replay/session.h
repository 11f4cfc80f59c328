// Running a session script: one line at a time, each a call of an export or a host directive (see
// docs/replay.md for the format).
//
// For every call one JSON document is written to the output: the script line number, the export, its
// "note" when the line has one, its return value ("result", null for an export that returns nothing),
// the records it filled ("filled", only for exports that fill one) and the events it produced
// ("events": each with its number, its outcome "submitted", "destroyed" or "open", and its host calls
// in order), then "null_events" when a CreateEvent gave the library no event (each such CreateEvent
// call), and with SessionOptions::host_calls every host call of the call in order. Directives, blank lines
// and lines starting with "#" write nothing. The readable view (view.h) writes the same as text instead, and
// shows directives too.
//
// Output is written call by call as the script is read, so that a session of any length runs in
// memory that does not grow with it.
//
// A line that cannot be read (malformed JSON, an unknown export, directive or field, a value of the
// wrong type or out of range) is reported on the error stream as `NAME:LINE: message`, one message
// per problem, and skipped; the lines after it still run. A session keeps one recording host from
// its first line to its last, and the library's process-wide state (the client-context cache, the
// stored meeting strings) carries over from line to line as it would in the client.
#pragma once

#include <iosfwd>
#include <string>

#include "tools/replay/exports.h"
#include "tools/replay/host_directives.h"

namespace oet_replay {

// One script line as read, before anything runs.
struct Step {
  enum class Kind { kNothing, kCall, kDirective };
  Kind kind = Kind::kNothing;
  std::string name;  // the export or the directive
  Json note;         // the line's "note", or null
  Json line;         // a directive's line as read
  PreparedCall call;
  PreparedDirective directive;
};

// Reads one line. Blank lines and comments give kNothing; a line with problems gives kNothing and
// fills `issues`.
Step ReadStep(const std::string& text, Issues& issues);

enum class OutputFormat {
  kJson,    // one JSON document per line
  kPretty,  // indented JSON, one host call per line (testing/event_json.h's PrettyPrint)
  kView,    // the readable view (view.h)
};

struct SessionOptions {
  OutputFormat format = OutputFormat::kJson;
  // Adds to every call the whole ordered list of its host calls ("host_calls"; in the view, "host
  // calls"): telemetry, registry, web service, URL utilities, system facts, clock, text conversion.
  bool host_calls = false;
};

struct SessionSummary {
  int calls = 0;     // calls that ran
  int rejected = 0;  // lines reported as wrong and skipped
};

// Runs every line of `script`; `name` is the script's name in messages.
SessionSummary RunSession(std::istream& script, const std::string& name, const SessionOptions& options,
                          std::ostream& output, std::ostream& errors);

}  // namespace oet_replay
