// The launch and runtime reports: iOS, Mac and Android launch, Mac runtime and Mac freeze.
#include "core/host.h"
#include "events/performance/apm_report.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {

using namespace orbo_entity;
using oet::ApmDevice;
using oet::SetUnlessEmpty;
using oet::TrackApmBodyReport;

int TrackingApmIOSLaunchEvent(const OApmIOSLaunchInfo_s& info) {
  return TrackApmBodyReport<ApmIOSLaunchEntity>(
      oet::kIOSLaunchReport, ApmDevice::kWith, [&](ApmIOSLaunchEntity& body) {
        // text4 deliberately goes after text7.
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText1, info.text1);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText2, info.text2);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText3, info.text3);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText5, info.text5);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText6, info.text6);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText7, info.text7);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText4, info.text4);
        SetUnlessEmpty(&body, &ApmIOSLaunchEntity::SetText8, info.text8);
      });
}

int TrackingApmMacLaunchEvent(const OApmMacLaunchInfo_s& info) {
  return TrackApmBodyReport<ApmMacLaunchEntity>(oet::kMacLaunchReport, ApmDevice::kWith,
                                                [&](auto& body) { oet::SetTextsInOrder<1>(body, info); });
}

int TrackingApmMacRuntimeEvent(const OApmMacRuntimeInfo_s& info) {
  return TrackApmBodyReport<ApmMacRuntimeEntity>(oet::kMacRuntimeReport, ApmDevice::kWith,
                                                 [&](auto& body) { oet::SetTextsInOrder<2>(body, info); });
}

int TrackingApmMacFreezeEvent(const OApmMacFreezeInfo_s& info) {
  return TrackApmBodyReport<ApmMacFreezeEntity>(oet::kMacFreezeReport, ApmDevice::kWith,
                                                [&](auto& body) { oet::SetTextsInOrder<1>(body, info); });
}

int TrackingApmAndroidLaunchEvent(const OApmAndroidLaunchInfo_s& info) {
  return TrackApmBodyReport<ApmAndroidLaunchEntity>(oet::kAndroidLaunchReport, ApmDevice::kWith,
                                                    [&](auto& body) { oet::SetTextsInOrder<6>(body, info); });
}

}  // namespace OrboPTPAAP
