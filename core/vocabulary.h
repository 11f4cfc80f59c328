// The wire vocabulary: host enumerations go out in events as words, never as numbers. Each function
// below turns one enumeration's 32-bit value into its word (plain ASCII). The back end matches these
// words byte for byte, so their case and their odd spellings are part of the wire format and must not be
// "corrected". A value outside a table gives the empty string. All functions are pure, may be called
// from any thread, and throw nothing but std::bad_alloc from building the returned string.
//
// Each ...ToString function has a ...Word twin that gives the same word as a string made once (on its
// first call) and kept for the process: events set words through the twins, so that a word longer than
// a string's own small buffer is never copied into a new one.
#pragma once

#include <cstdint>
#include <string>

namespace oet {

// Main-window tabs, 1..12 and 17..19 ("chat", "home", ..., "workspaces"). 13..16 are unused and give "".
std::string TabToString(int32_t value);
const std::string& TabWord(int32_t value);

// Phone call direction: 1 "inbound", 2 "outbound".
std::string CallDirectionToString(int32_t value);
const std::string& CallDirectionWord(int32_t value);

// How a home-tab element was used: 1 "screen_displayed" .. 6 "clicked".
std::string InteractionTypeToString(int32_t value);
const std::string& InteractionTypeWord(int32_t value);

// Home-tab feature reached, 0..5. Value 0 is "Unknown" with a capital U, unlike every other word, and is
// the only table in which 0 has a word; the back end expects it that way.
std::string HomeTabFeatureToString(int32_t value);
const std::string& HomeTabFeatureWord(int32_t value);

// Home-tab element used, 1 "switch_tab" .. 44 "text_input".
std::string HomeTabElementToString(int32_t value);
const std::string& HomeTabElementWord(int32_t value);

// Where a search was entered: 1 "global_search_bar", 2 "global_search_app".
std::string SearchEntryToString(int32_t value);
const std::string& SearchEntryWord(int32_t value);

// Step of a search: 1 "initiate", 2 "display", 3 "perform", 4 "launch", 5 "close".
std::string SearchActionToString(int32_t value);
const std::string& SearchActionWord(int32_t value);

// What was done with a search result, 1 "click" .. 39 "join_huddle". Keep as they are: 3 is
// "meet_with_Video" (capital V) next to 4 "meet_without_video", and 29 is "down_load_file".
std::string SearchResultActionToString(int32_t value);
const std::string& SearchResultActionWord(int32_t value);

// Search category, 1 "all" .. 15 "huddles". Value 6 is "unjoined_public_channels"; the section words
// below spell the same category "unjonied_public_channels". Both spellings are what the back end expects.
std::string SearchCategoryToString(int32_t value);
const std::string& SearchCategoryWord(int32_t value);

// Section of the displayed search results, 1 "contacts" .. 13 "huddles" (numbered differently from the
// categories). Value 6 is "unjonied_public_channels", misspelt on purpose; do not align it with the
// category word.
std::string SearchSectionToString(int32_t value);
const std::string& SearchSectionWord(int32_t value);

// Source searched: 1 "none", 2 "all", 3 "chat", 4 "sms".
std::string SearchSourceToString(int32_t value);
const std::string& SearchSourceWord(int32_t value);

// File-type filter of a search, 1..8. Value 1 is "all files" with a space, unlike the other
// underscore-joined words; keep the space.
std::string SearchFileTypeToString(int32_t value);
const std::string& SearchFileTypeWord(int32_t value);

// Sort order of displayed search results: 1 "most_recent", 2 "most_relevant".
std::string SearchSortOrderToString(int32_t value);
const std::string& SearchSortOrderWord(int32_t value);

// Chat scope of the search context: only 1 has a word, "orbo_chat".
std::string SearchChatScopeToString(int32_t value);

// Stage of the post-meeting survey: 1 "survey_shown", 2 "survey_interacted".
std::string SurveyStageToString(int32_t value);
const std::string& SurveyStageWord(int32_t value);

// What was done with the post-meeting survey: 1 "post_meeting_survey" (with underscores, unlike the
// event name "post-meeting_survey" of the same event; both as the back end spells them), 2 "close",
// 3 "minimize", 4 "thumbs_up", 5 "thumbs_down".
std::string SurveyActionToString(int32_t value);
const std::string& SurveyActionWord(int32_t value);

// What happened on the join-meeting screen: 1 "button_clicked", 2 "screen_displayed".
std::string JoinMeetingInteractionToString(int32_t value);
const std::string& JoinMeetingInteractionWord(int32_t value);

// The join-meeting screen's action: 1 "screen_displayed", 3 "cancel". 2 has no word. The same word
// "screen_displayed" stands under 2 above and under 1 here; both are what the back end expects.
std::string JoinScreenActionToString(int32_t value);
const std::string& JoinScreenActionWord(int32_t value);

}  // namespace oet
