// The clips event: the recorder's configuration (188) beside three plain context entities, and the
// clips interaction (189) as the body. No client context: only the telemetry service is asked.
#include <utility>

#include "core/event.h"
#include "oEventTracker/OrboClipsPAAP.h"

namespace OrboClipsPAAP {
namespace {

using orbo_entity::ClipsConfigEntity;
using orbo_entity::ClipsInteractionEntity;

// In the configuration record's order; texts are set as they are, empty ones included.
void FillConfig(ClipsConfigEntity& entity, const ClipsRecordConfigInfo_s& config) {
  entity.SetSettingText1(config.setting_text1);
  entity.SetSettingValueA(config.setting_value_a);
  entity.SetSettingValueB(config.setting_value_b);
  entity.SetSettingValueC(config.setting_value_c);
  entity.SetSettingText2(config.setting_text2);
  entity.SetSettingValueD(config.setting_value_d);
  entity.SetSettingValueE(config.setting_value_e);
  entity.SetSettingValueF(config.setting_value_f);
  entity.SetSettingText3(config.setting_text3);
  entity.SetSettingText4(config.setting_text4);
  entity.SetSettingValueG(config.setting_value_g);
  entity.SetSettingValueH(config.setting_value_h);
  entity.SetSettingValueI(config.setting_value_i);
  entity.SetSettingValueJ(config.setting_value_j);
}

void FillInteraction(ClipsInteractionEntity& body, const ClipsRecordInteractInfo_s& info) {
  body.SetMarker(1);
  body.SetFirstCode(info.first_code);
  body.SetSecondCode(info.second_code);
  body.SetThirdCode(info.third_code);
  body.SetFourthCode(info.fourth_code);
  body.SetFifthCode(info.fifth_code);
  body.SetDetail(info.detail);
}

}  // namespace

int TrackingClipsInteractEvent(const ClipsRecordInteractInfo_s& info, const ClipsRecordConfigInfo_s& config,
                               const PAAPUserEntityInfo_s& /*user*/) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kTelemetryOnly);
    if (!event) return 0;
    if (info.first_code == 0 || info.second_code == 0 || info.third_code == 0 || info.fifth_code == 0) {
      return event.Destroy();  // the fourth code may be 0
    }
    oet::ContextList list(4);
    list.Add(event.Create<orbo_entity::ClipsContextEntity190>());
    list.Add(event.Create<orbo_entity::ClipsContextEntity192>());
    list.Add(event.Create<orbo_entity::ClipsContextEntity191>());
    auto* entity = event.Create<ClipsConfigEntity>();
    if (entity != nullptr) FillConfig(*entity, config);
    list.Add(entity);
    event.AttachContextAlways(std::move(list));
    if (auto* body = event.Create<ClipsInteractionEntity>()) {
      FillInteraction(*body, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboClipsPAAP
