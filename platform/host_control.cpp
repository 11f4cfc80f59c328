#include "oKstPlatform/host_control.h"

#include "observer.h"

namespace kst_observer {

std::atomic<KstHost::PlatformObserver> g_observer{nullptr};

}  // namespace kst_observer

namespace KstHost {

const char* PlatformFunctionName(PlatformFunction function) {
  switch (function) {
    case PlatformFunction::kGetService:
      return "KstMQ_GetService";
    case PlatformFunction::kGetModule:
      return "IServiceRegistry::GetModule";
    case PlatformFunction::kGetClassObject:
      return "IServiceModule::GetClassObject";
    case PlatformFunction::kGetOrboUrlUtils:
      return "GetOrboUrlUtils";
    case PlatformFunction::kIsDevelopmentUrl:
      return "IOrboUrlUtils::IsDevelopmentUrl";
    case PlatformFunction::kGetOSVersion:
      return "Kst::GetOSVersion";
    case PlatformFunction::kGetSystemProductName:
      return "Kst::GetSystemProductName";
    case PlatformFunction::kGetSystemManufacturer:
      return "Kst::GetSystemManufacturer";
    case PlatformFunction::kGetRegionName:
      return "Kst::GetRegionName";
    case PlatformFunction::kGetGPUModel:
      return "Kst::GetGPUModel";
    case PlatformFunction::kGetCPUType:
      return "Kst::GetCPUType";
    case PlatformFunction::kGetCPUName:
      return "Kst::GetCPUName";
    case PlatformFunction::kGetTotalRAMGB:
      return "Kst::GetTotalRAMGB";
    case PlatformFunction::kGetScreenSizeIn:
      return "Kst::GetScreenSizeIn";
    case PlatformFunction::kGetResolution:
      return "Kst::GetResolution";
    case PlatformFunction::kGetNetworkType:
      return "Kst::GetNetworkType";
    case PlatformFunction::kGetLanguageSetting:
      return "Kst::GetLanguageSetting";
    case PlatformFunction::kGetCurrentVersion:
      return "Kst::GetCurrentVersion";
    case PlatformFunction::kTimeNow:
      return "Kst::Time::Now";
    case PlatformFunction::kUtcExplode:
      return "Kst::Time::UTCExplode";
    case PlatformFunction::kConvertToUtf8:
    case PlatformFunction::kConvertToWide:
      return "kst_str_convert";
    case PlatformFunction::kStringToUInt:
      return "Kst::StringToUInt";
    case PlatformFunction::kInt64ToString:
      return "Kst::Int64ToString";
    case PlatformFunction::kMetricsFetchEventToString:
      return "MetricsFetchEventToString";
    case PlatformFunction::kMetricsFetchHandlerEventToString:
      return "MetricsFetchHandlerEventToString";
    case PlatformFunction::kMetricsFileEventToString:
      return "MetricsFileEventToString";
    case PlatformFunction::kMetricsHeartBeatEventToString:
      return "MetricsHeartBeatEventToString";
    case PlatformFunction::kMetricsLoginEventToString:
      return "MetricsLoginEventToString";
    case PlatformFunction::kMetricsMessageEventToString:
      return "MetricsMessageEventToString";
    case PlatformFunction::kMetricsMessageHandlerEventToString:
      return "MetricsMessageHandlerEventToString";
    case PlatformFunction::kMetricsPlatformEventToString:
      return "MetricsPlatformEventToString";
    case PlatformFunction::kMetricsSpecialEventToString:
      return "MetricsSpecialEventToString";
  }
  return "";
}

void SetPlatformObserver(PlatformObserver observer) {
  kst_observer::g_observer.store(observer, std::memory_order_relaxed);
}

}  // namespace KstHost
