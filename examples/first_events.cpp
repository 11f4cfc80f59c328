// Installs the recording telemetry host, makes the library's first two tracking calls as the client
// would (a switch from the chat tab to the phone tab, then a click on "schedule meeting" on the home
// tab) and prints the events they produced as JSON.
#include <iostream>

#include "oEventTracker/OrboPTPAAP.h"
#include "testing/event_json.h"
#include "testing/recording_host.h"

int main() {
  oet_testing::RecordingHost host;

  OrboPTPAAP::PTTrackingInfo_s tracking;
  tracking.primary_value = "session-7f3a";
  tracking.secondary_value = "window-main";

  OrboPTPAAP::PTInteractInfo_s tab_switch;
  tab_switch.first_tab = 1;   // chat
  tab_switch.second_tab = 3;  // phone
  const int switched = OrboPTPAAP::TrackingPTInteractEvent(tracking, tab_switch);

  OrboPTPAAP::HomeTabInteractInfo_s home_tab;
  home_tab.element = 8;           // schedule_meeting
  home_tab.interaction_type = 2;  // button_clicked
  home_tab.feature = 1;           // schedule_meeting
  home_tab.first_flag = 1;
  const int clicked = OrboPTPAAP::TrackingHomeTabInteractEvent(tracking, home_tab);

  oet_testing::Json out = oet_testing::Json::object();
  out["results"] = {switched, clicked};
  out["events"] = oet_testing::ToJson(host.TakeEvents());
  std::cout << oet_testing::PrettyPrint(out) << "\n";
  return switched == 1 && clicked == 1 ? 0 : 1;
}
