// The readable view of a session (`oet-replay --view`): what a person reads instead of the JSON.
//
// A call is one line: its script line, the export, its result ("-> 1"; nothing for an export that
// returns nothing) and its note. Under it, the records it filled (`filled info` with one `name = value`
// line per member) and each of its events as a short tree:
//
//   line 13  OrboPTPAAP::TrackingPTInteractEvent -> 1  # chat -> meetings
//     event 2  submitted  codes 3 1
//       context 203
//         #1 283 ClientEntity
//           WebServiceValue = "ws-value"
//           ...
//         null
//       body 201
//         #3 282 TabSwitchEntity
//           Prepare()
//           Action = "switch_tab"
//           TextD cleared
//
// An event shows its outcome (submitted with its codes, destroyed with the argument, or open), then its
// attachments in the order they were made: a list (context 203) with one entry per line, null entries
// included, and single entities (body 201). Each entity shows its number in the event, its type id and
// schema name, and its operations in the order they were called: setters as `Field = value` (texts
// quoted, doubles exact), clears as `Field cleared`, argument-less calls as `Name()`. An entity that
// was never attached is listed under "not attached", an entity type the host gave none of as
// "no entity given for TYPE", and a host call that was made to throw as "threw at ...". A CreateEvent
// that gave no event shows under the call line as `CreateEvent -> null`; with the host-call listing,
// every host call of the call follows its events under "host calls", one per line.
// A call with events or filled records ends with a blank line. A host directive is one line,
// `line 5  host clock  advance_ms = 41000`.
//
// The view holds no addresses and no times but those the events carry, so two views diff cleanly.
#pragma once

#include <string>
#include <vector>

#include "testing/recording_host.h"
#include "tools/replay/exports.h"

namespace oet_replay {

// `host_calls`: every host call the call made, in order. A CreateEvent that answered null is shown on a
// line of its own under the call line (`CreateEvent -> null`); with `list_host_calls` every host call
// follows the events under "host calls", one line each.
std::string ViewOfCall(int line, const std::string& name, const Json& note, const CallResult& result,
                       const std::vector<oet_testing::RecordedEvent>& events,
                       const std::vector<oet_testing::Call>& host_calls = {}, bool list_host_calls = false);
// True for a CreateEvent that gave the library no event.
inline bool IsNullEvent(const oet_testing::Call& call) {
  return call.fn == oet_testing::Call::Fn::kCreateEvent && call.event == 0;
}
// `fields`: the directive's line; its fields are every member but "host" and "note".
std::string ViewOfDirective(int line, const std::string& name, const Json& note, const Json& fields);

}  // namespace oet_replay
