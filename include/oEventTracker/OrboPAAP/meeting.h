// Actions inside a meeting.
#pragma once

#include <cstdint>
#include <string>

#include "oEventTracker/OrboPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPAAP {

// One measured action inside a meeting. The codes, values and texts are the meeting's own and go out
// unchanged (texts as UTF-8). Members that add a context entity are marked with its type id.
struct MeetingInteractInfo_s {
  int32_t first_code = 0;   // required non-zero
  int32_t second_code = 0;  // required non-zero
  int32_t third_code = 0;   // required non-zero
  int32_t fourth_code = 0;  // may be zero
  // What kind of action; required non-zero. Some kinds add a context entity of their own (see
  // TrackingMeetingInteractEvent), which carries kind_text and kind_value.
  int32_t interaction_kind = 0;
  int32_t sixth_code = 0;
  int32_t seventh_code = 0;
  Kst::CStringT<wchar_t> label;  // sent when not empty
  std::string detail;            // UTF-8, sent as it is
  int32_t pair_gate_a = 0;       // both not 0: 292 with both values
  int32_t pair_gate_b = 0;
  Kst::CStringT<char> reference_text;  // with reference_a, _b and _c all not 0: 281
  int32_t reference_a = 0;
  int32_t reference_b = 0;
  int32_t reference_c = 0;
  int32_t extra_gate = 0;         // not 0: 293 with this value
  Kst::CStringT<char> item_text;  // not empty: 294, with item_index
  int32_t item_index = 0;
  int32_t option_flag = 0;        // 303: whether the option is on (zero false, non-zero true)
  int32_t option_value = 0;       // not 0, with the tracking record's meeting_text not empty: 303
  int32_t kind_569_value = 0;     // with interaction kind 569 and not 0: 286
  int32_t body_flag = 0;          // zero false, non-zero true
  int32_t tier = 0;               // 3 marks every entity of the event (see TrackingMeetingInteractEvent)
  int32_t mode = 0;               // 0: derived from the tracking record's meeting_role
  Kst::CStringT<char> kind_text;  // the kind's context entity (302, 300 or 301)
  int32_t kind_value = 0;         // the kind's context entity (302, 300 or 301)
};

// Reports an action inside a meeting. Needs the web service and the telemetry service. The event is
// destroyed and nothing is sent when the first, second or third code or the interaction kind is 0 (a
// zero fourth code is accepted), or when the client-context cache has never been filled (its os name,
// read after a refresh, is empty).
//
// Context list, in this order, each entity only when the host gives it:
//   304 (tracking info, no fields), 283 (client entity), 297 (no fields), 287 (conference id,
//   participant id, the account's domain label), 298 (meeting type, client session id), then
//   281  reference_a, _b and _c all non-zero and reference_text not empty (the text and the three)
//   277  meeting_text not empty (the text and the interaction kind)
//   296  share_number non-zero and share_text not empty (both)
//   292  pair_gate_a and pair_gate_b both non-zero (both)
//   293  extra_gate non-zero (it, and the tracking record's meeting_type)
//   294  item_text not empty (it and item_index)
//   303  option_value non-zero and meeting_text not empty (option_flag as a bool, option_value)
//   302  interaction kind 513 or 429
//   300  interaction kind 494..502, 505, 508, 510, 511, 514, 515, 516, 534, 535 or 536
//   301  interaction kind 507, 519..533 or 661 (302, 300 and 301 carry kind_text and kind_value)
//   286  interaction kind 569 and kind_569_value non-zero (the value)
// Texts of the context entities are cleared when empty, else set. Every entity of the list is then
// asked for its attribute holder of selector -3; when tier is 3, each holder given gets the value 3
// (other tiers set nothing; an entity without a holder is left as it is). The list is attached
// whatever it holds.
//
// Body (the meeting body, 289): the same marking on its own holder; the mode (mode, or when that is 0:
// 2 for meeting_role 3, else 1); the first, second, third and fourth code, the interaction kind, the
// sixth and seventh code; the detail; the label when it is not empty (an empty label leaves the
// field alone); body_flag as a bool; body_number when it is not 0; the start time as
// "YYYY-MM-DDThh:mm:ss.mmmZ" (UTC), or its field cleared for a zero time. The feature name is not set.
// Submitted with codes 4 and 1.
OET_API int TrackingMeetingInteractEvent(const MeetingTrackingInfo_s& tracking,
                                         const MeetingInteractInfo_s& info);

}  // namespace OrboPAAP
