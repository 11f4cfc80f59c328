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
    event.AttachCommonContext(tracking);
    if (auto* body = event.Create<orbo_entity::TabSwitchEntity>()) {
      static const std::string& kSwitchTab = *new std::string("switch_tab");  // never destroyed
      body->Prepare();
      body->SetAction(kSwitchTab);
      body->SetWebServiceValue(oet::RefreshedClientFacts()->web_service_value.utf8);
      body->SetFirstTab(oet::TabWord(info.first_tab));
      body->SetSecondTab(oet::TabWord(info.second_tab));
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

int TrackingHomeTabInteractEvent(const PTTrackingInfo_s& tracking, const HomeTabInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    event.AttachCommonContext(tracking);
    if (auto* body = event.Create<orbo_entity::HomeTabEntity>()) {
      body->SetElement(oet::HomeTabElementWord(info.element));
      body->SetInteractionType(oet::InteractionTypeWord(info.interaction_type));
      body->SetFeature(oet::HomeTabFeatureWord(info.feature));
      body->SetFifthFlag(info.fifth_flag != 0);
      body->SetThirdFlag(info.third_flag != 0);
      body->SetFirstFlag(info.first_flag != 0);
      body->SetFourthFlag(info.fourth_flag != 0);
      body->SetSecondFlag(info.second_flag != 0);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
