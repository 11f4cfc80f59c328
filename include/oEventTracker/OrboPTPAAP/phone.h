// Phone interactions.
#pragma once

#include <cstdint>
#include <string>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/kst_time.h"

namespace OrboPTPAAP {

// One interaction with the phone feature. The values and texts are the phone feature's own; the
// library moves them into the event unchanged, except that wide texts go out as UTF-8, the times as
// "YYYY-MM-DDThh:mm:ss.mmmZ" (UTC; a zero time clears its field) and the direction as "inbound" (1) or
// "outbound" (2) (other values: the empty word).
struct PhoneInteractInfo_s {
  int32_t spare_value = 0;  // not sent
  int32_t value_a = 0;
  int32_t value_b = 0;
  int32_t value_c = 0;
  int32_t value_d = 0;
  int32_t value_e = 0;
  int32_t value_f = 0;
  std::string body_text1;    // always sent
  std::string body_text2;    // sent only when not empty
  std::string body_text3;    // sent only when not empty
  int32_t spare_value2 = 0;  // not sent
  int32_t call_detail = 0;   // non-zero adds the call-detail entity (369)
  Kst::CStringT<wchar_t> call_text1;
  Kst::CStringT<wchar_t> call_text2;
  int32_t direction = 0;  // 1 inbound, 2 outbound
  Kst::Time time1;        // zero: not given
  Kst::Time time2;        // zero: not given
  Kst::CStringT<wchar_t> context_text1;
  Kst::CStringT<wchar_t> context_text2;
  Kst::CStringT<wchar_t> context_text3;
  int64_t context_number = 0;
  Kst::CStringT<wchar_t> context_text4;
};

// The phone records of the other client build. The library reads nothing from them.
struct ORPhoneTrackingInfo_s {};
struct ORPhoneInteractInfo_s {};

// A phone interaction: context entities 354, 376, 369 (only with call_detail) and 377 with the
// account's web domain, and body 370. Needs the web service and the telemetry service. Should the
// host not give entity 354, its place in the list stays as a null entry; should it not give 376, 369
// or 377 (which a conforming host always gives), that entity is left out rather than used.
OET_API int TrackingPhoneInteractEvent(const PTTrackingInfo_s& tracking, const PhoneInteractInfo_s& info);

// Sends nothing and returns 1: the other client build reports its phone interactions elsewhere.
OET_API int TrackingORPhoneInteractEvent(const ORPhoneTrackingInfo_s& tracking,
                                         const ORPhoneInteractInfo_s& info);

}  // namespace OrboPTPAAP
