#include "core/event.h"

#if OET_FORCED_UNWIND
#include <pthread.h>
#endif

#include "core/client_context.h"
#include "core/context_entities.h"

namespace oet {

EventDraft EventDraft::Open(Lookup lookup) {
  ICVWebServiceAPI* web_service = nullptr;
  if (lookup == Lookup::kWebServiceAndTelemetry) {
    EnsureClientContext();
    web_service = GetWebServiceApi();
    if (web_service == nullptr) return EventDraft();
  }
  iOrbotelemetryAPI* telemetry = GetTelemetryApi();
  if (telemetry == nullptr) return EventDraft();
  IOrboEvent* event = telemetry->CreateEvent();
  if (event == nullptr) return EventDraft();
  return EventDraft(telemetry, web_service, event);
}

ContextList EventDraft::CommonContext(const OrboPTPAAP::PTTrackingInfo_s& tracking, size_t extra) const {
  ContextList list(2 + extra);
  list.AddSlot(BuildClientEntity(telemetry_, web_service_));
  list.AddSlot(BuildTrackingInfoEntity(telemetry_, tracking));
  return list;
}

ContextList EventDraft::BasicContext(bool device_facts, size_t extra) const {
  ContextList list(3 + extra);
  list.Add(Create<orbo_entity::BasicContextEntity170>());
  auto* device = Create<orbo_entity::BasicDeviceContextEntity>();
  if (device != nullptr && device_facts) FillDeviceContext(*device);
  list.Add(device);
  list.Add(Create<orbo_entity::BasicContextEntity169>());
  return list;
}

void EventDraft::AttachContext(ContextList&& list) {
  if (!list.empty()) AttachContextAlways(std::move(list));
}

int EventDraft::Destroy() {
  std::exchange(event_, nullptr)->DestroyEvent(1);
  return 0;
}

namespace {

// Holds off the cancellation of the calling thread while it lives (see Guarded): a destructor cannot
// let the cancellation's unwinding through, so it acts at the thread's next cancellation point instead.
// Where threads are not cancelled by unwinding, there is nothing to hold off.
class CancellationHeldOff {
 public:
#if OET_FORCED_UNWIND
  CancellationHeldOff() {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &previous_);
  }
  ~CancellationHeldOff() {
    pthread_setcancelstate(previous_, nullptr);
  }
#else
  CancellationHeldOff() {}
#endif
  CancellationHeldOff(const CancellationHeldOff&) = delete;
  CancellationHeldOff& operator=(const CancellationHeldOff&) = delete;

 private:
#if OET_FORCED_UNWIND
  int previous_ = PTHREAD_CANCEL_ENABLE;
#endif
};

}  // namespace

void EventDraft::DestroyOpen() noexcept {
  const CancellationHeldOff held;
  try {
    Destroy();
  } catch (...) {
    // The host refused to destroy its event; nothing more can be done from here.
  }
}

}  // namespace oet
