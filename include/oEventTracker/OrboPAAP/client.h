// Interactions with the client application as a whole, inside a meeting.
#pragma once

#include <cstdint>
#include <string>

#include "oEventTracker/OrboPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPAAP {

// One interaction with the client. Values and texts (UTF-8) go out unchanged; none is checked.
struct OClientInteractInfo_s {
  int32_t client_value1 = 0;        // the body's value c
  int32_t client_value2 = 0;        // value f
  int32_t client_value3 = 0;        // value a
  int32_t client_value4 = 0;        // value e
  int32_t client_value5 = 0;        // value b
  int32_t client_value6 = 0;        // value d
  Kst::CStringT<char> client_text;  // the body's text a; cleared when empty
  // Where in the client the interaction happened, for the client's own logs; not sent by this event.
  Kst::CStringT<char> client_source;
  std::string client_detail;               // the body's text b; sent as it is, also when empty
  Kst::CStringT<char> product_identifier;  // sent as its short key in the product entity (171)
};

// Reports a client interaction inside a meeting, built like TrackingNoticeInteractEvent: the context
// list holds 170, 159 and 169 without fields, the hidden meeting identity (161) and the product entity
// (171: the short key of product_identifier, empty without the web service's lookup, then the
// constant 1); the body (157) gets value a..f from client values 3, 5, 1, 6, 4, 2, text b from
// client_detail and text a from client_text. Submitted with codes 4 and 1.
OET_API int TrackingClientInteractEvent(const MeetingTrackingInfo_s& tracking,
                                        const OClientInteractInfo_s& info);

}  // namespace OrboPAAP
