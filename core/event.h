// One event on its way to the host: the skeleton every tracking export follows.
//
// An export opens a draft (which looks the services up and creates the event), attaches its context
// list under 203 and its body under 201, and submits with its pair of codes:
//
//   auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
//   if (!event) return 0;
//   event.AttachCommonContext(tracking);
//   if (auto* body = event.Create<SomeEntity>()) { ...fill...; event.AttachBody(body); }
//   return event.Submit(kStandaloneCodes);
//
// The services and entities belong to the host and are never freed here. The event is the draft's
// until it is submitted: an export that decides not to submit calls Destroy(), and an export that stops
// early (a failure, an exception) leaves the draft to destroy it.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "core/host.h"
#include "oEventTracker/OrboPTPAAP/tracking.h"

// Whether thread cancellation unwinds as abi::__forced_unwind: glibc with the GNU C++ library (not
// MinGW, where threads are not cancelled this way, nor other C libraries).
#if defined(__GLIBC__) && defined(__GLIBCXX__)
#include <cxxabi.h>
#define OET_FORCED_UNWIND 1
// The handler that lets the forced unwind through binds a reference to an exception object that the
// unwinder does not provide; UndefinedBehaviorSanitizer's null check would report that binding, so
// the function holding the handler is exempt from that one check.
#define OET_FORCED_UNWIND_HANDLER __attribute__((no_sanitize("null")))
#else
#define OET_FORCED_UNWIND 0
#define OET_FORCED_UNWIND_HANDLER
#endif

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

// Entities of a context list, in order, as base-subobject pointers. The list is built once with room
// for the entities the event may add (`capacity`, an upper bound) and handed to the event as it is.
class ContextList {
 public:
  explicit ContextList(size_t capacity) { entries_.reserve(capacity); }

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
  // The entries, given away (the host takes the list by value).
  std::vector<orbo_entity::EntityBase*> Take() && { return std::move(entries_); }

 private:
  std::vector<orbo_entity::EntityBase*> entries_;
};

// An event on its way to the host. It owns the event until it is submitted or destroyed: an event left
// behind by an early return or an exception is destroyed when the draft goes out of scope, so that no
// event the library created is ever abandoned in the host.
class EventDraft {
 public:
  // Looks the services up and creates the event; a draft with no open event when a needed service or
  // the event is missing. The draft is made in the caller's place (returned by copy elision, never
  // moved), so opening costs no more than the lookups and the creation.
  static EventDraft Open(Lookup lookup);

  EventDraft(const EventDraft&) = delete;
  EventDraft& operator=(const EventDraft&) = delete;
  ~EventDraft() {
    if (event_ != nullptr) DestroyOpen();
  }

  // Whether the draft holds an open event: false when Open failed, and once the event is submitted or
  // destroyed.
  explicit operator bool() const { return event_ != nullptr; }

  iOrbotelemetryAPI* telemetry() const { return telemetry_; }
  // Null for Lookup::kTelemetryOnly.
  ICVWebServiceAPI* web_service() const { return web_service_; }

  template <class E>
  E* Create() const {
    return CreateEntity<E>(telemetry_);
  }

  // The common context list: the client entity (283) and the tracking-info entity (304), in that
  // order, null slots kept. CommonContext builds it for events that append entities of their own
  // (`extra`: how many they may append).
  ContextList CommonContext(const OrboPTPAAP::PTTrackingInfo_s& tracking, size_t extra = 0) const;
  void AttachCommonContext(const OrboPTPAAP::PTTrackingInfo_s& tracking) {
    AttachContextAlways(CommonContext(tracking));
  }
  // The basic context list: entities 170, 159 and 169, each only when the host gives it. With
  // `device_facts`, entity 159 is filled from the client-context cache through its DeviceInfo.
  // `extra`: how many entities the event may append after them.
  ContextList BasicContext(bool device_facts, size_t extra = 0) const;
  // Attaches the list under 203 unless it is empty.
  void AttachContext(ContextList&& list);
  // Attaches the list under 203 whatever it holds, an empty list too.
  void AttachContextAlways(ContextList&& list) {
    event_->AttachEntityList(kContextAttachment, std::move(list).Take());
  }
  // Attaches the body under 201 unless it is null.
  template <class E>
  void AttachBody(E* body) {
    if (body != nullptr) event_->AttachEntity(kBodyAttachment, body);
  }

  // Submits with an empty parameter map; returns 1, the export's result. Should the host throw, the
  // event is still the draft's and is destroyed with it.
  int Submit(SubmitCodes codes) {
    EventParams params;
    telemetry_->SubmitEvent(event_, codes.first, codes.second, &params);
    event_ = nullptr;  // the host has it now
    return 1;
  }
  // Destroys the event instead of submitting it (the event's first operation, with 1); returns 0, the
  // export's result.
  int Destroy();

 private:
  EventDraft(iOrbotelemetryAPI* telemetry, ICVWebServiceAPI* web_service, IOrboEvent* event)
      : telemetry_(telemetry), web_service_(web_service), event_(event) {}
  EventDraft() : EventDraft(nullptr, nullptr, nullptr) {}
  // Destroys the open event on the way out of an export, whatever the host does.
  void DestroyOpen() noexcept;

  iOrbotelemetryAPI* telemetry_;
  ICVWebServiceAPI* web_service_;
  IOrboEvent* event_;  // null once submitted or destroyed
};

// Runs an export's body so that nothing is thrown across the library boundary: any exception
// (a throwing host operation, a failed allocation) gives `on_failure`, the export's documented result
// for that case (0 for tracking exports; what `body` returns is the export's result). Everything the
// library allocates is owned by local objects and released on the way out.
//
// One unwinding is let through: the cancellation of the caller's thread (POSIX threads with glibc, where
// cancellation unwinds the thread's stack as the exception abi::__forced_unwind). Swallowing it would
// abort the process, so it goes on to the thread's end, destroying the open event on its way. Hence
// Guarded is not noexcept, and neither are the exports.
template <class Body, class Result = int>
OET_FORCED_UNWIND_HANDLER Result Guarded(Body&& body, Result on_failure = Result()) {
  try {
    return body();
#if OET_FORCED_UNWIND
  } catch (abi::__forced_unwind&) {
    throw;
#endif
  } catch (...) {
    return on_failure;
  }
}

}  // namespace oet
