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
  return TrackApmBodyReport<ApmMacLaunchEntity>(
      oet::kMacLaunchReport, ApmDevice::kWith,
      [&](ApmMacLaunchEntity& body) { SetUnlessEmpty(&body, &ApmMacLaunchEntity::SetText1, info.text1); });
}

int TrackingApmMacRuntimeEvent(const OApmMacRuntimeInfo_s& info) {
  return TrackApmBodyReport<ApmMacRuntimeEntity>(
      oet::kMacRuntimeReport, ApmDevice::kWith, [&](ApmMacRuntimeEntity& body) {
        SetUnlessEmpty(&body, &ApmMacRuntimeEntity::SetText1, info.text1);
        SetUnlessEmpty(&body, &ApmMacRuntimeEntity::SetText2, info.text2);
      });
}

int TrackingApmMacFreezeEvent(const OApmMacFreezeInfo_s& info) {
  return TrackApmBodyReport<ApmMacFreezeEntity>(
      oet::kMacFreezeReport, ApmDevice::kWith,
      [&](ApmMacFreezeEntity& body) { SetUnlessEmpty(&body, &ApmMacFreezeEntity::SetText1, info.text1); });
}

int TrackingApmAndroidLaunchEvent(const OApmAndroidLaunchInfo_s& info) {
  return TrackApmBodyReport<ApmAndroidLaunchEntity>(
      oet::kAndroidLaunchReport, ApmDevice::kWith, [&](ApmAndroidLaunchEntity& body) {
        SetUnlessEmpty(&body, &ApmAndroidLaunchEntity::SetText1, info.text1);
        SetUnlessEmpty(&body, &ApmAndroidLaunchEntity::SetText2, info.text2);
        SetUnlessEmpty(&body, &ApmAndroidLaunchEntity::SetText3, info.text3);
        SetUnlessEmpty(&body, &ApmAndroidLaunchEntity::SetText4, info.text4);
        SetUnlessEmpty(&body, &ApmAndroidLaunchEntity::SetText5, info.text5);
        SetUnlessEmpty(&body, &ApmAndroidLaunchEntity::SetText6, info.text6);
      });
}

}  // namespace OrboPTPAAP
