// Tab switches and home-tab interactions of the main window.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

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

// A tab switch: body entity 282 with the action "switch_tab" and the words of both tabs.
OET_API int TrackingPTInteractEvent(const PTTrackingInfo_s& tracking, const PTInteractInfo_s& info);

// A home-tab interaction: body entity 285 with the element, interaction-type and feature words and
// the five flags.
OET_API int TrackingHomeTabInteractEvent(const PTTrackingInfo_s& tracking, const HomeTabInteractInfo_s& info);

}  // namespace OrboPTPAAP
