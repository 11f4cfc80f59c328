// The join-meeting screen (namespace PTJoinMeetingPAAP): what the user did there, kept as a short text
// and reported later.
//
// The screen turns its interaction record into text with FormatJoinMeetingInteractInfoAsString, keeps
// the text, and hands it to TrackingPTJoinMeetingInteractEvent when it reports. The text is four
// pieces separated by "|", with no spaces, escaping, terminator or trailing separator:
//
//   <interaction word>|<action word>|<first flag>|<second flag>
//
//   interaction word  "button_clicked" (interaction type 1), "screen_displayed" (2), else empty
//   action word       "screen_displayed" (join-screen action 1), "cancel" (3), else empty (2 has no
//                     word); the two enumerations share "screen_displayed" under different numbers
//   flags             "1" for a non-zero flag, "0" for zero
//
// For example {1, 3, 1, 0} gives "button_clicked|cancel|1|0" and {7, 2, 0, 0} gives "||0|0".
#pragma once

#include <cstdint>

#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace PTJoinMeetingPAAP {

// One interaction with the join-meeting screen.
struct PTJoinMeetingInteractInfo_s {
  int32_t interaction_type = 0;    // 1 button clicked, 2 screen displayed
  int32_t join_screen_action = 0;  // 1 screen displayed, 3 cancel
  int32_t first_flag = 0;          // zero false, non-zero true
  int32_t second_flag = 0;         // zero false, non-zero true
};

// Who reports from the join-meeting screen: the screen's two tracking values, as the main window's
// tracking record carries them. The join-meeting event does not send them (its tracking-info entity
// goes out without fields); the record is part of the interface so that the screen can pass what it
// has.
struct PTJoinMeetingTrackingInfo_s {
  Kst::CStringT<char> primary_value;    // UTF-8
  Kst::CStringT<char> secondary_value;  // UTF-8
};

// The record as the join-meeting text (above). Never fails.
OET_API Kst::CStringT<char> FormatJoinMeetingInteractInfoAsString(const PTJoinMeetingInteractInfo_s& info);

// Reads a join-meeting text, byte by byte, into two words and two flags. Any text is accepted:
//  - The text is cut at each "|" into at most six pieces; each piece is trimmed of blanks (space, tab,
//    CR, LF, VT, FF) at both ends. Piece 1 is written to interaction_word and piece 2 to action_word as
//    they stand (the words are not checked or turned back into numbers); piece 3 sets first_flag and
//    piece 4 second_flag to 1 when it is exactly "1" and to 0 otherwise. Pieces 5 and 6 are read and
//    dropped; anything after a sixth "|" is not looked at.
//  - Reading stops where the text ends: an output whose piece the text does not reach keeps the
//    caller's value. So an empty text changes nothing, "a|b" writes only the two words, and "a|b|1|"
//    (a trailing separator) writes the words and the first flag but not the second flag.
//  - Bytes are copied as they are: text that is not well-formed UTF-8 reaches the words unchanged.
OET_API void ParseJoinMeetingInterfactInfoFromString(Kst::CStringT<char>& interaction_word,
                                                     Kst::CStringT<char>& action_word, int& first_flag,
                                                     int& second_flag, const Kst::CStringT<char>& text);

// Reports a join-meeting text. Nothing is sent for an empty text. Needs the web service and the
// telemetry service. The context list holds the client entity (283) and the tracking-info entity (304,
// without fields), each when the host gives it; the body is the home-tab entity (285) with the feature
// "join_meeting", the element set to the action word (cleared when the word is empty), the interaction
// type set to the interaction word (also when empty), the third flag from the first flag, the fourth
// flag from the second flag, and the first, second and fifth flags false. Flags that the text does not
// reach count as 0.
OET_API int TrackingPTJoinMeetingInteractEvent(const Kst::CStringT<char>& text,
                                               const PTJoinMeetingTrackingInfo_s& tracking);

}  // namespace PTJoinMeetingPAAP
