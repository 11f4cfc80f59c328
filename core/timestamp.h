// Host times as the text that events carry.
#pragma once

#include "core/made_text.h"
#include "oKstPlatform/kst_time.h"

namespace oet {

// The time in UTC as "YYYY-MM-DDThh:mm:ss.mmmZ", every number zero-filled to its width (for example
// "2024-03-07T05:09:01.042Z"); the empty string for the zero ("not given") time. Sub-millisecond
// parts are dropped, not rounded. Years past 9999 are written with all their digits; years before 1
// (times far before the epoch) with a leading minus sign.
// The text (24 bytes) is longer than a string's own small buffer, so it is made in the thread's text
// buffer when that is free (core/made_text.h).
MadeText FormatUtcTimestamp(const Kst::Time& time);
// The same into `text`: an event that writes several times formats them one after the other into one
// MadeText.
void FormatUtcTimestamp(const Kst::Time& time, MadeText& text);

}  // namespace oet
