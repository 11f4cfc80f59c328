// Performance measurements of the chat module.
#pragma once

#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/chat_metrics.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// One performance measurement of the chat module. The event it names is the first of the nine event
// members that is set (not kNone), looked at in this order: fetch, fetch handler, file, heartbeat,
// login, message, message handler, platform, special; its word (oKstPlatform/chat_metrics.h) is the event
// name. With none set the name is empty and the measurement still goes out.
//
// The measurements M1 to M21 go to the measurements entity (133), each only when it carries a value:
// a number when it is not 0, a flag when it is not 0 (then as true), text M10 when it is not empty,
// texts M1 and M21 when they are longer than 2 bytes. Text M2, value M8 and flag M9 (as a bool) are
// always sent. Texts go out byte for byte as the record holds them.
struct OClientPerfMetricsInfo_s {
  MetricsLoginEvent login_event = MetricsLoginEvent::kNone;
  MetricsFetchEvent fetch_event = MetricsFetchEvent::kNone;
  MetricsFetchHandlerEvent fetch_handler_event = MetricsFetchHandlerEvent::kNone;
  MetricsHeartBeatEvent heartbeat_event = MetricsHeartBeatEvent::kNone;
  MetricsMessageEvent message_event = MetricsMessageEvent::kNone;
  MetricsMessageHandlerEvent message_handler_event = MetricsMessageHandlerEvent::kNone;
  MetricsPlatformEvent platform_event = MetricsPlatformEvent::kNone;
  MetricsFileEvent file_event = MetricsFileEvent::kNone;
  MetricsSpecialEvent special_event = MetricsSpecialEvent::kNone;
  int32_t spare_value = 0;  // not sent
  Kst::CStringT<char> text_m1;
  Kst::CStringT<char> text_m2;
  int32_t count_m3 = 0;
  int32_t flag_m4 = 0;
  int64_t value_m5 = 0;
  int64_t value_m6 = 0;
  int64_t value_m7 = 0;
  int64_t value_m8 = 0;
  int32_t flag_m9 = 0;
  Kst::CStringT<char> text_m10;
  int64_t value_m11 = 0;
  int64_t value_m12 = 0;
  int32_t count_m13 = 0;
  int32_t flag_m14 = 0;
  int32_t count_m15 = 0;
  int32_t flag_m16 = 0;
  int32_t flag_m17 = 0;
  int32_t flag_m18 = 0;
  int32_t count_m19 = 0;  // sent as a 64-bit number
  int32_t count_m20 = 0;  // sent as a 64-bit number
  Kst::CStringT<char> text_m21;
  int64_t spare_number = 0;  // not sent
  int32_t body_value_b1 = 0;
  Kst::CStringT<char> body_text_b2;  // sent as it is, empty too
  int64_t body_value_b3 = 0;
};

// A performance measurement: context entities 41, 50 and the measurements 133 (the list is attached
// even when the host gives none of them); body 134 with the event name, B1, B2 and B3. Needs the web
// service and the telemetry service; the tracking record is not read.
//
// The five noisy event names "webview_error", "network_disconnect", "signoff", "tp_on_tracking" and
// "tp_on_data_indicate" are sent at most once a second each: a measurement under one of them within
// 1000 ms of its last accepted one (by the host's clock) returns 0 at once, before any service is
// looked up. An accepted call counts even when it then fails for want of a service.
OET_API int TrackingPerfMetricsInfo(const PTTrackingInfo_s& tracking, const OClientPerfMetricsInfo_s& info);

}  // namespace OrboPTPAAP
