// Tracking functions of the standalone client's main window (namespace OrboPTPAAP) and their input
// records.
//
// Every tracking function turns its records into one telemetry event and hands it to the host's
// telemetry service. It returns 1 when the event was submitted and 0 when it could not be built (a
// service or the event missing, or an internal failure); it never throws. Records are read, never
// modified.
#pragma once

#include <cstdint>

#include "oEventTracker/api.h"
#include "platform/kst_string.h"

namespace OrboPTPAAP {

// Who and where: the two tracking values that most events carry in their tracking-info entity. The
// library copies them without looking at them.
struct PTTrackingInfo_s {
  Kst::CStringT<char> primary_value;    // UTF-8
  Kst::CStringT<char> secondary_value;  // UTF-8
};

// A switch between two tabs of the main window. Tab values: 1 chat, 2 home, 3 phone, 4 meetings,
// 5 apps, 6 meet_chat, 7 contacts, 8 settings, 9 whiteboards, 10 mail, 11 cci, 12 calendar, 17 hub,
// 18 workflows, 19 workspaces; other values go out as an empty word.
struct PTInteractInfo_s {
  int32_t first_tab = 0;
  int32_t second_tab = 0;
};

// An interaction on the home tab. The flags are 32-bit values read as bools (non-zero is true).
struct HomeTabInteractInfo_s {
  int32_t element = 0;           // 1 switch_tab ... 44 text_input
  int32_t interaction_type = 0;  // 1 screen_displayed ... 6 clicked
  int32_t feature = 0;           // 0 Unknown, 1 schedule_meeting ... 5 join_meeting
  int32_t first_flag = 0;
  int32_t second_flag = 0;
  int32_t third_flag = 0;
  int32_t fourth_flag = 0;
  int32_t fifth_flag = 0;
};

// The meeting that just ended, kept for the events that follow it (the post-meeting survey).
struct PostMeetingTrackingInfo_s {
  Kst::CStringT<char> text1;     // UTF-8, copied into the post-meeting event
  Kst::CStringT<char> text2;     // UTF-8, copied into the post-meeting event
  Kst::CStringT<wchar_t> text3;  // the post-meeting event reports only while this is not empty
  Kst::CStringT<char> text4;
};

// A tab switch: body entity 282 with the action "switch_tab" and the words of both tabs.
OET_API int TrackingPTInteractEvent(const PTTrackingInfo_s& tracking, const PTInteractInfo_s& info);

// A home-tab interaction: body entity 285 with the element, interaction-type and feature words and
// the five flags.
OET_API int TrackingHomeTabInteractEvent(const PTTrackingInfo_s& tracking, const HomeTabInteractInfo_s& info);

// Keeps the four meeting strings for the post-meeting event, replacing what was kept before.
// Safe to call from several threads.
OET_API void StoreMeetingInfo4PostEvents(const PostMeetingTrackingInfo_s& info);

}  // namespace OrboPTPAAP
