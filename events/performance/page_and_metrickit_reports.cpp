// The Android page report and the iOS MetricKit reports (one body, or one sample entity per sample).
#include <vector>

#include "core/host.h"
#include "events/performance/apm_report.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {

using namespace orbo_entity;
using oet::ApmDevice;
using oet::SetUnlessEmpty;

int TrackingApmAndroidPageEvent(const OApmAndroidPageInfo_s& info) {
  using E = ApmAndroidPageEntity;
  return oet::TrackApmBodyReport<E>(oet::kAndroidPageReport, ApmDevice::kWith, [&](E& body) {
    SetUnlessEmpty(&body, &E::SetText1, info.text1);
    SetUnlessEmpty(&body, &E::SetText2, info.text2);
    SetUnlessEmpty(&body, &E::SetText3, info.text3);
    SetUnlessEmpty(&body, &E::SetText4, info.text4);
    SetUnlessEmpty(&body, &E::SetText5, info.text5);
    SetUnlessEmpty(&body, &E::SetText6, info.text6);
    SetUnlessEmpty(&body, &E::SetText7, info.text7);
    SetUnlessEmpty(&body, &E::SetText8, info.text8);
    SetUnlessEmpty(&body, &E::SetText9, info.text9);
    SetUnlessEmpty(&body, &E::SetText10, info.text10);
    SetUnlessEmpty(&body, &E::SetText11, info.text11);
    SetUnlessEmpty(&body, &E::SetText12, info.text12);
    SetUnlessEmpty(&body, &E::SetText13, info.text13);
    SetUnlessEmpty(&body, &E::SetText14, info.text14);
    SetUnlessEmpty(&body, &E::SetText15, info.text15);
    SetUnlessEmpty(&body, &E::SetText16, info.text16);
    SetUnlessEmpty(&body, &E::SetText17, info.text17);
    SetUnlessEmpty(&body, &E::SetText18, info.text18);
    SetUnlessEmpty(&body, &E::SetText19, info.text19);
  });
}

int TrackingApmIOSMetricKitEvent(const OApmIOSMetricKitInfo_s& info) {
  using E = ApmIOSMetricKitEntity;
  return oet::TrackApmBodyReport<E>(oet::kIOSMetricKitReport, ApmDevice::kWith, [&](E& body) {
    SetUnlessEmpty(&body, &E::SetText1, info.text1);
    SetUnlessEmpty(&body, &E::SetText2, info.text2);
    SetUnlessEmpty(&body, &E::SetText3, info.text3);
    SetUnlessEmpty(&body, &E::SetText4, info.text4);
    SetUnlessEmpty(&body, &E::SetText5, info.text5);
    SetUnlessEmpty(&body, &E::SetText6, info.text6);
    SetUnlessEmpty(&body, &E::SetText7, info.text7);
    SetUnlessEmpty(&body, &E::SetText8, info.text8);
    SetUnlessEmpty(&body, &E::SetText9, info.text9);
  });
}

int TrackingApmIOSMetricKitDataEvent(const std::vector<OApmIOSMetricKitDataInfo_s>& samples) {
  return oet::TrackApmReport(oet::kIOSMetricKitDataReport, ApmDevice::kWith, samples.size(),
                             [&](const oet::EventDraft& event, oet::ContextList& list) {
                               for (const OApmIOSMetricKitDataInfo_s& sample : samples) {
                                 auto* entity = event.Create<ApmMetricSampleEntity>();
                                 if (entity == nullptr) continue;  // this sample is dropped, the rest go on
                                 entity->SetNumber(sample.number);
                                 entity->SetValue(sample.value);
                                 SetUnlessEmpty(entity, &ApmMetricSampleEntity::SetText, sample.text);
                                 list.Add(entity);
                               }
                               return true;
                             });
}

}  // namespace OrboPTPAAP
