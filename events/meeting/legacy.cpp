// The older logging interface: kept so that clients built against it still link, and deliberately
// inert. Nothing here looks a service up, creates an event or touches its arguments.
#include "oEventTracker/EventTrack.h"

namespace EventTrack {

using namespace ns_orbo_telemetry;

int AddEventTrackingLog(Kst::CStringT<char> /*first*/, Kst::CStringT<char> /*second*/,
                        Kst::CStringT<char> /*third*/, Kst::CStringT<char> /*fourth*/,
                        OrboLogTagMap& /*tags*/, LogPriority /*priority*/) {
  return 0;
}

int AddEventTrackingLog(OrboLogClientType client_type, OrboLogLocation location, OrboLogEvent event,
                        OrboLogSubEvent sub_event) {
  OrboLogTagMap no_tags;  // an empty map: nothing is allocated
  return AddEventTrackingLog(client_type, location, event, sub_event, no_tags, LogPriority{});
}

int AddEventTrackingLog(OrboLogClientType /*client_type*/, OrboLogLocation /*location*/,
                        OrboLogEvent /*event*/, OrboLogSubEvent /*sub_event*/, OrboLogTagMap& /*tags*/,
                        LogPriority /*priority*/) {
  return 0;
}

// The in-meeting form has the same (empty) body as the full form.
int AddInMeetingEventTrackingLog(OrboLogEvent event, OrboLogSubEvent sub_event, OrboLogTagMap& tags) {
  return AddEventTrackingLog(OrboLogClientType{}, OrboLogLocation{}, event, sub_event, tags, LogPriority{});
}

}  // namespace EventTrack
