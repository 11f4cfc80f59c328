// Interactions with the client's own user-interface framework.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"

namespace OrboPTPAAP {

// One interaction with the user-interface framework: six values, sent unchanged. Their meaning is the
// caller's.
struct PTOUIInteractInfo_s {
  int32_t value1 = 0;
  int32_t value2 = 0;
  int32_t value3 = 0;
  int32_t value4 = 0;
  int32_t value5 = 0;
  int32_t value6 = 0;
};

// Reports a framework interaction. Needs only the telemetry service; sent with codes 3 and 1 even when
// the host gives no body. Context list, each entity when the host gives it (not attached when empty):
//   187  the tracking values, primary then secondary, empty ones included
//   182  the device from the refreshed client-context cache: product name, os name, os version
//        (empty while the cache has never been filled)
//   186  only with the web service: the constant 1, the client version, and the account's domain label
//        ("dev", "aw1" or the label; the web service is asked for its stored label and its web URL
//        every time, and the label is cut out of the URL when the stored one is empty)
// Body (183): value 3, 1, 2, 5, 4, 6 in that order, then two of its fields cleared.
OET_API int TrackingOUIFrameworkInteract(const PTTrackingInfo_s& tracking, const PTOUIInteractInfo_s& info);

}  // namespace OrboPTPAAP
