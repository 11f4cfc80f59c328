// The four strings of the meeting that just ended, kept process-wide for the events that follow it.
//
// Reads and writes are locked, so exports may store and read them from several threads. The
// post-meeting event reads all four in one step that also empties strings 1, 2 and 4 (string 3 stays):
// what it has read is gone as part of that read, whatever its submission does afterwards, and a store
// that races it comes either wholly before the read or wholly after, so it is neither mixed with the
// old strings nor lost. The strings are never destroyed (they outlive the library's other statics, for
// calls made from a client's exit path).
#pragma once

#include "oEventTracker/OrboPTPAAP/post_meeting.h"

namespace oet {

using PostMeetingStrings = OrboPTPAAP::PostMeetingTrackingInfo_s;

// The four strings as they were, emptying strings 1, 2 and 4 in the same step.
PostMeetingStrings TakePostMeetingStrings();
// Replaces the four strings (a new meeting).
void StorePostMeetingStrings(PostMeetingStrings strings);

}  // namespace oet
