// The tracking record that the in-meeting exports take first: which meeting, who takes part in it
// and how.
#pragma once

#include <cstdint>

#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/kst_time.h"

namespace OrboPAAP {

// The meeting-identity number that stands for "no number".
inline constexpr uint64_t kNoMeetingNumber = UINT64_MAX;

// The meeting as the meeting's user interface knows it. Texts are UTF-8. Which event reads which
// member is said beside it; the meeting event's context entities are named by their type ids.
struct MeetingTrackingInfo_s {
  // The meeting's identity. The notice and client events never send it as it is: they send the
  // short key of the text (of the number in decimal when the text is empty) and kNoMeetingNumber.
  Kst::CStringT<char> meeting_id;
  uint64_t meeting_number = kNoMeetingNumber;  // kNoMeetingNumber: no number
  Kst::CStringT<char> conference_id;           // 287
  Kst::CStringT<char> participant_id;          // 287
  int32_t meeting_type = 0;                    // 298, 293
  Kst::CStringT<char> client_session_id;       // 298
  int32_t meeting_role = 0;                    // 3 makes the derived mode 2, any other value 1
  Kst::CStringT<char> meeting_text;            // not empty: 277; also a condition of 303
  Kst::CStringT<char> share_text;              // with share_number not 0: 296
  int32_t share_number = 0;                    // with share_text not empty: 296
  int32_t body_number = 0;                     // the meeting body's number, sent when not 0
  Kst::Time start_time;                        // the meeting body's start time; zero: not given
};

}  // namespace OrboPAAP
