// The settings pages (namespace OrboSettingPAAP): a user's interaction with a setting, kept as a short
// text and reported later.
//
// The page turns its interaction record into text with FormatSettingInteractInfoAsString and hands the
// text to TrackingSettingInteractEvent when it reports. The text is six pieces separated by ",", with
// no spaces, escaping or trailing separator: the five codes in decimal (a '-' before a negative one),
// then the record's text as stored (up to its first NUL). Codes 3, 12, 1, 0, 7 and the text "night"
// give "3,12,1,0,7,night"; an empty text leaves the string ending in ",".
//
// The text does not escape anything, so not every record comes back as it was written: a text with
// a comma comes back cut at the comma, a text with blanks at either end comes back trimmed, and a
// negative code comes back as 0 (codes are read as unsigned decimal numbers, below).
#pragma once

#include <cstdint>

#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboSettingPAAP {

// One interaction with a setting. The codes are the settings page's own; the event requires the
// first, second, third and fifth to be non-zero.
struct SettingInteractInfo_s {
  int32_t first_code = 0;
  int32_t second_code = 0;
  int32_t third_code = 0;
  int32_t fourth_code = 0;  // may be zero
  int32_t fifth_code = 0;
  Kst::CStringT<char> text;  // UTF-8, free text; may be empty
};

// The meeting the settings page belongs to, when it belongs to one: its identity text and number,
// sent in the meeting-identity entity (161) when both are given.
struct SettingTrackingInfo_s {
  Kst::CStringT<char> tracking_text;  // UTF-8
  uint64_t tracking_number = 0;       // 0: not given
};

// The record as the settings text (above). Never fails.
OET_API Kst::CStringT<char> FormatSettingInteractInfoAsString(const SettingInteractInfo_s& info);

// Reads a settings text into `info`. Any text is accepted:
//  - The text is read as UTF-8 and turned into wide text through the host's code-page conversion
//    (each ill-formed piece becomes U+FFFD), then cut at each "," into at most six pieces, each trimmed
//    of blanks (space, tab, CR, LF, VT, FF) at both ends.
//  - Pieces 1 to 5 set the five codes: the piece's value as an unsigned decimal number of at most 32
//    bits, as the host's Kst::StringToUInt reads it, stored bit for bit in the signed code (so
//    "4294967295" gives -1); a piece that is not such a number gives 0. With the host platform here
//    Kst::StringToUInt takes ASCII digits only: a sign ("+7", "-7"), a value above 4294967295, and any
//    character before, inside or after the digits ("7a", "0x7", "1 2") make the piece no number;
//    leading zeros are allowed ("007" is 7) and an empty piece is no number.
//  - Piece 6 sets the text, converted back to UTF-8. Anything after a sixth "," is not looked at.
//  - Reading stops where the text ends: a field whose piece the text does not reach keeps its value.
//    So an empty text changes nothing, and "3,12,1,0,7" (no sixth piece) sets the codes and keeps the
//    text.
//  - A text of 512 MiB (2^29 bytes) or more, beyond what the host's int-sized conversions take,
//    changes nothing.
OET_API void ParseSettingInterfactInfoFromString(SettingInteractInfo_s& info,
                                                 const Kst::CStringT<char>& text);

// Reports a settings text. Nothing is created for an empty text or without the web service or the
// telemetry service. The text is read into a record whose codes are 0 and whose text is empty; when
// its first, second, third or fifth code is 0 the event is destroyed and nothing is sent (a zero
// fourth code is accepted). The context list holds, each when the host gives it, entities 159, 170,
// the meeting identity 161 (only when tracking_text is not empty and tracking_number is not 0: the
// text, then the number) and 169, and is attached whatever it holds. The body is the basic-interaction
// entity (157): value f 3, value a the first code, e the second, c the third, b the fourth, d the
// fifth, and text a the text when it is not empty (an empty text leaves the field alone). Submitted
// with codes 3 and 1.
OET_API int TrackingSettingInteractEvent(const Kst::CStringT<char>& text,
                                         const SettingTrackingInfo_s& tracking);

}  // namespace OrboSettingPAAP
