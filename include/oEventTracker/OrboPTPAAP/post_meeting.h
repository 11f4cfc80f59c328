// The meeting that just ended, kept for the events that follow it.
#pragma once

#include "oEventTracker/api.h"
#include "platform/kst_string.h"

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

}  // namespace OrboPTPAAP
