// Interactions in the client's preferences.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// An interaction in the preferences: the values and the two texts as in OBasicInteractInfo_s (body
// 157), and six preference texts for the preferences entity (158), UTF-8, each always set (an empty
// one as the empty text).
struct OPreferencesInteractInfo_s {
  int32_t first_value = 0;          // value f
  int32_t second_value = 0;         // value a
  int32_t third_value = 0;          // value b
  int32_t fourth_value = 0;         // value c
  int32_t fifth_value = 0;          // value d
  int32_t sixth_value = 0;          // value e
  Kst::CStringT<char> first_text;   // text a; cleared when empty
  Kst::CStringT<char> second_text;  // text b; cleared when empty
  Kst::CStringT<char> preference_text1;
  Kst::CStringT<char> preference_text2;
  Kst::CStringT<char> preference_text3;
  Kst::CStringT<char> preference_text4;
  Kst::CStringT<char> preference_text5;
  Kst::CStringT<char> preference_text6;
};

// A preferences interaction: the basic interaction event with the preferences entity: context entities
// 170, 159, 169 and 158, each only when the host gives it (no list when it gives none); body 157.
// Needs only the telemetry service; the tracking record is not read.
OET_API int TrackingPreferencesInteractEvent(const PTTrackingInfo_s& tracking,
                                             const OPreferencesInteractInfo_s& info);

}  // namespace OrboPTPAAP
