// The client crash report: no device entity (the client context is not touched), the caller's crash
// code as the report code, and "0" for an empty first text.
#include <string>

#include "core/host.h"
#include "events/performance/apm_report.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {

using orbo_entity::ApmClientCrashEntity;

int TrackingApmClientCrashEvent(const OApmClientCrashInfo_s& info) {
  using E = ApmClientCrashEntity;
  const oet::ApmReportCode code{oet::kClientCrashCategory, info.crash_code};
  return oet::TrackApmBodyReport<E>(code, oet::ApmDevice::kWithout, [&](E& body) {
    const auto text1 = oet::TextOf(info.text1);
    body.SetText1(text1.empty() ? std::string("0") : text1.str());
    oet::SetUnlessEmpty(&body, &E::SetText2, info.text2);
    oet::SetUnlessEmpty(&body, &E::SetText3, info.text3);
    oet::SetUnlessEmpty(&body, &E::SetText4, info.text4);
  });
}

}  // namespace OrboPTPAAP
