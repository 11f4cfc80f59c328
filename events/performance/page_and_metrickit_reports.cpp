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
  return oet::TrackApmBodyReport<ApmAndroidPageEntity>(
      oet::kAndroidPageReport, ApmDevice::kWith, [&](auto& body) { oet::SetTextsInOrder<19>(body, info); });
}

int TrackingApmIOSMetricKitEvent(const OApmIOSMetricKitInfo_s& info) {
  return oet::TrackApmBodyReport<ApmIOSMetricKitEntity>(
      oet::kIOSMetricKitReport, ApmDevice::kWith, [&](auto& body) { oet::SetTextsInOrder<9>(body, info); });
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
