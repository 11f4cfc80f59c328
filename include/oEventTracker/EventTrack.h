// The older logging interface (namespace EventTrack), kept exported so that clients built against it
// still load and link. Its functions send nothing: they create no event, contact no service, read and
// change none of their arguments (a tag map comes back exactly as it was passed) and always return 0.
// Report through the tracking functions of the other namespaces instead.
#pragma once

#include <map>

#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace ns_orbo_telemetry {

// The codes of the older interface. No value of them is used, so none is named; each holds any int
// (the fixed underlying type keeps every int a valid value, and the layout is the host's: an int).
enum OrboLogClientType : int {};
enum OrboLogLocation : int {};
enum OrboLogEvent : int {};
enum OrboLogSubEvent : int {};
enum OrboLogTagName : int {};
enum LogPriority : int {};

// Tags of a log entry: texts (UTF-8) by tag name.
using OrboLogTagMap = std::map<OrboLogTagName, Kst::CStringT<char>>;

}  // namespace ns_orbo_telemetry

namespace EventTrack {

// Ignores its arguments and returns 0.
OET_API int AddEventTrackingLog(Kst::CStringT<char> first, Kst::CStringT<char> second,
                                Kst::CStringT<char> third, Kst::CStringT<char> fourth,
                                ns_orbo_telemetry::OrboLogTagMap& tags,
                                ns_orbo_telemetry::LogPriority priority);

// Ignores its arguments and returns 0.
OET_API int AddEventTrackingLog(ns_orbo_telemetry::OrboLogClientType client_type,
                                ns_orbo_telemetry::OrboLogLocation location,
                                ns_orbo_telemetry::OrboLogEvent event,
                                ns_orbo_telemetry::OrboLogSubEvent sub_event);

// Ignores its arguments and returns 0.
OET_API int AddEventTrackingLog(ns_orbo_telemetry::OrboLogClientType client_type,
                                ns_orbo_telemetry::OrboLogLocation location,
                                ns_orbo_telemetry::OrboLogEvent event,
                                ns_orbo_telemetry::OrboLogSubEvent sub_event,
                                ns_orbo_telemetry::OrboLogTagMap& tags,
                                ns_orbo_telemetry::LogPriority priority);

// Ignores its arguments and returns 0.
OET_API int AddInMeetingEventTrackingLog(ns_orbo_telemetry::OrboLogEvent event,
                                         ns_orbo_telemetry::OrboLogSubEvent sub_event,
                                         ns_orbo_telemetry::OrboLogTagMap& tags);

}  // namespace EventTrack
