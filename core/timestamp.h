// Host times as the text that events carry.
#pragma once

#include <string>

#include "oKstPlatform/kst_time.h"

namespace oet {

// The time in UTC as "YYYY-MM-DDThh:mm:ss.mmmZ", every number zero-filled to its width (for example
// "2024-03-07T05:09:01.042Z"); the empty string for the zero ("not given") time. Sub-millisecond
// parts are dropped, not rounded. Years past 9999 are written with all their digits; years before 1
// (times far before the epoch) with a leading minus sign.
std::string FormatUtcTimestamp(const Kst::Time& time);
// The same into `text`, whose buffer is reused: an event that writes several times formats them all
// into one string, so that only the first can allocate.
void FormatUtcTimestamp(const Kst::Time& time, std::string& text);

}  // namespace oet
