// Host directives of a session script: what the host answers, which services exist, what fails, and
// what the clock shows. A directive line names its directive under "host" and gives its fields beside
// it, as {"host": "clock", "advance_ms": 1500}; docs/replay.md lists every directive and field.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "testing/recording_host.h"
#include "tools/replay/json_binding.h"

namespace oet_replay {

// The host a session runs against: the recording host (installed for the session's lifetime) and
// what the script has told the web service so far, so that a directive changes only the answers it
// names.
class SessionHost {
 public:
  SessionHost() = default;

  oet_testing::RecordingHost& recording() { return recording_; }
  oet_testing::WebServiceFake& web_service() { return recording_.web_service(); }
  oet_testing::WebServiceFake::ContextAnswer& context_answer() { return context_answer_; }

 private:
  oet_testing::RecordingHost recording_;
  oet_testing::WebServiceFake::ContextAnswer context_answer_;
};

// A directive read from a script line, ready to apply. It answers an empty text, or why it could not
// be carried out (the host is then left as it was).
using PreparedDirective = std::function<std::string(SessionHost&)>;

struct DirectiveEntry {
  std::string name;
  // Reads the directive's fields from the line; returns an empty function and reports to `issues`
  // when anything is wrong.
  std::function<PreparedDirective(const Json& line, Issues& issues)> prepare;
};

const std::vector<DirectiveEntry>& Directives();
// The directive of that name, or null.
const DirectiveEntry* FindDirective(const std::string& name);

}  // namespace oet_replay
