// The host's number <-> text helpers.
#pragma once

#include <cstdint>

#include "oKstPlatform/kst_export.h"
#include "oKstPlatform/kst_string.h"

namespace Kst {

// Parses `text` as an unsigned number in `base` (2..36; digits past 9 are the letters a..z in either
// case). The whole text must be digits of the base: no sign, no blanks, no prefix such as "0x", and
// the value must fit in 32 bits; an empty text is no number. On success
// writes *value and returns true; otherwise returns false and leaves *value as it was (a null value
// or an unsupported base also gives false).
KST_API bool StringToUInt(const CStringT<char>& text, uint32_t* value, int base);
KST_API bool StringToUInt(const CStringT<wchar_t>& text, uint32_t* value, int base);

// The decimal text of `value`, with a leading '-' for a negative one.
KST_API CStringT<char> Int64ToString(int64_t value);

}  // namespace Kst
