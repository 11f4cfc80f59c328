// The four strings of the meeting that just ended, kept process-wide for the events that follow it.
// Reads and writes are locked, so exports may store and read them from several threads.
#pragma once

#include <functional>

#include "oEventTracker/OrboPTPAAP.h"

namespace oet {

using PostMeetingStrings = OrboPTPAAP::PostMeetingTrackingInfo_s;

// A copy of the four strings as they are now.
PostMeetingStrings CopyPostMeetingStrings();
// Changes the strings in one locked step (reading and clearing them together, for instance).
void UpdatePostMeetingStrings(const std::function<void(PostMeetingStrings&)>& update);

}  // namespace oet
