// The meeting that just ended, kept for the events that follow it, and the survey shown after it.
#pragma once

#include <cstdint>

#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// The meeting that just ended, kept for the events that follow it (the post-meeting survey).
struct PostMeetingTrackingInfo_s {
  Kst::CStringT<char> text1;     // UTF-8, copied into the post-meeting event
  Kst::CStringT<char> text2;     // UTF-8, copied into the post-meeting event
  Kst::CStringT<wchar_t> text3;  // the post-meeting event reports only while this is not empty
  Kst::CStringT<char> text4;
};

// Keeps the four meeting strings for the post-meeting event, replacing what was kept before.
// Safe to call from several threads.
OET_API void StoreMeetingInfo4PostEvents(const PostMeetingTrackingInfo_s& info);

// What the user did with the survey shown after a meeting.
struct PostMeetingInteractInfo_s {
  int32_t survey_stage = 0;   // 1 "survey_shown", 2 "survey_interacted"; other values: the empty word
  int32_t survey_action = 0;  // 1 "post_meeting_survey", 2 "close", 3 "minimize", 4 "thumbs_up",
                              // 5 "thumbs_down"; other values: the empty word
};

// A post-meeting survey interaction: body 288 alone (no context list), with the event name
// "post-meeting_survey", the interaction "survey_interacted" (whatever the stage), the location
// "main_meeting_toolbar", the stage and action words, the client context's web-service value and the
// kept meeting's text1 and text2. Needs only the telemetry service.
//
// Sent only while a meeting is kept with a non-empty text3; otherwise, or when the host gives no body
// entity, the event is destroyed and 0 returned. Once the event has been created, its reading of the
// kept strings empties text1, text2 and text4 in the same step, whatever the submission does afterwards
// (text3 stays, so further survey steps of the same meeting still go out, with empty meeting texts); a
// meeting stored after that reading is kept whole.
OET_API int TrackingPostMeetingEvent(const PostMeetingInteractInfo_s& info);

}  // namespace OrboPTPAAP
