// The four strings of the meeting that just ended, kept process-wide for the events that follow it.
//
// Reads and writes are locked, so exports may store and read them from several threads: a report
// reads all four in one step (a snapshot), and clears what it reported only if no store replaced them
// in between, so a store that races a report is neither mixed with the old strings nor lost to the
// clearing. The strings are never destroyed (they outlive the library's other statics, for calls made
// from a client's exit path).
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/post_meeting.h"

namespace oet {

using PostMeetingStrings = OrboPTPAAP::PostMeetingTrackingInfo_s;

// The four strings as one report reads them, with the store they came from.
struct PostMeetingSnapshot {
  PostMeetingStrings strings;
  uint64_t generation = 0;  // how many stores had happened when the snapshot was taken
};

PostMeetingSnapshot SnapshotPostMeetingStrings();
// Replaces the four strings (a new meeting).
void StorePostMeetingStrings(PostMeetingStrings strings);
// Empties strings 1, 2 and 4 once a report has gone out, unless a store has replaced them since the
// report's snapshot. String 3 stays.
void ClearReportedPostMeetingStrings(uint64_t generation);

}  // namespace oet
