// The shape every performance report shares: the device entity (643), the report marker (652), the
// report's own entities in the context list (203), and the report header (642) as the body (201).
//
//   return oet::TrackApmBodyReport<orbo_entity::ApmMacLaunchEntity>(
//       oet::kMacLaunchReport, oet::ApmDevice::kWith, [&](orbo_entity::ApmMacLaunchEntity& body) { ... });
//
// Any entity of the report that the host does not give destroys the event and gives 0; so does a
// missing header, after the context list has been attached to the event.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "oKstPlatform/entities.h"

namespace oet {

// A report's category (the header's 4th operation) and report code (its 2nd).
struct ApmReportCode {
  int32_t category;
  int32_t code;
};
inline constexpr ApmReportCode kIOSLaunchReport{1, 1};
inline constexpr ApmReportCode kIOSMetricKitReport{5, 2};
inline constexpr ApmReportCode kMacLaunchReport{1, 3};
inline constexpr ApmReportCode kMacRuntimeReport{2, 4};
inline constexpr ApmReportCode kMacFreezeReport{3, 5};
inline constexpr ApmReportCode kAndroidLaunchReport{1, 6};
inline constexpr ApmReportCode kAndroidPageReport{7, 7};
inline constexpr int32_t kClientCrashCategory = 8;  // its code is the caller's
inline constexpr ApmReportCode kIOSMetricKitDataReport{5, 10};

// Whether the report carries the device entity (every report but the crash report does).
enum class ApmDevice { kWith, kWithout };

// Creates the device entity when asked for and the marker, and puts them into the list; false when the
// host gives either of them not. The device entity is filled from a refreshed copy of the
// client-context cache: through DeviceInfo the web-service value, device product, os name and os
// version, always; then the cpu name, gpu model, resolution and manufacturer, each only when the cache
// holds it; then the total RAM when it is above 0.
// (Inlined into every report with its constant arguments, as are FinishApmReport and the skeleton.)
void FillApmDeviceEntity(orbo_entity::ApmDeviceEntity& entity);
inline bool StartApmContext(const EventDraft& event, ApmDevice device, ContextList& list) {
  if (device == ApmDevice::kWith) {
    auto* entity = event.Create<orbo_entity::ApmDeviceEntity>();
    if (entity == nullptr) return false;
    FillApmDeviceEntity(*entity);
    list.Add(entity);
  }
  auto* marker = event.Create<orbo_entity::ApmReportMarkerEntity>();
  if (marker == nullptr) return false;
  list.Add(marker);
  return true;
}

// Attaches the list, creates the header, sets its category and code, attaches it and submits. When
// the host gives no header, the event is destroyed and the result is 0.
inline int FinishApmReport(EventDraft& event, ContextList&& list, ApmReportCode code) {
  event.AttachContextAlways(std::move(list));
  auto* header = event.Create<orbo_entity::ApmReportHeaderEntity>();
  if (header == nullptr) return event.Destroy();
  header->SetReportCategory(code.category);
  header->SetReportCode(code.code);
  event.AttachBody(header);
  return event.Submit(kStandaloneCodes);
}

// The report skeleton. `add(event, list)` creates the report's own entities and appends them to the
// list (`entries`: at most how many); it returns false when a required entity is missing, which
// destroys the event.
template <class AddEntries>
int TrackApmReport(ApmReportCode code, ApmDevice device, size_t entries, AddEntries&& add) {
  return Guarded([&] {
    auto event = EventDraft::Open(Lookup::kTelemetryOnly);
    if (!event) return 0;
    ContextList list(2 + entries);
    if (!StartApmContext(event, device, list) || !add(event, list)) return event.Destroy();
    return FinishApmReport(event, std::move(list), code);
  });
}

// A report with one body entity of type Body, filled by `fill(body)`.
template <class Body, class Fill>
int TrackApmBodyReport(ApmReportCode code, ApmDevice device, Fill&& fill) {
  return TrackApmReport(code, device, 1, [&](const EventDraft& event, ContextList& list) {
    Body* body = event.Create<Body>();
    if (body == nullptr) return false;
    fill(*body);
    list.Add(body);
    return true;
  });
}

// Sets the first N texts of a record (text1, text2, ...) on the body operations named after them
// (SetText1, SetText2, ...), in that order, each only when it is not empty.
template <int N, class Body, class Record>
OET_INLINE_FIELD_STEP void SetTextsInOrder(Body& body, const Record& info) {
  static_assert(N >= 1 && N <= 19, "the reports carry 1 to 19 texts");
  SetUnlessEmpty(&body, &Body::SetText1, info.text1);
  if constexpr (N >= 2) SetUnlessEmpty(&body, &Body::SetText2, info.text2);
  if constexpr (N >= 3) SetUnlessEmpty(&body, &Body::SetText3, info.text3);
  if constexpr (N >= 4) SetUnlessEmpty(&body, &Body::SetText4, info.text4);
  if constexpr (N >= 5) SetUnlessEmpty(&body, &Body::SetText5, info.text5);
  if constexpr (N >= 6) SetUnlessEmpty(&body, &Body::SetText6, info.text6);
  if constexpr (N >= 7) SetUnlessEmpty(&body, &Body::SetText7, info.text7);
  if constexpr (N >= 8) SetUnlessEmpty(&body, &Body::SetText8, info.text8);
  if constexpr (N >= 9) SetUnlessEmpty(&body, &Body::SetText9, info.text9);
  if constexpr (N >= 10) SetUnlessEmpty(&body, &Body::SetText10, info.text10);
  if constexpr (N >= 11) SetUnlessEmpty(&body, &Body::SetText11, info.text11);
  if constexpr (N >= 12) SetUnlessEmpty(&body, &Body::SetText12, info.text12);
  if constexpr (N >= 13) SetUnlessEmpty(&body, &Body::SetText13, info.text13);
  if constexpr (N >= 14) SetUnlessEmpty(&body, &Body::SetText14, info.text14);
  if constexpr (N >= 15) SetUnlessEmpty(&body, &Body::SetText15, info.text15);
  if constexpr (N >= 16) SetUnlessEmpty(&body, &Body::SetText16, info.text16);
  if constexpr (N >= 17) SetUnlessEmpty(&body, &Body::SetText17, info.text17);
  if constexpr (N >= 18) SetUnlessEmpty(&body, &Body::SetText18, info.text18);
  if constexpr (N >= 19) SetUnlessEmpty(&body, &Body::SetText19, info.text19);
}

}  // namespace oet
