// Interactions with the client application as a whole.
#pragma once

#include <cstdint>
#include <string>

#include "oEventTracker/OrboPTPAAP/client_info.h"
#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// An interaction with the client application. The values go to the body (157) unchanged; the action
// code also gives the body's action class: 93 gives 3, 94 and 95 give 1, other codes none.
struct OClientInteractInfo_s {
  int32_t first_value = 0;         // body value c
  int32_t second_value = 0;        // not sent
  int32_t third_value = 0;         // body value a
  int32_t action_code = 0;         // body value e, and the action class
  int32_t fifth_value = 0;         // body value b
  int32_t sixth_value = 0;         // body value d
  Kst::CStringT<char> first_text;  // body text a, UTF-8; cleared when empty
  int64_t spare_number = 0;        // not sent
  std::string detail;              // body text b, UTF-8, sent as it is (empty too)
  // The client's product facts, as RetrieveClientProductInfo fills them. The meeting-identity entity
  // (161) carries `domain` as its text and, since a client-level action belongs to no meeting, the
  // all-ones "no number" value as its number; the client label and version are not sent.
  PTClientProductEntityStruct product_info;
  Kst::CStringT<char> product_id;  // sent as the web service's short key (at most 16 bytes) in 171
};

// An interaction with the client: context entities 170 (the tracking values), 159, 169, 161 (from
// product_info) and 171 (the short key of product_id and the marker 1), always five entries, an entity
// the host does not give kept as a null entry; body 157 with the source "client". Needs the web
// service and the telemetry service.
OET_API int TrackingClientInteractEvent(const PTTrackingInfo_s& tracking, const OClientInteractInfo_s& info);

}  // namespace OrboPTPAAP
