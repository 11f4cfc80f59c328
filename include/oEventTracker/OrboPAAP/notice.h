// Notices shown inside a meeting.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPAAP {

// One interaction with a notice. Values and texts (UTF-8) go out unchanged; none is checked.
struct ONoticeInteractInfo_s {
  int32_t notice_value1 = 0;
  int32_t notice_value2 = 0;
  int32_t notice_value3 = 0;
  int32_t notice_value4 = 0;
  int32_t notice_value5 = 0;
  int32_t notice_value6 = 0;
  Kst::CStringT<char> notice_text;   // the body's text a; cleared when empty
  Kst::CStringT<char> notice_text2;  // the notice entity (165); empty ones are sent empty
  Kst::CStringT<char> notice_text3;  // the notice entity
  Kst::CStringT<char> notice_text4;  // the notice entity
  int32_t notice_number = 0;         // the notice entity
};

// Reports a notice interaction inside a meeting. Needs the web service and the telemetry service.
// Context list, each entity when the host gives it, attached whatever it holds: 170, 159 and 169
// without fields; the notice entity (165: notice_text2, notice_text4, notice_text3, notice_number);
// the meeting identity (161), hidden: the number kNoMeetingNumber, and the text's short key (the
// text is meeting_id, or the meeting number in decimal when meeting_id is empty and the number is
// given; the short key is empty without the web service's lookup). Body: the basic-interaction entity
// (157), value a..f from notice_value1..6 and text a from notice_text. Submitted with codes 4 and 1.
OET_API int TrackingNoticeInteractEvent(const MeetingTrackingInfo_s& tracking,
                                        const ONoticeInteractInfo_s& info);

}  // namespace OrboPAAP
