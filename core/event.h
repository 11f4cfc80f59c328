// One event on its way to the host: the skeleton every tracking export follows.
//
// An export opens a draft (which looks the services up and creates the event), attaches its context
// list under 203 and its body under 201, and submits with its pair of codes:
//
//   auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
//   if (!event) return 0;
//   event->AttachCommonContext(tracking);
//   if (auto* body = event->Create<SomeEntity>()) { ...fill...; event->AttachBody(body); }
//   return event->Submit(kStandaloneCodes);
//
// The draft holds only borrowed host pointers: the event, its entities and the services belong to the
// host and are never freed here, except through Destroy() where an export decides not to submit.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/host.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace oet {

inline constexpr int32_t kContextAttachment = 203;
inline constexpr int32_t kBodyAttachment = 201;

// The two opaque codes handed to SubmitEvent.
struct SubmitCodes {
  int32_t first;
  int32_t second;
};
inline constexpr SubmitCodes kStandaloneCodes{3, 1};
inline constexpr SubmitCodes kChatStorageCodes{3, 2};
inline constexpr SubmitCodes kInMeetingCodes{4, 1};

// Which services an event needs before it creates its event object.
enum class Lookup {
  // The context-list variant: the telemetry service only; the client-context cache is not touched.
  kTelemetryOnly,
  // The common skeleton: the client-context cache is created first (even when the call fails
  // later), then the web service and the telemetry service must both be present.
  kWebServiceAndTelemetry,
};

// Entities of a context list, in order, as base-subobject pointers.
class ContextList {
 public:
  // Appends a non-null entity; a null one is left out.
  template <class E>
  void Add(E* entity) {
    if (entity != nullptr) entries_.push_back(entity);
  }
  // Appends the entity's slot even when it is null (the common list and the phone list keep their
  // places this way).
  template <class E>
  void AddSlot(E* entity) {
    entries_.push_back(entity);  // a null E* converts to a null base pointer
  }
  bool empty() const { return entries_.empty(); }
  const std::vector<orbo_entity::EntityBase*>& entries() const { return entries_; }

 private:
  std::vector<orbo_entity::EntityBase*> entries_;
};

class EventDraft {
 public:
  // Looks the services up and creates the event; nullopt when a needed service or the event is missing.
  static std::optional<EventDraft> Open(Lookup lookup);

  iOrbotelemetryAPI* telemetry() const { return telemetry_; }
  // Null for Lookup::kTelemetryOnly.
  ICVWebServiceAPI* web_service() const { return web_service_; }

  template <class E>
  E* Create() const {
    return CreateEntity<E>(telemetry_);
  }

  // The common context list: the client entity (283) and the tracking-info entity (304), in that
  // order, null slots kept. CommonContext builds it for events that append entities of their own.
  ContextList CommonContext(const OrboPTPAAP::PTTrackingInfo_s& tracking) const;
  void AttachCommonContext(const OrboPTPAAP::PTTrackingInfo_s& tracking);
  // The basic context list: entities 170, 159 and 169, each only when the host gives it. With
  // `device_facts`, entity 159 is filled from the client-context cache through its DeviceInfo.
  void AttachBasicContext(bool device_facts);
  // Attaches the list under 203 unless it is empty.
  void AttachContext(const ContextList& list);
  // Attaches the body under 201 unless it is null.
  template <class E>
  void AttachBody(E* body) {
    if (body != nullptr) event_->AttachEntity(kBodyAttachment, body);
  }

  // Submits with an empty parameter map; returns 1, the export's result.
  int Submit(SubmitCodes codes);
  // Destroys the event instead of submitting it; returns 0, the export's result.
  int Destroy();

 private:
  EventDraft(iOrbotelemetryAPI* telemetry, ICVWebServiceAPI* web_service, IOrboEvent* event)
      : telemetry_(telemetry), web_service_(web_service), event_(event) {}

  iOrbotelemetryAPI* telemetry_;
  ICVWebServiceAPI* web_service_;
  IOrboEvent* event_;
};

// Runs an export's body so that nothing is thrown across the library boundary: any exception
// (a throwing host operation, a failed allocation) gives `on_failure`, the export's documented result
// for that case (0 for tracking exports). Everything the library allocates is owned by local objects
// and released on the way out.
template <class Body>
int Guarded(Body&& body, int on_failure = 0) noexcept {
  try {
    return body();
  } catch (...) {
    return on_failure;
  }
}

}  // namespace oet
