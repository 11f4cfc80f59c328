// The sign-in, basic and preferences interaction events: the basic context entities (the preferences
// entity 158 after them for preferences) and the basic-interaction body (157), with only the telemetry
// service needed.
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using orbo_entity::BasicInteractionEntity;

// Opens the event, attaches the basic context (170, 159, 169; 159 with the device facts when asked)
// followed by what `add_context` appends (at most `extra` entries), lets `fill` set the body's values,
// then sets its two texts and submits.
template <class Record, class AddContext, class Fill>
int TrackBasicInteraction(bool device_facts, size_t extra, AddContext add_context, const Record& info,
                          Fill fill) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kTelemetryOnly);
    if (!event) return 0;
    oet::ContextList list = event.BasicContext(device_facts, extra);
    add_context(event, list);
    event.AttachContext(std::move(list));
    if (auto* body = event.Create<BasicInteractionEntity>()) {
      fill(*body);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextA, &BasicInteractionEntity::SetTextA,
                      info.first_text);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextB, &BasicInteractionEntity::SetTextB,
                      info.second_text);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

const auto kNoMoreContext = [](const oet::EventDraft&, oet::ContextList&) {};

// The six values of a basic interaction (and of a preferences interaction).
template <class Record>
auto BasicValues(const Record& info) {
  return [&info](BasicInteractionEntity& body) {
    body.SetValueF(info.first_value);
    body.SetValueA(info.second_value);
    body.SetValueE(info.sixth_value);
    body.SetValueB(info.third_value);
    body.SetValueC(info.fourth_value);
    body.SetValueD(info.fifth_value);
  };
}

}  // namespace

int TrackingSigninInteractEvent(const PTTrackingInfo_s& /*tracking*/, const OSigninInteractInfo_s& info) {
  return TrackBasicInteraction(true, 0, kNoMoreContext, info, [&](BasicInteractionEntity& body) {
    body.SetSource("client");
    body.SetValueA(info.first_value);
    body.SetValueE(info.fifth_value);
    body.SetValueB(info.second_value);
    body.SetValueC(info.third_value);
    body.SetValueD(info.fourth_value);
  });
}

int TrackingBasicInteractEvent(const PTTrackingInfo_s& /*tracking*/, const OBasicInteractInfo_s& info) {
  return TrackBasicInteraction(false, 0, kNoMoreContext, info, BasicValues(info));
}

int TrackingPreferencesInteractEvent(const PTTrackingInfo_s& /*tracking*/,
                                     const OPreferencesInteractInfo_s& info) {
  const auto add_preferences = [&](const oet::EventDraft& event, oet::ContextList& list) {
    auto* preferences = event.Create<orbo_entity::PreferencesEntity>();
    if (preferences == nullptr) return;
    preferences->SetPreferenceText1(oet::TextOf(info.preference_text1));
    preferences->SetPreferenceText2(oet::TextOf(info.preference_text2));
    preferences->SetPreferenceText3(oet::TextOf(info.preference_text3));
    preferences->SetPreferenceText4(oet::TextOf(info.preference_text4));
    preferences->SetPreferenceText5(oet::TextOf(info.preference_text5));
    preferences->SetPreferenceText6(oet::TextOf(info.preference_text6));
    list.Add(preferences);
  };
  return TrackBasicInteraction(false, 1, add_preferences, info, BasicValues(info));
}

}  // namespace OrboPTPAAP
