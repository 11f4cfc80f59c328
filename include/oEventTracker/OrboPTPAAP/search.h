// The global search and the newer search page.
#pragma once

#include <cstdint>
#include <vector>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

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

// A step of the global search: the common context list plus the search context entity (424), and the
// body that the search action chooses (see SearchInteractInfo_s). An unknown search action still
// submits the event, with no body, and returns 1.
OET_API int TrackingPTSearchEvent(const PTTrackingInfo_s& tracking, const SearchInteractInfo_s& info);

// A step on the newer search page (see SearchInteractInfoV2_s).
OET_API int TrackingPTSearchEventV2(const PTTrackingInfo_s& tracking, const SearchInteractInfoV2_s& info);

}  // namespace OrboPTPAAP
