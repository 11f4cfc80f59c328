// The one place where the exports a script can call are listed: first the binding of every input
// record (its members, by C++ name), then one registration per export.
//
// Adding an export: bind each record it takes that is not bound yet (a BindingOf specialisation
// listing every member with OET_REPLAY_FIELD, nested records before the records that hold them), then
// add one Export(...) line to the table at the bottom with the export's qualified name and the JSON
// names of its arguments. Nothing else in the tool changes.
#include "tools/replay/exports.h"

#include "oEventTracker/OrboPTPAAP.h"

namespace oet_replay {

using namespace OrboPTPAAP;

// ---- Records ----

OET_REPLAY_RECORD(PTTrackingInfo_s, OET_REPLAY_FIELD(primary_value), OET_REPLAY_FIELD(secondary_value))

OET_REPLAY_RECORD(PTInteractInfo_s, OET_REPLAY_FIELD(first_tab), OET_REPLAY_FIELD(second_tab))

OET_REPLAY_RECORD(HomeTabInteractInfo_s, OET_REPLAY_FIELD(element), OET_REPLAY_FIELD(interaction_type),
                  OET_REPLAY_FIELD(feature), OET_REPLAY_FIELD(first_flag), OET_REPLAY_FIELD(second_flag),
                  OET_REPLAY_FIELD(third_flag), OET_REPLAY_FIELD(fourth_flag), OET_REPLAY_FIELD(fifth_flag))

OET_REPLAY_RECORD(PostMeetingTrackingInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2),
                  OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4))

// ---- Exports ----

const std::vector<ExportEntry>& Exports() {
  static const std::vector<ExportEntry> exports{
      Export("OrboPTPAAP::TrackingPTInteractEvent", &TrackingPTInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingHomeTabInteractEvent", &TrackingHomeTabInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::StoreMeetingInfo4PostEvents", &StoreMeetingInfo4PostEvents, {"info"}),
  };
  return exports;
}

const ExportEntry* FindExport(const std::string& name) {
  return FindByName(Exports(), name);
}

}  // namespace oet_replay
