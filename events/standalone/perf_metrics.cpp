// The performance-metrics event: the event name from the first event member that is set (through the
// host's word functions), a one-second limit on five noisy names, the context entities 41, 50 and the
// measurements (133), and the body (134).
#include <string>
#include <string_view>
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "core/rate_limit.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/chat_metrics.h"

namespace OrboPTPAAP {
namespace {

using orbo_entity::PerfMeasurementsEntity;
using orbo_entity::PerfMetricsBodyEntity;

// The noisy names, sent at most once a second each.
oet::RateLimitTable<std::string_view, 5> g_metrics_limits("webview_error", "network_disconnect", "signoff",
                                                          "tp_on_tracking", "tp_on_data_indicate");

// The event name: the word of the first event member that is set, in the order of the categories'
// names (not the record's order); empty when none is set.
std::string EventName(const OClientPerfMetricsInfo_s& info) {
  if (info.fetch_event != MetricsFetchEvent::kNone) return MetricsFetchEventToString(info.fetch_event);
  if (info.fetch_handler_event != MetricsFetchHandlerEvent::kNone)
    return MetricsFetchHandlerEventToString(info.fetch_handler_event);
  if (info.file_event != MetricsFileEvent::kNone) return MetricsFileEventToString(info.file_event);
  if (info.heartbeat_event != MetricsHeartBeatEvent::kNone)
    return MetricsHeartBeatEventToString(info.heartbeat_event);
  if (info.login_event != MetricsLoginEvent::kNone) return MetricsLoginEventToString(info.login_event);
  if (info.message_event != MetricsMessageEvent::kNone)
    return MetricsMessageEventToString(info.message_event);
  if (info.message_handler_event != MetricsMessageHandlerEvent::kNone)
    return MetricsMessageHandlerEventToString(info.message_handler_event);
  if (info.platform_event != MetricsPlatformEvent::kNone)
    return MetricsPlatformEventToString(info.platform_event);
  if (info.special_event != MetricsSpecialEvent::kNone)
    return MetricsSpecialEventToString(info.special_event);
  return std::string();
}

// Each measurement only when it carries a value. The texts are handed on as the record's own strings,
// unchanged, embedded NULs included, so their gates ("longer than 2", "not empty") count every byte.
void FillMeasurements(PerfMeasurementsEntity& m, const OClientPerfMetricsInfo_s& info) {
  m.SetTextM2(info.text_m2.str());
  m.SetValueM8(info.value_m8);
  if (info.text_m1.GetLength() > 2) m.SetTextM1(info.text_m1.str());
  if (info.count_m3 != 0) m.SetCountM3(info.count_m3);
  if (info.flag_m4 != 0) m.SetFlagM4(true);
  if (info.value_m5 != 0) m.SetValueM5(info.value_m5);
  if (info.value_m6 != 0) m.SetValueM6(info.value_m6);
  if (info.value_m7 != 0) m.SetValueM7(info.value_m7);
  m.SetFlagM9(info.flag_m9 != 0);
  if (!info.text_m10.IsEmpty()) m.SetTextM10(info.text_m10.str());
  if (info.value_m11 != 0) m.SetValueM11(info.value_m11);
  if (info.value_m12 != 0) m.SetValueM12(info.value_m12);
  if (info.count_m13 != 0) m.SetCountM13(info.count_m13);
  if (info.flag_m14 != 0) m.SetFlagM14(true);
  if (info.count_m15 != 0) m.SetCountM15(info.count_m15);
  if (info.flag_m16 != 0) m.SetFlagM16(true);
  if (info.flag_m17 != 0) m.SetFlagM17(true);
  if (info.flag_m18 != 0) m.SetFlagM18(true);
  if (info.count_m19 != 0) m.SetCountM19(info.count_m19);
  if (info.count_m20 != 0) m.SetCountM20(info.count_m20);
  if (info.text_m21.GetLength() > 2) m.SetTextM21(info.text_m21.str());
}

}  // namespace

int TrackingPerfMetricsInfo(const PTTrackingInfo_s& /*tracking*/, const OClientPerfMetricsInfo_s& info) {
  return oet::Guarded([&] {
    const std::string name = EventName(info);
    if (!g_metrics_limits.Admit(name)) return 0;
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList list(3);
    list.Add(event.Create<orbo_entity::PerfMetricsContextEntity41>());
    list.Add(event.Create<orbo_entity::PerfMetricsContextEntity50>());
    if (auto* measurements = event.Create<PerfMeasurementsEntity>()) {
      FillMeasurements(*measurements, info);
      list.Add(measurements);
    }
    event.AttachContextAlways(std::move(list));
    if (auto* body = event.Create<PerfMetricsBodyEntity>()) {
      body->SetEventName(name);
      body->SetBodyValueB1(info.body_value_b1);
      body->SetBodyTextB2(info.body_text_b2.str());
      body->SetBodyValueB3(info.body_value_b3);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
