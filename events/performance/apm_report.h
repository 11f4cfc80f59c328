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
#include "platform/entities.h"

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

// Fills the device entity from a refreshed copy of the client-context cache: through DeviceInfo the
// web-service value, device product, os name and os version, always; then the cpu name, gpu model,
// resolution and manufacturer, each only when the cache holds it; then the total RAM when it is above
// 0. Returns 0 for a null entity, without touching the cache, and 1 otherwise.
int FillApmDeviceEntity(orbo_entity::ApmDeviceEntity* entity);

// Creates the device entity (filled) when asked for and the marker, and puts them into the list.
// False when the host gives either of them not.
bool StartApmContext(const EventDraft& event, ApmDevice device, ContextList& list);

// Attaches the list, creates the header, sets its category and code, attaches it and submits. When
// the host gives no header, the event is destroyed and the result is 0.
int FinishApmReport(EventDraft& event, ContextList&& list, ApmReportCode code);

// The report skeleton. `add(event, list)` creates the report's own entities and appends them to the
// list (`entries`: at most how many); it returns false when a required entity is missing, which
// destroys the event.
template <class AddEntries>
int TrackApmReport(ApmReportCode code, ApmDevice device, size_t entries, AddEntries&& add) {
  return Guarded([&] {
    auto event = EventDraft::Open(Lookup::kTelemetryOnly);
    if (!event) return 0;
    ContextList list(2 + entries);
    if (!StartApmContext(*event, device, list) || !add(*event, list)) return event->Destroy();
    return FinishApmReport(*event, std::move(list), code);
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

}  // namespace oet
