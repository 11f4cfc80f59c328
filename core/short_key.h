// Short keys: the web service's compact form of an identifier, as events carry it.
#pragma once

#include "oKstPlatform/kst_string.h"

namespace oet {

// The longest short key an event carries, in bytes.
inline constexpr int kShortKeyMaxBytes = 16;

// Asks the web service's short-key lookup for the identifier's short key and returns at most its
// first 16 bytes (bytes, not characters: a multi-byte character at the cut is cut too, as the back
// end expects). Empty when the identifier is empty, the web service or its lookup is missing, or the
// lookup does not know the identifier. Exceptions of the host pass through to the calling export,
// which turns them into its result.
Kst::CStringT<char> MapIdToShortKey(const Kst::CStringT<char>& identifier);

}  // namespace oet
