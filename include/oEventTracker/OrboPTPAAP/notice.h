// Interactions with notices (in-client notifications) of the main window.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// An interaction with a notice. The values go to the body (157) unchanged; the action code also
// gives the body's action class as for client interactions (93 gives 3, 94 and 95 give 1, other codes
// none). The notice texts are UTF-8 and always set, empty ones too.
struct ONoticeInteractInfo_s {
  int32_t first_value = 0;         // body value a
  int32_t second_value = 0;        // body value g
  int32_t third_value = 0;         // not sent
  int32_t fourth_value = 0;        // body value b
  int32_t fifth_value = 0;         // body value c
  int32_t sixth_value = 0;         // body value d
  int32_t action_code = 0;         // body value e, and the action class
  Kst::CStringT<char> first_text;  // body text a, UTF-8; cleared when empty
  int64_t spare_number = 0;        // not sent
  Kst::CStringT<char> notice_text1;
  Kst::CStringT<char> notice_text2;
  Kst::CStringT<char> notice_text3;
  int32_t notice_number = 0;
  int32_t notice_flag = 0;  // sent as a bool: non-zero is true
};

// A notice interaction: context entities 170 (the tracking values), 159, 169 and the notice entity 165,
// always four entries, an entity the host does not give kept as a null entry; body 157 with the source
// "client". Needs the web service and the telemetry service.
OET_API int TrackingNoticeInteractEvent(const PTTrackingInfo_s& tracking, const ONoticeInteractInfo_s& info);

}  // namespace OrboPTPAAP
