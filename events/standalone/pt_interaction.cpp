// The main window's tab switch and home-tab interaction events.
#include "core/client_context.h"
#include "core/event.h"
#include "core/vocabulary.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {

using oet::EventDraft;
using oet::Lookup;

int TrackingPTInteractEvent(const PTTrackingInfo_s& tracking, const PTInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    event->AttachCommonContext(tracking);
    if (auto* body = event->Create<orbo_entity::TabSwitchEntity>()) {
      body->Prepare();
      body->SetAction("switch_tab");
      body->SetWebServiceValue(oet::RefreshedClientFacts()->web_service_value.utf8);
      const std::string first_tab = oet::TabToString(info.first_tab);
      const std::string second_tab = oet::TabToString(info.second_tab);
      body->SetFirstTab(first_tab);
      body->SetSecondTab(second_tab);
      event->AttachBody(body);
    }
    return event->Submit(oet::kStandaloneCodes);
  });
}

int TrackingHomeTabInteractEvent(const PTTrackingInfo_s& tracking, const HomeTabInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    event->AttachCommonContext(tracking);
    if (auto* body = event->Create<orbo_entity::HomeTabEntity>()) {
      body->SetElement(oet::HomeTabElementToString(info.element));
      body->SetInteractionType(oet::InteractionTypeToString(info.interaction_type));
      body->SetFeature(oet::HomeTabFeatureToString(info.feature));
      body->SetFifthFlag(info.fifth_flag != 0);
      body->SetThirdFlag(info.third_flag != 0);
      body->SetFirstFlag(info.first_flag != 0);
      body->SetFourthFlag(info.fourth_flag != 0);
      body->SetSecondFlag(info.second_flag != 0);
      event->AttachBody(body);
    }
    return event->Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
