// Interactions with the client's own user-interface framework, inside a meeting.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPAAP/tracking.h"
#include "oEventTracker/api.h"

namespace OrboPAAP {

// One interaction with the user-interface framework: six values, sent unchanged. Their meaning is the
// caller's.
struct MTOUIInteractInfo_s {
  int32_t value1 = 0;
  int32_t value2 = 0;
  int32_t value3 = 0;
  int32_t value4 = 0;
  int32_t value5 = 0;
  int32_t value6 = 0;
};

// Reports a framework interaction inside a meeting: the in-meeting twin of
// OrboPTPAAP::TrackingOUIFrameworkInteract, with the same body (183) filled the same way. Needs the web
// service and the telemetry service. The context entities 187, 182 and 186 go out without fields (a
// list of those the host gives, not attached when it gives none); the tracking record is not read.
// Submitted with codes 4 and 1.
OET_API int TrackingOUIFrameworkInteract(const MeetingTrackingInfo_s& tracking,
                                         const MTOUIInteractInfo_s& info);

}  // namespace OrboPAAP
