// Tracking functions of the standalone client's main window (namespace OrboPTPAAP) and their input
// records.
//
// Every tracking function turns its records into one telemetry event and hands it to the host's
// telemetry service. It returns 1 when the event was submitted and 0 when it could not be built (a
// service or the event missing, or an internal failure); it never throws. Records are read, never
// modified.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "oEventTracker/api.h"
#include "platform/kst_string.h"
#include "platform/kst_time.h"

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

// ---- Global search.

// One section of the displayed search results: which section, and how many results it shows.
// Section values: 1 contacts, 2 channels, 3 messages, 4 files, 5 joined_channels,
// 6 unjonied_public_channels (sic, as the back end spells it), 7 recent_searches,
// 8 spell_check_contact, 9 muc, 10 pmc, 11 room, 12 semantic_unjoined_public_channel, 13 huddles.
struct SearchSectionEntry_s {
  int32_t section = 0;
  int32_t result_count = 0;
};

// A step of the global search. `search_action` chooses the body of the event:
//   1 initiate -> entity 418: entry, action, count_d, count_a, count_b
//   2 display  -> entity 417: category, text_a, sort_order, text_b, count_a, count_b, the three result
//                 lists, text_d, text_e, selected_tab, source, action, file_type
//   3 perform  -> entity 420: action, result_action, category, second_category, count_b, count_a,
//                 source, text_c, count_c
//   4 launch   -> entity 419: action, entry, count_a
//   5 close    -> entity 415: action, count_a, count_b
//   other      -> no body; the event still goes out with its context entities.
// Every event also carries the search context entity (424) with the three context texts and the chat
// scope. Counts go out as 64-bit numbers. Enumerations go out as words; a value without a word goes
// out as the empty word. Texts a, b and c and the context texts are set as they are, empty or not.
//
// The display body carries the result lists as text: each entry becomes "<section word>:<count>" and
// the entries of one list are joined by "," in list order (for example "contacts:3,messages:12"); an
// empty list clears its field. Texts d and e clear their field when empty. `selected_tab` 0..9 goes
// out as its digit ("0".."9"); any other value as the empty word.
struct SearchInteractInfo_s {
  int32_t search_action = 0;  // 1 initiate, 2 display, 3 perform, 4 launch, 5 close
  int32_t result_action = 0;  // 1 click ... 39 join_huddle
  Kst::CStringT<char> context_text1;
  Kst::CStringT<char> context_text2;
  Kst::CStringT<char> context_text3;
  int32_t count_a = 0;
  int32_t count_b = 0;
  int32_t chat_scope = 0;                            // 1 "orbo_chat"; anything else the empty word
  int32_t entry = 0;                                 // 1 global_search_bar, 2 global_search_app
  int32_t category = 0;                              // 1 all ... 15 huddles
  int32_t second_category = 0;                       // same values as category
  std::vector<SearchSectionEntry_s> first_results;   // display only: the sections shown first
  std::vector<SearchSectionEntry_s> second_results;  // display only: the further sections
  std::vector<SearchSectionEntry_s> third_results;   // display only: the suggested sections
  Kst::CStringT<char> text_d;                        // display only; cleared when empty
  Kst::CStringT<char> text_e;                        // display only; cleared when empty
  int32_t selected_tab = 0;                          // display only; 0..9, sent as one digit
  int32_t source = 0;                                // 1 none, 2 all, 3 chat, 4 sms
  int32_t sort_order = 0;                            // 1 most_recent, 2 most_relevant
  int32_t file_type = 0;                             // 1 "all files", 2 images ... 8 other_file_types
  Kst::CStringT<char> text_a;                        // display
  Kst::CStringT<char> text_b;                        // display
  Kst::CStringT<char> text_c;                        // perform
  int32_t count_c = 0;                               // perform
  int32_t count_d = 0;                               // initiate
};

// A step on the newer search page. One event carries:
//   context (203), each entity only when the host gives it:
//     425 search session: the two tracking values, search_session_id, query_id (cleared when empty)
//     416 filters: category, source, file_type and sort_order words
//     421 result: section and result_action words, result_id (cleared when empty)
//     422 metrics: has_filter, is_recent_search, is_spell_corrected (non-zero is true), then
//         result_count, result_position and elapsed_ms as 64-bit numbers
//   body (201): 423 with the search_action and entry words.
// The enumerations share the values of SearchInteractInfo_s (section as in SearchSectionEntry_s).
struct SearchInteractInfoV2_s {
  int32_t search_action = 0;
  int32_t entry = 0;
  int32_t category = 0;
  int32_t section = 0;
  int32_t result_action = 0;
  int32_t source = 0;
  int32_t sort_order = 0;
  int32_t file_type = 0;
  Kst::CStringT<char> search_session_id;
  Kst::CStringT<char> query_id;
  Kst::CStringT<char> result_id;
  int32_t has_filter = 0;
  int32_t is_recent_search = 0;
  int32_t is_spell_corrected = 0;
  int32_t result_count = 0;
  int32_t result_position = 0;
  int32_t elapsed_ms = 0;
};

// ---- Client product and device facts, for the client to show or reuse.

struct PTClientProductEntityStruct {
  // The account's domain label: the web service's stored label, or else the label found in the
  // account's web URL ("dev" for a development URL, "aw1" when no label can be found). Left as the
  // caller passed it when there is no web service.
  std::string domain;
  std::string client_label;    // always "client"
  std::string client_version;  // the client's version
};

// The four device facts of the client entity, UTF-8. Empty while the client context has not been
// filled (no web service so far).
struct PTClientDeviceEntityStruct {
  std::string device_product;     // the system product name, "unknown" when the system has none
  std::string web_service_value;  // the web service's value
  std::string os_version;
  std::string os_name;  // "windows" once filled
};

// ---- Sign-in and basic interactions (body entity 157 with the basic context entities).

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

// ---- Phone.

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

// A tab switch: body entity 282 with the action "switch_tab" and the words of both tabs.
OET_API int TrackingPTInteractEvent(const PTTrackingInfo_s& tracking, const PTInteractInfo_s& info);

// A home-tab interaction: body entity 285 with the element, interaction-type and feature words and
// the five flags.
OET_API int TrackingHomeTabInteractEvent(const PTTrackingInfo_s& tracking, const HomeTabInteractInfo_s& info);

// Keeps the four meeting strings for the post-meeting event, replacing what was kept before.
// Safe to call from several threads.
OET_API void StoreMeetingInfo4PostEvents(const PostMeetingTrackingInfo_s& info);

// A step of the global search: the common context list plus the search context entity (424), and the
// body that the search action chooses (see SearchInteractInfo_s). An unknown search action still
// submits the event, with no body, and returns 1.
OET_API int TrackingPTSearchEvent(const PTTrackingInfo_s& tracking, const SearchInteractInfo_s& info);

// A step on the newer search page (see SearchInteractInfoV2_s).
OET_API int TrackingPTSearchEventV2(const PTTrackingInfo_s& tracking, const SearchInteractInfoV2_s& info);

// Fills the product facts: the client version, "client", and, when the web service is present, the
// account's domain label. Returns 1, always.
OET_API int RetrieveClientProductInfo(PTClientProductEntityStruct& info);

// Fills the four device facts from the client context, refreshing it first. Returns 1, always.
OET_API int RetrieveClientDeviceInfo(PTClientDeviceEntityStruct& info);

// A step of signing in: the basic context entities (170, 159 with the device facts, 169) and body 157.
// Needs only the telemetry service; the tracking record is not read. 0 when the telemetry service or
// the event is missing.
OET_API int TrackingSigninInteractEvent(const PTTrackingInfo_s& tracking, const OSigninInteractInfo_s& info);

// A generic interaction: the basic context entities (170, 159 without fields, 169) and body 157.
// Needs only the telemetry service; the tracking record is not read.
OET_API int TrackingBasicInteractEvent(const PTTrackingInfo_s& tracking, const OBasicInteractInfo_s& info);

// A phone interaction: context entities 354, 376, 369 (only with call_detail) and 377 with the
// account's web domain, and body 370. Needs the web service and the telemetry service. Should the
// host not give entity 354, its place in the list stays as a null entry; should it not give 376, 369
// or 377 (which a conforming host always gives), that entity is left out rather than used.
OET_API int TrackingPhoneInteractEvent(const PTTrackingInfo_s& tracking, const PhoneInteractInfo_s& info);

// Sends nothing and returns 1: the other client build reports its phone interactions elsewhere.
OET_API int TrackingORPhoneInteractEvent(const ORPhoneTrackingInfo_s& tracking,
                                         const ORPhoneInteractInfo_s& info);

}  // namespace OrboPTPAAP
