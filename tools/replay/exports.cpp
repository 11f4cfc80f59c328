// The one place where the exports a script can call are listed: first the binding of every input
// record (its members, by C++ name), then one registration per export.
//
// Adding an export: bind each record it takes that is not bound yet (a BindingOf specialisation
// listing every member with OET_REPLAY_FIELD, nested records before the records that hold them), then
// add one Export(...) line to the table at the bottom with the export's qualified name and the JSON
// names of its arguments. Nothing else in the tool changes.
#include "tools/replay/exports.h"

#include "oEventTracker/EventTrack.h"
#include "oEventTracker/OrboClipsPAAP.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"

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

OET_REPLAY_RECORD(SearchSectionEntry_s, OET_REPLAY_FIELD(section), OET_REPLAY_FIELD(result_count))

OET_REPLAY_RECORD(SearchInteractInfo_s, OET_REPLAY_FIELD(search_action), OET_REPLAY_FIELD(result_action),
                  OET_REPLAY_FIELD(context_text1), OET_REPLAY_FIELD(context_text2),
                  OET_REPLAY_FIELD(context_text3), OET_REPLAY_FIELD(count_a), OET_REPLAY_FIELD(count_b),
                  OET_REPLAY_FIELD(chat_scope), OET_REPLAY_FIELD(entry), OET_REPLAY_FIELD(category),
                  OET_REPLAY_FIELD(second_category), OET_REPLAY_FIELD(first_results),
                  OET_REPLAY_FIELD(second_results), OET_REPLAY_FIELD(third_results), OET_REPLAY_FIELD(text_d),
                  OET_REPLAY_FIELD(text_e), OET_REPLAY_FIELD(selected_tab), OET_REPLAY_FIELD(source),
                  OET_REPLAY_FIELD(sort_order), OET_REPLAY_FIELD(file_type), OET_REPLAY_FIELD(text_a),
                  OET_REPLAY_FIELD(text_b), OET_REPLAY_FIELD(text_c), OET_REPLAY_FIELD(count_c),
                  OET_REPLAY_FIELD(count_d))

OET_REPLAY_RECORD(SearchInteractInfoV2_s, OET_REPLAY_FIELD(search_action), OET_REPLAY_FIELD(entry),
                  OET_REPLAY_FIELD(category), OET_REPLAY_FIELD(section), OET_REPLAY_FIELD(result_action),
                  OET_REPLAY_FIELD(source), OET_REPLAY_FIELD(sort_order), OET_REPLAY_FIELD(file_type),
                  OET_REPLAY_FIELD(search_session_id), OET_REPLAY_FIELD(query_id),
                  OET_REPLAY_FIELD(result_id), OET_REPLAY_FIELD(has_filter),
                  OET_REPLAY_FIELD(is_recent_search), OET_REPLAY_FIELD(is_spell_corrected),
                  OET_REPLAY_FIELD(result_count), OET_REPLAY_FIELD(result_position),
                  OET_REPLAY_FIELD(elapsed_ms))

OET_REPLAY_RECORD(PTClientProductEntityStruct, OET_REPLAY_FIELD(domain), OET_REPLAY_FIELD(client_label),
                  OET_REPLAY_FIELD(client_version))

OET_REPLAY_RECORD(PTClientDeviceEntityStruct, OET_REPLAY_FIELD(device_product),
                  OET_REPLAY_FIELD(web_service_value), OET_REPLAY_FIELD(os_version),
                  OET_REPLAY_FIELD(os_name))

OET_REPLAY_RECORD(OSigninInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(fourth_value),
                  OET_REPLAY_FIELD(fifth_value), OET_REPLAY_FIELD(first_text), OET_REPLAY_FIELD(second_text))

OET_REPLAY_RECORD(OBasicInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(fourth_value),
                  OET_REPLAY_FIELD(fifth_value), OET_REPLAY_FIELD(sixth_value), OET_REPLAY_FIELD(first_text),
                  OET_REPLAY_FIELD(second_text))

OET_REPLAY_RECORD(PhoneInteractInfo_s, OET_REPLAY_FIELD(spare_value), OET_REPLAY_FIELD(value_a),
                  OET_REPLAY_FIELD(value_b), OET_REPLAY_FIELD(value_c), OET_REPLAY_FIELD(value_d),
                  OET_REPLAY_FIELD(value_e), OET_REPLAY_FIELD(value_f), OET_REPLAY_FIELD(body_text1),
                  OET_REPLAY_FIELD(body_text2), OET_REPLAY_FIELD(body_text3), OET_REPLAY_FIELD(spare_value2),
                  OET_REPLAY_FIELD(call_detail), OET_REPLAY_FIELD(call_text1), OET_REPLAY_FIELD(call_text2),
                  OET_REPLAY_FIELD(direction), OET_REPLAY_FIELD(time1), OET_REPLAY_FIELD(time2),
                  OET_REPLAY_FIELD(context_text1), OET_REPLAY_FIELD(context_text2),
                  OET_REPLAY_FIELD(context_text3), OET_REPLAY_FIELD(context_number),
                  OET_REPLAY_FIELD(context_text4))

OET_REPLAY_EMPTY_RECORD(ORPhoneTrackingInfo_s)
OET_REPLAY_EMPTY_RECORD(ORPhoneInteractInfo_s)

// ---- Records of the standalone events (chat, meeting, post-meeting, client, metrics, notice, preferences).

// ---- Records of the performance reports and chat-module events.

// ---- Records of the meeting side.

OET_REPLAY_RECORD(PTOUIInteractInfo_s, OET_REPLAY_FIELD(value1), OET_REPLAY_FIELD(value2),
                  OET_REPLAY_FIELD(value3), OET_REPLAY_FIELD(value4), OET_REPLAY_FIELD(value5),
                  OET_REPLAY_FIELD(value6))

OET_REPLAY_RECORD(PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s, OET_REPLAY_FIELD(interaction_type),
                  OET_REPLAY_FIELD(join_screen_action), OET_REPLAY_FIELD(first_flag),
                  OET_REPLAY_FIELD(second_flag))

OET_REPLAY_RECORD(PTJoinMeetingPAAP::PTJoinMeetingTrackingInfo_s, OET_REPLAY_FIELD(primary_value),
                  OET_REPLAY_FIELD(secondary_value))

OET_REPLAY_RECORD(OrboSettingPAAP::SettingInteractInfo_s, OET_REPLAY_FIELD(first_code),
                  OET_REPLAY_FIELD(second_code), OET_REPLAY_FIELD(third_code), OET_REPLAY_FIELD(fourth_code),
                  OET_REPLAY_FIELD(fifth_code), OET_REPLAY_FIELD(text))

OET_REPLAY_RECORD(OrboSettingPAAP::SettingTrackingInfo_s, OET_REPLAY_FIELD(tracking_text),
                  OET_REPLAY_FIELD(tracking_number))

OET_REPLAY_RECORD(OrboClipsPAAP::ClipsRecordInteractInfo_s, OET_REPLAY_FIELD(first_code),
                  OET_REPLAY_FIELD(second_code), OET_REPLAY_FIELD(third_code), OET_REPLAY_FIELD(fourth_code),
                  OET_REPLAY_FIELD(fifth_code), OET_REPLAY_FIELD(detail))

OET_REPLAY_RECORD(OrboClipsPAAP::ClipsRecordConfigInfo_s, OET_REPLAY_FIELD(setting_text1),
                  OET_REPLAY_FIELD(setting_value_a), OET_REPLAY_FIELD(setting_value_b),
                  OET_REPLAY_FIELD(setting_value_c), OET_REPLAY_FIELD(setting_text2),
                  OET_REPLAY_FIELD(setting_value_d), OET_REPLAY_FIELD(setting_value_e),
                  OET_REPLAY_FIELD(setting_value_f), OET_REPLAY_FIELD(setting_text3),
                  OET_REPLAY_FIELD(setting_text4), OET_REPLAY_FIELD(setting_value_g),
                  OET_REPLAY_FIELD(setting_value_h), OET_REPLAY_FIELD(setting_value_i),
                  OET_REPLAY_FIELD(setting_value_j))

OET_REPLAY_RECORD(OrboClipsPAAP::PAAPUserEntityInfo_s, OET_REPLAY_FIELD(user_id),
                  OET_REPLAY_FIELD(account_id))

OET_REPLAY_RECORD(OrboPAAP::MeetingTrackingInfo_s, OET_REPLAY_FIELD(meeting_id),
                  OET_REPLAY_FIELD(meeting_number), OET_REPLAY_FIELD(conference_id),
                  OET_REPLAY_FIELD(participant_id), OET_REPLAY_FIELD(meeting_type),
                  OET_REPLAY_FIELD(client_session_id), OET_REPLAY_FIELD(meeting_role),
                  OET_REPLAY_FIELD(meeting_text), OET_REPLAY_FIELD(share_text),
                  OET_REPLAY_FIELD(share_number), OET_REPLAY_FIELD(body_number), OET_REPLAY_FIELD(start_time))

OET_REPLAY_RECORD(OrboPAAP::MeetingInteractInfo_s, OET_REPLAY_FIELD(first_code),
                  OET_REPLAY_FIELD(second_code), OET_REPLAY_FIELD(third_code), OET_REPLAY_FIELD(fourth_code),
                  OET_REPLAY_FIELD(interaction_kind), OET_REPLAY_FIELD(sixth_code),
                  OET_REPLAY_FIELD(seventh_code), OET_REPLAY_FIELD(label), OET_REPLAY_FIELD(detail),
                  OET_REPLAY_FIELD(pair_gate_a), OET_REPLAY_FIELD(pair_gate_b),
                  OET_REPLAY_FIELD(reference_text), OET_REPLAY_FIELD(reference_a),
                  OET_REPLAY_FIELD(reference_b), OET_REPLAY_FIELD(reference_c), OET_REPLAY_FIELD(extra_gate),
                  OET_REPLAY_FIELD(item_text), OET_REPLAY_FIELD(item_index), OET_REPLAY_FIELD(option_flag),
                  OET_REPLAY_FIELD(option_value), OET_REPLAY_FIELD(kind_569_value),
                  OET_REPLAY_FIELD(body_flag), OET_REPLAY_FIELD(tier), OET_REPLAY_FIELD(mode),
                  OET_REPLAY_FIELD(kind_text), OET_REPLAY_FIELD(kind_value))

OET_REPLAY_RECORD(OrboPAAP::MTOUIInteractInfo_s, OET_REPLAY_FIELD(value1), OET_REPLAY_FIELD(value2),
                  OET_REPLAY_FIELD(value3), OET_REPLAY_FIELD(value4), OET_REPLAY_FIELD(value5),
                  OET_REPLAY_FIELD(value6))

OET_REPLAY_RECORD(OrboPAAP::ONoticeInteractInfo_s, OET_REPLAY_FIELD(notice_value1),
                  OET_REPLAY_FIELD(notice_value2), OET_REPLAY_FIELD(notice_value3),
                  OET_REPLAY_FIELD(notice_value4), OET_REPLAY_FIELD(notice_value5),
                  OET_REPLAY_FIELD(notice_value6), OET_REPLAY_FIELD(notice_text),
                  OET_REPLAY_FIELD(notice_text2), OET_REPLAY_FIELD(notice_text3),
                  OET_REPLAY_FIELD(notice_text4), OET_REPLAY_FIELD(notice_number))

OET_REPLAY_RECORD(OrboPAAP::OClientInteractInfo_s, OET_REPLAY_FIELD(client_value1),
                  OET_REPLAY_FIELD(client_value2), OET_REPLAY_FIELD(client_value3),
                  OET_REPLAY_FIELD(client_value4), OET_REPLAY_FIELD(client_value5),
                  OET_REPLAY_FIELD(client_value6), OET_REPLAY_FIELD(client_text),
                  OET_REPLAY_FIELD(client_source), OET_REPLAY_FIELD(client_detail),
                  OET_REPLAY_FIELD(product_identifier))

// Exports whose arguments are not records (the encoded texts, the join-meeting reader's words, the
// legacy codes and tag map) are called through small adapters that take these records instead.
namespace meeting_side {

// An encoded join-meeting or settings text, as the text exports take and give it.
struct EncodedText {
  Kst::CStringT<char> text;
};

// The join-meeting reader's four outputs.
struct JoinMeetingWords {
  Kst::CStringT<char> interaction_word;
  Kst::CStringT<char> action_word;
  int32_t first_flag = 0;
  int32_t second_flag = 0;
};

// The legacy functions' arguments: four texts, four codes, and a tag map with its priority. A tag map
// is a list of {name, text} (a later entry with the same name replaces an earlier one); it is written
// back after the call in the map's order.
struct LegacyTexts {
  Kst::CStringT<char> first;
  Kst::CStringT<char> second;
  Kst::CStringT<char> third;
  Kst::CStringT<char> fourth;
};
struct LegacyCodes {
  ns_orbo_telemetry::OrboLogClientType client_type{};
  ns_orbo_telemetry::OrboLogLocation location{};
  ns_orbo_telemetry::OrboLogEvent event{};
  ns_orbo_telemetry::OrboLogSubEvent sub_event{};
};
struct LegacyTag {
  ns_orbo_telemetry::OrboLogTagName name{};
  Kst::CStringT<char> text;
};
struct LegacyTags {
  std::vector<LegacyTag> tags;
  ns_orbo_telemetry::LogPriority priority{};
};

void FormatJoinMeeting(const PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s& info, EncodedText& encoded) {
  encoded.text = PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString(info);
}
void ParseJoinMeeting(JoinMeetingWords& words, const EncodedText& encoded) {
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(
      words.interaction_word, words.action_word, words.first_flag, words.second_flag, encoded.text);
}
int TrackJoinMeeting(const EncodedText& encoded,
                     const PTJoinMeetingPAAP::PTJoinMeetingTrackingInfo_s& tracking) {
  return PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent(encoded.text, tracking);
}
void FormatSetting(const OrboSettingPAAP::SettingInteractInfo_s& info, EncodedText& encoded) {
  encoded.text = OrboSettingPAAP::FormatSettingInteractInfoAsString(info);
}
void ParseSetting(OrboSettingPAAP::SettingInteractInfo_s& info, const EncodedText& encoded) {
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, encoded.text);
}
int TrackSetting(const EncodedText& encoded, const OrboSettingPAAP::SettingTrackingInfo_s& tracking) {
  return OrboSettingPAAP::TrackingSettingInteractEvent(encoded.text, tracking);
}

// Runs `call` with the tags as a tag map, then writes the map back.
template <class Call>
int WithTagMap(LegacyTags& tags, Call call) {
  ns_orbo_telemetry::OrboLogTagMap map;
  for (const LegacyTag& tag : tags.tags)
    map[tag.name] = tag.text;
  const int result = call(map);
  tags.tags.clear();
  for (const auto& [name, text] : map)
    tags.tags.push_back(LegacyTag{name, text});
  return result;
}
int LogTexts(const LegacyTexts& texts, LegacyTags& tags) {
  return WithTagMap(tags, [&](ns_orbo_telemetry::OrboLogTagMap& map) {
    return EventTrack::AddEventTrackingLog(texts.first, texts.second, texts.third, texts.fourth, map,
                                           tags.priority);
  });
}
int LogCodes(const LegacyCodes& codes) {
  return EventTrack::AddEventTrackingLog(codes.client_type, codes.location, codes.event, codes.sub_event);
}
int LogCodesWithTags(const LegacyCodes& codes, LegacyTags& tags) {
  return WithTagMap(tags, [&](ns_orbo_telemetry::OrboLogTagMap& map) {
    return EventTrack::AddEventTrackingLog(codes.client_type, codes.location, codes.event, codes.sub_event,
                                           map, tags.priority);
  });
}
int LogInMeeting(const LegacyCodes& codes, LegacyTags& tags) {
  return WithTagMap(tags, [&](ns_orbo_telemetry::OrboLogTagMap& map) {
    return EventTrack::AddInMeetingEventTrackingLog(codes.event, codes.sub_event, map);
  });
}

}  // namespace meeting_side

OET_REPLAY_BIND(meeting_side::EncodedText, "EncodedText", OET_REPLAY_FIELD(text))

OET_REPLAY_BIND(meeting_side::JoinMeetingWords, "JoinMeetingWords", OET_REPLAY_FIELD(interaction_word),
                OET_REPLAY_FIELD(action_word), OET_REPLAY_FIELD(first_flag), OET_REPLAY_FIELD(second_flag))

OET_REPLAY_BIND(meeting_side::LegacyTexts, "LegacyTexts", OET_REPLAY_FIELD(first), OET_REPLAY_FIELD(second),
                OET_REPLAY_FIELD(third), OET_REPLAY_FIELD(fourth))

OET_REPLAY_BIND(meeting_side::LegacyCodes, "LegacyCodes", OET_REPLAY_FIELD(client_type),
                OET_REPLAY_FIELD(location), OET_REPLAY_FIELD(event), OET_REPLAY_FIELD(sub_event))

OET_REPLAY_BIND(meeting_side::LegacyTag, "LegacyTag", OET_REPLAY_FIELD(name), OET_REPLAY_FIELD(text))

OET_REPLAY_BIND(meeting_side::LegacyTags, "LegacyTags", OET_REPLAY_FIELD(tags), OET_REPLAY_FIELD(priority))

// ---- Exports ----

const std::vector<ExportEntry>& Exports() {
  static const std::vector<ExportEntry> exports{
      Export("OrboPTPAAP::TrackingPTInteractEvent", &TrackingPTInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingHomeTabInteractEvent", &TrackingHomeTabInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::StoreMeetingInfo4PostEvents", &StoreMeetingInfo4PostEvents, {"info"}),
      Export("OrboPTPAAP::TrackingPTSearchEvent", &TrackingPTSearchEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTSearchEventV2", &TrackingPTSearchEventV2, {"tracking", "info"}),
      Export("OrboPTPAAP::RetrieveClientProductInfo", &RetrieveClientProductInfo, {"info"}),
      Export("OrboPTPAAP::RetrieveClientDeviceInfo", &RetrieveClientDeviceInfo, {"info"}),
      Export("OrboPTPAAP::TrackingSigninInteractEvent", &TrackingSigninInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingBasicInteractEvent", &TrackingBasicInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPhoneInteractEvent", &TrackingPhoneInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingORPhoneInteractEvent", &TrackingORPhoneInteractEvent, {"tracking", "info"}),
      // Standalone events.
      // Performance reports and chat-module events.
      // Meeting side.
      Export("OrboPTPAAP::TrackingOUIFrameworkInteract", &TrackingOUIFrameworkInteract, {"tracking", "info"}),
      Export("PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString", &meeting_side::FormatJoinMeeting,
             {"info", "encoded"}),
      Export("PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString", &meeting_side::ParseJoinMeeting,
             {"words", "encoded"}),
      Export("PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent", &meeting_side::TrackJoinMeeting,
             {"encoded", "tracking"}),
      Export("OrboSettingPAAP::FormatSettingInteractInfoAsString", &meeting_side::FormatSetting,
             {"info", "encoded"}),
      Export("OrboSettingPAAP::ParseSettingInterfactInfoFromString", &meeting_side::ParseSetting,
             {"info", "encoded"}),
      Export("OrboSettingPAAP::TrackingSettingInteractEvent", &meeting_side::TrackSetting,
             {"encoded", "tracking"}),
      Export("OrboClipsPAAP::TrackingClipsInteractEvent", &OrboClipsPAAP::TrackingClipsInteractEvent,
             {"info", "config", "user"}),
      Export("OrboPAAP::TrackingMeetingInteractEvent", &OrboPAAP::TrackingMeetingInteractEvent,
             {"tracking", "info"}),
      Export("OrboPAAP::TrackingOUIFrameworkInteract", &OrboPAAP::TrackingOUIFrameworkInteract,
             {"tracking", "info"}),
      Export("OrboPAAP::TrackingNoticeInteractEvent", &OrboPAAP::TrackingNoticeInteractEvent,
             {"tracking", "info"}),
      Export("OrboPAAP::TrackingClientInteractEvent", &OrboPAAP::TrackingClientInteractEvent,
             {"tracking", "info"}),
      Export("EventTrack::AddEventTrackingLog(texts)", &meeting_side::LogTexts, {"texts", "tags"}),
      Export("EventTrack::AddEventTrackingLog(codes)", &meeting_side::LogCodes, {"codes"}),
      Export("EventTrack::AddEventTrackingLog(codes, tags)", &meeting_side::LogCodesWithTags,
             {"codes", "tags"}),
      Export("EventTrack::AddInMeetingEventTrackingLog", &meeting_side::LogInMeeting, {"codes", "tags"}),
  };
  return exports;
}

const ExportEntry* FindExport(const std::string& name) {
  return FindByName(Exports(), name);
}

}  // namespace oet_replay
