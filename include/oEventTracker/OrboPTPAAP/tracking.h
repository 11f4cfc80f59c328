// The tracking record that most exports of the main window take first.
#pragma once

#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// Who and where: the two tracking values that most events carry in their tracking-info entity. The
// library copies them without looking at them.
struct PTTrackingInfo_s {
  Kst::CStringT<char> primary_value;    // UTF-8
  Kst::CStringT<char> secondary_value;  // UTF-8
};

}  // namespace OrboPTPAAP
