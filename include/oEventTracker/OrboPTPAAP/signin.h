// Sign-in and basic interactions (body entity 157 with the basic context entities).
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// A step of signing in. The values go to the body's values a to e, the texts to its texts a and b (an
// empty text clears its field); the body's source is "client". The record carries nothing between the
// fifth value and the texts: the event reads no other member.
struct OSigninInteractInfo_s {
  int32_t first_value = 0;   // value a
  int32_t second_value = 0;  // value b
  int32_t third_value = 0;   // value c
  int32_t fourth_value = 0;  // value d
  int32_t fifth_value = 0;   // value e
  Kst::CStringT<char> first_text;
  Kst::CStringT<char> second_text;
};

// A generic interaction: like sign-in, with a sixth value (body value f) and no source.
struct OBasicInteractInfo_s {
  int32_t first_value = 0;   // value f
  int32_t second_value = 0;  // value a
  int32_t third_value = 0;   // value b
  int32_t fourth_value = 0;  // value c
  int32_t fifth_value = 0;   // value d
  int32_t sixth_value = 0;   // value e
  Kst::CStringT<char> first_text;
  Kst::CStringT<char> second_text;
};

// A step of signing in: the basic context entities (170, 159 with the device facts, 169) and body 157.
// Needs only the telemetry service; the tracking record is not read. 0 when the telemetry service or
// the event is missing.
OET_API int TrackingSigninInteractEvent(const PTTrackingInfo_s& tracking, const OSigninInteractInfo_s& info);

// A generic interaction: the basic context entities (170, 159 without fields, 169) and body 157.
// Needs only the telemetry service; the tracking record is not read.
OET_API int TrackingBasicInteractEvent(const PTTrackingInfo_s& tracking, const OBasicInteractInfo_s& info);

}  // namespace OrboPTPAAP
