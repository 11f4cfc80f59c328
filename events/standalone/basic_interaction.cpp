// The sign-in and basic interaction events: the basic context entities and the basic-interaction
// body (157), with only the telemetry service needed.
#include "core/event.h"
#include "core/host.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using orbo_entity::BasicInteractionEntity;

// Opens the event, attaches the basic context (170, 159, 169; 159 with the device facts when asked),
// lets `fill` set the body's values, then sets its two texts and submits.
template <class Record, class Fill>
int TrackBasicInteraction(bool device_facts, const Record& info, Fill fill) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kTelemetryOnly);
    if (!event) return 0;
    event->AttachBasicContext(device_facts);
    if (auto* body = event->Create<BasicInteractionEntity>()) {
      fill(*body);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextA, &BasicInteractionEntity::SetTextA,
                      info.first_text);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextB, &BasicInteractionEntity::SetTextB,
                      info.second_text);
      event->AttachBody(body);
    }
    return event->Submit(oet::kStandaloneCodes);
  });
}

}  // namespace

int TrackingSigninInteractEvent(const PTTrackingInfo_s& /*tracking*/, const OSigninInteractInfo_s& info) {
  return TrackBasicInteraction(true, info, [&](BasicInteractionEntity& body) {
    body.SetSource("client");
    body.SetValueA(info.first_value);
    body.SetValueE(info.fifth_value);
    body.SetValueB(info.second_value);
    body.SetValueC(info.third_value);
    body.SetValueD(info.fourth_value);
  });
}

int TrackingBasicInteractEvent(const PTTrackingInfo_s& /*tracking*/, const OBasicInteractInfo_s& info) {
  return TrackBasicInteraction(false, info, [&](BasicInteractionEntity& body) {
    body.SetValueF(info.first_value);
    body.SetValueA(info.second_value);
    body.SetValueE(info.sixth_value);
    body.SetValueB(info.third_value);
    body.SetValueC(info.fourth_value);
    body.SetValueD(info.fifth_value);
  });
}

}  // namespace OrboPTPAAP
