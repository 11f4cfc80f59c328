// Meeting interactions of the main window (outside a meeting).
#pragma once

#include <cstdint>
#include <string>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// An interaction with the meeting feature. The values are the meeting feature's own codes; the event
// is sent only when meeting values 1, 2, 3 and 5 are all non-zero (value 4 may be 0 and is then sent
// as 0).
struct MeetingInteractInfo_s {
  int32_t meeting_value1 = 0;           // must be non-zero
  int32_t meeting_value2 = 0;           // must be non-zero
  int32_t meeting_value3 = 0;           // must be non-zero
  int32_t meeting_value4 = 0;           // may be 0
  int32_t meeting_value5 = 0;           // must be non-zero
  Kst::CStringT<wchar_t> meeting_text;  // UTF-8 in the event; cleared when empty
  int64_t spare_number = 0;             // not sent
  std::string meeting_detail;           // sent as it is, empty or not
};

// A meeting interaction: context entities 283 (client), 304 (tracking values) and 297, attached only
// when the host gives all three; body 289 with the feature name "meeting". Needs the web service and
// the telemetry service. Returns 0, and destroys the event it had created, when a key value (1, 2, 3
// or 5) is 0 or while no refresh of the client context has reached the web service (its os name is
// still empty). A client context that the web service was asked to fill but left with an empty
// web-service value is sent as it is, with that value empty.
OET_API int TrackingMeetingInteractEvent(const PTTrackingInfo_s& tracking, const MeetingInteractInfo_s& info);

}  // namespace OrboPTPAAP
