// The clips recorder (namespace OrboClipsPAAP): what the user did with it, and how it was set up.
#pragma once

#include <cstdint>
#include <string>

#include "oEventTracker/api.h"

namespace OrboClipsPAAP {

// One interaction with the clips recorder. The codes are the recorder's own; the event requires the
// first, second, third and fifth to be non-zero and sends all five unchanged.
struct ClipsRecordInteractInfo_s {
  int32_t first_code = 0;
  int32_t second_code = 0;
  int32_t third_code = 0;
  int32_t fourth_code = 0;  // may be zero
  int32_t fifth_code = 0;
  std::string detail;  // UTF-8; sent as it is, also when empty
};

// The recorder's configuration at the moment of the interaction: four texts (UTF-8) and ten values,
// all sent unchanged, empty texts as empty texts. Their meaning is the recorder's.
struct ClipsRecordConfigInfo_s {
  std::string setting_text1;
  int32_t setting_value_a = 0;
  int32_t setting_value_b = 0;
  int32_t setting_value_c = 0;
  std::string setting_text2;
  int32_t setting_value_d = 0;
  int32_t setting_value_e = 0;
  int32_t setting_value_f = 0;
  std::string setting_text3;
  std::string setting_text4;
  int32_t setting_value_g = 0;
  int32_t setting_value_h = 0;
  int32_t setting_value_i = 0;
  int32_t setting_value_j = 0;
};

// The user who recorded, as the recorder knows them. The clips event does not send it: clips are
// reported without user or client facts.
struct PAAPUserEntityInfo_s {
  std::string user_id;     // UTF-8
  std::string account_id;  // UTF-8
};

// Reports a clips interaction. Needs only the telemetry service; the client-context cache and the web
// service are not touched. When the first, second, third or fifth code is 0 the event is destroyed and
// nothing is sent. The context list holds, each when the host gives it, entities 190, 192, 191 and the
// configuration (188, filled in the record's order), and is attached whatever it holds; the body is
// the clips interaction (189): the constant 1, then the first, second, third, fourth and fifth code
// and the detail. Submitted with codes 3 and 1.
OET_API int TrackingClipsInteractEvent(const ClipsRecordInteractInfo_s& info,
                                       const ClipsRecordConfigInfo_s& config,
                                       const PAAPUserEntityInfo_s& user);

}  // namespace OrboClipsPAAP
